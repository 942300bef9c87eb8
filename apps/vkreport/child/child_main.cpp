#include "child_main.h"

#include "child_protection.h"
#include "frames.h"
#include "program_output.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QLibrary>
#include <vector>

namespace {

/// The folders in which the modules can be: the program's own, and that of an installed package.
QStringList moduleFolders(const QString &program)
{
    const QString folder = QFileInfo(program).absolutePath();
    return {folder, folder + QLatin1String("/" VKREPORT_MODULE_FOLDER)};
}

QString moduleFile(const QString &folder, const QString &name)
{
    return QStringLiteral("%1/" VKREPORT_MODULE_PREFIX "%2" VKREPORT_MODULE_SUFFIX).arg(folder, name);
}

/// Sends what the module makes to the parent.
class FrameSender : public PartReceiver
{
public:
    explicit FrameSender(int descriptor) { m_pipe.open(descriptor, QIODevice::WriteOnly | QIODevice::Unbuffered); }

    void begin(const QString &part) override { send({FrameName::begin, part.toUtf8()}); }
    void text(const QString &text) override { send({FrameName::text, text.toUtf8()}); }
    /// Ends the process without the destructors of libraries, in which drivers crash or hang.
    void end() override
    {
        send({FrameName::end, {}});
        endProcess(Done);
    }

private:
    void send(const Frame &frame)
    {
        const QByteArray bytes = toBytes(frame);
        if (m_pipe.write(bytes) != bytes.size())
            endProcess(Failed); // nobody reads any more
    }

    QFile m_pipe;
};

} // namespace

RunModule loadModule(const QString &name, QString &error)
{
    for (const QString &folder : moduleFolders(programFile())) {
        if (!QFileInfo::exists(moduleFile(folder, name)))
            continue;
        QLibrary library(moduleFile(folder, name));
        if (const auto function = library.resolve(runModuleName))
            return reinterpret_cast<RunModule>(function);
        error = library.errorString();
        return nullptr;
    }
    error = QStringLiteral("the file %1 is missing").arg(moduleFile(moduleFolders(programFile()).constFirst(), name));
    return nullptr;
}

int runChild(int argc, char **argv)
{
    const int pipe = protectChild();
    if (argc < 3)
        return WrongUsage;
    QString error;
    const RunModule run = loadModule(QString::fromLocal8Bit(argv[2]), error);
    if (!run) {
        complain(error);
        return Failed;
    }
    std::vector<char *> qtArguments = {argv[0]};
    int next = 3;
    if (next + 1 < argc && qstrcmp(argv[next], platformArgument) == 0) {
        qtArguments.insert(qtArguments.end(), {argv[next], argv[next + 1]});
        next += 2;
    }
    QStringList parts;
    for (; next < argc; ++next)
        parts += QString::fromLocal8Bit(argv[next]);
    qtArguments.push_back(nullptr);
    FrameSender sender(pipe);
    return run(parts, int(qtArguments.size()) - 1, qtArguments.data(), sender) ? Done : WrongUsage;
}
