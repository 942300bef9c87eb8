#include "described_integration.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/private/qeventdispatcher_unix_p.h>
#include <QtGui/QScreen>
#include <QtGui/private/qguiapplication_p.h>
#include <qpa/qwindowsysteminterface.h>

namespace {

QJsonArray parse(const QByteArray &description)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(description, &error);
    if (!document.isArray())
        qFatal("the description of the screens is not an array: %s", qPrintable(error.errorString()));
    return document.array();
}

} // namespace

DescribedIntegration::DescribedIntegration(const QByteArray &description)
{
    const QJsonArray screens = parse(description);
    for (const QJsonValue &screen : screens)
        m_screens.push_back(new DescribedScreen(screen.toObject()));
    for (DescribedScreen *screen : m_screens)
        screen->findSiblings(m_screens);
}

void DescribedIntegration::initialize()
{
    for (DescribedScreen *screen : m_screens)
        QWindowSystemInterface::handleScreenAdded(screen, screen->isPrimary());
    for (DescribedScreen *screen : m_screens) {
        if (!screen->isListed())
            QGuiApplicationPrivate::screen_list.removeOne(screen->screen());
    }
}

void DescribedIntegration::destroy()
{
    for (DescribedScreen *screen : m_screens)
        QWindowSystemInterface::handleScreenRemoved(screen);
    m_screens.clear();
}

QAbstractEventDispatcher *DescribedIntegration::createEventDispatcher() const
{
    return new QEventDispatcherUNIX;
}
