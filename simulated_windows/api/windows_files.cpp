#include "windows_files.h"

#include "simulated_windows.h"

#include <QtCore/QDir>
#include <private/qabstractfileengine_p.h>

namespace simulated {
namespace {

/// The path with forward slashes, as Qt writes it.
QString qtPath(const QString &path)
{
    QString result = path;
    return result.replace(QLatin1Char('\\'), QLatin1Char('/'));
}

/// A backslash is a plain letter of a file name away from Windows, so a path that
/// the sections make is told by it.
bool isWindowsPath(const QString &path)
{
    return path.contains(QLatin1String("\\WinSxS"), Qt::CaseInsensitive);
}

/// The section lists the WinSxS folder of the Windows directory and nothing else.
/// A name below it is one that the listing gave.
class WindowsFileEngine : public QAbstractFileEngine
{
public:
    explicit WindowsFileEngine(const QString &path) : m_path(qtPath(path)) { }

    FileFlags fileFlags(FileFlags type) const override
    {
        const FileFlags all = ExistsFlag | FileFlags(0x7777);
        if (isFolder(m_path) || isEntry())
            return type & (all | DirectoryType);
        return isFile() ? type & (all | FileType) : FileFlags();
    }

    QString fileName(FileName file) const override
    {
        const int slash = m_path.lastIndexOf(QLatin1Char('/'));
        if (file == BaseName)
            return m_path.mid(slash + 1);
        return file == PathName || file == AbsolutePathName ? m_path.left(slash) : m_path;
    }

    bool isRelativePath() const override { return false; }
    bool caseSensitive() const override { return false; }

    Iterator *beginEntryList(QDir::Filters filters, const QStringList &filterNames) override
    {
        QStringList names;
        if (isFolder(m_path))
            names = QStringList({QStringLiteral("."), QStringLiteral("..")}) + *machineInUse().system.WinSxS
                + WinSxSFiles::names();
        return new NameIterator(filters, filterNames, names);
    }

private:
    class NameIterator : public QAbstractFileEngineIterator
    {
    public:
        NameIterator(QDir::Filters filters, const QStringList &filterNames, const QStringList &names)
            : QAbstractFileEngineIterator(filters, filterNames), m_names(names)
        { }
        bool hasNext() const override { return m_index + 1 < m_names.size(); }
        QString next() override
        {
            ++m_index;
            return currentFilePath();
        }
        QString currentFileName() const override { return m_names.value(m_index); }

    private:
        const QStringList m_names;
        int m_index = -1;
    };

    static bool isFolder(const QString &path)
    {
        const auto &directory = machineInUse().system.GetSystemWindowsDirectory;
        if (!directory || !machineInUse().system.WinSxS)
            return false;
        const QString folder = QDir::cleanPath(qtPath(*directory) + QStringLiteral("/WinSxS"));
        return QDir::cleanPath(path).compare(folder, Qt::CaseInsensitive) == 0;
    }

    bool isEntry() const
    {
        const QString name = fileName(BaseName);
        return isFolder(fileName(PathName))
            && (machineInUse().system.WinSxS->contains(name) || name == QLatin1String(".."));
    }

    bool isFile() const { return isFolder(fileName(PathName)) && WinSxSFiles::names().contains(fileName(BaseName)); }

    const QString m_path;
};

class WindowsFileEngineHandler : public QAbstractFileEngineHandler
{
public:
    QAbstractFileEngine *create(const QString &path) const override
    {
        return isWindowsPath(path) ? new WindowsFileEngine(path) : nullptr;
    }
};

/// Whether Qt takes the path for that of a share: "//server/share".
bool isOnShare(const QString &path)
{
    return isWindowsPath(path) && qtPath(path).startsWith(QLatin1String("//"));
}

} // namespace

void answerWindowsFiles()
{
    static const WindowsFileEngineHandler handler;
}

} // namespace simulated

// Away from Windows QDir cleans every path as one that has no server, whatever a file
// engine answers, and takes one of the two slashes away. The linker sends the calls of
// QDir::absolutePath() in this build here instead (--wrap in CMakeLists.txt).
QString absolutePathOfQt(const QDir *directory) asm("__real__ZNK4QDir12absolutePathEv");
QString absolutePathOfWindows(const QDir *directory) asm("__wrap__ZNK4QDir12absolutePathEv");

QString absolutePathOfWindows(const QDir *directory)
{
    const QString path = absolutePathOfQt(directory);
    return simulated::isOnShare(directory->path()) ? QLatin1Char('/') + path : path;
}
