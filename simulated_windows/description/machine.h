// A machine description in memory: the results of the simulated calls.
#pragma once

#include "records.h"
#include "registry_tree.h"

#include <QtCore/QMap>
#include <QtCore/QStringList>

namespace machine {

/// The answers of a call by its argument, a number. The call fails with the error for other
/// numbers.
struct NumberedAnswers : QMap<int, Answer<QString>>
{
    quint32 error = 0;
};

/// The number of an ANSI code page.
struct CodePage
{
    int number = 1252;

    CodePage() = default;
    CodePage(int codePage) : number(codePage) { }
    operator int() const { return number; }
};

/// The names of the folders and files in a folder. system.json has no files.
struct FolderRecord
{
    QStringList directories;
    QStringList files;

    template <typename Visit>
    static void fields(Visit visit)
    {
        visit("directories", &FolderRecord::directories);
        visit("files", &FolderRecord::files);
    }
};

/// The members have the names of the calls. A call without an answer fails.
struct SystemAnswers
{
    CodePage ansiCodePage;
    Answer<VersionRecord> GetVersionEx;
    std::optional<Answer<ProductInfoRecord>> GetProductInfo; // absent: the function is not exported
    QMap<int, qint32> GetSystemMetrics;
    SystemInfoRecord GetSystemInfo;
    Answer<MemoryRecord> GlobalMemoryStatusEx;
    NumberedAnswers GetComputerNameEx;
    Answer<QString> GetUserName;
    Answer<QuotaRecord> GetSystemRegistryQuota;
    Answer<quint32> GetLogicalDrives;
    QMap<QString, DriveRecord> drives; // by upper-cased root
    Answer<QString> GetSystemWindowsDirectory;
    Answer<QString> GetSystemWow64Directory;
    QMap<QString, QString> environment; // by upper-cased name
    NumberedAnswers SHGetSpecialFolderPath;
    Answer<std::vector<std::optional<QString>>> EnumProcessModules;
    QMap<QString, LibraryRecord> libraries; // by lower-cased file name
    Answer<std::vector<AdapterRecord>> GetAdaptersInfo;
    qint32 timeZone = 0; // minutes

    // Not in fields(), because system.json has a special form for them.
    QMap<QString, quint32> expansionErrors; // of ExpandEnvironmentStrings, by upper-cased variable in the source
    QMap<QString, FolderRecord> folders;    // by path

    template <typename Visit>
    static void fields(Visit visit)
    {
        visit("ansiCodePage", &SystemAnswers::ansiCodePage);
        visit("GetVersionEx", &SystemAnswers::GetVersionEx);
        visit("GetProductInfo", &SystemAnswers::GetProductInfo);
        visit("GetSystemMetrics", &SystemAnswers::GetSystemMetrics);
        visit("GetSystemInfo", &SystemAnswers::GetSystemInfo);
        visit("GlobalMemoryStatusEx", &SystemAnswers::GlobalMemoryStatusEx);
        visit("GetComputerNameEx", &SystemAnswers::GetComputerNameEx);
        visit("GetUserName", &SystemAnswers::GetUserName);
        visit("GetSystemRegistryQuota", &SystemAnswers::GetSystemRegistryQuota);
        visit("GetLogicalDrives", &SystemAnswers::GetLogicalDrives);
        visit("drives", &SystemAnswers::drives);
        visit("GetSystemWindowsDirectory", &SystemAnswers::GetSystemWindowsDirectory);
        visit("GetSystemWow64Directory", &SystemAnswers::GetSystemWow64Directory);
        visit("environment", &SystemAnswers::environment);
        visit("SHGetSpecialFolderPath", &SystemAnswers::SHGetSpecialFolderPath);
        visit("EnumProcessModules", &SystemAnswers::EnumProcessModules);
        visit("libraries", &SystemAnswers::libraries);
        visit("GetAdaptersInfo", &SystemAnswers::GetAdaptersInfo);
        visit("timeZone", &SystemAnswers::timeZone);
    }
};

struct Machine
{
    Registry registry;
    SystemAnswers system;
};

} // namespace machine
