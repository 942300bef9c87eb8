#include "word_list.h"

#include "decoded_text.h"
#include "program_input.h"
#include "text_encoding.h"
#include "vkReports.h"

using namespace velkor;

namespace {

constexpr int mostEntries = 10000; // in all files of an option

/// UTF-8 without a byte-order mark.
QByteArray withoutEncoding(const QByteArray &bytes)
{
    const Reports::Encoding encoding = Reports::detectEncoding(bytes);
    const QByteArray text = encoding == Reports::Encoding::Utf8 ? bytes : Reports::fromUtf16(bytes, encoding);
    return text.startsWith("\xef\xbb\xbf") ? text.mid(3) : text;
}

/// The entry of a line; empty if there is none.
QByteArray entryOf(const QByteArray &line)
{
    const QByteArray text = line.trimmed();
    if (text.startsWith('#'))
        return QByteArray();
    return text.startsWith("\\#") ? text.mid(1) : text;
}

/// Returns what is wrong, or an empty text.
QString appendEntry(const QByteArray &line, QStringList &entries)
{
    const QByteArray bytes = entryOf(line);
    if (bytes.isEmpty())
        return QString();
    if (!Reports::isUtf8(bytes))
        return QStringLiteral("the line is neither UTF-8 nor UTF-16");
    if (entries.size() == mostEntries)
        return QStringLiteral("there are more than %1 entries").arg(mostEntries);
    const QString entry = Reports::decodedText(bytes);
    entries += entry;
    return Reports::redactionEntryError(entry);
}

} // namespace

bool readWordList(const QString &fileName, QStringList &entries, QString &error)
{
    QByteArray bytes;
    if (!readInput(fileName, bytes, error))
        return false;
    const QByteArray text = withoutEncoding(bytes);
    int number = 1;
    for (int begin = 0; begin < text.size(); ++number) {
        const int lineFeed = text.indexOf('\n', begin);
        const int end = lineFeed < 0 ? text.size() : lineFeed;
        const QString reason = appendEntry(text.mid(begin, end - begin), entries);
        if (!reason.isEmpty()) {
            error = QStringLiteral("'%1', line %2: %3").arg(fileName).arg(number).arg(reason);
            return false;
        }
        begin = end + 1;
    }
    return true;
}
