// Values of reports in cells and tooltips. They come from strangers and can be of any length.
#pragma once

#include <QtCore/QString>

/// What Ctrl+C copies of a cell: all of it.
constexpr int CopyRole = 0x0100; // Qt::UserRole

/// The value on one line, of bounded length, without invisible characters.
QString cellText(const QString &value);

/// The value for a tooltip: HTML in which nothing of the value has an effect, and of bounded length.
QString cellToolTip(const QString &value);

/// The value for a table of text: on one line, without tabs, and no formula for a spreadsheet.
QString copiedText(const QString &value);
