#include "windows_files.h"

#include "simulated_windows.h"

#include <QtCore/QDir>
#include <algorithm>
#include <private/qabstractfileengine_p.h>

namespace simulated {
namespace {

/// \a path with forward slashes.
QString qtPath(const QString &path)
{
    QString result = path;
    return result.replace(QLatin1Char('\\'), QLatin1Char('/'));
}

/// Backslashes identify Windows paths: names of files on Unix rarely contain them.
bool isWindowsPath(const QString &path)
{
    return path.contains(QLatin1Char('\\'));
}

/// The described folder at \a path, case-insensitively, or null.
const machine::FolderRecord *folderAt(const QString &path)
{
    const auto normal = [](const QString &path) { return QDir::cleanPath(qtPath(path)); };
    const auto &folders = machineInUse().system.folders;
    const auto found = std::find_if(folders.keyBegin(), folders.keyEnd(), [&](const QString &folder) {
        return normal(folder).compare(normal(path), Qt::CaseInsensitive) == 0;
    });
    return found == folders.keyEnd() ? nullptr : &*found.base();
}

/// A described folder, or an entry of one.
class WindowsFileEngine : public QAbstractFileEngine
{
public:
    explicit WindowsFileEngine(const QString &path) : m_path(qtPath(path)) { }

    FileFlags fileFlags(FileFlags type) const override
    {
        const FileFlags all = ExistsFlag | FileFlags(0x7777);
        const machine::FolderRecord *parent = folderAt(fileName(PathName));
        const QString name = fileName(BaseName);
        const bool isEntry = parent && (parent->directories.contains(name) || name == QLatin1String(".."));
        if (isEntry || folderAt(m_path))
            return type & (all | DirectoryType);
        return parent && parent->files.contains(name) ? type & (all | FileType) : FileFlags();
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
        if (const machine::FolderRecord *folder = folderAt(m_path))
            names = QStringList({QStringLiteral("."), QStringLiteral("..")}) + folder->directories + folder->files;
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

/// Whether the path is that of a share: "//server/share".
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

// On Unix QDir removes one of the two slashes of a share, and a file engine cannot prevent that.
// The linker replaces QDir::absolutePath() with this function (--wrap in CMakeLists.txt).
QString absolutePathOfQt(const QDir *directory) asm("__real__ZNK4QDir12absolutePathEv");
QString absolutePathOfWindows(const QDir *directory) asm("__wrap__ZNK4QDir12absolutePathEv");

QString absolutePathOfWindows(const QDir *directory)
{
    const QString path = absolutePathOfQt(directory);
    return simulated::isOnShare(directory->path()) ? QLatin1Char('/') + path : path;
}
