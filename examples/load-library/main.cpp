// A host that loads vkSystemInfo at run time: it also starts if the library is missing. It asks its user before it
// makes a report, shows the report as plain text, and saves it.
//
//   load_library [--library FILE] [--save FILE]

#include <QtWidgets/QtWidgets>

namespace {

// The function is a C++ function: the compiler makes its exported name from its namespaces and parameters. A library
// of one compiler does not load into a host of another, because Qt's own names differ in the same way.
#ifdef _MSC_VER
const char allInfosName[] = "?allInfos@SystemInfo@velkor@@YA?AVQString@@_N@Z";
#else // g++, also mingw-w64
const char allInfosName[] = "_ZN6velkor10SystemInfo8allInfosEb";
#endif
using AllInfos = QString (*)(bool noOpenGL); // declared in vkSystemInfo.h

const char question[] = "A report has about a thousand lines: Windows, hardware, drivers, installed programs, disks, "
                        "screens and OpenGL, but also names of users, computers, printers and networks, and all "
                        "environment variables, which may hold passwords.\n\n"
                        "The report is only shown. Nothing leaves this computer. This program does not respond until "
                        "the report is made, which takes some seconds.\n\nMake the report?";

// Returns what failed.
QString save(const QString &report, const QString &fileName)
{
    QSaveFile file(fileName); // leaves no partial file
    const bool written = file.open(QIODevice::WriteOnly) && file.write(report.toUtf8()) >= 0 && file.commit();
    return written ? QString() : QString("%1: %2").arg(fileName, file.errorString());
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QCommandLineParser parser;
    // A full path: Windows would search a bare name in several folders, and somebody else may write to one of them.
    const QString ownFolder = QCoreApplication::applicationDirPath();
    parser.addOptions({{"library", "The library to load.", "FILE", ownFolder + "/vkSystemInfo"},
                       {"save", "Saves a report without windows and questions.", "FILE"}});
    parser.addHelpOption();
    parser.process(application);

    QLibrary library(QFileInfo(parser.value("library")).absoluteFilePath()); // stays loaded
    const auto allInfos = reinterpret_cast<AllInfos>(library.resolve(allInfosName));
    const QString missing = allInfos ? QString() : "There is no report. " + library.errorString();
    if (parser.isSet("save")) {
        const QString error = allInfos ? save(allInfos(false), parser.value("save")) : missing;
        if (!error.isEmpty())
            qCritical("%s", qPrintable(error));
        return error.isEmpty() ? 0 : 1;
    }

    QWidget window;
    window.setWindowTitle("A host that loads the library");
    window.resize(800, 600);
    const auto text = new QPlainTextEdit; // plain text: nothing in a report may act as HTML
    text->setReadOnly(true);
    text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    text->setPlainText(missing);
    const auto makeButton = new QPushButton("&Make a report");
    makeButton->setEnabled(allInfos);
    const auto saveButton = new QPushButton("&Save...");
    saveButton->setEnabled(false);
    const auto layout = new QVBoxLayout(&window);
    layout->addWidget(makeButton);
    layout->addWidget(text);
    layout->addWidget(saveButton);

    QString report; // not toPlainText(), which has other spaces
    QObject::connect(makeButton, &QPushButton::clicked, [&] {
        if (QMessageBox::question(&window, "System report", question) != QMessageBox::Yes)
            return;
        QApplication::setOverrideCursor(Qt::WaitCursor);
        report = allInfos(false); // on the GUI thread: Qt creates an OpenGL widget here
        QApplication::restoreOverrideCursor();
        text->setPlainText(report);
        saveButton->setEnabled(true);
    });
    QObject::connect(saveButton, &QPushButton::clicked, [&] {
        const QString name = QFileDialog::getSaveFileName(&window, "Save the report", "report.txt");
        const QString error = name.isEmpty() ? QString() : save(report, name);
        if (!error.isEmpty())
            QMessageBox::warning(&window, "System report", error);
    });
    window.show();
    return QApplication::exec();
}
