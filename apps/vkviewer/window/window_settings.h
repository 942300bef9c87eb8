// What the window remembers: its geometry, its switches, and which files were opened. Nothing of a report.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QStringList>

/// A file below the user's folder of settings: on Windows too, so that deleting it forgets everything.
class WindowSettings
{
public:
    static QByteArray bytes(const char *key);
    static void setBytes(const char *key, const QByteArray &value);
    static bool isOn(const char *key, bool usually);
    static void setOn(const char *key, bool on);
    static QStringList texts(const char *key);
    static void setTexts(const char *key, const QStringList &texts);
};
