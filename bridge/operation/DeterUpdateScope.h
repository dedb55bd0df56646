#pragma once

class HostServices;

/// Holds the host's refreshes back while a change of several steps is under way. GUI thread.
class DeterUpdateScope
{
public:
    /// Throws what the host throws; then nothing is held back.
    explicit DeterUpdateScope(HostServices *host);
    ~DeterUpdateScope();

    DeterUpdateScope(const DeterUpdateScope &) = delete;
    DeterUpdateScope &operator=(const DeterUpdateScope &) = delete;

private:
    HostServices *m_host;
};
