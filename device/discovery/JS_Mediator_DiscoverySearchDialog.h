#pragma once

#include "bridge/mediator/JS_Mediator_Dialog.h"

/// What the page of the dialog sees that shows the cameras of the network, connects them and gives
/// them addresses. What stands in the result of a search is the host's. GUI thread.
class JS_Mediator_DiscoverySearchDialog : public JS_Mediator_Dialog
{
    Q_OBJECT

public:
    /// `searchResults` is the JSON text of the search that the dialog was opened for.
    JS_Mediator_DiscoverySearchDialog(HostServices *host, const QString &searchResults);

public slots:
    /// The result that the dialog was opened with, as it is.
    QString getSearchResults();

    /// JSON text of a new search; it comes back when that has ended. Empty when the host fails.
    QString getSearchAgainResults();

    /// Connects the cameras at these addresses, a JSON array of texts; an element that is no text
    /// is an empty address. Nothing for an empty array, or a text that is none. Pages call it by
    /// exactly this name.
    void connect(const QString &json);

    /// Gives a camera other addresses. `json` is an object of texts: "adapteraddress", "ipaddress",
    /// "subnetmask", "defaultgateway", and the camera's "macaddress". Leading zeros of the parts
    /// are taken off; what is absent, or no text, is empty.
    void setNetworkSettings(const QString &json);

private:
    QString m_searchResults;
};
