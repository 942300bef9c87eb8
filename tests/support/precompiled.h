// What most tests include, compiled once. A test includes what it uses all the same.
#pragma once

#include <QtCore/QtCore>
#include <QtTest/QtTest>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>
