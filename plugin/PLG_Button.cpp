#include "plugin/PLG_Button.h"

#include "contract/HostValues.h"

PLG_Button::PLG_Button()
{
    m_pluginType = PluginType::Button;
}

PLG_Button::~PLG_Button() = default;
