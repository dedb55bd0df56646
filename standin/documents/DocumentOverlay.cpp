#include "standin/documents/DocumentOverlay.h"

#include "foundation/Keys.h"
#include "standin/documents/DocumentOwner.h"
#include "standin/documents/StandInDocument.h"
#include "standin/drawing/InfoLogo.h"

#include <QPainter>

#include <algorithm>

namespace {

using Form = InfoFontSettings::Form;
using Property = InfoFontSettings::Property;

// A view of this height shows text as large as its settings say.
constexpr double RoomyHeight = 400.0;
constexpr double SmallestScale = 0.7;
constexpr int LargestSide = 8192;

// Languages of saved texts.
constexpr int English = 1;
constexpr int Japanese = 2;

double screenScale(const QSize &view)
{
    return std::clamp(view.height() / RoomyHeight, SmallestScale, 1.0);
}

bool showsFileName(const QVector<InfoItemList::Entry> &entries)
{
    return std::any_of(entries.begin(), entries.end(), [](const InfoItemList::Entry &entry) {
        return entry.isChecked && entry.id == QLatin1String("File name");
    });
}

QSize fitted(const QSize &whole, const QSize &wanted)
{
    if (whole.isEmpty() || wanted.width() < 0 || wanted.height() < 0 || wanted.isNull())
        return QSize();
    const QSize largest = whole.boundedTo(QSize(LargestSide, LargestSide));
    const int width = wanted.width() > 0 ? wanted.width() : largest.width();
    const int height = wanted.height() > 0 ? wanted.height() : largest.height();
    const QSize limit = QSize(width, height).boundedTo(largest);
    return whole.scaled(limit, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
}

}

DocumentOverlay::DocumentOverlay(StandInDocument &document) : m_document(document) {}

DocumentOverlay::Setting DocumentOverlay::setting() const
{
    return [this](const QString &key) { return m_document.owner().setting(key); };
}

InfoValues DocumentOverlay::values() const
{
    return {DisplayFormats::read(setting()), m_document.owner().timeCode()};
}

QVector<InfoItemList::Entry> DocumentOverlay::entries(Form form, int group,
                                                      InfoItem::Target target) const
{
    InfoItemList list;
    const QString key = InfoFontSettings::key(Property::Display, form, group);
    list.read(group, setting()(key).toString());
    return list.entries(group, target);
}

QImage DocumentOverlay::logo(Form form) const
{
    const QString own = m_document.state().logoPath;
    const QString key = InfoFontSettings::key(Property::LogoPath, form, 0);
    return InfoLogo::read(own.isEmpty() ? setting()(key).toString() : own);
}

bool DocumentOverlay::hasBlankLines() const
{
    return setting()(Keys::info.blankLine).toBool();
}

void DocumentOverlay::rebuild()
{
    const QImage picture = logo(Form::Editor);
    m_mode = m_document.owner().viewMode();
    m_overlay = InfoOverlay();
    m_overlay.setGroup(InfoOverlay::TopLeft, InfoStyle::read(Form::Editor, 0, setting()), picture);
    m_values = values();
    m_entries = entries(Form::Editor, 0, InfoItem::Target(m_mode));
    m_options = {hasBlankLines(), !picture.isNull(),
                 [this](const QString &id) { return m_document.owner().infoLabel(id, false); }};
    m_isBuilt = true;
    m_document.state().isInfoOverlayDirty = false;
}

void DocumentOverlay::paint(QPainter &painter, const QRect &area, quint64 frame)
{
    if (area.isEmpty())
        return;
    if (!m_isBuilt || m_document.state().isInfoOverlayDirty ||
        m_mode != m_document.owner().viewMode())
        rebuild();
    const double scale = screenScale(area.size());
    m_overlay.setPicture((QSizeF(area.size()) / scale).toSize());
    m_overlay.setLines(
        InfoOverlay::TopLeft,
        InfoLines::of(m_entries, m_values, m_document.infoFacts(frame, 0), m_options));
    painter.save();
    painter.translate(area.topLeft());
    painter.scale(scale, scale);
    m_overlay.paint(painter);
    painter.restore();
}

InfoOverlay DocumentOverlay::savedOverlay(const Moment &moment, const QSize &picture) const
{
    const QString withinImage = InfoFontSettings::key(Property::WithinImage, Form::Save, 0);
    InfoOverlay overlay(setting()(withinImage).toBool());
    overlay.setPicture(picture);
    const QImage image = logo(Form::Save);
    const int language = setting()(Keys::display.outputLanguage).toInt();
    const bool isJapanese = setting()(Keys::display.language).toString() == QLatin1String("ja");
    // Only the texts of the language that the user reads are there, beside the English ones.
    const bool inEnglish = language == English || (language == Japanese && !isJapanese);
    const InfoLines::Options options{hasBlankLines(), !image.isNull(), [&](const QString &id) {
                                         return m_document.owner().infoLabel(id, inEnglish);
                                     }};
    InfoFacts facts = m_document.infoFacts(moment.frame, moment.partitionNo);
    facts.time = moment.time;
    const InfoValues texts = values();
    bool isNamed = false;
    for (int group = 0; group < InfoFontSettings::GroupCount; ++group) {
        const auto place = InfoOverlay::Place(group);
        const QVector<InfoItemList::Entry> shown = entries(Form::Save, group, InfoItem::SaveForm);
        // The name is looked for among the files on disk: only where it is to be seen.
        if (!isNamed && showsFileName(shown)) {
            facts.fileName = m_document.owner().savedFileName(moment.mode, m_document.contract(),
                                                              moment.partitionNo, moment.time);
            isNamed = true;
        }
        overlay.setGroup(place, InfoStyle::read(Form::Save, group, setting()), image);
        overlay.setLines(place, InfoLines::of(shown, texts, facts, options));
    }
    return overlay;
}

QSize DocumentOverlay::savedSize(const QSize &picture, const Moment &moment) const
{
    return picture.isEmpty() ? picture : savedOverlay(moment, picture).canvas();
}

QImage DocumentOverlay::saved(const QImage &picture, const QSize &whole, const Moment &moment,
                              const QSize &size) const
{
    if (picture.isNull())
        return QImage();
    const InfoOverlay overlay = savedOverlay(moment, whole);
    return overlay.composed(picture, fitted(overlay.canvas(), size));
}

QImage DocumentOverlay::plain(const QImage &picture, const QSize &whole, const QSize &size)
{
    const QSize fitting = fitted(whole, size);
    return picture.isNull() || fitting.isEmpty()
               ? QImage()
               : picture.scaled(fitting, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

QStringList DocumentOverlay::shownTexts() const
{
    const InfoBlock *block = m_overlay.block(InfoOverlay::TopLeft);
    return block ? block->shownTexts() : QStringList();
}
