// Fuzzes readRegistryFile() and readSystemFile(). A description that is written and read again is
// unchanged, and both encodings of registry.reg give the same description.

#include "byte_stream.h"
#include "comparison.h"
#include "fuzz_target.h"

#include "registry_file.h"
#include "system_file.h"

#include <QtCore/QString>

// Functions of the leak sanitizer; null without one.
extern "C" {
__attribute__((weak)) void __lsan_disable();
__attribute__((weak)) void __lsan_enable();
}

namespace {

/// Disables the leak sanitizer while the object exists: QJsonDocument::fromJson() of Qt 5.15 leaks
/// an object that is the value of a duplicate member.
class LeakDetectionDisabled
{
public:
    LeakDetectionDisabled()
    {
        if (__lsan_disable)
            __lsan_disable();
    }
    ~LeakDetectionDisabled()
    {
        if (__lsan_enable)
            __lsan_enable();
    }
    LeakDetectionDisabled(const LeakDetectionDisabled &) = delete;
    LeakDetectionDisabled &operator=(const LeakDetectionDisabled &) = delete;
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
        require(isSame(registry, same), "a registry file has the same contents in both encodings");
    }
    if (!done)
        return;
    const QByteArray written = machine::writeRegistryFile(registry);
    machine::Registry again;
    require(read(written, again), "a written registry file can be read");
    require(isSame(registry, again), "a written registry is read unchanged",
            utf16Text(written).toUtf8());
}

bool read(const QByteArray &contents, machine::Machine &machine)
{
    const LeakDetectionDisabled allowed;
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
    require(read(written, again), "a written system file can be read", written);
    const QByteArray difference = differenceOf(machine.system, again.system);
    require(difference.isEmpty(), "written answers are read unchanged", difference + '\n' + written);
    require(isSame(machine.registry, again.registry), "written denied keys are read unchanged", written);
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray contents(reinterpret_cast<const char *>(data), int(size));
    readRegistry(contents);
    readSystem(contents);
    return 0;
}
