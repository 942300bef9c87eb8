// Compares whole texts of the report.
#pragma once

#include <QtCore/QString>
#include <QtTest/QtTest>

/// Like QCOMPARE, but the message starts with the first line that differs, in quotation marks.
#define COMPARE_TEXT(actual, expected)                             \
  do {                                                             \
    const QString actualText = (actual);                           \
    const QString expectedText = (expected);                       \
    if (actualText != expectedText)                                \
      QFAIL(qPrintable(textDifference(actualText, expectedText))); \
  } while (false)

QString textDifference(const QString &actual, const QString &expected);
