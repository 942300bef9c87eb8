// The programs on a console of Windows: what it shows, and whose console it is.

#include "own_console.h"
#include "program_output.h"
#include "test_main.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <fcntl.h>
#include <io.h>
#include <memory>
#include <thread>
#include <vector>
#include <windows.h>

namespace {

struct HandleCloser
{
    using pointer = HANDLE;
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using Handle = std::unique_ptr<void, HandleCloser>;

/// Programs that are started can inherit it.
Handle openFile(const wchar_t *name, DWORD creation)
{
    SECURITY_ATTRIBUTES inheritable = {sizeof(inheritable), nullptr, TRUE};
    const HANDLE file = CreateFileW(name, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, &inheritable,
                                    creation, FILE_ATTRIBUTE_NORMAL, nullptr);
    return Handle(file == INVALID_HANDLE_VALUE ? nullptr : file);
}

const wchar_t *wide(const QString &text)
{
    return reinterpret_cast<const wchar_t *>(text.utf16());
}

constexpr SHORT columns = 100;
constexpr SHORT rows = 8000;

/// A screen of the console that nobody sees.
class Screen
{
public:
    Screen();
    HANDLE handle() const { return m_handle.get(); }
    bool isValid() const { return m_isValid; }

    /// The rows above the cursor, without the spaces at their ends.
    QStringList lines() const;

private:
    Handle m_handle;
    bool m_isValid = false;
};

Screen::Screen()
{
    SECURITY_ATTRIBUTES inheritable = {sizeof(inheritable), nullptr, TRUE};
    const HANDLE handle = CreateConsoleScreenBuffer(GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                                    &inheritable, CONSOLE_TEXTMODE_BUFFER, nullptr);
    if (handle == INVALID_HANDLE_VALUE)
        return;
    m_handle.reset(handle);
    m_isValid = SetConsoleScreenBufferSize(handle, {columns, rows});
}

QStringList Screen::lines() const
{
    QStringList lines;
    CONSOLE_SCREEN_BUFFER_INFO info = {};
    if (!GetConsoleScreenBufferInfo(handle(), &info))
        return {QStringLiteral("cannot be read")};
    for (SHORT row = 0; row < info.dwCursorPosition.Y; ++row) {
        wchar_t characters[columns];
        DWORD count = 0;
        ReadConsoleOutputCharacterW(handle(), characters, columns, {0, row}, &count);
        QString line = QString::fromWCharArray(characters, int(count));
        while (line.endsWith(u' '))
            line.chop(1);
        lines += line;
    }
    return lines;
}

struct StandardHandles
{
    HANDLE output;
    HANDLE errors;
};

/// Returns the exit code; -1 if the program cannot be started or takes longer than two minutes.
int run(const QString &program, const QStringList &arguments, const StandardHandles *handles, DWORD flags = 0)
{
    QString line = '"' + program + '"';
    for (const QString &argument : arguments)
        line += QStringLiteral(" \"%1\"").arg(argument);
    STARTUPINFOW startup = {};
    startup.cb = sizeof(startup);
    if (handles) {
        startup.dwFlags = STARTF_USESTDHANDLES;
        startup.hStdOutput = handles->output;
        startup.hStdError = handles->errors;
    }
    std::vector<wchar_t> commandLine(wide(line), wide(line) + line.size() + 1); // CreateProcessW changes it
    PROCESS_INFORMATION information = {};
    if (!CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, handles != nullptr, flags, nullptr, nullptr, &startup,
                        &information))
        return -1;
    const Handle thread(information.hThread);
    const Handle process(information.hProcess);
    DWORD exitCode = 0;
    if (WaitForSingleObject(process.get(), 120000) != WAIT_OBJECT_0) {
        TerminateProcess(process.get(), 1);
        return -1;
    }
    return GetExitCodeProcess(process.get(), &exitCode) ? int(exitCode) : -1;
}

/// Keeps what a stream of this process is connected to.
class KeptStream
{
public:
    explicit KeptStream(std::FILE *stream)
        : m_stream(stream)
    {
        std::fflush(stream);
        m_before = _dup(_fileno(stream));
    }
    ~KeptStream()
    {
        std::fflush(m_stream);
        _dup2(m_before, _fileno(m_stream));
        _close(m_before);
    }

private:
    std::FILE *m_stream;
    int m_before = -1;
};

/// Connects a stream of this process to a screen while it exists.
class Connected
{
public:
    Connected(std::FILE *stream, const Screen &screen)
        : m_kept(stream)
    {
        HANDLE copy = nullptr;
        DuplicateHandle(GetCurrentProcess(), screen.handle(), GetCurrentProcess(), &copy, 0, FALSE, DUPLICATE_SAME_ACCESS);
        const int descriptor = _open_osfhandle(reinterpret_cast<intptr_t>(copy), _O_TEXT);
        _dup2(descriptor, _fileno(stream));
        _close(descriptor);
    }

private:
    KeptStream m_kept;
};

/// Starts a console. Windows connects the streams to it, and Wine closes what they were connected to.
bool startConsole()
{
    const KeptStream output(stdout);
    const KeptStream errors(stderr);
    FreeConsole();
    return AllocConsole();
}

/// No ANSI code page has the letters of all three alphabets. They are as wide as Latin ones.
QString threeAlphabets()
{
    return QString::fromUtf8("Grüße, Привет, Ωμέγα");
}

QString contentOf(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QStringLiteral("cannot be read");
}

bool writeKey(HANDLE input, WORD key)
{
    INPUT_RECORD records[2] = {};
    for (INPUT_RECORD &record : records) {
        record.EventType = KEY_EVENT;
        record.Event.KeyEvent.wRepeatCount = 1;
        record.Event.KeyEvent.wVirtualKeyCode = key;
        record.Event.KeyEvent.uChar.UnicodeChar = key;
    }
    records[0].Event.KeyEvent.bKeyDown = TRUE;
    DWORD written = 0;
    return WriteConsoleInputW(input, records, 2, &written) && written == 2;
}

} // namespace

class ConsoleTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void text();
    void longText();
    void pairsOfSurrogates();
    void bytesThatAreNotUtf8();
    void printedBeforeAndAfter();
    void messages();
    void screenOfAProgram();
    void messageOfAProgram();
    void redirectedOutput();
    void redirectedMessage();
    void ownConsole_data();
    void ownConsole();
    void key();
    void keyWithoutConsole();

private:
    QTemporaryDir m_folder;
};

// Wine starts a test without a window in a console that has no screen.
void ConsoleTest::initTestCase()
{
    QVERIFY(m_folder.isValid());
    if (!openFile(L"CONOUT$", OPEN_EXISTING))
        QVERIFY(startConsole());
    QVERIFY(Screen().isValid());
}

void ConsoleTest::text()
{
    const Screen screen;
    bool isWritten = false;
    {
        const Connected connected(stdout, screen);
        isWritten = writeToStandardOutput(threeAlphabets() + "\n\n  two\n");
    }
    QVERIFY(isWritten);
    QCOMPARE(screen.lines(), QStringList({threeAlphabets(), "", "  two"}));
}

// A console accepts less than 64 KByte at once.
void ConsoleTest::longText()
{
    QStringList lines;
    for (int i = 0; i < 7000; ++i)
        lines += QStringLiteral("%1 %2").arg(threeAlphabets().repeated(3)).arg(i);
    const Screen screen;
    bool isWritten = false;
    {
        const Connected connected(stdout, screen);
        isWritten = writeToStandardOutput(lines.join('\n') + '\n');
    }
    QVERIFY(isWritten);
    QCOMPARE(screen.lines(), lines);
}

void ConsoleTest::pairsOfSurrogates()
{
    const Screen screen;
    bool isWritten = false;
    {
        const Connected connected(stdout, screen);
        isWritten = writeToStandardOutput(QString::fromUtf8("\xf0\x9f\x96\xa8 printer\n"));
    }
    QVERIFY(isWritten);
    QVERIFY2(screen.lines().value(0).endsWith(" printer"), qPrintable(screen.lines().join('|')));
}

void ConsoleTest::bytesThatAreNotUtf8()
{
    const Screen screen;
    bool isWritten = false;
    {
        const Connected connected(stdout, screen);
        isWritten = writeToStandardOutput(QByteArray("a\xff z\n"));
    }
    QVERIFY(isWritten);
    QCOMPARE(screen.lines(), QStringList(QString("a") + QChar(QChar::ReplacementCharacter) + " z"));
}

void ConsoleTest::printedBeforeAndAfter()
{
    const Screen screen;
    {
        const Connected connected(stdout, screen);
        std::printf("first\n");
        writeToStandardOutput(QStringLiteral("second\n"));
        std::printf("third\n");
    }
    QCOMPARE(screen.lines(), QStringList({"first", "second", "third"}));
}

void ConsoleTest::messages()
{
    const Screen screen;
    {
        const Connected connected(stderr, screen);
        complain(threeAlphabets());
        tell(QStringLiteral("one\ntwo\n"));
    }
    QCOMPARE(screen.lines(), QStringList({QCoreApplication::applicationName() + ": " + threeAlphabets(), "one", "two"}));
}

