#include "ansi_code_page.h"
#include "ansi_text.h"

QByteArray toAnsi(const QString &text, int codePage)
{
    return simulated::AnsiCodePage(codePage).fromUtf16(text);
}

QString fromAnsi(const QByteArray &bytes, int codePage)
{
    return simulated::AnsiCodePage(codePage).toUtf16(bytes);
}
