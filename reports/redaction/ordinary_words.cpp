#include "ordinary_words.h"

#include "folding.h"
#include "vkReports.h"

#include <algorithm>
#include <unordered_set>

namespace velkor {
namespace Reports {

namespace {

using Words = std::unordered_set<std::u16string>;

// Lower-case words, separated by blanks. docs/privacy.md names the groups.
constexpr const char *aliasWords = "user host domain org product serial mac ip printer label share folder secret word length";

constexpr const char *windowsWords = "windows window win winnt wow syswow system systems winsxs drivers driver driverstore file files filerepository program programs programme "
                                     "programdata common data appdata local locallow roaming temp tmp temporary users user public default all "
                                     "documents document settings setting desktop downloads download pictures picture music videos video favorites links "
                                     "contacts searches saved games game application applications start menu startup microsoft corporation assembly "
                                     "nativeimages framework net dotnet wbem powershell windowspowershell modules module openssh ssh explorer internet edge "
                                     "defender store package packages control panel registry service services process processor memory disk disks drive drives "
                                     "volume partition network networks ethernet wlan wifi wireless bluetooth adapter adapters interface interfaces "
                                     "loopback pseudo tunnel tunneling teredo isatap virtual virtualbox vmware hyper hyperv host hosts only "
                                     "kernel kernelbase ntdll user32 gdi shell ole combase crypt advapi native generic standard basic display "
                                     "monitor keyboard mouse hid usb pci acpi root device devices controller composite hub storage port ports serial "
                                     "parallel print printer printers printing pdf xps fax onenote writer spool ntfs fat exfat refs cdfs udf "
                                     "fixed removable remote media console rdp tcp udp dns dhcp wins netbios ipv server client clients workstation "
                                     "machine machines computer computers laptop notebook tablet phone mobile portable office home work business "
                                     "professional enterprise education ultimate starter edition pack update updates release build builds version versions "
                                     "path paths pathext comspec shared library libraries plugin plugins platform platforms style styles tool tools bin lib "
                                     "include src source sources etc var opt usr dev proc cache config share cmd exe dll sys com bat msi inf drv ocx cpl "
                                     "txt log logs ini xml json html http https ftp www org edu gov int info mail smtp imap ldap api app apps sdk cpu gpu "
                                     "ram rom ssd hdd nvme ata sata ide scsi raid cdrom dvd dvdram bios uefi efi boot recovery backup backups archive "
                                     "archives image images project projects projekt projekte daten archiv sicherung";

constexpr const char *manufacturerWords = "intel intc amd ati nvidia radeon geforce quadro iris xeon core pentium celeron atom ryzen threadripper epyc "
                                          "athlon opteron genuineintel authenticamd family model stepping mesa llvmpipe gallium vulkan opengl direct directx gl "
                                          "glsl egl wgl glu arb ext khr nv oes sgi sgis sgix mesax realtek broadcom qualcomm atheros marvell mediatek killer "
                                          "synaptics logitech dell hewlett packard hp lenovo thinkpad thinkcentre thinkstation fujitsu siemens esprimo "
                                          "lifebook celsius acer asus asustek msi gigabyte toshiba dynabook sony samsung panasonic medion apple google "
                                          "surface kingston sandisk crucial micron seagate western digital hitachi hgst transcend intenso corsair plextor "
                                          "adata verbatim philips eizo benq iiyama viewsonic nec ricoh canon epson brother kyocera lexmark xerox oki konica "
                                          "minolta zebra dymo american megatrends ami phoenix award insyde vmware oracle citrix wine qemu kvm bochs "
                                          "parallels adobe mozilla firefox chrome java python perl ruby node git cmake ninja qt velkor bonjour mdnsresponder "
                                          "debian ubuntu linux unix mac macos pro plus max min mini ultra lite air one zero line rainbow graphics hd uhd xe "
                                          "technology technologies inc ltd corp llc gmbh ag kg ohg mbh sarl sas spa srl bv nv oy ab as aps plc pty kft "
                                          "co kk sro zoo limited incorporated company group gruppe holding international global deutschland germany france "
                                          "europe europa america asia solutions solution software hardware engineering consulting industries industrie "
                                          "industrial electronics electronic elektronik automation maschinenbau anlagenbau technik technologie digital "
                                          "medical energy institute institut university universitat hochschule fachhochschule college school schule stadt "
                                          "stadtwerke verein stiftung bundesamt department abteilung zentrale filiale buro lab labs labor research design studio "
                                          "partner partners brothers sons und and the der die das von van del della los las und fur for";

constexpr const char *accountWords = "administrator administrador administrateur amministratore administratör admin admins root guest gast invite invitado "
                                     "operator benutzer nutzer anwender utilisateur usuario utente uzytkownik gebruiker owner besitzer me myself somebody "
                                     "nobody name names test tester testing demo sample example temp student schueler teacher lehrer training trainer "
                                     "support service helpdesk maintenance setup install installer build builder jenkins runner runneradmin agent worker "
                                     "developer developers dev devs engineer user1 vagrant docker ubuntu pi kiosk pos sales "
                                     "vertrieb buchhaltung einkauf werkstatt produktion empfang leitung messung messdaten station workgroup arbeitsgruppe "
                                     "mshome localhost localdomain local lan intranet internal extern external true false yes no on off none null "
                                     "unknown other new old neu alt left right top red green blue white black light dark gold silver orange "
                                     "january february march april may june july august september october november december jan feb mar apr jun jul "
                                     "aug sep sept oct nov dec januar februar marz mai juni juli oktober dezember monday tuesday wednesday thursday "
                                     "friday saturday sunday mon tue wed thu fri sat sun english german french italian spanish deutsch count country "
                                     "language number numbers size width height free total used time date page level type class code key keys value "
                                     "text string list map set get add open close read write run stop end begin first last next main base extra "
                                     "extension extensions extended compatibility profile context format function object texture buffer shader vertex "
                                     "fragment pixel sample samples query blend color colour depth stencil array point sprite multi sample map range "
                                     "kind best many warm regards sincerely yours cheers thanks thank dear hello hi greetings please see attached report "
                                     "mit freundlichen freundliche viele liebe schone beste gruß gruße grußen gruss grusse hallo guten morgen tag danke bitte sehr geehrte damen herren "
                                     "bonjour merci hola gracias buongiorno grazie original message nachricht von an betreff subject begin forwarded sent gesendet customer team "
                                     "intern extern corp corporate dmz prod production staging proxy vpn gateway router firewall node cluster audio sound sounds "
                                     "speaker speakers microphone camera scanner sensor sensors battery power bus hubs wheel touch touchpad pen screen screens universal "
                                     "sync debug output input state states program pipeline separate explicit";

void addWords(Words &words, const QString &text)
{
    std::u16string word;
    const auto finish = [&] {
        if (!word.empty())
            words.insert(word);
        word.clear();
    };
    for (const char16_t code : folded(text)) {
        if ((code >= u'a' && code <= u'z') || code > 0x7f)
            word += code;
        else
            finish();
    }
    finish();
}

Words allWords()
{
    Words words;
    for (const char *group : {aliasWords, windowsWords, manufacturerWords, accountWords})
        addWords(words, QString::fromUtf8(group));
    for (const FactRow &row : factRows())
        addWords(words, QString::fromUtf8(row.line) + QLatin1Char(' ') + QString::fromUtf8(row.only));
    for (const SectionRow &row : sectionRows())
        addWords(words, QString::fromUtf8(row.heading));
    return words;
}

bool isPlainDigit(char16_t code)
{
    return code >= u'0' && code <= u'9';
}

bool isIdeograph(char16_t code)
{
    return (code >= 0x2e80 && code < 0xa4d0) || (code >= 0xac00 && code < 0xd7b0);
}

bool isPartOfWord(char16_t code)
{
    return isPlainDigit(code) || (code >= u'a' && code <= u'z') || code > 0xbf;
}

/// "(a+)+$": nothing else is written so.
bool hasUnusualPunctuation(const std::u16string &name)
{
    constexpr std::size_t fewest = 3;
    std::u16string different;
    for (const char16_t code : name) {
        if (code > u' ' && code < 0x7f && !isPartOfWord(code) && different.find(code) == std::u16string::npos)
            different += code;
    }
    return different.size() >= fewest;
}

} // namespace

bool isOrdinaryWord(const std::u16string &word)
{
    static const Words words = allWords();
    if (words.count(word) > 0)
        return true;
    const std::size_t letters = word.find_last_not_of(u"0123456789") + 1; // "pc01", "user2"
    return letters < word.size() && letters > 2 && word.size() - letters < 3 && words.count(word.substr(0, letters)) > 0;
}

Distinction distinctionOf(const std::u16string &name)
{
    constexpr std::ptrdiff_t shortest = 3;
    constexpr std::ptrdiff_t clear = 6;
    constexpr std::ptrdiff_t clearDigits = 8;
    const auto ideographs = std::count_if(name.begin(), name.end(), isIdeograph);
    if (ideographs >= 2)
        return Distinction::Clear;
    const auto characters = std::count_if(name.begin(), name.end(), isPartOfWord);
    const auto digits = std::count_if(name.begin(), name.end(), isPlainDigit);
    if (characters > 0 && hasUnusualPunctuation(name))
        return Distinction::Clear;
    if (characters < shortest || isOrdinaryWord(name))
        return Distinction::None;
    if (digits == characters)
        return digits < clear ? Distinction::None : digits < clearDigits ? Distinction::Some
                                                                         : Distinction::Clear;
    return characters < clear ? Distinction::Some : Distinction::Clear;
}

} // namespace Reports
} // namespace velkor
