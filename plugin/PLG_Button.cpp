#include "plugin/PLG_Button.h"

namespace {
constexpr int ButtonPluginType = 2;
}

PLG_Button::PLG_Button()
{
    m_pluginType = ButtonPluginType;
}

PLG_Button::~PLG_Button() = default;
