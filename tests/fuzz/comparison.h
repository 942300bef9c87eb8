// Compares descriptions of machines.
#pragma once

#include "machine.h"

bool isSame(const machine::Registry &left, const machine::Registry &right);

/// The name of the first member in which \a left and \a right differ; empty if they are equal.
QByteArray differenceOf(const machine::SystemAnswers &left, const machine::SystemAnswers &right);
