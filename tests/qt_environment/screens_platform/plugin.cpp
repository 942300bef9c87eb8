#include "described_integration.h"

#include <qpa/qplatformintegrationplugin.h>

class DescribedScreensPlugin : public QPlatformIntegrationPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QPlatformIntegrationFactoryInterface_iid FILE "described_screens.json")

public:
    QPlatformIntegration *create(const QString &, const QStringList &) override
    {
        return new DescribedIntegration(qgetenv("DESCRIBED_SCREENS"));
    }
};

#include "plugin.moc"
