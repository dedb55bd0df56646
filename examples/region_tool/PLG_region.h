#pragma once

#include "RegionOptions.h"
#include "contract/HostTypes.h"
#include "plugin/PLG_Button.h"

#include <QHash>

class GUI_RegionOverlay;

/// A tool with a panel: a rectangle on the picture of each camera, edited by mouse, keys and panel.
///
/// While the panel is open the rectangle is drawn and can be edited; the edits form a transaction
/// that OK and Apply accept, Cancel and Reset take back. It begins with what the host tells by
/// setRegion() before the panel opens. Rectangles are in image pixels. While the
/// cameras are locked together an edit reaches all of them, unless the options say otherwise.
class PLG_region final : public PLG_Button
{
    Q_OBJECT

public:
    PLG_region();
    ~PLG_region() override;

    void setHost(HostServices *host) override;

    /// Opens the panel by way of the host, which then calls it again.
    void activate() override;
    void onClosed() override;
    void onOk() override;
    void onAccept() override;
    void onCancel() override;
    void onApply() override;
    void onReset() override;
    QWidget *viewWidget() override;

    bool editsRegion(DOC_Interface *doc) override;
    /// The middle of the picture when neither host nor user has set it.
    QRect region(DOC_Interface *doc) override;
    void setRegion(DOC_Interface *doc, const QRect &rect, bool fromUser) override;
    bool isAspectFixed() override;
    double aspectRatio() override;

    GUI_ModelessPatternDialog *createModelessPatternDialog(bool create) override;

    const RegionOptions &options() const { return m_options; }

    /// Sets an option and brings the region of the current camera within it. False for what is no
    /// option, or no value of it. Throws what the host throws, like all below.
    bool setOption(const QString &name, const QVariant &value);

    /// What the panel shows of the current camera; empty without one.
    QVariantMap panelInfo();

    /// Sets "Width", "Height", "PosX" or "PosY" of the current camera's region, rounded, brought
    /// into the range that the panel shows and within the options. What is no number changes
    /// nothing.
    void editValue(const QString &name, double value);

    /// The current camera's region in pixels of the drawing over its picture; empty when there is
    /// none.
    QRect shownRegion();

public slots:
    /// The dialog of the options is closed; the panel stays.
    void slotModelessPatternDialogClosed() override;

private:
    struct Stored
    {
        QRect rect;
        QSize picture; ///< of which `rect` is a part
    };
    using Regions = QHash<DOCKEY, Stored>;

    void takeOptions();
    void store(DOC_Interface *doc, const QRect &rect);
    void storeOnLocked(DOC_Interface *doc, const QRect &rect);
    void edit(DOC_Interface *doc, int handle, QRect rect);
    void send(DOC_Interface *doc);
    void restore();
    void redraw();

    RegionOptions m_options;
    Regions m_regions;
    Regions m_accepted; ///< as Cancel and Reset bring them back
    bool m_open = false;
    QPointer<GUI_RegionOverlay> m_overlay; ///< owned, though the host lays it over a view
};
