#include "plugin/PLG_Button.h"

#include <stdexcept>

namespace {

/// A tool that does not get on with its host.
class PLG_failing final : public PLG_Button
{
public:
    PLG_failing() { m_toolName = QLatin1String("t_failing"); }

    void setHost(HostServices *) override { throw std::runtime_error("the host is too old"); }
};

}

extern "C" Q_DECL_EXPORT PLG_Interface *makeButtonPlugin()
{
    return new PLG_failing;
}
