#include "registry_file.h"

#include <QtCore/QtEndian>

namespace machine {
namespace {

constexpr quint32 textType = 1;
constexpr quint32 binaryType = 3;
constexpr quint32 numberType = 4;

QString escaped(const QString &text)
{
    QString result = text;
    result.replace(QLatin1Char('\\'), QLatin1String("\\\\"));
    result.replace(QLatin1Char('"'), QLatin1String("\\\""));
    return result;
}

/// Whether a quoted text can represent the value: REG_SZ with exactly one null, which is the
/// terminator, and without a line break. Sets \a text.
bool isPlainText(const RegistryValue &value, QString &text)
{
    const QByteArray &data = value.data;
    if (value.type != textType || data.size() % 2 != 0 || data.isEmpty())
        return false;
    text.clear();
    for (int i = 0; i + 1 < data.size(); i += 2)
        text += QChar(qFromLittleEndian<quint16>(data.constData() + i));
    if (!text.endsWith(QChar(QChar::Null)))
        return false;
    text.chop(1);
    return !text.contains(QChar(QChar::Null)) && !text.contains(QLatin1Char('\n')) && !text.contains(QLatin1Char('\r'));
}

/// \a start and the bytes of \a data, separated by commas, with the registry editor's line breaks.
QString byteList(QString start, const QByteArray &data)
{
    constexpr int longestLine = 76;
    QString text;
    QString line = std::move(start);
    for (int i = 0; i < data.size(); ++i) {
        const QString byte = QStringLiteral("%1").arg(int(uchar(data.at(i))), 2, 16, QLatin1Char('0'));
        if (line.size() + byte.size() > longestLine) {
            text += line + QStringLiteral("\\\r\n");
            line = QStringLiteral("  ");
        }
        line += byte;
        if (i + 1 < data.size())
            line += QLatin1Char(',');
    }
    return text + line;
}

QString valueLine(const RegistryValue &value)
{
    const QString name = value.name.isEmpty() ? QStringLiteral("@") : QLatin1Char('"') + escaped(value.name) + QLatin1Char('"');
    QString text;
    if (isPlainText(value, text))
        return name + QStringLiteral("=\"") + escaped(text) + QLatin1Char('"');
    if (value.type == numberType && value.data.size() == 4) {
        return name
            + QStringLiteral("=dword:%1")
                  .arg(qFromLittleEndian<quint32>(value.data.constData()), 8, 16, QLatin1Char('0'));
    }
    const QString kind = value.type == binaryType ? QStringLiteral("=hex:")
                                                  : QStringLiteral("=hex(%1):").arg(value.type, 0, 16);
    return byteList(name + kind, value.data);
}

QString keyBlock(const RegistryKey &key, const QString &path)
{
    const QString lineEnd = QStringLiteral("\r\n");
    QString text = lineEnd + QLatin1Char('[') + path + QLatin1Char(']') + lineEnd;
    for (const RegistryValue &value : key.values())
        text += valueLine(value) + lineEnd;
    for (std::size_t i = 0; i < key.subKeyCount(); ++i) {
        const auto subKey = key.subKeyAt(i);
        text += keyBlock(*subKey, path + QLatin1Char('\\') + subKey->name());
    }
    return text;
}

} // namespace

QByteArray writeRegistryFile(const Registry &registry)
{
    QString text = QStringLiteral("Windows Registry Editor Version 5.00\r\n");
    for (const auto &key : registry.roots()) {
        if (key->subKeyCount() > 0 || !key->values().empty())
            text += keyBlock(*key, key->name());
    }
    QByteArray bytes("\xff\xfe");
    for (const QChar unit : qAsConst(text)) {
        bytes += char(unit.cell());
        bytes += char(unit.row());
    }
    return bytes;
}

} // namespace machine
