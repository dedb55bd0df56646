#pragma once

#include "contract/HostTypes.h"

#include <QObject>

class GUI_WebView;

/// What happens in the stand-in host, for a user interface that follows it. The signals come on the
/// GUI thread, behind the change, but callJournalled(), which comes on the caller's thread.
class StandInEvents : public QObject
{
    Q_OBJECT

signals:
    void documentsChanged();         ///< the list of documents, or their order
    void documentClosed(DOCKEY key); ///< its key names nothing any more
    void currentDocumentChanged(DOCKEY key);
    void selectionChanged();
    void modeChanged(int mode); ///< 0 live, 1 memory, 2 file
    void lockChanged(bool locked);
    void cameraSettingsChanged(DOCKEY key); ///< shutter, record rate, region or device
    void viewChanged(DOCKEY key);           ///< rotation, flips, zoom, scroll, binning
    void documentRefreshed(DOCKEY key);     ///< the picture shall be drawn anew
    void documentInfoChanged();
    void displayInfoChanged(bool showing); ///< the information over the pictures
    void livePauseChanged(int balance);
    void playbackPauseChanged(int balance);
    void pluginsChanged(); ///< added, removed, opened or closed
    void toolStateChanged(const QString &tool);
    void updated(uint flags); ///< everything that updateUI() refreshes is to be shown anew
    void undoChanged();
    void settingChanged(const QString &key);

    /// A view is shown its mediator, or another one; its page is still to come.
    void pageAttached(GUI_WebView *view);

    /// "info", "warn", "alert" or "confirm", and the whole text.
    void messageShown(const QString &kind, const QString &text);
    void errorHandled(const QString &text);
    void callJournalled(const QString &line);
};
