#include "private_file_system.h"

#include <QtCore/QDir>
#include <QtCore/QRandomGenerator>
#include <cstdint>
#include <fcntl.h>
#include <io.h>
#include <memory>
#include <windows.h>

#include <sddl.h>

namespace {

struct HandleCloser
{
    using pointer = HANDLE;
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using Handle = std::unique_ptr<void, HandleCloser>;

struct LocalFreer
{
    void operator()(void *memory) const { LocalFree(memory); }
};
template <typename T>
using LocalMemory = std::unique_ptr<T, LocalFreer>;

const wchar_t *wide(const QString &text)
{
    return reinterpret_cast<const wchar_t *>(text.utf16());
}

/// The SID of the user as text; empty on failure.
QString userSid()
{
    HANDLE token = nullptr;
    if (!OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token))
        return QString();
    const Handle owner(token);
    alignas(TOKEN_USER) char buffer[sizeof(TOKEN_USER) + SECURITY_MAX_SID_SIZE];
    DWORD size = 0;
    if (!GetTokenInformation(token, TokenUser, buffer, sizeof(buffer), &size))
        return QString();
    wchar_t *text = nullptr;
    if (!ConvertSidToStringSidW(reinterpret_cast<const TOKEN_USER *>(buffer)->User.Sid, &text))
        return QString();
    const LocalMemory<wchar_t> textOwner(text);
    return QString::fromWCharArray(text);
}

/// The user owns the file and has all rights; nobody else has any, and the folder's rights are not inherited.
LocalMemory<void> ownerOnly()
{
    const QString sid = userSid();
    const QString text = QStringLiteral("O:%1D:P(A;;FA;;;%1)").arg(sid);
    void *descriptor = nullptr;
    if (!sid.isEmpty())
        ConvertStringSecurityDescriptorToSecurityDescriptorW(wide(text), SDDL_REVISION_1, &descriptor, nullptr);
    return LocalMemory<void>(descriptor);
}

Handle makeNewFile(const QString &name)
{
    const LocalMemory<void> rights = ownerOnly();
    if (!rights)
        return Handle();
    SECURITY_ATTRIBUTES attributes = {sizeof(attributes), rights.get(), FALSE};
    const HANDLE file = CreateFileW(wide(name), GENERIC_WRITE, 0, &attributes, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    return Handle(file == INVALID_HANDLE_VALUE ? nullptr : file);
}

bool write(HANDLE file, const QByteArray &bytes)
{
    DWORD written = 0;
    return WriteFile(file, bytes.constData(), DWORD(bytes.size()), &written, nullptr) && written == DWORD(bytes.size());
}

QString nativeName(const QString &fileName)
{
    return QDir::toNativeSeparators(fileName);
}

} // namespace

// QFile does not share the right to delete: it could not open a file that another program is renaming.
FileResult openPrivateFile(QFile &file, const QString &fileName, QString &error)
{
    constexpr DWORD shared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const HANDLE handle = CreateFileW(wide(nativeName(fileName)), GENERIC_READ, shared, nullptr, OPEN_EXISTING, 0, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        const DWORD code = GetLastError();
        error = qt_error_string(int(code));
        return code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND ? FileResult::Missing : FileResult::Failed;
    }
    const int descriptor = _open_osfhandle(reinterpret_cast<intptr_t>(handle), _O_RDONLY | _O_BINARY);
    if (descriptor >= 0 && file.open(descriptor, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle))
        return FileResult::Done;
    error = file.errorString();
    return FileResult::Failed;
}

QString makeFileBeside(const QString &fileName, const QByteArray &bytes, QString &error)
{
    QString name = fileName + QLatin1Char('.') + QString::number(QRandomGenerator::system()->generate64(), 36);
    Handle file = makeNewFile(nativeName(name));
    if (!file) {
        error = qt_error_string(int(GetLastError()));
        return QString();
    }
    if (write(file.get(), bytes))
        return name;
    error = qt_error_string(int(GetLastError()));
    file.reset();
    QFile::remove(name);
    return QString();
}

// The file keeps its rights.
FileResult renameFile(const QString &name, const QString &newName, Existing existing, QString &error)
{
    const DWORD flags = MOVEFILE_WRITE_THROUGH | (existing == Existing::Replace ? MOVEFILE_REPLACE_EXISTING : 0);
    if (MoveFileExW(wide(nativeName(name)), wide(nativeName(newName)), flags))
        return FileResult::Done;
    const DWORD code = GetLastError();
    error = qt_error_string(int(code));
    return code == ERROR_ALREADY_EXISTS || code == ERROR_FILE_EXISTS ? FileResult::Exists : FileResult::Failed;
}
