#include "contract/PLG_Interface.h"

#include <string>

namespace {

// A class of the module's own: its code has gone once the module is unloaded.
class NoDriver final : public std::exception
{
public:
    const char *what() const noexcept override { return m_text.c_str(); }

private:
    std::string m_text = "no camera driver\nwas found on this machine";
};

}

extern "C" Q_DECL_EXPORT PLG_Interface *makeButtonPlugin()
{
    throw NoDriver();
}
