#include "path_names.h"

#include "alias_text.h"
#include "byte_set.h"
#include "folding.h"
#include "known_folders.h"

#include <array>
#include <cstring>

namespace velkor {
namespace Reports {

namespace {

bool isSeparator(char byte)
{
    return byte == '\\' || byte == '/';
}

bool isBlank(char byte)
{
    return byte == ' ' || byte == '\t';
}

/// Separators, and characters that no name of a file has.
bool endsComponent(char byte)
{
    static constexpr ByteSet bytes = ByteSet(";\"<>:\\/").withControls();
    return bytes.has(byte);
}

bool isHostByte(char byte)
{
    return static_cast<unsigned char>(byte) >= 0x80 || (byte >= '0' && byte <= '9') || (byte >= 'a' && byte <= 'z')
        || (byte >= 'A' && byte <= 'Z') || byte == '-' || byte == '_' || byte == '.' || byte == '$';
}

struct Component
{
    std::size_t begin = 0;
    std::size_t end = 0;
    bool isLast = true;
};

/// What the components after this one are.
enum class Role {
    Unknown,  ///< folders that do not concern a user
    UserName, ///< the next one is a user
    Host,
    Share,
    Private, ///< folders below a user's or a share
    Program, ///< folders of programs
};

class PathScanner
{
public:
    PathScanner(std::string_view path, PathContext pathContext, Findings &places, std::unordered_set<std::u16string> &programFolders)
        : text(path), context(pathContext), findings(places), programs(programFolders)
    {
    }

    void run()
    {
        std::size_t at = 0;
        while ((at = text.find_first_of("\\/", at)) != std::string_view::npos)
            at = scanPath(at);
    }

private:
    /// Scans the path whose first separator is at \a begin; returns where to go on.
    std::size_t scanPath(std::size_t begin)
    {
        std::size_t at = begin;
        std::size_t separators = 0;
        while (at < text.size() && isSeparator(text[at])) {
            ++at;
            ++separators;
        }
        const char before = begin > 0 ? text[begin - 1] : ';';
        const bool hasDrive = before == ':' && separators < 2;
        isAbsolute = begin == 0 || hasDrive || startsPath(before);
        Role role = context == PathContext::Personal ? Role::Private : Role::Unknown;
        if (separators >= 2 && startsPath(before) && at < text.size() && isHostByte(text[at]))
            role = Role::Host;
        if (role == Role::Host && text[at] == '.' && at + 1 < text.size() && isSeparator(text[at + 1])) // "\\.\DISPLAY1"
            role = Role::Unknown;
        if (separators >= 2 && at < text.size() && text[at] == '?') // "\\?\C:\", "\\?\UNC\"
            return scanLongPath(at + 1);
        return scanComponents(at, role);
    }

    std::size_t scanLongPath(std::size_t at)
    {
        if (at < text.size() && isSeparator(text[at]) && at + 4 < text.size() && isSeparator(text[at + 4])
            && folded(text.substr(at + 1, 3)) == u"unc")
            return scanComponents(at + 5, Role::Host);
        return at;
    }

    static bool startsPath(char before)
    {
        return isBlank(before) || std::strchr(";\"'=(<>|,\n[{", before) != nullptr;
    }

    std::size_t scanComponents(std::size_t at, Role role)
    {
        int depth = 0;
        for (;; ++depth) {
            const Component component = componentAt(at, role);
            if (component.end > component.begin)
                role = take(component, role, depth);
            std::size_t next = component.end;
            if (component.isLast)
                return std::max(next, at) + (next == at && next < text.size() ? 1 : 0);
            while (next < text.size() && isSeparator(text[next]))
                ++next;
            at = next;
        }
    }

    Component componentAt(std::size_t begin, Role role) const
    {
        Component component {begin, begin, true};
        std::size_t at = begin;
        while (at < text.size() && !endsComponent(text[at]) && !(role == Role::Host && isBlank(text[at])))
            ++at;
        const bool endsWithSeparator = at < text.size() && isSeparator(text[at]) && !(at > begin && isBlank(text[at - 1]));
        component.end = at;
        component.isLast = !endsWithSeparator;
        if (context == PathContext::Command || context == PathContext::Free) {
            component.end = endOfFile(begin, at);
            component.isLast = component.isLast || component.end < at;
        }
        if (component.isLast)
            component.end = endOfLast(begin, component.end);
        return component;
    }

