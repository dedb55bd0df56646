#include "plugin/PLG_Common.h"

#include "contract/DOC_Interface.h"
#include "contract/HostServices.h"
#include "contract/HostValues.h"
#include "foundation/Keys.h"
#include "plugin/region/RegionGeometry.h"

#include <QKeyEvent>

#include <utility>

// Mouse and keys on the picture, and the region that they edit.

void PLG_Common::onMousePress(const QPoint &pos, int docId)
{
    m_anchorCorner = RegionGeometry::AnchorUndecided;
    if (!documentExists(pos, docId))
        return;
    // A press that follows without a release belongs to the same macro.
    if (!m_macroOpen) {
        m_host->beginUndoMacro(QString());
        m_macroOpen = true;
    }
    m_dragging = true;
    m_pressPos = m_lastMousePos = pos;
    DOC_Interface *doc = m_host->deviceByKey(DOCKEY(docId), true);
    if (!doc || !mayEditRegion(doc))
        return;
    m_pressRegion = region(doc);
    m_dragHandle = hitTestRegion(doc, pos, m_pressRegion);
}

void PLG_Common::onMouseMove(const QPoint &pos, int docId)
{
    if (!documentExists(pos, docId))
        return;
    DOC_Interface *doc = m_host->deviceByKey(DOCKEY(docId), true);
    if (!doc)
        return;
    m_lastMousePos = pos;
    const QPoint point = doc->mapPoint(pos, true);
    doc->reportCursorPosition(point);
    m_currentDocId = docId;
    if (!editsRegion(doc)) {
        m_regionCursor.restore(); // of a picture where it did
        return;
    }
    if (crossCursorRuns())
        return;
    const QRect reference = region(doc);
    if (!m_dragging) {
        setRegionCursor(doc, hitTestRegion(doc, pos, reference));
        return;
    }
    if (m_dragHandle == RegionGeometry::Outside)
        return;

    const RegionGeometry::Limits limits = regionLimits(doc, aspectRatio());
    const QRect rect = m_dragHandle == RegionGeometry::Inside
                           ? RegionGeometry::moved(reference, m_pressRegion,
                                                   doc->mapPoint(m_pressPos, true), point)
                           : RegionGeometry::dragged(reference, m_dragHandle, point, limits);
    storeRegion(doc,
                RegionGeometry::constrained(rect, m_dragHandle, reference, limits, m_anchorCorner));
    if (applyOnEdit())
        pushToDevice(m_host->deviceByKey(DOCKEY(docId), true));
}

void PLG_Common::finishMouse(int docId)
{
    onMouseRelease(m_lastMousePos, docId);
}

void PLG_Common::onMouseRelease(const QPoint &pos, int docId)
{
    // The macro of a press is closed whatever has become of the document.
    const bool pressed = m_macroOpen;
    if (!pressed && !documentExists(pos, docId))
        return;
    endDrag();
    if (pressed && !documentExists(pos, docId))
        return;
    DOC_Interface *doc = m_host->deviceByKey(DOCKEY(docId), true);
    if (doc && applyOnEdit() && editsRegion(doc))
        pushToDevice(doc);
}

void PLG_Common::endDrag()
{
    m_dragging = false;
    m_dragHandle = RegionGeometry::Outside;
    m_anchorCorner = RegionGeometry::AnchorUndecided;
    m_regionCursor.restore();
    if (std::exchange(m_macroOpen, false))
        m_host->endUndoMacro();
}

void PLG_Common::onMouseLeave()
{
    m_currentDocId = -1;
    m_regionCursor.restore();
}

bool PLG_Common::isDragging()
{
    return m_dragging;
}

QPoint PLG_Common::pressPosition()
{
    return m_pressPos;
}

QPoint PLG_Common::documentPoint(int docId)
{
    DOC_Interface *doc = m_host->deviceByKey(DOCKEY(docId), true);
    return doc ? doc->cursorPosition() : QPoint(0, 0);
}

QPoint PLG_Common::lastMousePosition()
{
    return m_lastMousePos;
}

qint32 PLG_Common::currentDocId()
{
    return m_currentDocId;
}

