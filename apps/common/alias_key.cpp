#include "alias_key.h"

#include "private_file.h"

#include <QtCore/QRandomGenerator>

namespace {

constexpr int shortestKey = 16;    // bytes
constexpr int longestKey = 4096;   // bytes
constexpr int longestFile = 65536; // bytes, of which white space at the end does not count

QByteArray newKey()
{
    quint32 words[8] = {};
    QRandomGenerator::system()->fillRange(words);
    return QByteArray(reinterpret_cast<const char *>(words), sizeof(words)).toHex();
}

bool isSpace(char byte)
{
    return byte == ' ' || (byte >= '\t' && byte <= '\r');
}

QByteArray withoutSpacesAtEnd(QByteArray bytes)
{
    int size = bytes.size();
    while (size > 0 && isSpace(bytes.at(size - 1)))
        --size;
    bytes.truncate(size);
    return bytes;
}

QByteArray keyIn(const QByteArray &content, const QString &fileName, QString &error)
{
    QByteArray key = withoutSpacesAtEnd(content);
    if (content.size() <= longestFile && key.size() >= shortestKey && key.size() <= longestKey)
        return key;
    error = QStringLiteral("'%1' holds no key: a key has %2 to %3 bytes").arg(fileName).arg(shortestKey).arg(longestKey);
    return QByteArray();
}

} // namespace

// Another program can make the file after this one has not found it: then its key counts.
QByteArray readAliasKey(const QString &fileName, QString &error)
{
    QByteArray content;
    FileResult result = readPrivateFile(fileName, longestFile + 1, content, error);
    if (result == FileResult::Missing) {
        content = newKey() + '\n';
        result = makePrivateFile(fileName, content, error);
        if (result == FileResult::Exists)
            result = readPrivateFile(fileName, longestFile + 1, content, error);
    }
    if (result == FileResult::Done)
        return keyIn(content, fileName, error);
    if (result != FileResult::Failed)
        error = QStringLiteral("cannot read '%1': it is a link to nothing").arg(fileName);
    return QByteArray();
}
