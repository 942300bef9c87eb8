#include "private_access.h"

#include <QtCore/QDir>
#include <QtCore/QStringList>
#include <windows.h>

#include <aclapi.h>
#include <sddl.h>

namespace {

QString takeText(wchar_t *text)
{
    const QString copy = QString::fromWCharArray(text);
    LocalFree(text);
    return copy;
}

/// The entries of the access list: "(A;;FA;;;SY)" and so on.
QStringList accessEntries(PSECURITY_DESCRIPTOR descriptor)
{
    wchar_t *text = nullptr;
    if (!ConvertSecurityDescriptorToStringSecurityDescriptorW(descriptor, SDDL_REVISION_1, DACL_SECURITY_INFORMATION,
                                                              &text, nullptr))
        return {QStringLiteral("no text")};
    const QStringList parts = takeText(text).split(QLatin1Char('('));
    return parts.size() > 1 ? parts.mid(1) : QStringList(QStringLiteral("no list"));
}

QString textOf(PSID sid)
{
    wchar_t *text = nullptr;
    return ConvertSidToStringSidW(sid, &text) ? takeText(text) : QStringLiteral("no text");
}

bool isExpected(const QString &entry, const QString &owner)
{
    const QStringList expected {owner, QStringLiteral("SY"), QStringLiteral("BA")};
    return expected.contains(entry.section(QLatin1Char(';'), 5).section(QLatin1Char(')'), 0, 0));
}

} // namespace

QString whoElseHasRights(const QString &fileName)
{
    const QString name = QDir::toNativeSeparators(fileName);
    PSID owner = nullptr;
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    const SECURITY_INFORMATION wanted = OWNER_SECURITY_INFORMATION | DACL_SECURITY_INFORMATION;
    const DWORD result = GetNamedSecurityInfoW(reinterpret_cast<const wchar_t *>(name.utf16()), SE_FILE_OBJECT, wanted,
                                               &owner, nullptr, nullptr, nullptr, &descriptor);
    if (result != ERROR_SUCCESS)
        return QStringLiteral("there is no such file");
    const QString ownerText = textOf(owner);
    QStringList others;
    for (const QString &entry : accessEntries(descriptor)) {
        if (!isExpected(entry, ownerText))
            others += entry;
    }
    LocalFree(descriptor);
    return others.join(QLatin1Char(' '));
}

bool shareWithOthers(const QString &fileName)
{
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    if (!ConvertStringSecurityDescriptorToSecurityDescriptorW(L"D:(A;;FA;;;WD)", SDDL_REVISION_1, &descriptor, nullptr))
        return false;
    const QString name = QDir::toNativeSeparators(fileName);
    const bool isDone = SetFileSecurityW(reinterpret_cast<const wchar_t *>(name.utf16()), DACL_SECURITY_INFORMATION, descriptor) != 0;
    LocalFree(descriptor);
    return isDone;
}
