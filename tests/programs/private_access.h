// Rights on files.
#pragma once

#include <QtCore/QString>

/// The others than its owner, the system and its administrators who have rights on a file, as the system writes
/// them. Empty if there are none.
QString whoElseHasRights(const QString &fileName);

/// Gives everybody the right to read and change a file.
bool shareWithOthers(const QString &fileName);
