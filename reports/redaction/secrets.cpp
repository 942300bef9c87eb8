#include "secrets.h"

#include "address_forms.h"
#include "secret_marks.h"
#include "secret_tokens.h"

#include <array>
#include <cstdint>

namespace velkor {
namespace Reports {

namespace {

constexpr std::size_t blockSize = 8;
constexpr std::size_t leastRun = 16; ///< a shorter run need not fill a block
constexpr std::uint64_t lowestBits = 0x0101010101010101;

enum CharacterClass : unsigned char {
    Word = 0x1,
    Delimiter = 0x2, ///< after a name, or in an address: "=", ":", ">", "%"
    Option = 0x4,    ///< before a name: "-", "/"
    Letter = 0x8,
    Token = 0x10,
    Base64 = 0x20,
    LetterB = 0x40, ///< "Bearer", "Basic", "BEGIN"
};

constexpr unsigned char classOfLetter(char c)
{
    return (c | 0x20) == 'b' ? Letter | LetterB : Letter;
}

constexpr std::array<unsigned char, 256> characterClasses()
{
    std::array<unsigned char, 256> classes {};
    for (int i = 0; i < 128; ++i) {
        if (isAlphanumeric(char(i)))
            classes[std::size_t(i)] = static_cast<unsigned char>(Word | Token | Base64 | (isAsciiLetter(char(i)) ? classOfLetter(char(i)) : 0));
    }
    for (const char c : {'=', ':', '>', '%'})
        classes[std::size_t(c)] = Delimiter;
    classes['_'] = Word | Token | Base64;
    classes['-'] = Option | Token | Base64;
    classes['/'] = Option | Base64;
    classes['+'] = Base64;
    return classes;
}

constexpr std::array<unsigned char, 256> classes = characterClasses();

unsigned classOf(char c)
{
    return classes[static_cast<unsigned char>(c)];
}

std::uint64_t classOf(const char *block, unsigned place)
{
    return std::uint64_t(classOf(block[place])) << 8 * place;
}

/// The classes of eight bytes, the first one in the lowest byte.
std::uint64_t classesOf(const char *block)
{
    return classOf(block, 0) | classOf(block, 1) | classOf(block, 2) | classOf(block, 3) | classOf(block, 4)
        | classOf(block, 5) | classOf(block, 6) | classOf(block, 7);
}

/// The lowest bit of each byte where a secret can be announced. The byte after the block counts as a letter.
std::uint64_t marksOf(std::uint64_t block, unsigned previous)
{
    const std::uint64_t afterWord = block << 8 | (previous & Word);
    const std::uint64_t beforeLetter = block >> 11 | std::uint64_t(1) << 56;
    const std::uint64_t words = ((block >> 2) & beforeLetter) | (block >> 6);
    return ((block >> 1) | (words & ~afterWord)) & lowestBits;
}

bool isFull(std::uint64_t block, CharacterClass character)
{
    return (block & (lowestBits * character)) == lowestBits * character;
}

/// Passes over a text once, eight bytes at a time. It looks around marks, such as "=" or "-" before a letter, and
/// at runs of the characters of tokens.
class SecretFinder
{
public:
    SecretFinder(std::string_view text, SecretContext context)
        : text_(text), context_(context)
    {
    }

    std::vector<SecretPlace> find();

private:
    void findIn(std::size_t begin, std::uint64_t block, unsigned previous);
    void findAtMarks(std::size_t at, std::uint64_t marks);
    void findInRun(std::size_t inside);
    void findRandom(std::size_t inside);
    SecretPlace runAround(std::size_t inside, CharacterClass character) const;
    void add(SecretPlace place);

    const std::string_view text_;
    const SecretContext context_;
    std::vector<SecretPlace> places_;
    std::size_t next_ = 0;      ///< the end of the last place
    std::size_t runEnd_ = 0;    ///< of the last run
    std::size_t base64End_ = 0; ///< of the last run of base64
};

std::vector<SecretPlace> SecretFinder::find()
{
    char last[blockSize] = {};
    const std::size_t lastBegin = text_.size() / blockSize * blockSize;
    text_.copy(last, blockSize, lastBegin);
    unsigned previous = 0;
    for (std::size_t i = 0; i <= lastBegin; i += blockSize) {
        const std::uint64_t block = classesOf(i < lastBegin ? text_.data() + i : last);
        findIn(i, block, previous);
        previous = unsigned(block >> 56);
    }
    return std::move(places_);
}

void SecretFinder::findIn(std::size_t begin, std::uint64_t block, unsigned previous)
{
    const std::uint64_t marks = marksOf(block, previous);
    if (marks != 0)
        findAtMarks(begin, marks);
    if (!isFull(block, Base64) || (block & lowestBits * Word) == 0) // a line of hyphens
        return;
    if (isFull(block, Token) && begin >= runEnd_)
        findInRun(begin);
    if (context_ == SecretContext::Free && begin >= base64End_)
        findRandom(begin);
}

void SecretFinder::findAtMarks(std::size_t at, std::uint64_t marks)
{
    for (; marks != 0; ++at, marks >>= 8) {
        if ((marks & 1) == 0 || at < next_)
            continue;
        std::size_t end = next_;
        if (readMark(text_, at, next_, places_, end))
            next_ = end;
    }
}

SecretPlace SecretFinder::runAround(std::size_t inside, CharacterClass character) const
{
    SecretPlace run {inside, inside};
    while (run.begin > next_ && (classOf(text_[run.begin - 1]) & character) != 0)
        --run.begin;
    while (run.end < text_.size() && (classOf(text_[run.end]) & character) != 0)
        ++run.end;
    return run;
}

void SecretFinder::findInRun(std::size_t inside)
{
    if (inside < next_)
        return;
    const SecretPlace run = runAround(inside, Token);
    runEnd_ = run.end;
    SecretPlace place;
    if (run.end - run.begin >= leastRun && findToken(text_, run, place))
        add(place);
    else if (context_ == SecretContext::Free && looksRandom(text_.substr(run.begin, run.end - run.begin)))
        add(run);
}

void SecretFinder::findRandom(std::size_t inside)
{
    if (inside < next_)
        return;
    SecretPlace run = runAround(inside, Base64);
    base64End_ = run.end;
    const char before = run.begin > 0 ? text_[run.begin - 1] : '\0';
    if (before == '.' || before == '/' || before == '\\') // a path
        return;
    while (run.end < text_.size() && text_[run.end] == '=' && run.end < base64End_ + 2)
        ++run.end;
    if (looksRandom(text_.substr(run.begin, base64End_ - run.begin)))
        add(run);
}

void SecretFinder::add(SecretPlace place)
{
    if (place.begin < next_)
        place.begin = next_;
    if (place.end <= place.begin)
        return;
    places_.push_back(place);
    next_ = place.end;
}

} // namespace

std::vector<SecretPlace> findSecrets(std::string_view text, SecretContext context)
{
    return SecretFinder(text, context).find();
}

} // namespace Reports
} // namespace velkor
