#include "described_screen.h"

#include <QtCore/QJsonArray>

namespace {

QRect rectangle(const QJsonArray &array)
{
    return {array.at(0).toInt(), array.at(1).toInt(), array.at(2).toInt(), array.at(3).toInt()};
}

} // namespace

DescribedScreen::DescribedScreen(const QJsonObject &description)
    : m_description(description)
{ }

void DescribedScreen::findSiblings(const std::vector<DescribedScreen *> &screens)
{
    const QJsonArray positions = m_description[QLatin1String("siblings")].toArray();
    for (const QJsonValue &position : positions)
        m_siblings += screens.at(std::size_t(position.toInt()));
}

bool DescribedScreen::isPrimary() const
{
    return m_description[QLatin1String("primary")].toBool(false);
}

bool DescribedScreen::isListed() const
{
    return m_description[QLatin1String("listed")].toBool(true);
}

QString DescribedScreen::name() const
{
    return m_description[QLatin1String("name")].toString();
}

QString DescribedScreen::manufacturer() const
{
    return m_description[QLatin1String("manufacturer")].toString();
}

QSizeF DescribedScreen::physicalSize() const
{
    const QJsonArray size = m_description[QLatin1String("millimetres")].toArray({254, 254});
    return {size.at(0).toDouble(), size.at(1).toDouble()};
}

QDpi DescribedScreen::logicalDpi() const
{
    const QJsonArray dpi = m_description[QLatin1String("logicalDpi")].toArray({96, 96});
    return {dpi.at(0).toDouble(), dpi.at(1).toDouble()};
}

qreal DescribedScreen::devicePixelRatio() const
{
    return m_description[QLatin1String("pixelRatio")].toDouble(1);
}

qreal DescribedScreen::refreshRate() const
{
    return m_description[QLatin1String("refreshRate")].toDouble(60);
}

int DescribedScreen::depth() const
{
    return m_description[QLatin1String("depth")].toInt(32);
}

QImage::Format DescribedScreen::format() const
{
    return QImage::Format_RGB32;
}

QRect DescribedScreen::geometry() const
{
    return rectangle(m_description[QLatin1String("geometry")].toArray({0, 0, 1000, 1000}));
}

QRect DescribedScreen::availableGeometry() const
{
    const QJsonValue available = m_description[QLatin1String("available")];
    return available.isArray() ? rectangle(available.toArray()) : geometry();
}

Qt::ScreenOrientation DescribedScreen::orientation() const
{
    return Qt::ScreenOrientation(m_description[QLatin1String("orientation")].toInt());
}

Qt::ScreenOrientation DescribedScreen::nativeOrientation() const
{
    return Qt::ScreenOrientation(m_description[QLatin1String("nativeOrientation")].toInt());
}

QList<QPlatformScreen *> DescribedScreen::virtualSiblings() const
{
    return m_siblings;
}
