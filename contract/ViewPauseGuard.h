#pragma once

class HostServices;
class QMutex;

/// Pauses live view or playback around a change of what the view shows, and resumes it on every way
/// out.
///
/// On entry the host's documentsMutex() is tried for 1 ms, and the work goes on without it when it
/// is busy. A failure on entry takes back what was begun and is thrown; a failure on leaving goes
/// to the host's errorHandler(), and the remaining steps follow. What was paused is what is
/// resumed, also when the mode has changed in between. GUI thread.
class ViewPauseGuard
{
public:
    /// `exclusive`: nobody else may update or refresh the live view meanwhile. `refreshDocuments`:
    /// the live documents are drawn anew before live view resumes.
    ViewPauseGuard(HostServices *host, bool exclusive, bool refreshDocuments);
    ~ViewPauseGuard();

    ViewPauseGuard(const ViewPauseGuard &) = delete;
    ViewPauseGuard &operator=(const ViewPauseGuard &) = delete;

private:
    void enter();
    void leave();
    void refreshLiveDocuments();

    HostServices *m_host;
    bool m_exclusive;
    bool m_refreshDocuments;
    QMutex *m_lockedMutex = nullptr; ///< null when it was busy
    bool m_updateHeld = false;
    bool m_refreshHeld = false;
    bool m_livePaused = false;
    bool m_playbackPaused = false;
};
