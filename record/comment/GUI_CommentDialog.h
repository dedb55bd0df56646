#pragma once

#include "bridge/data/RowSelection.h"
#include "bridge/dialog/GUI_PageDialog.h"
#include "contract/HostTypes.h"

#include <QVector>

class DOC_Interface;

/// The dialog that edits the comments of several documents at once.
///
/// Its page, which finds it as "comment_mediator", lists the documents, shows one comment and may
/// have several rows selected, all of which an edit goes to. Rows count from 1. The comments are
/// read when the dialog opens, and stored by comment_ok() alone. GUI thread.
class GUI_CommentDialog : public GUI_PageDialog
{
    Q_OBJECT

public:
    /// `host` outlives the dialog; its main widget becomes the parent. With a document the host
    /// tells which documents belong to it, without one they are those that are selected. Throws
    /// what the host throws.
    explicit GUI_CommentDialog(HostServices *host, DOC_Interface *document = nullptr);

public slots:
    /// Stores the comments of all documents that are still there and ends the dialog, which stays
    /// open when the host fails.
    void comment_ok();

    /// Ends the dialog and stores nothing.
    void comment_cancel();

    void populateJavaScriptWindowObject() override;

    /// Comment of the row that is shown, with line feeds; empty without one.
    QString getComment();

    /// Gives this comment to all selected rows.
    void setComment(const QString &comment);

    QString translate(const QString &value);
    QString getStyle();
    void setSelectedItems(const QList<int> &ids);

    /// The rows, as DocumentRows tells them, with an empty name where the document has gone. The
    /// initial row is that of the dialog's document, or of the current one. Empty when the host
    /// fails.
    QString getDocInfos();

    QList<int> getSelectedItems();

private:
    struct Comment
    {
        DOCKEY key;
        QString text;
    };

    GUI_CommentDialog(HostServices *host, DOC_Interface *document, QWidget *parent);

    void readComments();

    DOC_Interface *m_document; ///< only compared: it may have gone
    RowSelection m_selection;
    QVector<Comment> m_comments;
};
