#include "ansi_code_page.h"

#include "best_fit.h"

#include <QtCore/QHash>
#include <array>
#include <iconv.h>

namespace simulated {
namespace {

constexpr int utf8CodePage = 65001;
constexpr QChar unknownPair(0x30fb); // of an undefined pair of 932

struct Tables
{
    std::array<ushort, 256> single {}; // unit of a single byte
    std::array<bool, 256> lead {};     // the byte starts a pair
    QHash<ushort, ushort> pairs;       // unit of a pair of bytes
    QHash<ushort, QByteArray> bytes;   // bytes of a unit
};

class Decoder
{
public:
    explicit Decoder(int codePage)
        : m_iconv(iconv_open("UTF-16LE", "CP" + QByteArray::number(codePage)))
    { }
    ~Decoder() { iconv_close(m_iconv); }
    Decoder(const Decoder &) = delete;
    Decoder &operator=(const Decoder &) = delete;

    /// The UTF-16 unit of the bytes; -1 if they are not exactly one unit.
    int unit(QByteArray bytes) const
    {
        char out[8];
        char *from = bytes.data();
        char *to = out;
        std::size_t left = std::size_t(bytes.size());
        std::size_t room = sizeof out;
        iconv(m_iconv, nullptr, nullptr, nullptr, nullptr);
        if (iconv(m_iconv, &from, &left, &to, &room) == std::size_t(-1) || room != sizeof out - 2)
            return -1;
        return uchar(out[0]) | uchar(out[1]) << 8;
    }

private:
    iconv_t m_iconv;
};

bool isLeadByte(int codePage, int byte)
{
    return codePage == 932 && ((byte >= 0x81 && byte <= 0x9f) || (byte >= 0xe0 && byte <= 0xfc));
}

// Some characters have several pairs in 932. Windows prefers the JIS pair, then the NEC row
// (0x87), then the IBM pairs at the end. It never writes the NEC copies of the IBM pairs.
int preference(int lead)
{
    if (lead == 0x87)
        return 1;
    if (lead >= 0xfa)
        return 2;
    return lead == 0xed || lead == 0xee ? 3 : 0;
}

/// The unit of an undefined single byte: the control character of the same number, except for
/// four bytes of 932, which Windows maps to private-use units.
ushort holeUnit(int codePage, int byte)
{
    if (codePage == 932 && byte == 0xa0)
        return 0xf8f0;
    return ushort(codePage == 932 && byte >= 0xfd ? 0xf8f1 + (byte - 0xfd) : byte);
}

/// Adds the best-fit characters.
void addBestFit(int codePage, QHash<ushort, QByteArray> &bytes)
{
    for (const BestFitTable &table : bestFitTables()) {
        if (table.codePage != codePage)
            continue;
        for (const BestFitRun *run = table.begin; run != table.end; ++run) {
            ushort unit = run->first;
            for (const char *position = run->bytes; *position; position += run->width)
                bytes.insert(unit++, QByteArray(position, run->width));
        }
    }
}

/// Replaces each lone surrogate with U+FFFD.
QString withoutLoneSurrogates(QString text)
{
    for (int i = 0; i < text.size(); ++i) {
        const bool pair = text.at(i).isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate();
        if (pair)
            ++i;
        else if (text.at(i).isSurrogate())
            text[i] = QChar(QChar::ReplacementCharacter);
    }
    return text;
}

Tables makeTables(int codePage)
{
    const Decoder decoder(codePage);
    Tables tables;
    for (int byte = 0; byte < 256; ++byte) {
        tables.lead[byte] = isLeadByte(codePage, byte);
        if (tables.lead[byte])
            continue;
        const int unit = byte < 0x80 ? byte : decoder.unit(QByteArray(1, char(byte)));
        tables.single[byte] = unit < 0 ? holeUnit(codePage, byte) : ushort(unit);
        if (!tables.bytes.contains(tables.single[byte]))
            tables.bytes.insert(tables.single[byte], QByteArray(1, char(byte)));
    }
    for (int wanted = 0; wanted < 4; ++wanted) {
        for (int lead = 0x80; lead < 256; ++lead) {
            if (!tables.lead[lead] || preference(lead) != wanted)
                continue;
            for (int trail = 0x40; trail < 0xfd; ++trail) {
                const QByteArray pair = QByteArray(1, char(lead)) + char(trail);
                const int unit = decoder.unit(pair);
                if (unit < 0)
                    continue;
                tables.pairs.insert(ushort(lead << 8 | trail), ushort(unit));
                if (!tables.bytes.contains(ushort(unit)))
                    tables.bytes.insert(ushort(unit), pair);
            }
        }
    }
    addBestFit(codePage, tables.bytes);
    return tables;
}

const Tables &tablesOf(int codePage)
{
    static QHash<int, Tables> known;
    auto found = known.find(codePage);
    if (found == known.end())
        found = known.insert(codePage, makeTables(codePage));
    return found.value();
}

} // namespace

AnsiCodePage::AnsiCodePage(int number)
    : m_number(number)
{ }

QByteArray AnsiCodePage::fromUtf16(const QString &text) const
{
    if (m_number == utf8CodePage)
        return withoutLoneSurrogates(text).toUtf8();
    const Tables &tables = tablesOf(m_number);
    QByteArray result;
    result.reserve(text.size());
    for (const QChar unit : text)
        result += tables.bytes.value(unit.unicode(), QByteArrayLiteral("?"));
    return result;
}

QString AnsiCodePage::toUtf16(const QByteArray &text) const
{
    if (m_number == utf8CodePage)
        // fromUtf8() removes a byte-order mark at the start only.
        return QString::fromUtf8(QByteArray('x' + text).constData(), text.size() + 1).mid(1);
    const Tables &tables = tablesOf(m_number);
    QString result;
    result.reserve(text.size());
    for (int i = 0; i < text.size(); ++i) {
        const uchar byte = uchar(text.at(i));
        if (!tables.lead[byte]) {
            result += QChar(tables.single[byte]);
            continue;
        }
        const uchar trail = i + 1 < text.size() ? uchar(text.at(i + 1)) : 0;
        const auto pair = tables.pairs.constFind(ushort(byte << 8 | trail));
        result += pair == tables.pairs.constEnd() ? unknownPair : QChar(*pair);
        if (trail)
            ++i;
    }
    return result;
}

} // namespace simulated