void PLG_Common::onKeyPress(QKeyEvent *event)
{
    m_keyHeld = true;
    DOC_Interface *doc = m_host->currentDocument();
    if (!doc || !event || !mayEditRegion(doc))
        return;
    const QRect reference = region(doc);
    const RegionGeometry::Limits limits = regionLimits(doc, aspectRatio());
    const auto edit = RegionGeometry::keyEdit(reference, mapArrowKey(doc, event->key()),
                                              event->modifiers(), limits);
    if (!edit)
        return;
    const DOCKEY key = m_host->documentKeyOf(doc);
    const QRect rect =
        RegionGeometry::constrained(edit->rect, edit->handle, reference, limits, m_anchorCorner);
    m_anchorCorner = RegionGeometry::AnchorUndecided;
    storeRegion(doc, rect);
    if (applyOnEdit())
        pushToDevice(m_host->deviceByKey(key, true));
}

void PLG_Common::onKeyRelease()
{
    m_keyHeld = false;
}

bool PLG_Common::isKeyHeld()
{
    return m_keyHeld;
}

bool PLG_Common::editsRegion(DOC_Interface *)
{
    return false;
}

bool PLG_Common::editsRegionOf(DOC_Interface *doc)
{
    return editsRegion(doc);
}

QRect PLG_Common::region(DOC_Interface *)
{
    return QRect(QPoint(0, 0), QPoint(-1, -1));
}

void PLG_Common::setRegion(DOC_Interface *, const QRect &, bool) {}

bool PLG_Common::isAspectFixed()
{
    return false;
}

double PLG_Common::aspectRatio()
{
    return 0.0;
}

QRect PLG_Common::regionToSensor(DOC_Interface *doc, const QRect &rect)
{
    RegionGeometry::SensorScale scale;
    if (doc && m_host->isFeatureOn(Keys::tools.binning, doc, false))
        scale.binningLevel = doc->binningLevel();
    if (doc && doc->hasScaleDivider(false))
        scale.divider = doc->scaleDivider();
    return RegionGeometry::toSensor(rect, scale);
}

QVariantMap PLG_Common::regionInfo(DOC_Interface *doc, const QSize &imageSize, const QRect &rect,
                                   bool fixAspect, bool originalAspect, double aspect, int zoomRate)
{
    if (!doc || !editsRegion(doc))
        return QVariantMap();
    const RegionGeometry::PanelValues values =
        RegionGeometry::panelValues(imageSize, rect, effectiveMinSize(doc, false),
                                    doc->isTransposed(), fixAspect, aspect, zoomRate);
    const QString resolution =
        QString(QLatin1String("%1,%2")).arg(values.zoomed.width()).arg(values.zoomed.height());
    return {{QLatin1String("Width"), values.size.width()},
            {QLatin1String("WidthMin"), values.minimum.width()},
            {QLatin1String("WidthMax"), values.maximum.width()},
            {QLatin1String("WidthStep"), 1},
            {QLatin1String("Height"), values.size.height()},
            {QLatin1String("HeightMin"), values.minimum.height()},
            {QLatin1String("HeightMax"), values.maximum.height()},
            {QLatin1String("HeightStep"), 1},
            {QLatin1String("PosX"), values.position.x()},
            {QLatin1String("PosXMin"), 0},
            {QLatin1String("PosXMax"), values.maximumPosition.x()},
            {QLatin1String("PosXStep"), 1},
            {QLatin1String("PosY"), values.position.y()},
            {QLatin1String("PosYMin"), 0},
            {QLatin1String("PosYMax"), values.maximumPosition.y()},
            {QLatin1String("PosYStep"), 1},
            {QLatin1String("AspectRatio"), aspect},
            {QLatin1String("FixAspect"), fixAspect},
            {QLatin1String("OriginalAspect"), originalAspect},
            {QLatin1String("CurrentWidth"), values.image.width()},
            {QLatin1String("CurrentHeight"), values.image.height()},
            {QLatin1String("ZoomRate"), zoomRate},
            {QLatin1String("ZoomResolution"), resolution}};
}

void PLG_Common::setRegionCursor(DOC_Interface *doc, int handle)
{
    std::optional<Qt::CursorShape> shape;
    if (doc)
        shape = RegionGeometry::cursorShape(
            handle, doc->isTransposed(), doc->isFlippedHorizontally(), doc->isFlippedVertically());
    if (shape)
        m_regionCursor.show(*shape);
    else
        m_regionCursor.restore();
}

