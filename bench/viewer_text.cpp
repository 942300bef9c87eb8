// viewer_text: what it costs to show and to search a large text, in the view of vkviewer and in a QPlainTextEdit.
//
//   viewer_text view|baseline TEXT
//   viewer_text window FILE
//
// "window" opens a report of 10 MB, made of that in FILE, in the whole window of vkviewer: "open" is the time on the clock
// until its page is there, with reading it in a thread; "found" is that until all hits of "e" are counted, "redacted" that
// until personal data are hidden. "pause" is the longest time of the processor in which the window could not react during
// all that, going from hit to hit and scrolling. "memory" is the growth of the process when the page is there.
//
// TEXT is "report" (10 MB in lines of 43 bytes), "line" (one line of 10 MB) or "empty" (10 million empty lines). Opening
// ends with the first painted window; scrolling is the longest of 200 steps to places all over the text; "found" is the
// time until all hits of "e" are counted, "pause" the longest time in which the window could not react meanwhile. Times
// are those of the processor, in milliseconds. Memory
// is the growth of the process beside the text itself.

#include "text/find_bar.h"
#include "text/text_search.h"
#include "text/text_view.h"
#include "times.h"
#include "window/main_window.h"
#include "window/report_page.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtWidgets/QAction>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QScrollBar>
#include <algorithm>
#include <cstdio>
#include <ctime>

namespace {

constexpr int textSize = 10 * 1000 * 1000;

QByteArray largeText(const QString &kind)
{
    if (kind == QLatin1String("line"))
        return QByteArray("Path: C:\\Windows\\System32;").repeated(textSize / 26);
    if (kind == QLatin1String("empty"))
        return QByteArray(textSize, '\n');
    QByteArray text;
    text.reserve(textSize);
    for (int line = 0; text.size() < textSize - 43; ++line)
        text += QByteArray("Driver provider: Example Ltd., line ").append(QByteArray::number(line % 1000000).rightJustified(6, ' ')) + '\n';
    return text;
}

/// Memory that only this process has, in bytes.
double ownMemory()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    const QList<QByteArray> lines = status.readAll().split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith("RssAnon:"))
            return line.mid(8).trimmed().split(' ').constFirst().toDouble() * 1024;
    }
    return 0;
}

/// Time of the processor that this process needs: other programs do not change it.
class Clock
{
public:
    void start() { m_start = std::clock(); }
    double milliseconds() const { return double(std::clock() - m_start) * 1000 / CLOCKS_PER_SEC; }

private:
    std::clock_t m_start = 0;
};

class Measurement
{
public:
    Measurement(const char *side, const QString &text)
        : m_side(side), m_subject("viewer " + text.toLatin1())
    {
    }

    void write(const char *unit, double value) const { bench::writeFigure(m_subject, m_side, "viewer", unit, value); }

    /// Shows the view, in which \a fill puts the text, and scrolls it.
    template <class View, class Fill>
    void open(View &view, Fill fill) const
    {
        view.resize(1000, 600);
        view.show();
        QApplication::processEvents();
        const double before = ownMemory();
        Clock clock;
        clock.start();
        fill();
        view.viewport()->repaint();
        write("open", clock.milliseconds());
        double longest = 0;
        constexpr int steps = 200;
        for (int step = 0; step < steps; ++step) {
            clock.start();
            QScrollBar *const bar = view.verticalScrollBar();
            bar->setValue(int(qint64(bar->maximum()) * (step * 37 % steps) / steps));
            view.viewport()->repaint();
            longest = std::max(longest, clock.milliseconds());
        }
        write("scroll", longest);
        write("memory", ownMemory() - before);
    }

private:
    QByteArray m_side;
    QByteArray m_subject;
};

void measureView(const QString &kind, const QByteArray &text)
{
    const Measurement measurement("library", kind);
    TextView view;
    measurement.open(view, [&] { view.setLines(TextLines(text)); });
    TextSearch search;
    Clock clock, step;
    double pause = 0;
    QObject::connect(&search, &TextSearch::progressed, &view, [&] { view.setHits(search.hits()); });
    const double before = ownMemory();
    clock.start();
    step.start();
    search.start(view.lines(), QStringLiteral("e"), false);
    pause = step.milliseconds();
    while (!search.isFinished()) {
        step.start();
        QApplication::processEvents();
        pause = std::max(pause, step.milliseconds());
    }
    measurement.write("found", clock.milliseconds());
    measurement.write("pause", pause);
    measurement.write("hits", search.hits()->count());
    measurement.write("memory-hits", ownMemory() - before);
    clock.start();
    view.viewport()->repaint();
    measurement.write("paint-hits", clock.milliseconds());
    clock.start();
    view.selectAll();
    view.viewport()->repaint();
    measurement.write("select", clock.milliseconds());
}