    /// Where a last component ends, which blanks and other text can follow.
    std::size_t endOfLast(std::size_t begin, std::size_t end) const
    {
        while (end > begin && isBlank(text[end - 1]))
            --end;
        if (context == PathContext::Free) {
            end = std::min(end, text.substr(0, end).find_first_of(" \t,", begin));
            while (end > begin && std::strchr(".,:!?)'", text[end - 1]) != nullptr)
                --end;
        }
        if (context != PathContext::Command)
            return end;
        if (end + 1 < text.size() && text[end] == ':' && isSeparator(text[end + 1])) { // the drive or scheme of the next path
            const std::size_t blank = text.substr(0, end).rfind(' ');
            end = blank != std::string_view::npos && blank > begin ? blank : end;
        }
        for (std::size_t at = begin; at + 1 < end; ++at) {
            if (isBlank(text[at]) && isArgument(at + 1, end))
                return at;
        }
        return end;
    }

    /// Whether a word of a command line is not a part of a path: "-x", "/x", "%1", "x=".
    bool isArgument(std::size_t begin, std::size_t end) const
    {
        if (std::strchr("-/%$@", text[begin]))
            return true;
        const std::size_t stop = std::min(text.substr(0, end).find_first_of(" \t=", begin), end);
        return stop < end && text[stop] == '=';
    }

    /// Where the name of a file or an alias ends that other words follow; \a end if none does.
    std::size_t endOfFile(std::size_t begin, std::size_t end) const
    {
        constexpr std::size_t longestExtension = 10; // with a letter before it
        const std::string_view names = text.substr(0, end);
        for (std::size_t at = names.find(' ', begin); at < end; at = names.find(' ', at + 1)) {
            const std::size_t tail = std::max(begin, at - std::min(at, longestExtension));
            if (isFile(folded(names.substr(tail, at - tail))) || aliasLength(names.substr(begin)) == at - begin)
                return at;
        }
        return end;
    }

    /// How the folders begin behind which names stand: "Users", "Documents and Settings", "Program Files".
    static bool canBeSpecial(char first)
    {
        static constexpr ByteSet letters("uUdDbBhHpPgGaAkKfF%");
        return static_cast<unsigned char>(first) >= 0x80 || letters.has(first);
    }

    Role take(const Component &component, Role role, int depth)
    {
        const std::string_view bytes = text.substr(component.begin, component.end - component.begin);
        if (role == Role::Unknown && !canBeSpecial(bytes.front()))
            return role;
        if (role == Role::Program && (component.isLast || bytes == lastProgram))
            return role;
        const std::u16string name = bytes.size() < 1000 ? folded(bytes) : std::u16string();
        switch (role) {
        case Role::Host:
            if (name == u"wsl$" || name == u"wsl.localhost")
                return Role::Unknown;
            add(component, AliasKind::Host);
            return Role::Share;
        case Role::Share:
            if (isKnownShare(name))
                return Role::Private;
            if (!isUsersFolder(name)) {
                add(component, AliasKind::Share);
                return Role::Private;
            }
            break;
        case Role::UserName:
            if (isSharedProfile(name) || (component.isLast && name == u"desktop.ini"))
                return Role::Unknown;
            add(component, AliasKind::User);
            return Role::Private;
        case Role::Private:
            if (!isUsersFolder(name))
                takeFolder(component, name);
            break;
        case Role::Program:
            programs.insert(name);
            lastProgram = bytes;
            return role;
        case Role::Unknown:
            if (isProgramsFolder(name))
                return Role::Program;
            break;
        }
        if (isUsersFolder(name) || ((name == u"home" || name == u"profiles") && isAbsolute && depth == 0))
            return component.isLast ? Role::Unknown : Role::UserName;
        return role == Role::Share ? Role::Private : role;
    }

    void takeFolder(const Component &component, const std::u16string &name)
    {
        const bool isReference = name == u"." || name == u".." || (name.size() > 1 && name.front() == u'%' && name.back() == u'%');
        const bool isGuid = name.size() == 38 && name.front() == u'{' && name.back() == u'}';
        if (!isReference && !isGuid && !isKnownFolder(name) && !(component.isLast && isProgramFile(name)))
            add(component, AliasKind::Folder);
    }

    void add(const Component &component, AliasKind kind)
    {
        findings.push_back({int(component.begin), int(component.end), kind, Reason::Folder});
    }

    std::string_view text;
    PathContext context;
    Findings &findings;
    std::unordered_set<std::u16string> &programs;
    std::string_view lastProgram; ///< paths of one value are often of one program
    bool isAbsolute = false;
};

} // namespace

void findPathNames(std::string_view text, PathContext context, Findings &findings, std::unordered_set<std::u16string> &programs)
{
    PathScanner(text, context, findings, programs).run();
}

} // namespace Reports
} // namespace velkor
