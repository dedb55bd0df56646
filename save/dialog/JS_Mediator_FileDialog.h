#pragma once

#include "bridge/mediator/JS_Mediator_Dialog.h"
#include "contract/HostTypes.h"
#include "save/dialog/SavedCheck.h"

#include <QDateTime>
#include <QMap>
#include <QString>
#include <QVariant>

#include <functional>

class QDialog;

/// What the page of a save dialog sees: the documents and partitions that can be saved, their
/// pictures, and where a save would put them.
///
/// The page name decides which kind of save it is: "batchconverter" and
/// "convertparametereditdialog" convert, "snapshotdialog", "reportExportDialog" and
/// "layoutsavedialog" are what they say, every other page exports. Documents come and go between
/// two calls, so each call looks for them anew; without one the answers are empty. Composing a path
/// for a look writes nothing and leaves nothing in the host's save plan. All names bear the time at
/// which the dialog was opened. GUI thread.
class JS_Mediator_FileDialog : public JS_Mediator_Dialog
{
    Q_OBJECT

public:
    /// Clears the group directory that the host's save plan has fixed. Throws what the host throws.
    JS_Mediator_FileDialog(HostServices *host, const QString &name);

    void applySkipFrames(double value) override;

signals:
    /// How many documents, and how many heads of one, the page has selected.
    void selectedDocCount(int count);
    void selectedDocHeadCount(int count);

public slots:
    /// Asks for a folder, closes the opened files and opens all recordings below the folder in
    /// their place. True when a folder was chosen, whatever was found in it.
    bool openFolder();

    // The dialogs: whether they were accepted. While a conversion runs a warning takes their place.

    bool openCustumTimeCodeDialog(); ///< pages call it by exactly this name

    /// What follows an automatic conversion, for documents by their keys. It does not open where
    /// the conversion has no directory.
    bool openConvertParameterEditDialog(const QVariantList &dockeyList);

    /// Hands documents, by their keys, to the host for import.
    void importTarget(const QVariantList &dockeyList);

    /// The partitions that can be saved, as TargetRows tells them. `temporary`: those of a
    /// temporary save; else of the live cameras, outside live mode of all documents. The documents
    /// get the options of the save. Empty when the host fails.
    virtual QString list(bool temporary);
    QString list(); ///< not temporary

    /// Makes a partition the selected one, and gives its picture as PNG in base64; in live mode
    /// none. Tells how many heads a camera has.
    virtual QString select(DOCKEY dockey, PARTITIONNUMBER partitionNo, int width, int height);

    /// Edits what is written into saved pictures, for documents by their keys.
    bool saveInfoView(const QVariantList &targets);

    DOCKEY getSelectDocKey();
    void setSelectDocKey(DOCKEY dockey);
    int getSelectPartitionNo();
    void setSelectPartitionNo(int partitionNo);

    /// The base directory of the selected document, with a trailing "/" unless empty.
    virtual QString getExportPath();

    /// The file name of the selected partition, with all additions.
    QString getExportFile();

    /// The name of the group directory that a batch of the partition gets; of the document's
    /// partition 0; of the first live camera's partition 1. Where the selection is another document
    /// later, getExportFile() and getExportSubDir() compose for a batch with this group.
    QString getExportGroupDir(DOCKEY docKey, PARTITIONNUMBER partitionNo);
    QString getExportGroupDir(DOCKEY docKey);
    QString getExportGroupDir();

    /// The name of the sub directory of the selected partition.
    QString getExportSubDir();

    /// How many documents are selected in the application; 0 when the host fails.
    int countSelectedDocs();

    // Skipped frames, as the kind of save stores them: every n-th frame (mode 0), or one in so many
    // milliseconds (mode 1). Both are kept where the record rate is known.

    void setSkipMode(int mode) override;
    int getSkipMode() override;

    /// Stores whole frames, or the nearest milliseconds that can be selected.
    void setSkipFrames(double val) override;
    double getSkipFrames() override;

    /// Works out the range for partitions that the page has selected: a map from the keys of
    /// documents, as texts, to lists of partition numbers.
    void refreshSkipFrame(const QVariantMap &targets);

protected:
    /// The name of the selected partition's file, for a batch that has planned no file yet. Throws
    /// what host and composer throw.
    virtual QString exportFileName(bool withAdditions);

    DOCKEY selectDocKey() const { return m_selectDocKey; }
    int selectPartitionNo() const { return m_selectPartitionNo; }

    /// Selects without a picture.
    void setSelection(DOCKEY docKey, PARTITIONNUMBER partitionNo);

private:
    int saveModeOfPage() const;
    int previewModeOfPage() const;
    bool runEditor(const std::function<QDialog *()> &make);
    void takeUpGroupDir();
    int skipMode();
    double skipFrames();
    void storeSkipFrames(double value);

    DOCKEY m_selectDocKey = 0;
    int m_selectPartitionNo = 0;
    DOCKEY m_previewDocKey = 0; ///< of the last group directory
    int m_previewPartitionNo = 0;
    SavedCheck m_savedCheck;
    QDateTime m_exportTime;    ///< names stay the same while the dialog is open
    bool m_isSkipKnown = true; ///< false: what could not be read is not replaced
};
