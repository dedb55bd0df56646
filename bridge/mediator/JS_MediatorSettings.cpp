#include "bridge/mediator/JS_Mediator.h"

#include "bridge/mediator/OperationEventHandler.h"
#include "contract/HostGuard.h"
#include "foundation/Keys.h"

#include <optional>

// Reading and writing settings.

int JS_Mediator::getPrefInt(const QString &name, const QVariant &defaultValue)
{
    return guarded(m_host, 0, [&] { return m_host->getPrefInt(name, defaultValue); });
}

bool JS_Mediator::getPrefBool(const QString &name, const QVariant &defaultValue)
{
    return guarded(m_host, false, [&] { return m_host->getPrefBool(name, defaultValue); });
}

double JS_Mediator::getPrefFloat(const QString &name, const QVariant &defaultValue)
{
    return guarded(m_host, 0.0, [&] { return m_host->getPrefFloat(name, defaultValue); });
}

QString JS_Mediator::getPrefString(const QString &name, const QVariant &defaultValue)
{
    return guarded(m_host, QString(), [&] { return m_host->getPrefString(name, defaultValue); });
}

// A page that stores several settings in a row asks for the refresh with the last one only.
template <typename Body> void JS_Mediator::store(const char *scope, bool update, Body body)
{
    std::optional<OperationEventHandler> operation;
    if (update)
        operation.emplace(this, QLatin1String(scope));
    guarded(m_host, body);
}

void JS_Mediator::setPrefInt(const QString &name, int value, bool update)
{
    store("JS_Mediator::setPrefInt", update, [&] { m_host->setPrefInt(name, value); });
}

void JS_Mediator::setPrefBool(const QString &name, bool value, bool update)
{
    store("JS_Mediator::setPrefBool", update, [&] { m_host->setPrefBool(name, value); });
}

void JS_Mediator::setPrefFloat(const QString &name, double value, bool update)
{
    store("JS_Mediator::setPrefFloat", update, [&] { m_host->setPrefFloat(name, value); });
}

void JS_Mediator::setPrefString(const QString &name, const QString &value, bool update)
{
    store("JS_Mediator::setPrefString", update, [&] { m_host->setPrefString(name, value); });
}

void JS_Mediator::setPrefDQString(const QString &name, const QString &value, bool update)
{
    store("JS_Mediator::setPrefDQString", update, [&] { m_host->setPref(name, value); });
}

void JS_Mediator::setConnectedCameraShowing(bool check)
{
    guarded(m_host, [&] { m_host->setPref(Keys::application.connectedCameraOnlyShowing, check); });
}

bool JS_Mediator::getConnectedCameraShowing()
{
    return guarded(m_host, false, [&] {
        return m_host->getPref(Keys::application.connectedCameraOnlyShowing, false).toBool();
    });
}

void JS_Mediator::checkRestoredPrefs()
{
    HostServices *host = m_host;
    guarded(host, [&] {
        if (host->hasRestoredPrefs())
            host->acknowledgeRestoredPrefs(true);
    });
}