void measureBaseline(const QString &kind, const QByteArray &text)
{
    const Measurement measurement("baseline", kind);
    QPlainTextEdit view;
    view.setReadOnly(true);
    view.setLineWrapMode(QPlainTextEdit::NoWrap);
    measurement.open(view, [&] { view.setPlainText(QString::fromUtf8(text)); });
    Clock clock;
    clock.start();
    double hits = 0;
    for (QTextCursor hit = view.document()->find(QStringLiteral("e")); !hit.isNull(); ++hits)
        hit = view.document()->find(QStringLiteral("e"), hit);
    measurement.write("found", clock.milliseconds());
    measurement.write("pause", clock.milliseconds());
    measurement.write("hits", hits);
}

/// A report with very many modules.
QByteArray largeReport(const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(fileName));
    QByteArray text = file.readAll();
    const int begin = text.indexOf('\n', text.indexOf("Loaded modules/DLLs")) + 1;
    QByteArray modules;
    for (int i = 0; text.size() + modules.size() < textSize; ++i)
        modules += "C:\\Program Files\\Example\\module" + QByteArray::number(i) + ".dll  1.2.3." + QByteArray::number(i) + '\n';
    return text.insert(begin, modules);
}

/// Lets the window work until something is there, and measures how long it does not react.
class Window
{
public:
    MainWindow window;

    template <class Start, class Done>
    double until(Start start, Done isDone)
    {
        QElapsedTimer clock;
        clock.start();
        step(start);
        while (!isDone())
            step([] { QApplication::processEvents(QEventLoop::AllEvents, 1); });
        return double(clock.nsecsElapsed()) / 1e6;
    }
    template <class Work>
    void step(Work work)
    {
        const double before = threadTime();
        work();
        m_pause = std::max(m_pause, threadTime() - before);
    }
    double pause() const { return m_pause; }

private:
    static double threadTime()
    {
        timespec time {};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
    }

    double m_pause = 0;
};

void measureWindow(const QString &fileName)
{
    const QTemporaryDir folder;
    qputenv("XDG_CONFIG_HOME", folder.path().toLocal8Bit());
    const QString path = folder.filePath(QStringLiteral("large.txt"));
    QFile file(path);
    const QByteArray text = largeReport(fileName);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        qFatal("cannot write %s", qPrintable(path));
    file.close();
    const auto write = [](const char *unit, double value) { bench::writeFigure("vkviewer", "library", "window", unit, value); };
    Window window;
    window.window.show();
    QApplication::processEvents();
    const double before = ownMemory();
    write("open", window.until([&] { window.window.openFiles({path}); }, [&] { return window.window.reportPage() != nullptr; }));
    window.step([] { QApplication::processEvents(); });
    write("memory", ownMemory() - before);
    ReportPage &page = *window.window.reportPage();
    window.step([&] { page.find(); });
    auto *edit = page.findChild<FindBar *>()->findChild<QLineEdit *>();
    const TextSearch *search = page.findChild<TextSearch *>();
    const auto isFound = [&] { return search->isFinished(); };
    write("found", window.until([&] { edit->setText(QStringLiteral("e")); }, isFound));
    for (int i = 0; i < 100; ++i)
        window.step([&] { page.findNext(); QApplication::processEvents(); });
    QScrollBar *const bar = page.textView()->verticalScrollBar();
    for (int i = 0; i < 100; ++i)
        window.step([&] { bar->setValue(int(qint64(bar->maximum()) * (i * 37 % 100) / 100)); QApplication::processEvents(); });
    auto *hide = window.window.findChild<QAction *>(QStringLiteral("hidePersonalData"));
    write("redacted", window.until([&] { hide->trigger(); }, [&] { return page.isRedacted() && page.output(); }));
    write("pause", window.pause());
}

} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 3) {
        std::fputs("usage: viewer_text view|baseline report|line|empty\n       viewer_text window FILE\n", stderr);
        return 2;
    }
    if (arguments.at(1) == QLatin1String("window")) {
        measureWindow(arguments.at(2));
        return 0;
    }
    const QByteArray text = largeText(arguments.at(2));
    if (arguments.at(1) == QLatin1String("view"))
        measureView(arguments.at(2), text);
    else
        measureBaseline(arguments.at(2), text);
    return 0;
}
