#include "standin/documents/StandInDocument.h"

#include "foundation/Keys.h"
#include "standin/documents/DocumentOwner.h"
#include "standin/journal/StandInEvents.h"

#include <QtDebug>

#include <algorithm>

namespace {

// Where a picture begins in its view: in the middle, or so that no side of the view stays empty.
int scrolledTo(int view, int shown, int scroll)
{
    const int middle = (view - shown) / 2;
    return shown <= view ? middle : qBound(view - shown, middle + scroll, 0);
}

}

StandInDocument::StandInDocument(DocumentOwner &owner, DOCKEY key)
    : m_owner(owner), m_journal(owner.callJournal()), m_key(key),
      m_journalName(QLatin1Char('[') + QString::number(key) + QLatin1Char(']')), m_overlay(*this),
      m_target(*this), m_preview(*this), m_heads(*this)
{
}

StandInDocument::~StandInDocument() = default;

int StandInDocument::Heads::headCount()
{
    m_document.asked("headCount");
    return m_document.m_state.headCount;
}

void StandInDocument::markClosed()
{
    m_closed = true;
}

void StandInDocument::checkOpen(const char *operation) const
{
    if (m_closed)
        qCritical().noquote() << "call on the closed document" << m_journalName << operation;
}

ViewGeometry StandInDocument::geometry() const
{
    ViewGeometry geometry;
    geometry.picture = pictureSize();
    geometry.quarterTurns = m_state.quarterTurns;
    geometry.flippedHorizontally = m_state.isFlippedHorizontally;
    geometry.flippedVertically = m_state.isFlippedVertically;
    const QSize turned = geometry.turnedSize();
    // A zoom counts sensor pixels, so that a binned picture keeps its size on the screen.
    const int pixel = showsWholeSensor() ? 1 : 1 << m_state.binningLevel;
    geometry.scale = m_state.zoom > 0.0 ? m_state.zoom * pixel
                                        : ViewGeometry::fittingScale(turned, m_state.viewSize);
    if (!m_state.viewSize.isEmpty()) {
        const QSize shown = (QSizeF(turned) * geometry.scale).toSize();
        geometry.origin =
            QPoint(scrolledTo(m_state.viewSize.width(), shown.width(), m_state.scroll.x()),
                   scrolledTo(m_state.viewSize.height(), shown.height(), m_state.scroll.y()));
    }
    return geometry;
}

void StandInDocument::setQuarterTurns(int turns)
{
    m_state.quarterTurns = ((turns % 4) + 4) % 4;
    emit m_owner.events()->viewChanged(m_key);
}

void StandInDocument::setFlips(bool horizontal, bool vertical)
{
    m_state.isFlippedHorizontally = horizontal;
    m_state.isFlippedVertically = vertical;
    emit m_owner.events()->viewChanged(m_key);
}

void StandInDocument::setZoom(double zoom)
{
    m_state.zoom = zoom;
    emit m_owner.events()->viewChanged(m_key);
}

void StandInDocument::setViewSize(const QSize &size)
{
    if (m_state.viewSize == size)
        return;
    m_state.viewSize = size;
    emit m_owner.events()->viewChanged(m_key);
}

void StandInDocument::scrollBy(const QPoint &way)
{
    const QPoint before = geometry().origin;
    m_state.scroll = QPoint();
    const QPoint middle = geometry().origin;
    m_state.scroll = before + way - middle;
    m_state.scroll = geometry().origin - middle; // what there is room for
    if (geometry().origin != before)
        emit m_owner.events()->viewChanged(m_key);
}

void StandInDocument::setBinningLevel(int exponent)
{
    m_state.binningLevel = qBound(0, exponent, 2);
    emit m_owner.events()->viewChanged(m_key);
}

void StandInDocument::setToolOn(const QString &tool, bool on)
{
    m_state.toolOn.insert(tool, on);
    emit m_owner.events()->toolStateChanged(tool);
}

bool StandInDocument::isFeatureOn(const QString &feature) const
{
    return m_state.features.contains(feature) || m_owner.hasFeature(feature);
}

const StandInPartition *StandInDocument::partition(int number) const
{
    for (const StandInPartition &entry : m_state.partitions) {
        if (entry.number == number)
            return &entry;
    }
    return nullptr;
}

const StandInPartition *StandInDocument::partitionOrCurrent(int number) const
{
    const StandInPartition *found = partition(number);
    const int current = m_state.currentPartition - 1;
    if (!found && current >= 0 && current < m_state.partitions.size())
        found = &m_state.partitions.at(current);
    return found;
}

