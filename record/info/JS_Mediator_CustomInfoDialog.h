#pragma once

#include "bridge/data/RowSelection.h"
#include "bridge/mediator/JS_Mediator_Dialog.h"
#include "contract/HostTypes.h"

#include <QList>
#include <QString>
#include <QVariant>

class GUI_CustomInfoDialog;

/// What the page of the dialog sees that edits the custom information of several documents at once.
///
/// An edit goes to the documents at once, and the host is told of it; cancelling writes back what
/// they held when the dialog was opened. A record has two flags, whether it is shown in the display
/// and whether it takes part in file names, of which the page sees one as "selected": the display's
/// for the callback type 17, that of file names for every other. Keys of documents come as numbers
/// or decimal texts; one without a document is passed over. GUI thread.
class JS_Mediator_CustomInfoDialog : public JS_Mediator_Dialog
{
    Q_OBJECT

public:
    /// Keeps what the documents hold now: those of a temporary save, or those that are selected.
    /// `dialog` is the parent of file choosers, and may be null. Throws what the host throws.
    JS_Mediator_CustomInfoDialog(HostServices *host, GUI_CustomInfoDialog *dialog,
                                 bool forTemporary);

    void setCallbackType(int type) { m_callbackType = type; }

public slots:
    /// Writes back what the documents held at the beginning, their comments excepted. A document
    /// that has come since stays as it is. Does not end the dialog.
    void cancel();

    /// The documents, as DocumentRows tells them, with their keys. The initial row is that of the
    /// current document, for a temporary save the first. Empty when the host fails.
    QString getDeviceInfo();

    /// The records of a document: [{"recid":1,"selected":true,"name":"","value":"","unit":""}].
    /// "[]" without the document, empty when the host fails.
    QString getCustomInfo(DOCKEY dockey);

    /// Asks for a file and writes the records with "name", "value", "unit" and "selected" to it.
    /// One that cannot be opened is passed over in silence.
    void save(const QVariantList &customs);

    /// Asks for a file and gives its records to the documents in place of theirs. A file without
    /// any goes to the host's errorHandler() as a DOC_ReadFileException.
    void load(const QVariantList &targets);

    /// Removes the records that have the "name" of one of `customs`.
    void deleteCustomData(const QVariantList &targets, const QVariantList &customs);

    /// Makes `customs` with "name", "value", "unit" and "selected" (of the display) the records of
    /// the documents; all take part in file names. One called "Comments" becomes the comment.
    void restoreCustomData(const QVariantList &targets, const QVariantList &customs);

    /// Gives the record "oldname" a "name", "value" and "unit"; it keeps its flags.
    void editCustomData(const QVariantList &targets, const QVariant &custom);

    /// Appends a record of "name", "value" and "unit" with both flags. The name may be one that is
    /// there: what becomes of it is the host's matter.
    void addCustomData(const QVariantList &targets, const QVariant &custom);

    /// Sets the flag of each "name" to its "selected". The other flag becomes true for every text
    /// but an empty one, "0" and "false". A name that is not there sets a record without a name.
    void enableCustomData(const QVariantList &targets, const QVariantList &customs);

    /// Takes the rows that are selected on the page; their numbers mean nothing here.
    void setSelectedDeviceItems(const QList<int> &ids);

    /// The row whose values the page shows, 0 without one.
    int getCurrentDeviceRecord();

    /// Which of the flags the page shows.
    int getCallbackType();

private:
    bool showsDisplayFlag() const;

    GUI_CustomInfoDialog *m_dialog;
    QVariantMap m_backup; ///< by the decimal text of the key
    RowSelection m_selection;
    int m_callbackType;
    bool m_forTemporary;
};
