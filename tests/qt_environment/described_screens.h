// Describes the screens of a child process.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QStringList>

namespace qt_environment {

/// The environment variables of a process whose Qt has the screens \a json: an array with an
/// object for each screen, in the order in which they are connected. All members are
/// optional:
///   "name", "manufacturer"                text
///   "millimetres", "logicalDpi"           [x, y]
///   "pixelRatio", "refreshRate"           number
///   "depth"                               bits
///   "geometry", "available"               [x, y, width, height]; available defaults to geometry
///   "orientation", "nativeOrientation"    number of Qt::ScreenOrientation
///   "siblings"                            indexes in this array, from 0
///   "primary"                             true: the first screen in Qt's list
///   "listed"                              false: not in Qt's list
QStringList environmentWithScreens(const QByteArray &json);

} // namespace qt_environment
