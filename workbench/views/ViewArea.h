#pragma once

#include "contract/HostTypes.h"

#include <QHash>
#include <QWidget>

class DocumentView;
class EmptyPage;
class PlaybackBar;
class QGridLayout;
class QScrollArea;
class QStackedWidget;
class QTimer;
class StandInDocument;
class StandInHost;

/// The views of the present mode: the cameras' live pictures, what the cameras have in memory, or
/// the recordings of files. Where there is nothing to see it says what to do. Views shrink as far
/// as they can be read, then the area scrolls; the current one is kept in sight.
///
/// It is the application's clock: every picture interval the live pictures go on by a frame, and so
/// does each recording that plays. Below the views of recordings stands the position in the current
/// one.
class ViewArea : public QWidget
{
    Q_OBJECT

public:
    /// About 25 pictures a second.
    static constexpr int PictureInterval = 40;

    /// The host outlives the area.
    explicit ViewArea(StandInHost &host, QWidget *parent = nullptr);

    /// The views that are shown, in the order of their documents.
    QList<DocumentView *> views() const { return m_views; }

    /// The view of this document, null when it is not shown.
    DocumentView *view(DOCKEY key) const;

    /// Takes up changes of the list of documents or the mode.
    void rebuild();

    /// Shows everything anew: names, locks, settings, pictures, which one is current.
    void refresh();

    /// Shows one document anew.
    void refreshView(DOCKEY key);

    /// Whether the clock runs; a walk-through stops it and calls advance() itself.
    void setRunning(bool running);
    bool isRunning() const;

    /// One picture interval goes by.
    void advance();

    /// While held, live pictures stand still.
    void setLiveHeld(bool held) { m_liveHeld = held; }

    /// Makes the next view current, the one before for -1; around at the ends.
    void stepCurrent(int step);

signals:
    void addCameraRequested();
    void openFolderRequested();
    void viewsChanged(); ///< some came or went

private:
    struct Position
    {
        quint64 frame = 0;
        bool playing = false;
    };

    QList<StandInDocument *> documentsOfMode() const;
    void choose(DOCKEY key);
    void arrange();
    void showCurrent();
    void showPosition();
    void setFrame(quint64 frame);
    void setPlaying(bool playing);
    DocumentView *currentView() const;

    StandInHost &m_host;
    QStackedWidget *m_stack;
    QScrollArea *m_scroll;
    QWidget *m_gridPage; ///< scrolls
    QGridLayout *m_grid;
    EmptyPage *m_empty;
    PlaybackBar *m_playback;
    QTimer *m_clock;
    QList<DocumentView *> m_views;
    QHash<DOCKEY, Position> m_positions; ///< in the recordings
    DOCKEY m_shownCurrent = NoDocKey;    ///< brought into sight already
    quint64 m_liveFrame = 0;
    bool m_liveHeld = false;
};
