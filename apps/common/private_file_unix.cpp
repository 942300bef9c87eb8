#include "private_file_system.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr mode_t ownerOnly = S_IRUSR | S_IWUSR;
constexpr mode_t ofGroupAndOthers = S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;

/// The result after a call failed: \a result if it failed with \a code.
FileResult failure(QString &error, int code = 0, FileResult result = FileResult::Failed)
{
    const int failed = errno;
    error = qt_error_string(failed);
    return failed == code ? result : FileResult::Failed;
}

/// File systems without rights of their own show other rights than those that were set.
bool isPrivate(int descriptor, QString &error)
{
    struct stat status = {};
    if (fstat(descriptor, &status) != 0) {
        failure(error);
        return false;
    }
    if ((status.st_mode & ofGroupAndOthers) == 0)
        return true;
    error = QStringLiteral("others than its owner can read or change it; take these rights away with chmod 600");
    return false;
}

bool writeTo(int descriptor, const QByteArray &bytes, QString &error)
{
    QFile file;
    if (fchmod(descriptor, ownerOnly) != 0 || !file.open(descriptor, QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        failure(error);
        return false;
    }
    if (!isPrivate(descriptor, error))
        return false;
    if (file.write(bytes) == bytes.size() && fsync(descriptor) == 0)
        return true;
    error = file.error() == QFileDevice::NoError ? qt_error_string(errno) : file.errorString();
    return false;
}

} // namespace

FileResult openPrivateFile(QFile &file, const QString &fileName, QString &error)
{
    const int descriptor = open(QFile::encodeName(fileName).constData(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0)
        return failure(error, ENOENT, FileResult::Missing);
    if (isPrivate(descriptor, error) && file.open(descriptor, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle))
        return FileResult::Done;
    if (error.isEmpty())
        error = file.errorString();
    close(descriptor);
    return FileResult::Failed;
}

// mkstemp() makes a file that nobody else can open, whatever the umask is.
QString makeFileBeside(const QString &fileName, const QByteArray &bytes, QString &error)
{
    QByteArray name = QFile::encodeName(fileName) + ".XXXXXX";
    const int descriptor = mkstemp(name.data());
    if (descriptor < 0) {
        failure(error);
        return QString();
    }
    const bool isWritten = writeTo(descriptor, bytes, error);
    close(descriptor);
    if (isWritten)
        return QFile::decodeName(name);
    unlink(name.constData());
    return QString();
}

// Other than rename(), link() keeps a file that has the new name.
FileResult renameFile(const QString &name, const QString &newName, Existing existing, QString &error)
{
    const QByteArray oldPath = QFile::encodeName(name);
    const QByteArray newPath = QFile::encodeName(newName);
    if (existing == Existing::Replace)
        return rename(oldPath.constData(), newPath.constData()) == 0 ? FileResult::Done : failure(error);
    if (link(oldPath.constData(), newPath.constData()) != 0)
        return failure(error, EEXIST, FileResult::Exists);
    unlink(oldPath.constData());
    return FileResult::Done;
}
