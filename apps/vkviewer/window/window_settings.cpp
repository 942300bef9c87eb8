#include "window_settings.h"

#include <QtCore/QSettings>

namespace {

class Settings : public QSettings
{
public:
    Settings()
        : QSettings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("vkSystemInfo"), QStringLiteral("vkviewer"))
    {
        setFallbacksEnabled(false);
    }
};

} // namespace

QByteArray WindowSettings::bytes(const char *key)
{
    return Settings().value(QLatin1String(key)).toByteArray();
}

void WindowSettings::setBytes(const char *key, const QByteArray &value)
{
    Settings().setValue(QLatin1String(key), value);
}

bool WindowSettings::isOn(const char *key, bool usually)
{
    return Settings().value(QLatin1String(key), usually).toBool();
}

void WindowSettings::setOn(const char *key, bool on)
{
    Settings().setValue(QLatin1String(key), on);
}

QStringList WindowSettings::texts(const char *key)
{
    return Settings().value(QLatin1String(key)).toStringList();
}

void WindowSettings::setTexts(const char *key, const QStringList &texts)
{
    Settings().setValue(QLatin1String(key), texts);
}
