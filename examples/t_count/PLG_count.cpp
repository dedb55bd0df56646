#include "contract/HostServices.h"
#include "plugin/PLG_Button.h"

/// A command button that tells how many cameras there are.
class PLG_count final : public PLG_Button
{
public:
    PLG_count() { m_toolName = QLatin1String("t_count"); }

    void activate() override
    {
        QList<DOCKEY> keys;
        m_host->deviceKeys(keys, true);
        m_host->info(QString::number(keys.size()) + QLatin1String(" cameras"),
                     m_host->mainWidget());
    }
};

extern "C" __attribute__((visibility("default"))) PLG_Interface *makeButtonPlugin()
{
    return new PLG_count;
}
