#include "record/comment/GUI_CommentDialog.h"

#include "bridge/data/DocumentRows.h"
#include "contract/DOC_Interface.h"
#include "contract/HostGuard.h"
#include "foundation/Keys.h"

#include <QPointer>

GUI_CommentDialog::GUI_CommentDialog(HostServices *host, DOC_Interface *document)
    : GUI_CommentDialog(host, document, host->mainWidget())
{
}

GUI_CommentDialog::GUI_CommentDialog(HostServices *host, DOC_Interface *document, QWidget *parent)
    : GUI_PageDialog(host, QLatin1String("Comment"), parent), m_document(document)
{
    setFixedSize(340, 440);
    readComments();
    loadPage(QLatin1String("qrc:/commentview.html"));
}

void GUI_CommentDialog::readComments()
{
    QList<DOCKEY> keys;
    if (m_document)
        host()->targetDocKeys(keys, true, 0);
    else
        host()->selectedDocKeys(keys, true);
    for (DOCKEY key : qAsConst(keys)) {
        DOC_Interface *device = host()->deviceByKey(key, true);
        if (!device)
            continue;
        QString text = device->documentComment();
        text.replace(Keys::texts.separator, QLatin1String("\n")); // stored in one line
        m_comments.append({host()->documentKeyOf(device), text});
    }
}

void GUI_CommentDialog::comment_ok()
{
    HostServices *services = host();
    QPointer<GUI_CommentDialog> self(this);
    const QVector<Comment> comments = m_comments; // a call of the host may end the dialog
    guarded(services, [&] {
        for (const Comment &comment : comments) {
            if (DOC_Interface *device = services->deviceByKey(comment.key, true))
                device->setDocumentComment(comment.text);
        }
        if (self)
            acceptAndClose();
    });
}

void GUI_CommentDialog::comment_cancel()
{
    rejectAndClose();
}

void GUI_CommentDialog::populateJavaScriptWindowObject()
{
    showToPage(QLatin1String("comment_mediator"));
}

QString GUI_CommentDialog::getComment()
{
    const int row = m_selection.current();
    return row < 1 || row > m_comments.size() ? QString() : m_comments.at(row - 1).text;
}

void GUI_CommentDialog::setComment(const QString &comment)
{
    for (int row : m_selection.ids()) {
        if (row >= 1 && row <= m_comments.size())
            m_comments[row - 1].text = comment;
    }
}

QString GUI_CommentDialog::translate(const QString &value)
{
    return translated(value);
}

QString GUI_CommentDialog::getStyle()
{
    return style();
}

void GUI_CommentDialog::setSelectedItems(const QList<int> &ids)
{
    m_selection.select(ids);
}

QString GUI_CommentDialog::getDocInfos()
{
    HostServices *services = host();
    const QVector<Comment> comments = m_comments; // a call of the host may end the dialog
    DOC_Interface *opened = m_document;
    return guarded(services, QString(), [&] {
        const DOC_Interface *shown = opened ? opened : services->currentDocument();
        DocumentRows rows;
        for (const Comment &comment : comments) {
            DOC_Interface *device = services->deviceByKey(comment.key, true);
            rows.add(device ? device->documentName() : QString(), device && device == shown);
        }
        return rows.text();
    });
}

QList<int> GUI_CommentDialog::getSelectedItems()
{
    return m_selection.ids();
}
