// Makes the sections' calls answer for a described machine.
//
// With the simulated Windows the whole machine answers. On Windows only its registry
// does: the test writes it below one volatile key of its own in HKEY_CURRENT_USER, and
// RegOverridePredefKey() replaces HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER and
// HKEY_CLASSES_ROOT by it for this process. Nothing else is written or deleted, and no
// elevation is needed. After a crash Windows deletes the key when the user logs off.
//
// Wine ignores a replaced HKEY_CLASSES_ROOT in calls with KEY_WOW64_*. No section makes
// such a call there.
#pragma once

#include "machine.h"

#include <QtCore/QByteArray>
#include <memory>

/// The machine answers while the object exists. Only one object may exist at a time.
class DescribedWindows
{
public:
    /// A machine with only a registry: registry.reg without its first line.
    explicit DescribedWindows(const QByteArray &registryFile);
    /// registry.reg without its first line, and system.json.
    DescribedWindows(const QByteArray &registryFile, const QByteArray &systemFile);
    explicit DescribedWindows(machine::Machine machine);
    ~DescribedWindows();

    /// Loads the folder machines/NAME. Ends the process if that fails, as parse() does.
    static machine::Machine load(const QString &name);
    static machine::Machine parse(const QByteArray &registryFile, const QByteArray &systemFile);

private:
    struct Private;
    std::unique_ptr<Private> d;
};
