#include "PLG_region.h"

#include "GUI_RegionOverlay.h"
#include "JS_Mediator_Region.h"
#include "JS_Mediator_RegionOptions.h"
#include "bridge/dialog/GUI_ModelessPatternDialog.h"
#include "contract/DOC_Interface.h"
#include "contract/HostGuard.h"
#include "contract/HostServices.h"
#include "contract/HostValues.h"
#include "plugin/region/RegionGeometry.h"

#include <cmath>

namespace {

constexpr int NoLimit = 65535;

// The same part of a picture of another size, which a change of binning brings.
QRect scaledTo(const QRect &rect, const QSize &from, const QSize &to)
{
    if (from == to || from.isEmpty())
        return rect;
    const auto scaled = [](int value, int before, int now) {
        return int(qint64(value) * now / before);
    };
    const QPoint first(scaled(rect.left(), from.width(), to.width()),
                       scaled(rect.top(), from.height(), to.height()));
    const QPoint last(scaled(rect.right() + 1, from.width(), to.width()) - 1,
                      scaled(rect.bottom() + 1, from.height(), to.height()) - 1);
    const QRect result(first, last);
    return QRect(first, result.size().expandedTo(QSize(1, 1)));
}

// The first and the last pixel of the drawing that an area covers; the scale is a float.
constexpr double Noise = 1e-3;

int pixelFrom(double edge)
{
    return int(std::floor(edge + Noise));
}

int pixelTo(double edge)
{
    return int(std::ceil(edge - Noise)) - 1;
}

// The base counts in the picture as it is turned in its view, the panel in image pixels.
QVariantMap turnedBack(const QVariantMap &turned)
{
    QVariantMap info = turned;
    const auto swapped = [&](const QString &across, const QString &down) {
        info[across] = turned.value(down);
        info[down] = turned.value(across);
    };
    for (const char *kind : {"", "Min", "Max", "Step"}) {
        swapped(QLatin1String("Width") + QLatin1String(kind),
                QLatin1String("Height") + QLatin1String(kind));
        swapped(QLatin1String("PosX") + QLatin1String(kind),
                QLatin1String("PosY") + QLatin1String(kind));
    }
    swapped(QLatin1String("CurrentWidth"), QLatin1String("CurrentHeight"));
    info[QLatin1String("AspectRatio")] =
        1.0 / turned.value(QLatin1String("AspectRatio")).toDouble();
    const QString zoomed = turned.value(QLatin1String("ZoomResolution")).toString();
    info[QLatin1String("ZoomResolution")] = zoomed.section(QLatin1Char(','), 1) + QLatin1Char(',') +
                                            zoomed.section(QLatin1Char(','), 0, 0);
    return info;
}

}

PLG_region::PLG_region()
{
    m_toolName = QLatin1String("t_region");
    m_hasPanel = true;
    m_checkKind = CheckKind::Transaction;
    takeOptions();
}

PLG_region::~PLG_region()
{
    delete m_overlay;
}

void PLG_region::setHost(HostServices *host)
{
    PLG_Button::setHost(host);
    m_mediator = std::make_unique<JS_Mediator_Region>(host, *this);
}

void PLG_region::activate()
{
    if (m_open)
        return;
    if (m_host->currentPlugin() != this) {
        m_host->openPluginByName(name());
        return;
    }
    PLG_Button::activate();
    m_accepted = m_regions;
    m_open = true;
}

void PLG_region::onClosed()
{
    endDrag(); // what follows is no part of its undo macro
    const bool unanswered = m_open && m_transactionOpen;
    m_open = false;
    hideDialog();
    // A panel that goes without an answer is cancelled.
    if (unanswered)
        guarded(m_host, [this] { restore(); });
    PLG_Button::onClosed();
}

void PLG_region::onOk()
{
    m_accepted = m_regions;
    PLG_Button::onOk();
}

void PLG_region::onAccept()
{
    m_accepted = m_regions;
    PLG_Button::onAccept();
}

void PLG_region::onCancel()
{
    restore();
    PLG_Button::onCancel();
}

