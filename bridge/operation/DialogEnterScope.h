#pragma once

class HostServices;

/// Tells the host that a dialog has come, where it wants to know, and that it has left when the
/// scope goes, unless the host has suppressed that. A failure on leaving goes to the host's
/// errorHandler(). GUI thread.
class DialogEnterScope
{
public:
    /// Throws what the host throws; then nothing has been told.
    explicit DialogEnterScope(HostServices *host);
    ~DialogEnterScope();

    DialogEnterScope(const DialogEnterScope &) = delete;
    DialogEnterScope &operator=(const DialogEnterScope &) = delete;

private:
    HostServices *m_host;
    bool m_notifiedHost = false;
};
