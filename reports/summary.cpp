// The lines that support asks for first.

#include "catalogue.h"
#include "labels.h"
#include "nearly_full.h"
#include "state_texts.h"

namespace velkor {
namespace Reports {

namespace {

// More entries of one line are counted.
constexpr int mostEntries = 6;
// More disks and failures are counted.
constexpr int mostLines = 20;

QString joined(const QStringList &texts, const QString &separator = QStringLiteral(", "))
{
    QStringList filled = texts;
    filled.removeAll(QString());
    return filled.join(separator);
}

/// "a; b; and 3 more".
QString shortList(QStringList texts)
{
    texts.removeAll(QString());
    texts.removeDuplicates();
    const int more = texts.size() - mostEntries;
    if (more <= 0)
        return texts.join(QStringLiteral("; "));
    return QStringList(texts.mid(0, mostEntries)).join(QStringLiteral("; ")) + QStringLiteral("; and %1 more").arg(more);
}

QString inBrackets(const QString &before, const QString &text)
{
    return text.isEmpty() ? QString() : QStringLiteral(" (%1%2)").arg(before, text);
}

/// "15.8 GByte" of "17055318016 Byte = 15.8 GByte".
QString inGBytes(const QString &text)
{
    return text.section(QStringLiteral(" = "), -1);
}

class Summary
{
public:
    explicit Summary(const Document &document) : m_document(document) { }

    std::vector<SummaryLine> lines();

private:
    void addWindows();
    void addMachine();
    void addGraphics();
    void addProgram();
    void addDnsSd();
    void addPlace();
    void addNetwork();
    void addDisks();
    void addFailures();
    void addStates();

    void add(const char *key, const char *label, const QString &value)
    {
        if (!value.isEmpty())
            m_lines.push_back({key, QString::fromLatin1(label), value});
    }
    QString factOf(const char *section, const char *key) const { return factOf(m_document.findSection(section), -1, key); }
    QString factOf(int section, int item, const char *key) const
    {
        const Fact *fact = section < 0 ? nullptr : m_document.find(section, item, key);
        return fact ? shownValue(m_document, *fact) : QString();
    }
    bool hasFact(const char *section, const char *key) const
    {
        const int place = m_document.findSection(section);
        return place >= 0 && m_document.find(place, -1, key);
    }
    /// True if the text ends in that section, so that its absence of items says nothing.
    bool isCutOff(const char *section) const
    {
        return m_document.states().testFlag(State::EndMissing)
            && m_document.findSection(section) == int(m_document.sections().size()) - 1;
    }
    /// Calls \a visit(section, item) for each item of that kind in the section.
    template <typename Visit>
    void forItems(const char *section, const char *kind, Visit visit) const
    {
        const int place = m_document.findSection(section);
        if (place < 0)
            return;
        const Section &where = m_document.sections()[std::size_t(place)];
        for (int item = where.firstItem; item < where.lastItem; ++item) {
            if (qstrcmp(itemRows()[std::size_t(m_document.items()[std::size_t(item)].kind)].kind, kind) == 0)
                visit(place, item);
        }
    }
    QString dnsSdText(const char *name, const char *section, const char *key) const;
    QString adapterText(int section, int item) const;
    QString screenText(int section, int item) const;
    QString diskText(int section, int item) const;
    QString interfaceText(int section, int item) const;

