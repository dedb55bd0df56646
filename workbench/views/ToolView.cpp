#include "workbench/views/ToolView.h"

#include "contract/HostGuard.h"
#include "standin/host/StandInHost.h"
#include "workbench/views/DocumentView.h"
#include "workbench/views/PictureArea.h"
#include "workbench/views/ViewArea.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QUndoCommand>

namespace {

// The same part of a picture of another size, which a change of binning brings.
QRect scaledTo(const QRect &rect, const QSize &from, const QSize &to)
{
    if (from == to || from.isEmpty())
        return rect;
    const auto part = [](int value, int before, int now) {
        return int(qint64(value) * now / before);
    };
    const int left = part(rect.left(), from.width(), to.width());
    const int top = part(rect.top(), from.height(), to.height());
    const int width = part(rect.right() + 1, from.width(), to.width()) - left;
    const int height = part(rect.bottom() + 1, from.height(), to.height()) - top;
    return QRect(left, top, qMax(1, width), qMax(1, height));
}

}

/// What a tool's regions were before and after a change.
class ToolView::RegionStep : public QUndoCommand
{
public:
    RegionStep(ToolView &view, const Regions &before, const Regions &after)
        : QUndoCommand(tr("Region")), m_view(&view), m_tool(view.m_tool), m_before(before),
          m_after(after)
    {
    }

    void undo() override { put(m_before); }

    // The tool has done it the first time.
    void redo() override
    {
        if (m_done)
            put(m_after);
        m_done = true;
    }

private:
    void put(const Regions &regions)
    {
        if (m_view && m_tool && m_tool == m_view->m_tool)
            m_view->putBack(regions);
    }

    QPointer<ToolView> m_view;
    QPointer<PLG_Interface> m_tool;
    Regions m_before;
    Regions m_after;
    bool m_done = false;
};

ToolView::ToolView(StandInHost &host, ViewArea &views, QObject *parent)
    : QObject(parent), m_host(host), m_views(views)
{
    const StandInEvents *events = m_host.events();
    connect(events, &StandInEvents::pluginsChanged, this, &ToolView::followTool);
    connect(events, &StandInEvents::currentDocumentChanged, this, &ToolView::place);
    connect(events, &StandInEvents::viewChanged, this, &ToolView::takeRegions);
    connect(events, &StandInEvents::cameraSettingsChanged, this, &ToolView::followPicture);
    connect(events, &StandInEvents::updated, this, [this] {
        recordChange();
        place();
    });
    connect(&m_views, &ViewArea::viewsChanged, this, &ToolView::followViews);
    followViews();
    followTool();
}

ToolView::~ToolView()
{
    takeDrawingAway();
}

bool ToolView::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize && qobject_cast<PictureArea *>(watched)) {
        place();
        return false;
    }
    if (!m_tool)
        return false;
    if (auto *area = qobject_cast<PictureArea *>(watched))
        return handleMouse(area, event);
    return handleKey(event);
}

// A view that went in the middle of a drag ends it: the tool has an undo macro open.
void ToolView::followViews()
{
    if (m_pressed != NoDocKey && !m_views.view(m_pressed))
        finishDrag();
    for (DocumentView *view : m_views.views()) {
        view->installEventFilter(this);
        if (auto *area = view->findChild<PictureArea *>()) {
            area->setMouseTracking(true);
            area->installEventFilter(this);
        }
    }
    place();
}

void ToolView::followTool()
{
    PLG_Interface *tool = nullptr;
    guarded(&m_host, [&] { tool = m_host.currentPlugin(); });
    if (tool == m_tool) {
        place();
        return;
    }
    finishDrag();
    takeDrawingAway();
    m_tool = tool;
    takeRegions();
}

void ToolView::takeRegions()
{
    m_known = regions();
    place();
}

// A picture that has changed its size is no edit; settings are sent in the middle of one.
void ToolView::followPicture(DOCKEY key)
{
    const StandInDocument *document = m_host.document(key);
    const auto known = m_known.constFind(key);
    if (document && known != m_known.constEnd() && known->picture != document->pictureSize())
        takeRegions();
    else
        place();
}

void ToolView::place()
{
    QWidget *drawing = nullptr;
    PictureArea *area = nullptr;
    const StandInDocument *document = m_host.document(m_host.currentKey());
    if (m_tool) {
        guarded(&m_host, [&] { drawing = m_tool->viewWidget(); });
        DocumentView *view = document ? m_views.view(document->key()) : nullptr;
        if (view)
            area = view->findChild<PictureArea *>();
    }
    if (!drawing || !area || drawing != m_drawing)
        takeDrawingAway();
    if (!drawing || !area)
        return;
    m_drawing = drawing;
    if (drawing->parentWidget() != area)
        drawing->setParent(area);
    drawing->setGeometry(document->geometry().toScreen(QRect(QPoint(), document->pictureSize())));
    drawing->show();
    drawing->update();
}