int PLG_Common::hitTestRegion(DOC_Interface *doc, const QPoint &pos, const QRect &rect)
{
    const int tolerance = RegionGeometry::grabTolerance(doc->viewScale(true));
    const QRect viewRect = doc->mapRect(RegionGeometry::saturated(rect));
    return RegionGeometry::hitTest(viewRect, pos, viewTurn(doc), tolerance);
}

QSize PLG_Common::effectiveMinSize(DOC_Interface *doc, bool scale)
{
    const QSize minimum =
        RegionGeometry::effectiveMinimum(m_minSize, isAspectFixed(), aspectRatio());
    return scale ? RegionGeometry::scaled(minimum, limitScale(doc)) : minimum;
}

int PLG_Common::mapArrowKey(DOC_Interface *doc, int key)
{
    return RegionGeometry::mapArrowKey(key, viewTurn(doc));
}

void PLG_Common::constrainRegion(DOC_Interface *doc, int handle, double aspect, QRect &rect,
                                 const QRect &reference)
{
    rect = RegionGeometry::constrained(rect, handle, reference, regionLimits(doc, aspect),
                                       m_anchorCorner);
}

void PLG_Common::clampRegion(DOC_Interface *doc, QRect &rect)
{
    rect = RegionGeometry::clamped(rect, regionLimits(doc, aspectRatio()));
}

RegionGeometry::SensorScale PLG_Common::limitScale(DOC_Interface *doc)
{
    RegionGeometry::SensorScale scale;
    if (doc->usesScaleDivider(false))
        scale.divider = doc->scaleDivider();
    if (m_host->isFeatureOn(Keys::tools.binning, doc, false))
        scale.binningLevel = doc->binningLevel();
    return scale;
}

RegionGeometry::Limits PLG_Common::regionLimits(DOC_Interface *doc, double aspect)
{
    const RegionGeometry::SensorScale scale = limitScale(doc);
    RegionGeometry::Limits limits;
    limits.image = doc->imageSize();
    limits.positionStep = RegionGeometry::scaled(m_positionStep, scale);
    limits.sizeStep = RegionGeometry::scaled(m_sizeStep, scale);
    limits.maximum = RegionGeometry::scaled(m_maxSize, scale);
    limits.transposed = doc->isTransposed();
    limits.symmetricX = m_symmetricX;
    limits.symmetricY = m_symmetricY;
    limits.aspectFixed = isAspectFixed();
    limits.aspect = aspect;
    limits.minimum = RegionGeometry::scaled(
        RegionGeometry::effectiveMinimum(m_minSize, limits.aspectFixed, aspectRatio()), scale);
    if (m_symmetricX || m_symmetricY) {
        int width = 0;
        int height = 0;
        doc->fullImageSize(&width, &height);
        limits.fullImage = QSize(width, height);
    }
    return limits;
}

RegionGeometry::ViewTurn PLG_Common::viewTurn(DOC_Interface *doc)
{
    RegionGeometry::ViewTurn turn;
    turn.degrees = RegionGeometry::rotationDegrees(doc->viewRotation());
    turn.flippedHorizontally = doc->isFlippedHorizontally();
    turn.flippedVertically = doc->isFlippedVertically();
    return turn;
}

bool PLG_Common::mayEditRegion(DOC_Interface *doc)
{
    return editsRegion(doc) && !crossCursorRuns();
}

// That tool takes the mouse and the keys for itself.
bool PLG_Common::crossCursorRuns()
{
    return m_host->isToolRunning(Keys::tools.crossCursor);
}

void PLG_Common::storeRegion(DOC_Interface *doc, const QRect &rect)
{
    if (!rect.isEmpty())
        setRegion(doc, rect, true);
}

// `doc` is null when it has gone meanwhile.
void PLG_Common::pushToDevice(DOC_Interface *doc)
{
    if (applyToAllWhenLocked() && m_host->isTrelvikLocked())
        m_host->updateUI(UpdateFlag::SendSettings, false);
    else if (doc)
        doc->notifyChange(DocumentChange::Settings, false);
    m_host->updateUI(UpdateFlag::Display, false);
}