    const Document &m_document;
    std::vector<SummaryLine> m_lines;
};

void Summary::addWindows()
{
    add("windows", "Windows", factOf("windowsVersion", "name"));
    const QString registry = factOf("windowsVersion", "fromRegistry");
    const QString call = factOf("windowsVersion", "fromGetVersionEx");
    add("windowsVersion", "Version", registry.isEmpty() ? call : registry + inBrackets(QStringLiteral("GetVersionEx: "), call));
    const QString release = factOf("windowsVersionFromRegistry", "displayVersion");
    add("edition", "Edition",
        joined({factOf("windowsVersionFromRegistry", "productName"), factOf("windowsVersionFromRegistry", "editionId"),
                release.isEmpty() ? factOf("windowsVersionFromRegistry", "releaseId") : release}));
    const QString servicePack = factOf("windowsVersion", "lastServicePackInstalled");
    if (hasFact("windowsVersion", "lastServicePackInstalled"))
        add("servicePack", "Service pack", servicePack.isEmpty() ? QStringLiteral("none") : servicePack);
}

void Summary::addMachine()
{
    add("machine", "Machine",
        joined({factOf("systemInformationFromRegistry", "systemManufacturer"),
                factOf("systemInformationFromRegistry", "systemProductName"),
                factOf("systemInformationFromRegistry", "biosVersion")}));
    QStringList names;
    forItems("processorRegistryInfo", "processor", [&](int section, int item) {
        names << factOf(section, item, "processorNameString").simplified();
    });
    const QString number = factOf("processorInfo", "numberOfProcessors");
    add("processor", "Processor", joined({shortList(names), number.isEmpty() ? QString() : number + QStringLiteral(" logical")}));
    const QString free = inGBytes(factOf("memoryInfo", "availPhys"));
    add("memory", "Memory", joined({inGBytes(factOf("memoryInfo", "totalPhys")), free.isEmpty() ? QString() : QStringLiteral("free: ") + free}));
}

QString Summary::adapterText(int section, int item) const
{
    QString name = factOf(section, item, "driverDescription");
    if (name.isEmpty())
        name = factOf(section, item, "deviceDescription");
    if (name.isEmpty())
        return {};
    const QString version = factOf(section, item, "driverVersion");
    const QString date = factOf(section, item, "driverDate");
    return joined({name, version.isEmpty() ? QString() : QStringLiteral("driver ") + version, date});
}

QString Summary::screenText(int section, int item) const
{
    const QString width = factOf(section, item, "sizeWidth").section(QLatin1Char(' '), 0, 0);
    const QString height = factOf(section, item, "sizeHeight").section(QLatin1Char(' '), 0, 0);
    const QString size = width.isEmpty() || height.isEmpty() ? QString() : QStringLiteral("%1 x %2").arg(width, height);
    const QString ratio = factOf(section, item, "devicePixelRatio");
    return joined({size, factOf(section, item, "logicalDpiX"), ratio.isEmpty() ? QString() : QStringLiteral("ratio ") + ratio,
                   factOf(section, item, "name")});
}

void Summary::addGraphics()
{
    QStringList adapters;
    forItems("videoInfoFromRegistry", "configuration", [&](int section, int item) { adapters << adapterText(section, item); });
    add("graphics", "Graphics", shortList(adapters));
    const QString version = factOf("GetOpenGLInfo", "glVersion");
    add("openGl", "OpenGL",
        joined({version.isEmpty() ? factOf("GetOpenGLInfo", "openGlVersionFlags") : version, factOf("GetOpenGLInfo", "glRenderer")}));
    QStringList screens;
    int number = 0;
    forItems("qtScreens", "screen", [&](int section, int item) {
        const QString text = screenText(section, item);
        screens << (text.isEmpty() ? text : QStringLiteral("#%1 %2").arg(++number).arg(text));
    });
    add("screens", "Screens", shortList(screens));
}

void Summary::addProgram()
{
    const QString linked = factOf("qtGlobal", "qtVersionThisObjectWasLinkedAgainst");
    const QString used = factOf("qtGlobal", "qtVersionCurrentlyUsedForExecution");
    add("qt", "Qt", linked == used ? used : joined({used, linked.isEmpty() ? linked : QStringLiteral("linked against ") + linked}));
    const QString name = factOf("qtCoreApplication", "applicationName");
    const QString version = factOf("qtCoreApplication", "applicationVersion");
    add("application", "Application",
        joined({name, version}, QStringLiteral(" ")) + inBrackets(QString(), factOf("qtCoreApplication", "applicationFilePath")));
    addDnsSd();
}

/// "installed" and the version, or what failed.
QString Summary::dnsSdText(const char *name, const char *section, const char *key) const
{
    QString state = factOf(section, key);
    if (state.endsWith(QLatin1Char('.')))
        state.chop(1);
    const QString failed = factOf(section, "versionFailed");
    const QString version = failed.isEmpty() ? factOf(section, "dnsSdVersion") : QStringLiteral("no version: ") + failed;
    return state.isEmpty() ? state : QString::fromLatin1(name) + QLatin1Char(' ') + joined({state, version});
}

void Summary::addDnsSd()
{
    add("dnsSd", "DNS-SD",
        shortList({dnsSdText("dnssd.dll", "checkStandardBonjour", "standardBonjour"),
                   dnsSdText("vkdnssd.dll", "checkVelkorBonjour", "velkorDnsSd")}));
}

void Summary::addPlace()
{
    add("date", "Date of the report", factOf("qtDateTime", "localDateAndTime"));
    add("locale", "Locale", joined({factOf("qtLocale", "language"), factOf("qtLocale", "country")}));
    const QString bias = factOf("timeZoneInfoFromRegistry", "activeTimeBias").section(QStringLiteral(" ("), 0, 0);
    add("timeZone", "Time zone",
        factOf("timeZoneInfoFromRegistry", "standardName") + inBrackets(QStringLiteral("offset to UTC: "), bias));
}

QString Summary::interfaceText(int section, int item) const
{
    const QString status = factOf(section, item, "status");
    if (!status.startsWith(QStringLiteral("Up, Running")) || !factOf(section, item, "loopback").isEmpty())
        return {};
    return factOf(section, item, "name");
}

void Summary::addNetwork()
{
    if (m_document.findSection("qtNetworkInterfaces") < 0)
        return;
    QStringList interfaces;
    forItems("qtNetworkInterfaces", "interface", [&](int section, int item) { interfaces << interfaceText(section, item); });
    const QString list = shortList(interfaces);
    if (list.isEmpty() && isCutOff("qtNetworkInterfaces"))
        return;
    add("network", "Network", list.isEmpty() ? QStringLiteral("not connected") : QStringLiteral("connected: ") + list);
}

QString Summary::diskText(int section, int item) const
{
    const Fact *free = m_document.find(section, item, "free");
    const Fact *total = m_document.find(section, item, "total");
    const bool isDisc = factOf(section, item, "type").startsWith(QStringLiteral("CD"));
    const auto freeBytes = free ? m_document.bytes64(*free) : std::nullopt;
    const auto totalBytes = total ? m_document.bytes64(*total) : std::nullopt;
    if (isDisc || !freeBytes || !totalBytes || !isNearlyFull(*freeBytes, *totalBytes))
        return {};
    return QStringLiteral("%1 free: %2 of %3")
        .arg(factOf(section, item, "root"), m_document.display(*free), m_document.display(*total));
}

void Summary::addDisks()
{
    if (m_document.findSection("diskInformation") < 0)
        return;
    QStringList disks;
    forItems("diskInformation", "drive", [&](int section, int item) { disks << diskText(section, item); });
    disks.removeAll(QString());
    for (const QString &disk : disks.mid(0, mostLines))
        add("nearlyFull", "Nearly full", disk);
    if (disks.size() > mostLines)
        add("nearlyFull", "Nearly full", QStringLiteral("and %1 more").arg(disks.size() - mostLines));
    if (disks.isEmpty() && !isCutOff("diskInformation"))
        add("nearlyFull", "Nearly full", QStringLiteral("no disk"));
}

void Summary::addFailures()
{
    QStringList failures;
    for (const Section &section : m_document.sections()) {
        for (int i = section.firstFact; i < section.lastFact; ++i) {
            const Fact &fact = m_document.facts()[std::size_t(i)];
            const FactRow &row = m_document.row(fact);
            if (row.form & Failure) {
                failures << QStringLiteral("%1: %2: %3").arg(QString::fromLatin1(sectionRows()[std::size_t(section.row)].name), factLabel(row).simplified(), m_document.display(fact));
            }
        }
    }
    for (const QString &failure : failures.mid(0, mostLines))
        add("failed", "Failed", failure);
    if (failures.size() > mostLines)
        add("failed", "Failed", QStringLiteral("and %1 more").arg(failures.size() - mostLines));
}

void Summary::addStates()
{
    add("states", "Text", joined(stateSentences(m_document), QStringLiteral(" ")));
}

std::vector<SummaryLine> Summary::lines()
{
    addWindows();
    addMachine();
    addGraphics();
    addProgram();
    addPlace();
    addNetwork();
    addDisks();
    addFailures();
    addStates();
    return std::move(m_lines);
}

} // namespace

std::vector<SummaryLine> summary(const Document &document)
{
    return Summary(document).lines();
}

} // namespace Reports
} // namespace velkor