QImage StandInDocument::partitionFrame(quint64 number, int) const
{
    return frame(number);
}

InfoFacts StandInDocument::infoFacts(quint64 frame, int partitionNo) const
{
    InfoFacts facts;
    facts.cameraName = m_state.cameraName;
    facts.fileName = m_state.originalFileName;
    facts.deviceName = m_state.deviceName;
    facts.headNumber = m_state.headCount > 0 ? m_state.headNumber : 0;
    facts.resolution = pictureSize();
    facts.frame = frame;
    if (const StandInPartition *found = partitionOrCurrent(partitionNo)) {
        facts.partitionNumber = found->number;
        facts.frameCount = found->frames;
        facts.recordRate = found->recordRate;
    }
    if (m_state.fileRecordRate > 0)
        facts.recordRate = m_state.fileRecordRate;
    facts.recordDate = m_state.recordDate;
    facts.recordTime = m_state.recordTime;
    facts.zoomRate = m_state.viewSize.isEmpty() ? 0.0 : geometry().scale;
    facts.usesLut = isToolOnHere(Keys::tools.lut);
    facts.showsCrossCursor = isToolOnHere(Keys::tools.crossCursor);
    facts.crossCursor = m_state.cursorPosition;
    facts.comment = m_state.comment;
    for (const QVariant &entry : m_state.customInfo) {
        const QVariantMap record = entry.toMap();
        const auto text = [&](const char *field) {
            return record.value(QLatin1String(field)).toString();
        };
        if (text("display") == QLatin1String("on"))
            facts.customs.append({text("name"), text("value"), text("unit")});
    }
    facts.readings = m_state.infoReadings;
    return facts;
}

const StandInSlot *StandInDocument::slotAt(int slot) const
{
    return slot >= 0 && slot < m_state.mediaSlots.size() ? &m_state.mediaSlots.at(slot) : nullptr;
}

StandInSlot *StandInDocument::slotAt(int slot)
{
    return slot >= 0 && slot < m_state.mediaSlots.size() ? &m_state.mediaSlots[slot] : nullptr;
}

const StandInData *StandInDocument::dataAt(int slot, int index) const
{
    const StandInSlot *found = slotAt(slot);
    return found && index >= 0 && index < found->data.size() ? &found->data.at(index) : nullptr;
}

bool StandInDocument::hasRecordedFrames() const
{
    return std::any_of(m_state.partitions.begin(), m_state.partitions.end(),
                       [](const StandInPartition &entry) { return entry.frames > 0; });
}

int StandInDocument::indexOfCustomInfo(const QString &name) const
{
    for (int i = 0; i < m_state.customInfo.size(); ++i) {
        if (m_state.customInfo.at(i).toMap().value(QStringLiteral("name")).toString() == name)
            return i;
    }
    return -1;
}

QVariantMap StandInDocument::customInfoRecord(const QString &name, const QString &value,
                                              const QString &unit, bool display,
                                              bool useFileName) const
{
    const auto flag = [&](bool on) {
        return on ? QStringLiteral("on") : m_state.clearedCustomFlag;
    };
    return {{QStringLiteral("name"), name},
            {QStringLiteral("value"), value},
            {QStringLiteral("unit"), unit},
            {QStringLiteral("display"), flag(display)},
            {QStringLiteral("usefilename"), flag(useFileName)}};
}

bool StandInDocument::isToolOnHere(const QString &tool) const
{
    const auto own = m_state.toolOn.find(tool);
    return own != m_state.toolOn.end() ? *own : m_owner.toolState(tool);
}

bool StandInDocument::isInTransaction(const QString &tool) const
{
    return m_owner.isTransactionOpen(tool);
}

bool StandInDocument::isSelectedHere() const
{
    return m_owner.selection().contains(m_key);
}

int StandInDocument::selectedCount() const
{
    return m_owner.selection().size();
}

int StandInDocument::cameraCountOfOwner() const
{
    return m_owner.cameraCount();
}

bool StandInDocument::sharesDeviceHere() const
{
    return m_owner.headsOf(m_key).size() > 1;
}

QList<DOC_Interface *> StandInDocument::groupMembersHere()
{
    return m_owner.groupMembersOf(this);
}

void StandInDocument::setSelectedHere(bool selected)
{
    m_owner.select(m_key, selected);
}

void StandInDocument::pushSettings()
{
    sendSettings();
}

void StandInDocument::notifyRefreshed()
{
    ++m_state.refreshes;
    emit m_owner.events()->documentRefreshed(m_key);
}

void StandInDocument::notifyInfoChanged()
{
    emit m_owner.events()->documentInfoChanged();
}