// It stays the tool's.
void ToolView::takeDrawingAway()
{
    if (m_drawing) {
        m_drawing->hide();
        m_drawing->setParent(nullptr);
    }
    m_drawing.clear();
}

bool ToolView::handleMouse(PictureArea *area, QEvent *event)
{
    auto *view = qobject_cast<DocumentView *>(area->parentWidget());
    if (!view)
        return false;
    const DOCKEY key = view->key();
    const int docId = int(key);
    switch (event->type()) {
    case QEvent::MouseButtonPress: {
        const auto *mouse = static_cast<QMouseEvent *>(event);
        if (mouse->button() != Qt::LeftButton || !edits(key))
            return false;
        if (m_host.currentKey() != key)
            emit view->chosen(key);
        m_pressed = key;
        const QPoint pos = inView(key, mouse->pos());
        guarded(&m_host, [&] { m_tool->onMousePress(pos, docId); });
        return true;
    }
    case QEvent::MouseMove: {
        if (m_pressed != NoDocKey ? m_pressed != key : !edits(key))
            return false;
        const QPoint pos = inView(key, static_cast<QMouseEvent *>(event)->pos());
        guarded(&m_host, [&] { m_tool->onMouseMove(pos, docId); });
        recordChange();
        return true;
    }
    case QEvent::MouseButtonRelease: {
        const auto *mouse = static_cast<QMouseEvent *>(event);
        if (m_pressed != key || mouse->button() != Qt::LeftButton)
            return false;
        m_pressed = NoDocKey;
        const QPoint pos = inView(key, mouse->pos());
        guarded(&m_host, [&] { m_tool->onMouseRelease(pos, docId); });
        return true;
    }
    case QEvent::Leave:
        guarded(&m_host, [&] { m_tool->onMouseLeave(); });
        return false;
    default:
        return false;
    }
}

bool ToolView::handleKey(QEvent *event)
{
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease)
        return false;
    auto *key = static_cast<QKeyEvent *>(event);
    switch (key->key()) {
    case Qt::Key_Left:
    case Qt::Key_Up:
    case Qt::Key_Right:
    case Qt::Key_Down:
        break;
    default:
        return false;
    }
    if (!edits(m_host.currentKey()))
        return false;
    guarded(&m_host, [&] {
        if (event->type() == QEvent::KeyPress)
            m_tool->onKeyPress(key);
        else
            m_tool->onKeyRelease();
    });
    recordChange();
    return true;
}

// A tool works on the picture as it is seen, neither zoomed nor scrolled.
QPoint ToolView::inView(DOCKEY key, const QPoint &pos) const
{
    const StandInDocument *document = m_host.document(key);
    return document ? document->geometry().fromScreen(pos) : m_tool->lastMousePosition();
}

bool ToolView::edits(DOCKEY key)
{
    StandInDocument *document = m_host.document(key);
    return m_tool && document &&
           guarded(&m_host, false, [&] { return m_tool->editsRegion(document->contract()); });
}

// A tool that was left has ended its drag itself.
void ToolView::finishDrag()
{
    const DOCKEY key = m_pressed;
    m_pressed = NoDocKey;
    if (key != NoDocKey && m_tool && m_tool->isDragging())
        guarded(&m_host, [&] { m_tool->finishMouse(int(key)); });
}

ToolView::Regions ToolView::regions()
{
    Regions result;
    for (StandInDocument *document : m_host.documents()) {
        if (edits(document->key()))
            guarded(&m_host, [&] {
                result.insert(document->key(),
                              {m_tool->region(document->contract()), document->pictureSize()});
            });
    }
    return result;
}

// A document that came or went is no edit.
void ToolView::recordChange()
{
    if (!m_tool || m_puttingBack)
        return;
    const Regions now = regions();
    Regions before;
    Regions after;
    for (auto entry = now.cbegin(); entry != now.cend(); ++entry) {
        const auto known = m_known.constFind(entry.key());
        if (known != m_known.constEnd() && *known != *entry) {
            before.insert(entry.key(), *known);
            after.insert(entry.key(), *entry);
        }
    }
    m_known = now;
    if (!after.isEmpty())
        m_host.pushUndoStep(new RegionStep(*this, before, after));
}

void ToolView::putBack(const Regions &regions)
{
    m_puttingBack = true;
    for (auto entry = regions.cbegin(); entry != regions.cend(); ++entry) {
        StandInDocument *document = m_host.document(entry.key());
        if (!document || !edits(entry.key()))
            continue;
        const QRect rect = scaledTo(entry->rect, entry->picture, document->pictureSize());
        guarded(&m_host, [&] { m_tool->setRegion(document->contract(), rect, false); });
        document->sendSettings();
    }
    guarded(&m_host, [&] { m_tool->update(); });
    m_puttingBack = false;
    takeRegions();
}
