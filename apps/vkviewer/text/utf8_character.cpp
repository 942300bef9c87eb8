#include "utf8_character.h"

#include <algorithm>

int beginOfCharacter(const QByteArray &text, int offset)
{
    if (offset <= 0)
        return 0;
    if (offset >= text.size())
        return text.size();
    constexpr int mostBytesBefore = 3;
    for (int begin = offset - 1; begin >= std::max(0, offset - mostBytesBefore); --begin) {
        if (begin + characterAt(text, begin).length > offset)
            return begin;
    }
    return offset;
}

QString decodedText(const QByteArray &text, int begin, int end)
{
    QString decoded(end - begin, Qt::Uninitialized); // no character has more units than bytes
    QChar *unit = decoded.data();
    while (begin < end) {
        const Utf8Character character = characterAt(text.constData(), end, begin);
        begin += character.length;
        if (QChar::requiresSurrogates(character.code)) {
            *unit++ = QChar(QChar::highSurrogate(character.code));
            *unit++ = QChar(QChar::lowSurrogate(character.code));
        } else {
            *unit++ = QChar(ushort(character.code));
        }
    }
    decoded.truncate(int(unit - decoded.constData()));
    return decoded;
}
