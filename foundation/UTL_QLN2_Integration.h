#pragma once

class HostServices;

/// The companion application that takes over saved recordings for analysis: whether they can be
/// handed to it. GUI thread.
class UTL_QLN2_Integration
{
public:
    /// `host` outlives the object and is not owned.
    explicit UTL_QLN2_Integration(HostServices *host);
    virtual ~UTL_QLN2_Integration();

    /// Whether the companion is installed: its program lies in the folder that the host tells.
    /// Throws what the host throws.
    bool isInstalled();

    /// Whether nothing can be handed over now: the camera records or downloads by itself. Throws
    /// what the host throws.
    bool isOptionDisabled();

private:
    HostServices *m_host;
};
