// Whether two descriptions of a machine say the same.
#pragma once

#include "machine.h"

bool isSame(const machine::Registry &left, const machine::Registry &right);

/// The name of the first member of \a left that \a right has otherwise; empty when there
/// is none.
QByteArray differenceOf(const machine::SystemAnswers &left, const machine::SystemAnswers &right);
