// Headers that most tests include, compiled once. Each test still includes what it uses.
#pragma once

#include <QtCore/QtCore>
#include <QtTest/QtTest>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>
