#include "known_folders.h"

#include "folding.h"

#include <QtCore/QStringList>
#include <algorithm>
#include <unordered_set>

namespace velkor {
namespace Reports {

namespace {

using Names = std::unordered_set<std::u16string>;

Names namesIn(const char *list)
{
    Names names;
    for (const QString &name : QString::fromUtf8(list).split(QLatin1Char('|')))
        names.insert(folded(name));
    return names;
}

// Names with "|" between them. docs/privacy.md describes the groups.
constexpr const char *usersFolders = "users|documents and settings|dokumente und einstellungen|benutzer|utilisateurs|usuarios|utenti|utilizadores|gebruikers|användare|brugere|brukere|käyttäjät|"
                                     "użytkownicy|uživatelé|felhasználók|kullanıcılar|пользователи|用户|使用者|ユーザー|사용자";

constexpr const char *programsFolders = "program files|program files (x86)|program files (arm)|programme|programme (x86)|progra~1|progra~2|"
                                        "%programfiles%|%programfiles(x86)%|%programw6432%";

constexpr const char *sharedProfiles = "public|default|default user|all users|defaultapppool|öffentlich|systemprofile|"
                                       "localservice|networkservice|%username%|$user|$username|<user>";

constexpr const char *knownShares = "admin$|ipc$|print$|netlogon|sysvol|fax$";

constexpr const char *knownFolders = "appdata|local|locallow|roaming|temp|tmp|low|desktop|documents|my documents|downloads|download|pictures|my pictures|music|"
                                     "my music|videos|my videos|favorites|links|contacts|searches|saved games|3d objects|onedrive|application data|"
                                     "local settings|start menu|programs|startup|sendto|recent|templates|cookies|nethood|printhood|"
                                     "temporary internet files|history|windows|windowsapps|winsxs|system32|syswow64|system|program files|program files (x86)|"
                                     "programdata|common files|microsoft|packages|localstate|localcache|internet explorer|edge|edgewebview|google|chrome|"
                                     "mozilla|firefox|mozilla firefox|application|applications|velkor|common|bin|sbin|lib|lib64|libs|include|share|etc|usr|var|"
                                     "opt|mnt|root|home|src|plugins|plugin|platforms|styles|imageformats|printsupport|cache|caches|data|config|conf|settings|"
                                     "logs|log|backup|work|tools|scripts|site-packages|node_modules|npm|yarn|nodejs|python|anaconda|miniconda|condabin|"
                                     "library|mingw-w64|usr|git|cmd|go|java|jdk|jre|dotnet|.dotnet|.cargo|.rustup|.local|.cache|.config|.ssh|.nuget|.npm|"
                                     "scoop|shims|chocolatey|jetbrains|toolbox|visual studio|microsoft vs code|vs code|powershell|windowspowershell|modules|qt|"
                                     "cmake|perl|strawberry|ruby|vcpkg|msys|msys64|cygwin|docker|wsl|drive_c|dosdevices|.wine|wine|prefix|"
                                     "desktop|dokumente|eigene dateien|eigene bilder|eigene musik|eigene videos|bilder|musik|favoriten|kontakte|"
                                     "anwendungsdaten|lokale einstellungen|startmenü|startmenu|programme|autostart|vorlagen|zuletzt verwendet|schreibtisch|"
                                     "bureau|mes documents|mes images|ma musique|mes vidéos|images|musique|vidéos|téléchargements|menu démarrer|programmes|"
                                     "escritorio|documentos|mis documentos|mis imágenes|imágenes|música|vídeos|descargas|menú inicio|programas|"
                                     "documenti|immagini|musica|video|scrivania|menu avvio|programmi|dati applicazioni|pulpit|dokumenty|obrazy|muzyka|"
                                     "belgeler|masaüstü|resimler|müzik|рабочий стол|документы|мои документы|изображения|музыка|видео|загрузки|главное меню|"
                                     "программы|ドキュメント|デスクトップ|文档|桌面|文件";

constexpr const char *programExtensions = "exe|dll|sys|drv|ocx|cpl|com|bat|cmd|ps1|vbs|js|py|jar|msi|msc|scr|tsp|acm|ax|ime|nls|mui|"
                                          "manifest|so|pyd|node|lnk|inf|qm|conf";

constexpr const char *fileExtensions = "txt|log|ini|cfg|xml|json|yaml|yml|csv|pdf|doc|docx|xls|xlsx|ppt|pptx|rtf|odt|ods|png|jpg|jpeg|gif|"
                                       "svg|zip|7z|rar|tar|gz|iso|db|sqlite|html|htm|reg|pem|key|crt|pfx|lic|dat|bin|tmp|bak|h|c|cpp|hpp";

/// What follows the last point of a name.
std::u16string extensionOf(const std::u16string &name)
{
    const std::size_t point = name.rfind(u'.');
    return point == std::u16string::npos || point == 0 ? std::u16string() : name.substr(point + 1);
}

bool isOneOf(const Names &names, const std::u16string &name)
{
    return names.count(name) > 0;
}

} // namespace

bool isUsersFolder(const std::u16string &name)
{
    static const Names names = namesIn(usersFolders);
    return isOneOf(names, name);
}

bool isProgramsFolder(const std::u16string &name)
{
    static const Names names = namesIn(programsFolders);
    return isOneOf(names, name);
}

bool isSharedProfile(const std::u16string &name)
{
    static const Names names = namesIn(sharedProfiles);
    return isOneOf(names, name);
}

bool isKnownShare(const std::u16string &name)
{
    static const Names names = namesIn(knownShares);
    return isOneOf(names, name) || (name.size() == 2 && name[1] == u'$'); // of a drive
}

bool isKnownFolder(const std::u16string &name)
{
    static const Names names = namesIn(knownFolders);
    if (isOneOf(names, name))
        return true;
    const std::size_t letters = name.find_last_not_of(u"0123456789. -v") + 1; // "python311", "1.2.3", "visual studio 2019"
    return letters < name.size() && (letters == 0 || isOneOf(names, name.substr(0, letters)));
}

bool isProgramFile(const std::u16string &name)
{
    static const Names extensions = namesIn(programExtensions);
    return isOneOf(extensions, extensionOf(name));
}

bool isFile(const std::u16string &name)
{
    static const Names extensions = namesIn(fileExtensions);
    return isProgramFile(name) || isOneOf(extensions, extensionOf(name));
}

} // namespace Reports
} // namespace velkor
