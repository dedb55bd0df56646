#include "device/discovery/GUI_DiscoverySearchDialog.h"

#include "device/discovery/JS_Mediator_DiscoverySearchDialog.h"

GUI_DiscoverySearchDialog::GUI_DiscoverySearchDialog(HostServices *host,
                                                     const QString &searchResults, QWidget *parent)
    : GUI_WebViewDialog(host, QLatin1String("Discovery search"),
                        QLatin1String("qrc:/discoverysearch.html"),
                        new JS_Mediator_DiscoverySearchDialog(host, searchResults), parent)
{
    resize(780, 520);
}
