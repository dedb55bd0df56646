#pragma once

#include "contract/HostTypes.h"
#include "contract/PLG_Interface.h"

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QRect>
#include <QSize>

class DocumentView;
class PictureArea;
class QWidget;
class StandInHost;
class ViewArea;

/// The tool whose panel is open, at work on the pictures: it gets the mouse and the arrow keys of
/// the views in which it edits a region, and its own drawing lies over the picture of the current
/// document, as large as that is shown. Each change of its regions becomes an undo step; a drag is
/// one.
class ToolView : public QObject
{
    Q_OBJECT

public:
    /// Host and views outlive it.
    ToolView(StandInHost &host, ViewArea &views, QObject *parent = nullptr);
    ~ToolView() override;

    /// The tool that is at work, null when there is none.
    PLG_Interface *tool() const { return m_tool; }

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    class RegionStep;

    struct Region
    {
        QRect rect;
        QSize picture; ///< of which `rect` is a part

        bool operator!=(const Region &other) const
        {
            return rect != other.rect || picture != other.picture;
        }
    };
    using Regions = QHash<DOCKEY, Region>;

    void followViews();
    void followTool();
    void followPicture(DOCKEY key);
    void place();
    void takeDrawingAway();
    bool handleMouse(PictureArea *area, QEvent *event);
    bool handleKey(QEvent *event);
    QPoint inView(DOCKEY key, const QPoint &pos) const;
    bool edits(DOCKEY key);
    void finishDrag();
    Regions regions();
    void takeRegions();
    void recordChange();
    void putBack(const Regions &regions);

    StandInHost &m_host;
    ViewArea &m_views;
    QPointer<PLG_Interface> m_tool;
    QPointer<QWidget> m_drawing; ///< the tool's, over a picture
    Regions m_known;             ///< as the last undo step left them
    DOCKEY m_pressed = NoDocKey; ///< document on which a button is held
    bool m_puttingBack = false;
};
