// Tests as tables: a row is a name and a check.
#pragma once

#include "test_main.h"

#include <functional>

/// A row of the test that is about to run. \a check compares as a QtTest function does.
void addTestRow(const QString &name, const std::function<void()> &check);

/// The rows that a function adds; "GROUP: " starts their names.
void addTestRows(const QString &group, void (*rows)());

/// The rows that a function adds, as a test class.
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
