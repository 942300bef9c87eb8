// Screens with exactly the properties that a test wants.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QStringList>

namespace qt_environment {

/// The environment of a process whose Qt has these screens. \a json is an array with an
/// object for each screen in the order in which they are connected. All that an object
/// says is optional:
///   "name", "manufacturer"                text
///   "millimetres", "logicalDpi"           [x, y]
///   "pixelRatio", "refreshRate"           number
///   "depth"                               bits
///   "geometry", "available"               [x, y, width, height]; available is geometry
///   "orientation", "nativeOrientation"    number of Qt::ScreenOrientation
///   "siblings"                            positions in this array, from 0; empty
///   "primary"                             true: Qt puts it in front of its list
///   "listed"                              false: it is none of Qt's list of screens
QStringList environmentWithScreens(const QByteArray &json);

} // namespace qt_environment
