// Finds equal lines of two texts.
#pragma once

#include <QtCore/QByteArray>
#include <utility>
#include <vector>

/// Pairs of indexes of equal lines, both in ascending order: a long common sequence, found in nearly linear time.
std::vector<std::pair<int, int>> equalLines(const std::vector<QByteArray> &left, const std::vector<QByteArray> &right);