// What was applied stays, whatever follows: the transaction ends here and another one begins.
void PLG_region::onApply()
{
    PLG_Button::onApply();
    if (!m_transactionOpen)
        return;
    m_host->commitTransaction(true, name());
    m_transactionOpen = false;
    m_accepted = m_regions;
    m_host->beginTransaction(name(), true, true);
    m_transactionOpen = true;
}

void PLG_region::onReset()
{
    PLG_Button::onReset();
    if (!m_open)
        return;
    restore();
    setModified(false);
}

// The view that it lies over may have gone, and the overlay with it.
QWidget *PLG_region::viewWidget()
{
    if (m_open && !m_overlay)
        m_overlay = new GUI_RegionOverlay(*this); // deleted in the destructor, or with the view
    if (m_open)
        m_viewWidget = m_overlay;
    return PLG_Button::viewWidget();
}

bool PLG_region::editsRegion(DOC_Interface *doc)
{
    return doc && m_open;
}

QRect PLG_region::region(DOC_Interface *doc)
{
    if (!doc)
        return PLG_Button::region(doc);
    const QSize picture = doc->imageSize();
    const auto stored = m_regions.constFind(m_host->documentKeyOf(doc));
    if (stored != m_regions.constEnd())
        return scaledTo(stored->rect, stored->picture, picture);
    return QRect(picture.width() / 4, picture.height() / 4, qMax(1, picture.width() / 2),
                 qMax(1, picture.height() / 2));
}

void PLG_region::setRegion(DOC_Interface *doc, const QRect &rect, bool fromUser)
{
    if (!doc)
        return;
    store(doc, rect);
    if (fromUser) {
        setModified(true);
        storeOnLocked(doc, rect);
    } else if (const DOCKEY key = m_host->documentKeyOf(doc); !m_accepted.contains(key)) {
        m_accepted.insert(key, m_regions.value(key)); // of a camera that has just come
    }
    redraw();
}

bool PLG_region::isAspectFixed()
{
    return m_options.fixAspect;
}

double PLG_region::aspectRatio()
{
    return m_options.aspect;
}

GUI_ModelessPatternDialog *PLG_region::createModelessPatternDialog(bool)
{
    auto *dialog = new GUI_ModelessPatternDialog( // deleted by the base
        m_host, QLatin1String("Region options"), QLatin1String("qrc:/t_region_options.html"),
        new JS_Mediator_RegionOptions(m_host, *this), m_host->mainWidget());
    dialog->resize(330, 350);
    return dialog;
}

bool PLG_region::setOption(const QString &name, const QVariant &value)
{
    const bool known = m_options.set(name, value);
    DOC_Interface *doc = known && m_open ? m_host->currentDocument() : nullptr;
    if (known && name == QLatin1String("originalAspect") && m_options.originalAspect && doc) {
        const QSize picture = doc->imageSize();
        if (!picture.isEmpty())
            m_options.set(QLatin1String("aspect"), double(picture.height()) / picture.width());
    } else if (known && name == QLatin1String("aspect")) {
        m_options.originalAspect = false;
    }
    takeOptions();
    if (doc)
        edit(doc, RegionGeometry::BottomRight, region(doc));
    return known;
}

QVariantMap PLG_region::panelInfo()
{
    DOC_Interface *doc = m_host->currentDocument();
    if (!doc || !editsRegion(doc))
        return QVariantMap();
    const bool turned = doc->isTransposed();
    const QRect rect = region(doc);
    const QVariantMap info = regionInfo(
        doc, doc->imageSize(),
        turned ? QRect(rect.y(), rect.x(), rect.height(), rect.width()) : rect, m_options.fixAspect,
        m_options.originalAspect, turned ? 1.0 / m_options.aspect : m_options.aspect,
        qRound(doc->viewScale(true) * 100.0f));
    return turned ? turnedBack(info) : info;
}

