#pragma once

class HostServices;

/// Clears the host's save plan when it goes, so that what was composed for a look leaves nothing
/// behind. A failure goes to the host's errorHandler(), and the rest is cleared all the same. GUI
/// thread.
class SavePlanScope
{
public:
    enum class Clear {
        GroupDir,  ///< the fixed group directory alone
        Everything ///< the group directory, then directories, then files
    };

    SavePlanScope(HostServices *host, Clear clear);
    ~SavePlanScope();

    SavePlanScope(const SavePlanScope &) = delete;
    SavePlanScope &operator=(const SavePlanScope &) = delete;

private:
    HostServices *m_host;
    Clear m_clear;
};
