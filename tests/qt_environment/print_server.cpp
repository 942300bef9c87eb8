#include "print_server.h"

#include <QtCore/QDir>
#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>
#include <QtCore/QThread>

namespace {

// @FOLDER@ is replaced with the folder of the server.
const char configuration[] = R"(Listen @FOLDER@/socket
LogLevel warn
MaxLogSize 0
DefaultAuthType None
WebInterface No
Browsing No
<Location />
  Order allow,deny
  Allow all
</Location>
<Policy default>
  <Limit All>
    Order allow,deny
    Allow all
  </Limit>
</Policy>
)";

const char files[] = R"(FileDevice Yes
ServerRoot @FOLDER@
StateDir @FOLDER@/state
CacheDir @FOLDER@/cache
RequestRoot @FOLDER@/spool
TempDir @FOLDER@/spool
AccessLog @FOLDER@/access_log
ErrorLog @FOLDER@/error_log
PageLog @FOLDER@/page_log
)";

bool writeFile(const QString &folder, const QString &name, const char *text)
{
    QFile file(folder + QLatin1Char('/') + name);
    const QByteArray bytes = QByteArray(text).replace("@FOLDER@", QFile::encodeName(folder));
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

} // namespace

namespace qt_environment {

PrintServer::PrintServer()
{
    if (!writeConfiguration()) {
        m_error = QStringLiteral("cannot write the print server's configuration");
        return;
    }
    m_server.setStandardOutputFile(QProcess::nullDevice());
    m_server.start(QStringLiteral("/usr/sbin/cupsd"),
                   {QStringLiteral("-f"), QStringLiteral("-c"), path(QStringLiteral("cupsd.conf")),
                    QStringLiteral("-s"), path(QStringLiteral("cups-files.conf"))});
    if (!waitUntilItAnswers()) {
        m_error = QStringLiteral("the print server does not answer: %1 %2")
                      .arg(m_server.errorString(), QString::fromLocal8Bit(m_server.readAllStandardError()));
    }
}

bool PrintServer::writeConfiguration()
{
    const QDir folder(m_folder.path());
    return m_folder.isValid() && folder.mkdir(QStringLiteral("state")) && folder.mkdir(QStringLiteral("cache"))
        && folder.mkdir(QStringLiteral("spool"))
        && writeFile(m_folder.path(), QStringLiteral("cupsd.conf"), configuration)
        && writeFile(m_folder.path(), QStringLiteral("cups-files.conf"), files);
}

bool PrintServer::waitUntilItAnswers()
{
    QElapsedTimer timer;
    timer.start();
    while (m_server.waitForStarted() && !timer.hasExpired(ServerProcess::timeout)) {
        if (QFile::exists(path(QStringLiteral("socket"))) && run(QStringLiteral("lpstat"), {QStringLiteral("-r")}))
            return true;
        QThread::msleep(20);
    }
    return false;
}

bool PrintServer::run(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.setStandardOutputFile(QProcess::nullDevice());
    QProcessEnvironment processEnvironment = QProcessEnvironment::systemEnvironment();
    const QStringList entries = environment();
    for (const QString &entry : entries)
        processEnvironment.insert(entry.section(QLatin1Char('='), 0, 0), entry.section(QLatin1Char('='), 1));
    process.setProcessEnvironment(processEnvironment);
    process.start(program, arguments);
    return process.waitForFinished(ServerProcess::timeout) && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
}

void PrintServer::addPrinter(const QString &name)
{
    if (!run(QStringLiteral("/usr/sbin/lpadmin"),
             {QStringLiteral("-p"), name, QStringLiteral("-E"), QStringLiteral("-v"),
              QStringLiteral("file:///dev/null")}))
        m_error += QStringLiteral("cannot add the printer '%1'\n").arg(name);
}

void PrintServer::setDefaultPrinter(const QString &name)
{
    if (!run(QStringLiteral("/usr/sbin/lpadmin"), {QStringLiteral("-d"), name}))
        m_error += QStringLiteral("cannot make '%1' the default printer\n").arg(name);
}

// lpoptions would write the options of all users if root ran it.
void PrintServer::addInstance(const QString &printer, const QString &instance)
{
    const QString folder = path(QStringLiteral(".cups"));
    const QByteArray text = QStringLiteral("Dest %1/%2 media=a4\n").arg(printer, instance).toUtf8();
    if (!QDir().mkdir(folder) || !writeFile(folder, QStringLiteral("lpoptions"), text.constData()))
        m_error += QStringLiteral("cannot add the instance '%1'\n").arg(instance);
}

QStringList PrintServer::environment() const
{
    return {QStringLiteral("CUPS_SERVER=") + path(QStringLiteral("socket")), QStringLiteral("HOME=") + m_folder.path()};
}

} // namespace qt_environment
