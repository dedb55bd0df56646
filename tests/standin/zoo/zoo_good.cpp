#include "plugin/PLG_Button.h"

namespace {

/// The smallest tool: a toggle button that keeps every default.
class PLG_zoo final : public PLG_Button
{
public:
    PLG_zoo()
    {
        m_toolName = QLatin1String("t_zoo");
        m_buttonKind = 1;
    }
};

}

extern "C" Q_DECL_EXPORT PLG_Interface *makeButtonPlugin()
{
    return new PLG_zoo;
}
