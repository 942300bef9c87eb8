// The readers of a machine's files over hostile contents. What is read and written is
// read again as the same, and the two encodings of registry.reg are the same file.

#include "byte_stream.h"
#include "comparison.h"
#include "fuzz_target.h"

#include "registry_file.h"
#include "system_file.h"

#include <QtCore/QString>

// Of the leak sanitizer, where there is one.
extern "C" {
__attribute__((weak)) void __lsan_disable();
__attribute__((weak)) void __lsan_enable();
}

namespace {

/// What is allocated meanwhile is no leak. QJsonDocument::fromJson() of Qt 5.15 loses an
/// object that is the value of a member which is given twice.
class LeaksOfQtAllowed
{
public:
    LeaksOfQtAllowed()
    {
        if (__lsan_disable)
            __lsan_disable();
    }
    ~LeaksOfQtAllowed()
    {
        if (__lsan_enable)
            __lsan_enable();
    }
    LeaksOfQtAllowed(const LeaksOfQtAllowed &) = delete;
    LeaksOfQtAllowed &operator=(const LeaksOfQtAllowed &) = delete;
};

bool read(const QByteArray &contents, machine::Registry &registry)
{
    QString error;
    int line = 0;
    const bool done = machine::readRegistryFile(contents, registry, error, line);
    require(done == error.isEmpty(), "a registry file that cannot be read has a message", error.toUtf8());
    require(line >= 1 && line <= contents.count('\n') + 1, "the message is about a line of the file",
            QByteArray::number(line));
    return done;
}

void readRegistry(const QByteArray &contents)
{
    machine::Registry registry;
    const bool done = read(contents, registry);
    if (!contents.startsWith("\xff\xfe") && done) {
        machine::Registry same;
        require(read("\xff\xfe" + utf16Bytes(QString::fromUtf8(contents.constData(), contents.size())), same), "a registry file can be read in both encodings");
        require(isSame(registry, same), "a registry file says the same in both encodings");
    }
    if (!done)
        return;
    const QByteArray written = machine::writeRegistryFile(registry);
    machine::Registry again;
    require(read(written, again), "a registry file that was written can be read");
    require(isSame(registry, again), "a registry is read as it was written",
            utf16Text(written).toUtf8());
}

bool read(const QByteArray &contents, machine::Machine &machine)
{
    const LeaksOfQtAllowed allowed;
    QString error;
    int line = 0;
    const bool done = machine::readSystemFile(contents, machine, error, line);
    require(done == error.isEmpty(), "a system file that cannot be read has a message", error.toUtf8());
    require(line >= 0 && line <= contents.count('\n') + 1, "the message is about a line of the file",
            QByteArray::number(line));
    return done;
}

void readSystem(const QByteArray &contents)
{
    machine::Machine machine;
    if (!read(contents, machine))
        return;
    const QByteArray written = machine::writeSystemFile(machine);
    machine::Machine again;
    require(read(written, again), "a system file that was written can be read", written);
    const QByteArray difference = differenceOf(machine.system, again.system);
    require(difference.isEmpty(), "the answers are read as they were written", difference + '\n' + written);
    require(isSame(machine.registry, again.registry), "the denied keys are read as they were written", written);
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray contents(reinterpret_cast<const char *>(data), int(size));
    readRegistry(contents);
    readSystem(contents);
    return 0;
}
