// The frames that a child of vkreport sends. A child with damaged memory can send anything.

#include "child/frames.h"
#include "test_main.h"

#include <random>

class FramesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void framesInPieces_data();
    void framesInPieces();
    void invalidBytes_data();
    void invalidBytes();
    void incompleteFrames_data();
    void incompleteFrames();
    void contentThatLooksLikeAFrame();
    void randomBytes();
};

void FramesTest::framesInPieces_data()
{
    QTest::addColumn<int>("size");
    for (const int size : {1, 2, 3, 7, 31, 1000})
        QTest::addRow("pieces of %d bytes", size) << size;
}

void FramesTest::framesInPieces()
{
    QFETCH(int, size);
    const QByteArray bytes = "begin 8\nqtLocale"
                             "text 14\nline 1\nline 2\n"
                             "text 0\n"
                             "end 0\n";
    FrameReader reader;
    QByteArray seen;
    Frame frame;
    for (int begin = 0; begin < bytes.size(); begin += size) {
        reader.add(bytes.mid(begin, size));
        FrameReader::Next next = FrameReader::Next::Frame;
        while ((next = reader.take(frame)) == FrameReader::Next::Frame)
            seen += '<' + frame.name + '|' + frame.content + '>';
        QCOMPARE(next, FrameReader::Next::Incomplete);
    }
    QCOMPARE(seen, QByteArray("<begin|qtLocale><text|line 1\nline 2\n><text|><end|>"));
}

void FramesTest::invalidBytes_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("an unknown name") << QByteArray("frame 1\nx");
    QTest::newRow("an upper-case name") << QByteArray("Text 1\nx");
    QTest::newRow("no name") << QByteArray(" 1\nx");
    QTest::newRow("no size") << QByteArray("text \n");
    QTest::newRow("no space") << QByteArray("text\n");
    QTest::newRow("an empty line") << QByteArray("\n");
    QTest::newRow("a negative size") << QByteArray("text -1\n");
    QTest::newRow("a size that is no number") << QByteArray("text 1x\n");
    QTest::newRow("a size over 512 MByte") << QByteArray("text 536870913\n");
    QTest::newRow("a size that overflows an int") << QByteArray("text 4294967296\n");
    QTest::newRow("the space is in the next line") << QByteArray("text\n1 2");
    QTest::newRow("a long line") << QByteArray("text 0000000000000000000000000000001\nx");
    QTest::newRow("no line end") << QByteArray(33, 'x');
    QTest::newRow("zeros") << QByteArray(40, '\0');
    QTest::newRow("a report") << QByteArray("############ Windows specific section ###########\n");
}

void FramesTest::invalidBytes()
{
    QFETCH(QByteArray, bytes);
    FrameReader reader;
    Frame frame;
    reader.add(bytes);
    QCOMPARE(reader.take(frame), FrameReader::Next::Invalid);
}

void FramesTest::incompleteFrames_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("a part of a name") << QByteArray("te");
    QTest::newRow("as long as a line can be") << QByteArray(32, 'x');
    QTest::newRow("no content") << QByteArray("text 1\n");
    QTest::newRow("a byte less") << QByteArray("text 3\nab");
    QTest::newRow("the largest content") << QByteArray("text 536870912\nx");
}

void FramesTest::incompleteFrames()
{
    QFETCH(QByteArray, bytes);
    FrameReader reader;
    Frame frame {"name", "content"};
    reader.add(bytes);
    QCOMPARE(reader.take(frame), FrameReader::Next::Incomplete);
    QCOMPARE(frame.name, QByteArray("name")); // unchanged
}

void FramesTest::contentThatLooksLikeAFrame()
{
    const Frame inner {"end", {}};
    const Frame outer {"text", toBytes(inner) + '\0' + toBytes(inner)};
    FrameReader reader;
    reader.add(toBytes(outer) + toBytes(inner));
    Frame frame;
    QCOMPARE(reader.take(frame), FrameReader::Next::Frame);
    QCOMPARE(frame.content, outer.content);
    QCOMPARE(reader.take(frame), FrameReader::Next::Frame);
    QCOMPARE(frame.name, QByteArray("end"));
    QCOMPARE(reader.take(frame), FrameReader::Next::Incomplete);
}

// Every input ends in one of the three states, and a frame that is taken was in the bytes.
void FramesTest::randomBytes()
{
    std::mt19937 random(1);
    const QByteArray alphabet = "begintxd 0123456789\n\n  ";
    for (int run = 0; run < 20000; ++run) {
        QByteArray bytes;
        for (unsigned length = random() % 60; length > 0; --length)
            bytes += alphabet.at(int(random() % unsigned(alphabet.size())));
        FrameReader reader;
        reader.add(bytes);
        Frame frame;
        int place = 0;
        while (reader.take(frame) == FrameReader::Next::Frame) {
            place = bytes.indexOf(frame.name + ' ', place);
            QVERIFY2(place >= 0, bytes);
            place = bytes.indexOf('\n', place) + 1;
            QCOMPARE(bytes.mid(place, frame.content.size()), frame.content);
            place += frame.content.size();
        }
    }
}

TEST_WITH_CORE_APPLICATION(FramesTest);
#include "tst_frames.moc"