void PLG_region::editValue(const QString &name, double value)
{
    DOC_Interface *doc = m_host->currentDocument();
    if (!doc || !editsRegion(doc) || std::isnan(value))
        return;
    const QVariantMap shown = panelInfo();
    const int bounded = qRound(qBound(shown.value(name + QLatin1String("Min")).toDouble(), value,
                                      shown.value(name + QLatin1String("Max")).toDouble()));
    QRect rect = region(doc);
    if (name == QLatin1String("Width")) {
        rect.setWidth(bounded);
        edit(doc, RegionGeometry::RightEdge, rect);
    } else if (name == QLatin1String("Height")) {
        rect.setHeight(bounded);
        edit(doc, RegionGeometry::BottomEdge, rect);
    } else if (name == QLatin1String("PosX")) {
        rect.moveLeft(bounded);
        edit(doc, RegionGeometry::Inside, rect);
    } else if (name == QLatin1String("PosY")) {
        rect.moveTop(bounded);
        edit(doc, RegionGeometry::Inside, rect);
    }
}

QRect PLG_region::shownRegion()
{
    return guarded(m_host, QRect(), [&] {
        DOC_Interface *doc = m_host->currentDocument();
        if (!doc || !editsRegion(doc))
            return QRect();
        const QRect rect = doc->mapRect(region(doc));
        const double scale = double(doc->viewScale(true));
        const QPoint first(pixelFrom(rect.left() * scale), pixelFrom(rect.top() * scale));
        const QPoint last(pixelTo((rect.right() + 1) * scale),
                          pixelTo((rect.bottom() + 1) * scale));
        return QRect(first, last);
    });
}

void PLG_region::slotModelessPatternDialogClosed()
{
    hideDialog();
}

void PLG_region::takeOptions()
{
    m_symmetricX = m_options.symmetricX;
    m_symmetricY = m_options.symmetricY;
    m_positionStep = m_options.positionStep;
    m_sizeStep = m_options.sizeStep;
    m_minSize = m_options.minimum;
    m_maxSize = m_options.maximum;
    // The base takes a maximum with one part missing for none at all.
    if (m_maxSize.width() < 0 && m_maxSize.height() > 0)
        m_maxSize.setWidth(NoLimit);
    if (m_maxSize.height() < 0 && m_maxSize.width() > 0)
        m_maxSize.setHeight(NoLimit);
    setApplyToAllWhenLocked(m_options.applyToAll);
}

void PLG_region::store(DOC_Interface *doc, const QRect &rect)
{
    m_regions.insert(m_host->documentKeyOf(doc), {rect, doc->imageSize()});
}

void PLG_region::storeOnLocked(DOC_Interface *doc, const QRect &rect)
{
    if (!applyToAllWhenLocked() || !m_host->isTrelvikLocked() || !doc->isLocked())
        return;
    QList<DOCKEY> keys;
    m_host->liveDocKeys(keys, true);
    for (const DOCKEY key : qAsConst(keys)) {
        DOC_Interface *other = m_host->deviceByKey(key, true);
        if (!other || other == doc || !other->isLocked())
            continue;
        QRect fitting = rect;
        clampRegion(other, fitting);
        store(other, fitting);
    }
}

void PLG_region::edit(DOC_Interface *doc, int handle, QRect rect)
{
    m_anchorCorner = RegionGeometry::AnchorUndecided;
    constrainRegion(doc, handle, aspectRatio(), rect, region(doc));
    m_anchorCorner = RegionGeometry::AnchorUndecided;
    if (rect.isEmpty() || rect == region(doc))
        return;
    setRegion(doc, rect, true);
    send(doc);
}

// As the base does behind a drag.
void PLG_region::send(DOC_Interface *doc)
{
    if (applyToAllWhenLocked() && m_host->isTrelvikLocked())
        m_host->updateUI(UpdateFlag::SendSettings, false);
    else
        doc->notifyChange(DocumentChange::Settings, false);
    m_host->updateUI(UpdateFlag::Display, false);
}

// The devices have the edits already, and get back what was there before.
void PLG_region::restore()
{
    const Regions edited = m_regions;
    m_regions = m_accepted;
    redraw();
    for (auto entry = edited.cbegin(); entry != edited.cend(); ++entry) {
        DOC_Interface *doc = m_host->deviceByKey(entry.key(), true);
        if (doc && region(doc) != scaledTo(entry->rect, entry->picture, doc->imageSize()))
            doc->notifyChange(DocumentChange::Settings, false);
    }
    m_host->updateUI(UpdateFlag::Display, false);
}

void PLG_region::redraw()
{
    if (m_overlay)
        m_overlay->update();
}
