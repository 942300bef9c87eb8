// make_report_seeds FOLDER DICTIONARY REPORT...
//
// Writes pieces of the reports to FOLDER as inputs of the fuzz target "reports": as they are, as
// JSON and as mails and terminals change them. Writes the fixed texts of the catalogue to
// DICTIONARY, in libFuzzer's form.

#include "vkReports.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QSet>
#include <algorithm>
#include <cstdio>

using namespace velkor::Reports;

namespace {

constexpr int longestPiece = 3000; // bytes; small inputs mutate better
constexpr int longestWord = 64;    // libFuzzer ignores longer ones

bool write(const QString &fileName, const QByteArray &contents)
{
    QFile file(fileName);
    if (file.open(QIODevice::WriteOnly) && file.write(contents) == contents.size() && file.flush())
        return true;
    std::fprintf(stderr, "%s: %s\n", qPrintable(fileName), qPrintable(file.errorString()));
    return false;
}

/// Sections of the report; long ones in several pieces that begin at a line.
QList<QByteArray> piecesOf(const QByteArray &report)
{
    const QByteArray separator = separatorLine() + '\n';
    QList<QByteArray> pieces;
    int begin = 0;
    while (begin < report.size()) {
        int end = report.indexOf(separator, begin);
        end = end < 0 ? report.size() : end + separator.size();
        if (end - begin > longestPiece)
            end = report.lastIndexOf('\n', begin + longestPiece) + 1;
        if (end <= begin)
            end = report.size();
        pieces += report.mid(begin, end - begin);
        begin = end;
    }
    return pieces;
}

QByteArray utf16(const QByteArray &text)
{
    const QString units = QString::fromUtf8(text);
    return QByteArray("\xff\xfe") + QByteArray(reinterpret_cast<const char *>(units.utf16()), units.size() * 2);
}

/// One of the forms that a text gets on its way.
QByteArray changed(const QByteArray &piece, int form)
{
    QByteArray text = piece;
    switch (form) {
    case 1:
        return toJson(read(piece));
    case 2:
        return text.replace("\n", "\r\n");
    case 3:
        return "> " + text.replace("\n", "\n> ");
    case 4:
        return utf16(piece);
    case 5:
        return "Hello,\n\n" + text.replace("  ", " ") + "Regards\n";
    default:
        return piece;
    }
}

bool writeSeeds(const QString &folder, const QString &name, const QByteArray &report)
{
    int number = 0;
    const QList<QByteArray> pieces = piecesOf(report);
    for (const QByteArray &piece : pieces) {
        const QString file = QStringLiteral("%1/%2-%3").arg(folder, name).arg(number, 3, 10, QLatin1Char('0'));
        const int form = 1 + number % 5;
        if (!write(file, piece) || !write(file + QStringLiteral("-%1").arg(form), changed(piece, form)))
            return false;
        ++number;
    }
    return true;
}

QByteArray escaped(const QByteArray &word)
{
    QByteArray text;
    for (const char byte : word) {
        if (byte >= ' ' && byte <= '~' && byte != '"' && byte != '\\')
            text += byte;
        else
            text += "\\x" + QByteArray(1, byte).toHex();
    }
    return text;
}

/// The words of the dictionary, each once.
QSet<QByteArray> words()
{
    QSet<QByteArray> words = {halfHeading(Half::Windows) + '\n', halfHeading(Half::Qt) + '\n', "\r\n", "\n> ", "\xef\xbb\xbf"};
    for (const SectionRow &section : sectionRows())
        words += section.heading;
    for (const FactRow &fact : factRows()) {
        words += fact.label().toUtf8();
        words += '\n' + fact.label().toUtf8();
        words += '"' + QByteArray(fact.key) + "\":";
    }
    for (const ItemRow &item : itemRows()) {
        for (const char *text : {item.before, item.between, item.after})
            words += text;
    }
    return words;
}

QByteArray dictionary()
{
    QList<QByteArray> sorted = words().values();
    std::sort(sorted.begin(), sorted.end());
    QByteArray text;
    for (const QByteArray &word : qAsConst(sorted)) {
        if (!word.isEmpty() && word.size() <= longestWord)
            text += '"' + escaped(word) + "\"\n";
    }
    return text;
}

bool makeSeeds(const QString &folder, const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "%s: %s\n", qPrintable(fileName), qPrintable(file.errorString()));
        return false;
    }
    const QFileInfo info(fileName);
    return writeSeeds(folder, info.dir().dirName() + QLatin1Char('-') + info.baseName(), file.readAll());
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc < 4) {
        std::fprintf(stderr, "usage: make_report_seeds FOLDER DICTIONARY REPORT...\n");
        return 2;
    }
    const QString folder = QFile::decodeName(argv[1]);
    if (!QDir().mkpath(folder) || !write(QFile::decodeName(argv[2]), dictionary()))
        return 1;
    for (int i = 3; i < argc; ++i) {
        if (!makeSeeds(folder, QFile::decodeName(argv[i])))
            return 1;
    }
    return 0;
}
