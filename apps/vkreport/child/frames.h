// The frames that a child sends to its parent: "NAME SIZE", a line feed, and SIZE bytes.
#pragma once

#include <QtCore/QByteArray>

struct Frame
{
    QByteArray name;
    QByteArray content;
};

namespace FrameName {

constexpr char begin[] = "begin"; ///< a part begins; the content is its name
constexpr char text[] = "text";   ///< the text of that part, UTF-8
constexpr char end[] = "end";     ///< all parts are done

} // namespace FrameName

QByteArray toBytes(const Frame &frame);

/// Takes the frames out of a stream of bytes. The process that writes it may be damaged.
class FrameReader
{
public:
    enum class Next {
        Frame,      ///< a frame was taken
        Incomplete, ///< more bytes are needed
        Invalid,    ///< the bytes are no frames
    };

    void add(const QByteArray &bytes) { m_bytes += bytes; }
    Next take(Frame &frame);

private:
    QByteArray m_bytes;
};
