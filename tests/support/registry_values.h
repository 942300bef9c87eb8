// Lines of registry.reg.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QByteArrayList>
#include <QtCore/QString>
#include <QtCore/QStringList>

/// The heading of a key below HKEY_LOCAL_MACHINE.
inline QByteArray machineKey(const QByteArray &path)
{
    return "[HKEY_LOCAL_MACHINE\\" + path + "]\n";
}

/// UTF-16LE as the registry stores it, without a terminator.
inline QByteArray utf16Data(const QString &text)
{
    return QByteArray(reinterpret_cast<const char *>(text.utf16()), 2 * text.size());
}

/// A value of the type number \a type with the bytes \a data.
inline QByteArray hexValue(const QByteArray &name, quint32 type, const QByteArray &data)
{
    return '"' + name + "\"=hex(" + QByteArray::number(type, 16) + "):" + data.toHex(',') + '\n';
}

/// A terminated REG_SZ.
inline QByteArray textValue(const QByteArray &name, const QString &text)
{
    return hexValue(name, 1, utf16Data(text + QChar()));
}

/// REG_BINARY.
inline QByteArray binaryValue(const QByteArray &name, const QByteArray &data)
{
    return hexValue(name, 3, data);
}

/// REG_DWORD.
inline QByteArray numberValue(const QByteArray &name, quint32 number)
{
    return '"' + name + "\"=dword:" + QByteArray::number(number, 16) + '\n';
}

/// A REG_MULTI_SZ with both levels of terminators.
inline QByteArray listValue(const QByteArray &name, const QStringList &strings)
{
    QString data;
    for (const QString &string : strings)
        data += string + QChar();
    return hexValue(name, 7, utf16Data(data + QChar()));
}

/// A system.json that denies the keys \a names below \a parent. An empty name is the parent itself.
inline QByteArray deniedBelow(const QByteArray &parent, const QByteArrayList &names)
{
    QByteArrayList texts;
    for (const QByteArray &name : names)
        texts += '"' + QByteArray(name.isEmpty() ? parent : parent + '\\' + name).replace('\\', "\\\\") + '"';
    return "{\"deniedKeys\": [" + texts.join(", ") + "]}";
}
