#include "described_windows.h"

#include "machine_loader.h"
#include "registry_file.h"
#include "system_file.h"

machine::Machine DescribedWindows::load(const QString &name)
{
    QString error;
    auto machine = machine::loadMachine(QStringLiteral(MACHINES_DIR "/") + name, error);
    if (!machine)
        qFatal("%s", qPrintable(error));
    return *machine;
}

machine::Machine DescribedWindows::parse(const QByteArray &registryFile, const QByteArray &systemFile)
{
    machine::Machine machine;
    QString error;
    int line = 0;
    if (!machine::readRegistryFile("Windows Registry Editor Version 5.00\n" + registryFile, machine.registry, error, line)
        || !machine::readSystemFile(systemFile, machine, error, line))
        qFatal("line %d: %s", line, qPrintable(error));
    return machine;
}

DescribedWindows::DescribedWindows(const QByteArray &registryFile)
    : DescribedWindows(registryFile, "{}")
{ }

DescribedWindows::DescribedWindows(const QByteArray &registryFile, const QByteArray &systemFile)
    : DescribedWindows(parse(registryFile, systemFile))
{ }
