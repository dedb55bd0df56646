#pragma once

#include "save/dialog/JS_Mediator_FileDialog.h"

/// What the page of the dialog sees that edits what follows an automatic conversion. It takes its
/// targets from getTargetItems(). GUI thread.
class JS_Mediator_ConvertParameterEditDialog : public JS_Mediator_FileDialog
{
    Q_OBJECT

public:
    /// `targetItems`: keys of documents, as numbers or decimal texts. The others are the selection
    /// at the beginning. Throws what the host throws.
    JS_Mediator_ConvertParameterEditDialog(HostServices *host, const QVariantList &targetItems,
                                           DOCKEY selectDocKey, PARTITIONNUMBER selectPartitionNo);

public slots:
    /// Gives the targets the information option of a conversion. Empty text.
    QString list(bool temporary) override;
    QString list();

    QVariantList getTargetItems();

    /// The directory of the automatic save: where conversions go beside their original, that of the
    /// selected partition; else as the base tells. Empty without the document and when the host
    /// fails. The document's partition and the save plan stay as they were, the plan's entries
    /// excepted, which are cleared.
    QString getExportPath() override;

private:
    QVariantList m_targetItems;
};
