// The names in JSON that are not in the catalogue.
#pragma once

namespace velkor {
namespace Reports {
namespace Json {

constexpr char formatName[] = "vkSystemInfo report";

namespace Key {
constexpr char format[] = "format";
constexpr char schemaVersion[] = "schemaVersion";
constexpr char sha256[] = "sha256";
constexpr char redaction[] = "redaction";
constexpr char incomplete[] = "incomplete";
constexpr char states[] = "states";
constexpr char encoding[] = "encoding";
constexpr char byteOrderMark[] = "byteOrderMark";
constexpr char tail[] = "tail";
constexpr char lineEnd[] = "lineEnd";
constexpr char linePrefix[] = "linePrefix";
constexpr char blanks[] = "blanks";
constexpr char reports[] = "reports";
constexpr char sections[] = "sections";
constexpr char name[] = "name";
constexpr char facts[] = "facts";
constexpr char leftOut[] = "leftOut";
constexpr char value[] = "value";
constexpr char text[] = "text";
constexpr char base64[] = "base64";
constexpr char layout[] = "layout";
} // namespace Key

/// What "blanks" can contain.
namespace Blanks {
constexpr char collapsed[] = "collapsed";
constexpr char leadingStripped[] = "leadingStripped";
constexpr char trailingStripped[] = "trailingStripped";
constexpr char noBreak[] = "noBreak";
constexpr char noBreakRuns[] = "noBreakRuns";
} // namespace Blanks

} // namespace Json
} // namespace Reports
} // namespace velkor
