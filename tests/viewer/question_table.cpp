#include "question_table.h"

#include <QtCore/QFile>

namespace {

QByteArray contents(const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(fileName));
    return file.readAll();
}

} // namespace

std::vector<QStringList> questionRows(const char *table)
{
    std::vector<QStringList> rows;
    QStringList lines = QString::fromUtf8(contents(questionFile(QLatin1String(table)))).split(QLatin1Char('\n'));
    const int columns = lines.takeFirst().count(QLatin1Char('\t')) + 1;
    for (const QString &line : qAsConst(lines)) {
        if (line.isEmpty())
            continue;
        rows.push_back(line.split(QLatin1Char('\t')));
        if (rows.back().size() != columns)
            qFatal("%s: a row has %d columns: %s", table, rows.back().size(), qPrintable(line));
    }
    if (rows.empty())
        qFatal("%s has no rows", table);
    return rows;
}

QString questionFile(const QString &name)
{
    const bool isDocument = name.startsWith(QLatin1String("docs/"));
    return QLatin1String(isDocument ? PROJECT_DIR "/" : PROJECT_DIR "/tests/viewer/questions/") + name;
}

QByteArray questionText(const QString &name)
{
    return contents(questionFile(name));
}

QString withoutEscapes(const QString &text)
{
    QString result;
    for (int i = 0; i < text.size(); ++i) {
        if (text.at(i) != QLatin1Char('\\')) {
            result += text.at(i);
            continue;
        }
        const QChar escape = text.at(++i); // a wrong table ends the test here
        if (escape == QLatin1Char('u')) {
            const int end = text.indexOf(QLatin1Char('}'), i);
            const uint code = text.mid(i + 2, end - i - 2).toUInt(nullptr, 16);
            result += code < 0x10000 ? QString(QChar(code)) : QString::fromUcs4(&code, 1); // which drops U+FEFF
            i = end;
        } else {
            result += escape == QLatin1Char('t') ? QLatin1Char('\t') : escape == QLatin1Char('n') ? QLatin1Char('\n')
                : escape == QLatin1Char('r')                                                      ? QLatin1Char('\r')
                                                                                                  : QLatin1Char('\\');
        }
    }
    return result;
}
