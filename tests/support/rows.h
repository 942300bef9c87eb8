// Data-driven tests whose rows are a name and a function.
#pragma once

#include "test_main.h"

#include <functional>

/// Adds a row to the current test. \a check is its test function: it uses QCOMPARE and QVERIFY.
void addTestRow(const QString &name, const std::function<void()> &check);

/// Calls \a rows, and prefixes the names of the rows that it adds with "GROUP: ".
void addTestRows(const QString &group, void (*rows)());

/// A test class whose rows \a rows adds.
class RowTest : public QObject
{
    Q_OBJECT

public:
    explicit RowTest(void (*rows)()) : m_rows(rows) { }

private Q_SLOTS:
    void row_data();
    void row();

private:
    void (*m_rows)();
};

Q_DECLARE_METATYPE(std::function<void()>)
