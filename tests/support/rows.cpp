#include "rows.h"

using Check = std::function<void()>;

namespace {

QString &prefix()
{
    static QString thePrefix;
    return thePrefix;
}

} // namespace

void addTestRow(const QString &name, const Check &check)
{
    QTest::newRow(qPrintable(prefix() + name)) << check;
}

void addTestRows(const QString &group, void (*rows)())
{
    prefix() = group + QStringLiteral(": ");
    rows();
    prefix().clear();
}

void RowTest::row_data()
{
    QTest::addColumn<Check>("check");
    m_rows();
}

void RowTest::row()
{
    QFETCH(Check, check);
    check();
}
