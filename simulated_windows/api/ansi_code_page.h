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

    /// A UTF-16 unit that the code page lacks becomes its best-fit character, or '?' if it has
    /// none. In 65001 a lone surrogate becomes U+FFFD.
    QByteArray fromUtf16(const QString &text) const;
    /// An undefined byte of a single-byte code page becomes the C1 control of the same number.
    /// An undefined pair of 932 becomes U+30FB, and invalid bytes of 65001 become U+FFFD.
    QString toUtf16(const QByteArray &text) const;

private:
    int m_number;
};

} // namespace simulated
