// The sections of the Windows half by name.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <functional>

/// The section \a name, such as "biosInfoFromRegistry" or "diskDevicesFromRegistry:USBSTOR".
/// Empty if there is no such section.
std::function<QString()> findSection(const QString &name);

/// All names, in the order of the report. A name that takes any argument ends in ":NAME".
QStringList sectionNames();