void ConsoleTest::screenOfAProgram()
{
    QString report = contentOf(DOCS_DIR "/example-report.txt") + threeAlphabets() + '\n';
    QFile input(m_folder.filePath("report.txt"));
    QVERIFY(input.open(QIODevice::WriteOnly) && input.write(report.toUtf8()) > 0);
    input.close();
    const Screen screen;
    const Screen errors;
    const StandardHandles handles = {screen.handle(), errors.handle()};
    QCOMPARE(run(VKREPORT, {"--input", input.fileName()}, &handles), 0);
    QCOMPARE(errors.lines(), QStringList());
    // Lines that are longer than the screen continue in the next row.
    QString shown = screen.lines().join(QString());
    QCOMPARE(shown.remove(' '), report.remove(' ').remove('\t').remove('\n'));
    QCOMPARE(screen.lines().value(screen.lines().size() - 1), threeAlphabets());
}

void ConsoleTest::messageOfAProgram()
{
    const QString name = threeAlphabets() + ".txt";
    const Screen screen;
    const Screen errors;
    const StandardHandles handles = {screen.handle(), errors.handle()};
    QCOMPARE(run(VKREPORT, {"--input", name}, &handles), 1);
    QCOMPARE(screen.lines(), QStringList());
    const QStringList lines = errors.lines();
    QVERIFY2(lines.value(0).startsWith(QStringLiteral("vkreport: cannot read '%1': ").arg(name)), qPrintable(lines.join('|')));
}

void ConsoleTest::redirectedOutput()
{
    const Handle output = openFile(wide(m_folder.filePath("output")), CREATE_ALWAYS);
    const Screen errors;
    const StandardHandles handles = {output.get(), errors.handle()};
    QCOMPARE(run(VKREPORT, {"--input", DOCS_DIR "/example-report.txt"}, &handles), 0);
    QCOMPARE(contentOf(m_folder.filePath("output")), contentOf(DOCS_DIR "/example-report.txt"));
}

void ConsoleTest::redirectedMessage()
{
    const Handle errors = openFile(wide(m_folder.filePath("errors")), CREATE_ALWAYS);
    const Screen screen;
    const StandardHandles handles = {screen.handle(), errors.get()};
    const QString name = threeAlphabets() + ".txt";
    QCOMPARE(run(VKREPORT, {"--input", name}, &handles), 1);
    const QString message = contentOf(m_folder.filePath("errors"));
    QVERIFY2(message.startsWith(QStringLiteral("vkreport: cannot read '%1': ").arg(name)), qPrintable(message));
    QVERIFY2(message.endsWith('\n') && !message.contains('\r'), qPrintable(message));
}

void ConsoleTest::ownConsole_data()
{
    QTest::addColumn<int>("flags");
    QTest::addColumn<QString>("output");
    QTest::addColumn<QString>("expected");
    QTest::newRow("a double click") << int(CREATE_NEW_CONSOLE) << "its console"
                                    << "own";
    QTest::newRow("output to a file") << int(CREATE_NEW_CONSOLE) << "file"
                                      << "not own";
    QTest::newRow("the console of who started it") << 0 << "screen"
                                                   << "not own";
    QTest::newRow("no console") << int(DETACHED_PROCESS) << "its console"
                                << "not own";
}

void ConsoleTest::ownConsole()
{
    QFETCH(int, flags);
    QFETCH(QString, output);
    QFETCH(QString, expected);
    const Screen screen;
    const Handle file = openFile(wide(m_folder.filePath("output")), CREATE_ALWAYS);
    const HANDLE chosen = output == "file" ? file.get() : screen.handle();
    const StandardHandles handles = {chosen, chosen};
    const QString result = m_folder.filePath("result");
    QFile::remove(result);
    QCOMPARE(run(CONSOLE_CHILD, {result}, output == "its console" ? nullptr : &handles, DWORD(flags)), 0);
    QCOMPARE(contentOf(result), expected);
}

void ConsoleTest::key()
{
    using namespace std::chrono_literals;
    const Handle input = openFile(L"CONIN$", OPEN_EXISTING);
    QVERIFY(input);
    QVERIFY(writeKey(input.get(), 'A')); // was pressed before
    std::atomic<bool> isPressed {false};
    std::thread waiting([&isPressed] {
        waitForKey();
        isPressed = true;
    });
    std::this_thread::sleep_for(500ms);
    const bool isPressedTooEarly = isPressed;
    for (int i = 0; i < 100 && !isPressed; ++i) {
        writeKey(input.get(), 'B'); // any key, without Enter
        std::this_thread::sleep_for(100ms);
    }
    const bool isPressedAtLast = isPressed;
    if (isPressedAtLast)
        waiting.join();
    else
        waiting.detach();
    QVERIFY(!isPressedTooEarly);
    QVERIFY(isPressedAtLast);
}

void ConsoleTest::keyWithoutConsole()
{
    {
        const KeptStream output(stdout);
        const KeptStream errors(stderr);
        FreeConsole();
    }
    waitForKey(); // returns
    QVERIFY(startConsole());
}

TEST_WITH_CORE_APPLICATION(ConsoleTest);
#include "tst_console.moc"
