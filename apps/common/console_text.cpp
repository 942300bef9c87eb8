#include "console_text.h"

int consolePieceLength(const QString &text, int position)
{
    const int rest = text.size() - position;
    if (rest <= largestConsolePiece)
        return rest;
    const int end = position + largestConsolePiece;
    const bool isInsidePair = text.at(end - 1).isHighSurrogate() && text.at(end).isLowSurrogate();
    return isInsidePair ? largestConsolePiece - 1 : largestConsolePiece;
}
