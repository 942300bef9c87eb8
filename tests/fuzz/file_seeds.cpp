#include "file_seeds.h"

#include "byte_stream.h"
#include "registry_file.h"
#include "system_file.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

namespace {

constexpr int longestPiece = 1500; // characters; small inputs mutate better

/// The blocks of \a text, each from the bracket of a key to the next.
QStringList blocks(const QString &text)
{
    QStringList result;
    int from = text.indexOf(QLatin1String("\n["));
    while (from >= 0) {
        const int to = text.indexOf(QLatin1String("\n["), from + 1);
        result += text.mid(from + 1, to < 0 ? -1 : to - from);
        from = to;
    }
    return result;
}

/// Pieces of registry.reg, each with some keys; every fourth in UTF-16, the others in UTF-8.
QMap<QString, QByteArray> registryFileSeeds(const machine::Registry &registry)
{
    QMap<QString, QByteArray> seeds;
    const QString firstLine = QStringLiteral("Windows Registry Editor Version 5.00\r\n");
    QString piece;
    const auto end = [&] {
        const int number = seeds.size();
        const QString contents = firstLine + piece;
        seeds[QStringLiteral("registry-%1").arg(number, 2, 10, QLatin1Char('0'))]
            = number % 4 == 3 ? "\xff\xfe" + utf16Bytes(contents) : contents.toUtf8();
        piece.clear();
    };
    const QStringList keys = blocks(utf16Text(machine::writeRegistryFile(registry)));
    for (const QString &key : keys) {
        if (piece.size() + key.size() > longestPiece && !piece.isEmpty())
            end();
        piece += key;
    }
    end();
    return seeds;
}

/// Pieces of system.json, each with one member.
QMap<QString, QByteArray> systemFileSeeds(const machine::Machine &machine)
{
    QMap<QString, QByteArray> seeds;
    const QJsonObject object = QJsonDocument::fromJson(machine::writeSystemFile(machine)).object();
    for (auto it = object.begin(); it != object.end(); ++it) {
        seeds[QStringLiteral("system-") + it.key().toLower()]
            = QJsonDocument(QJsonObject {{it.key(), it.value()}}).toJson(QJsonDocument::Compact);
    }
    return seeds;
}

} // namespace

QMap<QString, QByteArray> fileSeedsOf(const machine::Machine &machine)
{
    QMap<QString, QByteArray> seeds = registryFileSeeds(machine.registry);
    seeds.insert(systemFileSeeds(machine));
    return seeds;
}
