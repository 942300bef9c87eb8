#include "report/text.h"

#include <cstring>

namespace velkor {
namespace SystemInfo {
namespace {

void makeRoom(QString &text, int more)
{
    constexpr int least = 256; // fewer units would need several allocations in every section
    const int needed = text.size() + more;
    if (needed > text.capacity())
        text.reserve(qMax(qMax(needed, least), text.size() + text.size() / 4));
}

} // namespace

QString detached(QString text)
{
    text.detach();
    return text;
}

void append(QString &text, const QString &more)
{
    makeRoom(text, more.size());
    text += more;
}

void appendSection(QString &text, QString section)
{
    section.squeeze();
    append(text, section);
}

void appendLine(QString &text, const QString &line)
{
    makeRoom(text, line.size() + newline.size());
    text += line;
    text += newline;
}

void appendLine(QString &text, const char *format, QStringView value)
{
    const char *const placeholder = std::strstr(format, "%1");
    Q_ASSERT(placeholder);
    const QLatin1String before(format, int(placeholder - format));
    const QLatin1String after(placeholder + 2);
    makeRoom(text, before.size() + int(value.size()) + after.size() + newline.size());
    text += before;
    text.append(value.data(), int(value.size()));
    text += after;
    text += newline;
}

} // namespace SystemInfo
} // namespace velkor
