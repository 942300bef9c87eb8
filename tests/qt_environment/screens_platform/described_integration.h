#pragma once

#include "described_screen.h"

#include <QtCore/QByteArray>
#include <qpa/qplatformintegration.h>
#include <vector>

/// A platform integration that only has screens.
class DescribedIntegration : public QPlatformIntegration
{
public:
    explicit DescribedIntegration(const QByteArray &description);

    void initialize() override;
    void destroy() override;
    QAbstractEventDispatcher *createEventDispatcher() const override;
    QPlatformWindow *createPlatformWindow(QWindow *) const override { return nullptr; }
    QPlatformBackingStore *createPlatformBackingStore(QWindow *) const override { return nullptr; }

private:
    std::vector<DescribedScreen *> m_screens;
};
