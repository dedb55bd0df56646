#pragma once

#include "plugin/PLG_Button.h"

/// A tool whose fields a test reads and sets.
class ProbeTool : public PLG_Common
{
public:
    explicit ProbeTool(const QString &name = QStringLiteral("t_probe")) { m_toolName = name; }

    using PLG_Common::m_allowedModes;
    using PLG_Common::m_anchorCorner;
    using PLG_Common::m_buttonKind;
    using PLG_Common::m_checkKind;
    using PLG_Common::m_closeOnForbiddenMode;
    using PLG_Common::m_currentDocId;
    using PLG_Common::m_dragging;
    using PLG_Common::m_dragHandle;
    using PLG_Common::m_flagA;
    using PLG_Common::m_flagB;
    using PLG_Common::m_flagC;
    using PLG_Common::m_flagD;
    using PLG_Common::m_flagF;
    using PLG_Common::m_fontCache;
    using PLG_Common::m_hasPanel;
    using PLG_Common::m_host;
    using PLG_Common::m_layoutValueA;
    using PLG_Common::m_layoutValueB;
    using PLG_Common::m_layoutValueC;
    using PLG_Common::m_layoutValueD;
    using PLG_Common::m_layoutValueE;
    using PLG_Common::m_maxSize;
    using PLG_Common::m_mediator;
    using PLG_Common::m_minSize;
    using PLG_Common::m_modeFlag;
    using PLG_Common::m_modeFlagB;
    using PLG_Common::m_modelessDialog;
    using PLG_Common::m_pluginSubType;
    using PLG_Common::m_pluginType;
    using PLG_Common::m_positionStep;
    using PLG_Common::m_pressRegion;
    using PLG_Common::m_quickToolMode;
    using PLG_Common::m_reservedPair;
    using PLG_Common::m_sizeStep;
    using PLG_Common::m_suspendsView;
    using PLG_Common::m_symmetricX;
    using PLG_Common::m_symmetricY;
    using PLG_Common::m_toolMutex;
    using PLG_Common::m_toolName;
    using PLG_Common::m_transactionKind;
    using PLG_Common::m_transactionOpen;
    using PLG_Common::m_viewWidget;
};
