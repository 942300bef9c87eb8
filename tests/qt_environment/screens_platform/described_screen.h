#pragma once

#include <QtCore/QJsonObject>
#include <qpa/qplatformscreen.h>
#include <vector>

/// A screen with the properties of a JSON object.
class DescribedScreen : public QPlatformScreen
{
public:
    explicit DescribedScreen(const QJsonObject &description);

    /// Selects the virtual siblings of the screen; \a screens has the order of the description.
    void findSiblings(const std::vector<DescribedScreen *> &screens);
    bool isPrimary() const;
    bool isListed() const;

    QString name() const override;
    QString manufacturer() const override;
    QSizeF physicalSize() const override;
    QDpi logicalDpi() const override;
    qreal devicePixelRatio() const override;
    qreal refreshRate() const override;
    int depth() const override;
    QImage::Format format() const override;
    QRect geometry() const override;
    QRect availableGeometry() const override;
    Qt::ScreenOrientation orientation() const override;
    Qt::ScreenOrientation nativeOrientation() const override;
    QList<QPlatformScreen *> virtualSiblings() const override;

private:
    QJsonObject m_description;
    QList<QPlatformScreen *> m_siblings;
};
