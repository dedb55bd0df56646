#pragma once

#include "save/dialog/JS_Mediator_FileDialog.h"

/// What the page of a dialog sees that saves opened files: beside the targets, a preview of one of
/// them, and what the user does with it. GUI thread.
class JS_Mediator_FileSaveDialog : public JS_Mediator_FileDialog
{
    Q_OBJECT

public:
    using JS_Mediator_FileDialog::JS_Mediator_FileDialog;

signals:
    /// The page chose a partition for the export.
    void exportTarget(DOCKEY dockey, PARTITIONNUMBER partitionNo);

    // The page's buttons.
    void saveAction();
    void applyAction();
    void cancelAction();

public slots:
    /// Tells how many documents are exported, as selectedDocCount().
    void exportDocCount(int count);

    /// Number of the document's head, from 1; 0 without the document.
    int getHeadNo(DOCKEY dockey);

    /// Whether several ranges of the document are being trimmed, and the text for that.
    bool isMultiTrimming(DOCKEY dockey);
    QString getMultiTrimmingLabel(DOCKEY dockey);

    // Move the document's preview; pages call both by exactly these names.
    void prevPreivew(DOCKEY dockey);
    void nextPreivew(DOCKEY dockey);
};
