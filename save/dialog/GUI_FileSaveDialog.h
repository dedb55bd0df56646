#pragma once

#include "bridge/dialog/GUI_WebViewDialog.h"
#include "contract/HostTypes.h"

#include <QList>

/// A dialog that saves an opened file, on a page of the caller's. It keeps the partitions that the
/// page chooses. GUI thread.
class GUI_FileSaveDialog : public GUI_WebViewDialog
{
    Q_OBJECT

public:
    /// `host` outlives the dialog. `title` is an English source text; `pageName` decides the kind
    /// of save, as JS_Mediator_FileDialog tells. Throws what the host throws.
    GUI_FileSaveDialog(HostServices *host, const QString &title, const QString &url,
                       const QString &pageName, QWidget *parent);

    /// Numbers in the order in which they were chosen, repeats included.
    const QList<PARTITIONNUMBER> &partitions() const { return m_partitions; }

private slots:
    void exportTarget(DOCKEY dockey, PARTITIONNUMBER partitionNo);

private:
    QList<PARTITIONNUMBER> m_partitions;
};
