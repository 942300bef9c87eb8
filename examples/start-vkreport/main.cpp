// A host that starts vkreport. It stays usable while the report is made, and a driver that crashes or hangs does not
// affect it. The report shows the modules, the environment and the application of vkreport, not those of the host.
//
//   start_vkreport [--vkreport FILE] [--save FILE]

#include <QtWidgets/QtWidgets>

// What became of the report, for the user.
static QString outcome(QProcess &process, const QJsonObject &json)
{
    if (process.error() == QProcess::FailedToStart)
        return QString("There is no report: %1 cannot be started.").arg(process.program());
    if (process.exitStatus() != QProcess::NormalExit)
        return "There is no report: vkreport was ended.";
    if (process.exitCode() == 0)
        return "The report is complete.";
    if (process.exitCode() != 3) // 1: nothing could be had. 2: the options are those of another version
        return QString("There is no report:\n%1").arg(QString::fromUtf8(process.readAllStandardError()));
    QString text = "The report is incomplete. These sections are missing:";
    for (const QJsonValue missing : json["incomplete"].toObject()["missing"].toArray())
        text += QString("\n%1: %2 %3") // code: of crashes, such as "access violation, 0xc0000005"
                    .arg(missing["section"].toString(), missing["reason"].toString(), missing["code"].toString());
    return text;
}

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QCommandLineParser parser;
    // A full path: Windows would search a bare name in several folders, and somebody else may write to one of them.
    const QString ownFolder = QCoreApplication::applicationDirPath();
    parser.addOptions({{"vkreport", "The program to start.", "FILE", ownFolder + "/vkreport"},
                       {"save", "Makes a report at once, saves it and ends.", "FILE"}});
    parser.addHelpOption();
    parser.process(application);

    QWidget window;
    window.setWindowTitle("A host that starts vkreport");
    window.resize(480, 240);
    const auto text = new QPlainTextEdit("A report holds names of users and computers, network addresses, and all "
                                         "environment variables, which may hold passwords. It stays on this computer.");
    text->setReadOnly(true); // plain text: nothing in a report may act as HTML
    const auto bar = new QProgressBar;
    const auto button = new QPushButton; // makes a report, or cancels it
    const auto layout = new QVBoxLayout(&window);
    for (QWidget *widget : std::initializer_list<QWidget *> {text, bar, button})
        layout->addWidget(widget);

    QString fileName = parser.value("save");
    int seconds = 0;
    QTimer clock;
    QProcess process; // the last object, so that it ends first
    process.setProgram(parser.value("vkreport"));
    process.setArguments({"--format", "json", "--time-limit", "60"});

    const auto showBusy = [&](bool busy) {
        bar->setRange(0, busy ? 0 : 1); // 0, 0 moves: nobody knows how long the drivers take
        button->setText(busy ? "&Cancel" : "&Make a report...");
    };
    const auto end = [&] {
        clock.stop();
        showBusy(false);
        const QByteArray report = process.readAllStandardOutput();
        QString result = outcome(process, QJsonDocument::fromJson(report).object());
        QSaveFile file(fileName); // leaves no partial file
        const bool hasReport = !report.isEmpty();
        const bool saved = hasReport && file.open(QIODevice::WriteOnly) && file.write(report) >= 0 && file.commit();
        if (hasReport)
            result += saved ? "\nIt is in " + fileName : QString("\n%1: %2").arg(fileName, file.errorString());
        text->setPlainText(result);
        if (parser.isSet("save")) {
            qInfo("%s", qPrintable(result));
            QCoreApplication::exit(saved ? process.exitCode() : 1);
        }
    };
    QObject::connect(&process, qOverload<int, QProcess::ExitStatus>(&QProcess::finished), end);
    QObject::connect(&process, &QProcess::errorOccurred, [&](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) // then finished() is not emitted
            end();
    });
    QObject::connect(&clock, &QTimer::timeout, [&] { text->setPlainText(QString("Please wait: %1 s").arg(++seconds)); });
    QObject::connect(button, &QPushButton::clicked, [&] {
        if (process.state() != QProcess::NotRunning)
            return process.kill(); // the children of vkreport end, too
        if (!parser.isSet("save"))
            fileName = QFileDialog::getSaveFileName(&window, "Save the report as", "report.json");
        if (fileName.isEmpty())
            return;
        showBusy(true);
        seconds = 0;
        clock.start(1000);
        process.start();
    });
    showBusy(false);
    window.show();
    if (parser.isSet("save"))
        QTimer::singleShot(0, button, &QPushButton::click);
    return QApplication::exec();
}
