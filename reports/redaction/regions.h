// The texts of a document in which names can stand: values, and what no rule knows.
#pragma once

#include "document_data.h"

#include <functional>
#include <string_view>

namespace velkor {
namespace Reports {

/// A text without line ends and quotes of the transport, and where its bytes stand in the document.
class Region
{
public:
    struct Piece
    {
        int at;    ///< offset in text()
        int begin; ///< offset in the document
        int end;
    };

    /// \a fact is an index in Document::facts(), or -1.
    Region(const QByteArray &documentText, int fact);

    /// Appends the bytes from \a begin to \a end of the document, after \a separator if they are not the first.
    void append(int begin, int end, char separator);
    /// To be called after the last append().
    void finish();

    std::string_view text() const { return view; }
    int fact() const { return factIndex; }
    std::size_t pieceCount() const { return more.size() + (hasFirst ? 1 : 0); }
    const Piece &piece(std::size_t index) const { return index == 0 ? first : more[index - 1]; }
    bool isEmpty() const { return view.empty(); }

private:
    const QByteArray *document;
    int factIndex;
    QByteArray joined;
    std::string_view view;
    bool hasFirst = false;
    Piece first {0, 0, 0};
    std::vector<Piece> more; ///< most regions have one piece only
};

/// Calls \a visit for each region of \a document, in the order of the text. Values of types that cannot hold a
/// name, such as numbers and dates, are left out.
void forEachRegion(const Document &document, const std::function<void(const Region &)> &visit);

} // namespace Reports
} // namespace velkor
