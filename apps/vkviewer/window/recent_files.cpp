#include "recent_files.h"

#include "window_settings.h"

namespace {

constexpr char key[] = "recentFiles";
#ifdef Q_OS_WIN
constexpr Qt::CaseSensitivity caseOfPaths = Qt::CaseInsensitive;
#else
constexpr Qt::CaseSensitivity caseOfPaths = Qt::CaseSensitive;
#endif

QStringList without(const QStringList &paths, const QString &path)
{
    QStringList others;
    for (const QString &one : paths) {
        if (one.compare(path, caseOfPaths) != 0)
            others << one;
    }
    return others;
}

} // namespace

RecentFiles::RecentFiles(QObject *parent)
    : QObject(parent)
{
}

QStringList RecentFiles::paths() const
{
    return WindowSettings::texts(key).mid(0, most);
}

void RecentFiles::add(const QString &path)
{
    set((QStringList(path) + without(paths(), path)).mid(0, most));
}

void RecentFiles::clear()
{
    set({});
}

void RecentFiles::set(const QStringList &paths)
{
    WindowSettings::setTexts(key, paths);
    Q_EMIT changed();
}
