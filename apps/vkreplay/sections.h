// The sections of the Windows half by name.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <optional>

/// The text of the section \a name, such as "biosInfoFromRegistry" or
/// "diskDevicesFromRegistry:USBSTOR"; nothing when there is no such section.
std::optional<QString> sectionText(const QString &name);

/// Whether sectionText() knows \a name.
bool isSection(const QString &name);

/// In the report's order; one that takes a name ends in ":NAME".
QStringList sectionNames();
