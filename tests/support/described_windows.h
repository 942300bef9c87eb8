// Puts a described machine where the sections look for Windows.
//
// Away from Windows the whole machine answers. On Windows its registry does: it is
// loaded below a key of the test's own, which RegOverridePredefKey() then puts in the
// place of HKEY_LOCAL_MACHINE and HKEY_CURRENT_USER; what it says of
// HKEY_CLASSES_ROOT, which cannot be replaced, is added there and taken out again.
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
