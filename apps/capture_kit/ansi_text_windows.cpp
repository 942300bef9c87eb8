#include "ansi_text.h"

#include <windows.h>

QByteArray toAnsi(const QString &text, int codePage)
{
    const auto *units = reinterpret_cast<const wchar_t *>(text.utf16());
    const int size = WideCharToMultiByte(UINT(codePage), 0, units, text.size(), nullptr, 0, nullptr, nullptr);
    QByteArray bytes(size, '\0');
    WideCharToMultiByte(UINT(codePage), 0, units, text.size(), bytes.data(), size, nullptr, nullptr);
    return bytes;
}

QString fromAnsi(const QByteArray &bytes, int codePage)
{
    const int size = MultiByteToWideChar(UINT(codePage), 0, bytes.constData(), bytes.size(), nullptr, 0);
    QString text(size, QChar::Null);
    MultiByteToWideChar(UINT(codePage), 0, bytes.constData(), bytes.size(), reinterpret_cast<wchar_t *>(text.data()), size);
    return text;
}
