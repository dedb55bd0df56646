#pragma once

#include "bridge/dialog/GUI_WebViewDialog.h"

/// The dialog that shows the cameras of the network, connects them and gives them addresses. GUI
/// thread.
class GUI_DiscoverySearchDialog : public GUI_WebViewDialog
{
    Q_OBJECT

public:
    /// `host` outlives the dialog. `searchResults` is the JSON text of the search that it shows at
    /// first. Throws what the host throws.
    GUI_DiscoverySearchDialog(HostServices *host, const QString &searchResults, QWidget *parent);
};
