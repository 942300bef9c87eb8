#include "declared_calls.h"

#include <QtCore/QDir>
#include <QtCore/QRegularExpression>

namespace {

/// Everything between extern "C" { and }, without preprocessor lines and comments.
QString declarations(const QString &header)
{
    static const QRegularExpression noise(QStringLiteral("^\\s*#.*$|//.*$"), QRegularExpression::MultilineOption);
    static const QRegularExpression block(QStringLiteral("extern \"C\" \\{([^}]*)\\}"));
    QString text = header;
    text.remove(noise);
    QString result;
    auto blocks = block.globalMatch(text);
    while (blocks.hasNext())
        result += blocks.next().captured(1);
    return result;
}

} // namespace

QStringList declaredCalls()
{
    static const QRegularExpression declaration(QStringLiteral("\\A[\\w\\s*]+?(\\w+)\\([^()]*\\)\\z"));
    const QDir folder(QStringLiteral(SIMULATED_HEADERS_DIR));
    QStringList result;
    for (const QString &name : folder.entryList(QDir::Files)) {
        QFile file(folder.filePath(name));
        if (!file.open(QIODevice::ReadOnly))
            qFatal("%s: cannot be read", qPrintable(name));
        const QStringList statements = declarations(QString::fromUtf8(file.readAll())).split(QLatin1Char(';'));
        for (const QString &statement : statements) {
            if (statement.trimmed().isEmpty())
                continue;
            const QRegularExpressionMatch match = declaration.match(statement.trimmed());
            if (!match.hasMatch())
                qFatal("%s: not understood: %s", qPrintable(name), qPrintable(statement));
            result += match.captured(1);
        }
    }
    return result;
}
