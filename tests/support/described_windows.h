// Puts a described machine where the sections look for Windows.
//
// Away from Windows the whole machine answers. On Windows its registry does: it is
// written below one key of the test's own in HKEY_CURRENT_USER, and for this process
// RegOverridePredefKey() puts that in the place of HKEY_LOCAL_MACHINE,
// HKEY_CURRENT_USER and HKEY_CLASSES_ROOT. Nothing else is written or deleted, no
// elevation is needed, and the key is volatile: a crash leaves nothing that outlives
// the user's session.
//
// Wine does not apply a replacement of HKEY_CLASSES_ROOT to calls that name the 32- or
// 64-bit view (KEY_WOW64_*). No section names one there.
#pragma once

#include "machine.h"

#include <QtCore/QByteArray>
#include <memory>

/// In place for as long as it lives; one at a time.
class DescribedWindows
{
public:
    /// A machine that knows nothing but this registry. \a registryFile is what stands
    /// in registry.reg behind its first line.
    explicit DescribedWindows(const QByteArray &registryFile);
    /// A machine that knows nothing but these: registry.reg and system.json.
    DescribedWindows(const QByteArray &registryFile, const QByteArray &systemFile);
    explicit DescribedWindows(machine::Machine machine);
    ~DescribedWindows();

    /// The machine of a folder of machines/.
    static machine::Machine load(const QString &name);
    static machine::Machine parse(const QByteArray &registryFile, const QByteArray &systemFile);

private:
    struct Private;
    std::unique_ptr<Private> d;
};
