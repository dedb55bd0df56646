#include "device/discovery/JS_Mediator_DiscoverySearchDialog.h"

#include "bridge/operation/OperationLog.h"
#include "contract/HostGuard.h"
#include "foundation/LogGroups.h"
#include "foundation/Utilities.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

QString jsonGroup(const QString &json)
{
    return LogGroups::group(QLatin1String("json"), json);
}

QStringList textsOf(const QString &json)
{
    QStringList texts;
    for (const QJsonValue &element : QJsonDocument::fromJson(json.toUtf8()).array())
        texts.append(element.toString());
    return texts;
}

}

JS_Mediator_DiscoverySearchDialog::JS_Mediator_DiscoverySearchDialog(HostServices *host,
                                                                     const QString &searchResults)
    : JS_Mediator_Dialog(host, QLatin1String("discoverysearch")), m_searchResults(searchResults)
{
}

QString JS_Mediator_DiscoverySearchDialog::getSearchResults()
{
    OperationLogScope trace(QLatin1String("JS_Mediator_DiscoverySearchDialog::getSearchResults"));
    return m_searchResults;
}

QString JS_Mediator_DiscoverySearchDialog::getSearchAgainResults()
{
    OperationLogScope trace(
        QLatin1String("JS_Mediator_DiscoverySearchDialog::getSearchAgainResults"));
    return guarded(host(), QString(), [this] { return host()->searchAgain(); });
}

void JS_Mediator_DiscoverySearchDialog::connect(const QString &json)
{
    OperationLogScope trace(QLatin1String("JS_Mediator_DiscoverySearchDialog::connect"),
                            jsonGroup(json));
    guarded(host(), [&] {
        const QStringList addresses = textsOf(json);
        if (!addresses.isEmpty())
            host()->connectDevices(addresses);
    });
}

void JS_Mediator_DiscoverySearchDialog::setNetworkSettings(const QString &json)
{
    OperationLogScope trace(QLatin1String("JS_Mediator_DiscoverySearchDialog::setNetworkSettings"),
                            jsonGroup(json));
    guarded(host(), [&] {
        const QJsonObject values = QJsonDocument::fromJson(json.toUtf8()).object();
        const auto address = [&values](const char *key) {
            return UTL::formatIpAddress(values.value(QLatin1String(key)).toString());
        };
        host()->setNetworkSettings(address("adapteraddress"), address("ipaddress"),
                                   address("subnetmask"), address("defaultgateway"),
                                   address("macaddress"));
    });
}
