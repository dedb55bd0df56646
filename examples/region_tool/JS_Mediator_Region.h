#pragma once

#include "bridge/mediator/JS_Mediator_Plugin.h"

class PLG_region;

/// What the panel's page sees, under the name "region".
class JS_Mediator_Region : public JS_Mediator_Plugin
{
    Q_OBJECT

public:
    /// The tool owns the mediator.
    JS_Mediator_Region(HostServices *host, PLG_region &tool);

public slots:
    QString name() override;
    QString uiName() override;
    void onOpen() override;
    void onApply() override;
    void onOK() override;
    void onCancel() override;
    void onReset() override;
    void onClose() override;
    void onClosed() override;
    void undo() override;
    void redo() override;
    void beginMacro() override;
    void endMacro() override;
    bool isCurrentDummy() override;
    QString getCurrentWindowTitle() override;

    /// Size, position, limits, aspect and zoom of the current camera's region; empty without one.
    QVariantMap getRegionInfo();

    /// Sets "Width", "Height", "PosX" or "PosY", brought into its range; other names change
    /// nothing.
    void setRegionValue(const QString &valueName, double value);

    /// Shows the dialog with the options.
    void openOptions();

private:
    PLG_region &m_tool;
};
