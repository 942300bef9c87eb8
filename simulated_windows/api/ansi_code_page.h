// The ANSI code pages that a described machine can have.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace simulated {

/// Converts between UTF-16 and an ANSI code page as Windows does for its A calls.
class AnsiCodePage
{
public:
    /// 1252, 1250, 1251, 932 or 65001.
    explicit AnsiCodePage(int number = 1252);

    int number() const { return m_number; }

    /// A character that the code page lacks becomes a similar one (best fit), else '?',
    /// one for each UTF-16 unit; a lone surrogate is U+FFFD in 65001.
    QByteArray fromUtf16(const QString &text) const;
    /// Bytes that mean nothing become U+FFFD, in 932 U+30FB; but a hole of a single-byte
    /// code page is the C1 control of the same number.
    QString toUtf16(const QByteArray &text) const;

private:
    int m_number;
};

} // namespace simulated
