// Comparing whole report texts.
#pragma once

#include <QtCore/QString>
#include <QtTest/QtTest>

/// As QCOMPARE, but shows the first line that differs, with its blanks, first.
#define COMPARE_TEXT(actual, expected)                             \
  do {                                                             \
    const QString actualText = (actual);                           \
    const QString expectedText = (expected);                       \
    if (actualText != expectedText)                                \
      QFAIL(qPrintable(textDifference(actualText, expectedText))); \
  } while (false)

QString textDifference(const QString &actual, const QString &expected);
