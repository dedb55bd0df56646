#pragma once

#include "bridge/dialog/GUI_WebViewDialog.h"
#include "contract/HostTypes.h"

#include <QVariant>

/// The dialog that edits what follows an automatic conversion. The page stores each change at once.
/// GUI thread.
class GUI_ConvertParameterEditDialog : public GUI_WebViewDialog
{
    Q_OBJECT

public:
    /// `host` outlives the dialog. `dockeyList`: keys of the documents that are converted; the
    /// others are the page's selection. Throws what the host throws.
    GUI_ConvertParameterEditDialog(HostServices *host, QWidget *parent,
                                   const QVariantList &dockeyList, DOCKEY selectDocKey,
                                   PARTITIONNUMBER selectPartitionNo);
};
