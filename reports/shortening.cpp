#include "shortening.h"

#include <QtCore/QHash>
#include <algorithm>
#include <numeric>

namespace velkor {
namespace Reports {

namespace {

// What is long and seldom asked for first. All other sections are more important than these.
constexpr const char *leastImportant[] = {
    "loadedModules",
    "driverInfoFromRegistry",
    "GetOpenGLInfo",
    "qtSystemEnvironment",
    "installedVisualBasicApplications",
    "winSxSDirectoryEntries",
    "diskDevicesFromRegistry:FDC",
    "diskDevicesFromRegistry:IDE",
    "diskDevicesFromRegistry:SCSI",
    "diskDevicesFromRegistry:USBSTOR",
    "portsFromRegistry:PARALLEL PORTS",
    "portsFromRegistry:SERIALCOMM",
    "qtDesktopServices",
    "specialFolders",
    "windowsSystemDirectories",
    "someEnvironmentVariables",
    "processorRegistryInfo",
    "installedApplicationsFromRegistry",
    "qtPrinterInfo",
    "registryQuota",
    "timeZoneInfoFromRegistry",
    "qtNetworkInterfaces",
    "videoInfoFromRegistry",
    "qtDesktop",
    "qtScreens",
};

enum class Form {
    Full,
    Counts,
    Gone,
};

/// How many parts with one name have which form.
struct Name
{
    QString name;
    int forms[3] = {0, 0, 0};
};

class Shortening
{
public:
    Shortening(const QString &title, const std::vector<Part> &parts, int maxLength,
               const std::function<QString(const LeftOut &)> &note)
        : m_title(title), m_parts(parts), m_note(note), m_maxLength(maxLength), m_forms(parts.size(), Form::Full),
          m_order(parts.size())
    {
        std::iota(m_order.begin(), m_order.end(), std::size_t(0));
        std::stable_sort(m_order.begin(), m_order.end(), [&parts](std::size_t a, std::size_t b) {
            if (parts[a].importance != parts[b].importance)
                return parts[a].importance < parts[b].importance;
            return parts[a].full.size() > parts[b].full.size();
        });
        m_length = title.size();
        for (const Part &part : parts) {
            m_length += part.full.size();
            m_nameOf.push_back(indexOf(part.name));
            ++formsOf(m_nameOf.size() - 1, Form::Full);
        }
    }

    QString text()
    {
        reduce(Form::Counts);
        reduce(Form::Gone);
        restore();
        const QString note = noteText();
        if (m_maxLength > 0 && m_length + note.size() > m_maxLength)
            return withoutParts();
        QString result = m_title + note;
        result.reserve(int(m_length) + note.size());
        for (std::size_t i = 0; i < m_parts.size(); ++i)
            result += *textOf(i, m_forms[i]);
        return result;
    }

private:
    const QString *textOf(std::size_t part, Form form) const
    {
        static const QString nothing;
        if (form == Form::Gone)
            return &nothing;
        return form == Form::Full ? &m_parts[part].full : &m_parts[part].counts;
    }

    /// Whether text and note are short enough. The note is written only if the text alone is.
    bool fits() const
    {
        return m_maxLength <= 0 || (m_length <= m_maxLength && m_length + noteText().size() <= m_maxLength);
    }

    void setForm(std::size_t part, Form form)
    {
        m_length += textOf(part, form)->size() - textOf(part, m_forms[part])->size();
        --formsOf(part, m_forms[part]);
        ++formsOf(part, form);
        m_forms[part] = form;
    }

    /// A form that is not shorter is not used.
    void reduce(Form form)
    {
        for (const std::size_t part : m_order) {
            if (fits())
                return;
            const int length = textOf(part, form)->size();
            if ((form == Form::Gone || length > 0) && length < textOf(part, m_forms[part])->size())
                setForm(part, form);
        }
    }

    /// The last part that was left out may have made room for smaller ones.
    void restore()
    {
        if (!fits())
            return;
        for (auto part = m_order.rbegin(); part != m_order.rend(); ++part) {
            for (const Form form : {Form::Full, Form::Counts}) {
                const Form before = m_forms[*part];
                if (form >= before || textOf(*part, form)->isEmpty())
                    continue;
                setForm(*part, form);
                if (fits())
                    break;
                setForm(*part, before);
            }
        }
    }

    std::size_t indexOf(const QString &name)
    {
        const auto found = m_indexes.constFind(name);
        if (found != m_indexes.constEnd())
            return *found;
        m_indexes.insert(name, m_names.size());
        m_names.push_back({name});
        return m_names.size() - 1;
    }

    int &formsOf(std::size_t part, Form form) { return m_names[m_nameOf[part]].forms[int(form)]; }

    LeftOut leftOut() const
    {
        LeftOut result;
        for (const Name &name : m_names) {
            const int counts = name.forms[int(Form::Counts)];
            const int drops = name.forms[int(Form::Gone)];
            result.counts += counts;
            result.drops += drops;
            if (counts > 0)
                result.counted << name.name;
            if (drops > 0)
                result.dropped << name.name;
        }
        return result;
    }

    /// A note with many names takes the place of parts in a short text.
    QString noteText() const
    {
        LeftOut all = leftOut();
        const QString note = m_note(all);
        if (m_maxLength <= 0 || note.size() <= m_maxLength / 4)
            return note;
        all.counted.clear();
        all.dropped.clear();
        return m_note(all);
    }

    /// The result if not even title and note are short enough.
    QString withoutParts() const
    {
        const QString note = noteText();
        return note.size() <= m_maxLength ? note : m_title.left(m_maxLength);
    }

    const QString &m_title;
    const std::vector<Part> &m_parts;
    const std::function<QString(const LeftOut &)> &m_note;
    int m_maxLength;
    std::vector<Form> m_forms;
    std::vector<std::size_t> m_order;
    std::vector<Name> m_names;
    std::vector<std::size_t> m_nameOf; // index in m_names for each part
    QHash<QString, std::size_t> m_indexes;
    qint64 m_length = 0;
};

} // namespace

QString shortened(const QString &title, const std::vector<Part> &parts, int maxLength,
                  const std::function<QString(const LeftOut &)> &note)
{
    return Shortening(title, parts, maxLength, note).text();
}

int importanceOf(const char *section)
{
    const auto *found = std::find_if(std::begin(leastImportant), std::end(leastImportant), [section](const char *name) {
        return qstrcmp(name, section) == 0;
    });
    return int(found - std::begin(leastImportant));
}

} // namespace Reports
} // namespace velkor
