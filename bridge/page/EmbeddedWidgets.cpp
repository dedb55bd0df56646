#include "bridge/page/EmbeddedWidgets.h"

#include <QApplication>
#include <QEvent>
#include <QWebElement>
#include <QWebFrame>
#include <QWebPage>

#include <algorithm>

namespace {

// By this name another page finds it, of another copy of this library too.
const QLatin1String TokenName("orvixEmbeddedWidget");

void collectTags(QWebFrame *frame, const QStringList &classids, QList<QWebElement> &tags)
{
    const auto objects = frame->findAllElements(QLatin1String("object")).toList();
    for (const QWebElement &object : objects) {
        if (classids.contains(object.attribute(QLatin1String("classid"))))
            tags.append(object);
    }
    const auto children = frame->childFrames();
    for (QWebFrame *child : children)
        collectTags(child, classids, tags);
}

QList<QWebElement> tagsOf(QWebPage *page, const QStringList &classids)
{
    QList<QWebElement> tags;
    collectTags(page->mainFrame(), classids, tags);
    return tags;
}

}

EmbeddedWidgets::EmbeddedWidgets(QWebPage *page) : QObject(page), m_page(page) {}

EmbeddedWidgets::~EmbeddedWidgets()
{
    while (!m_entries.isEmpty()) {
        if (QWidget *widget = m_entries.last().widget)
            QCoreApplication::removePostedEvents(widget, QEvent::DeferredDelete);
        release(m_entries.size() - 1);
    }
}

void EmbeddedWidgets::add(QWidget *widget, const QString &classid)
{
    m_view = m_page->view();
    int index = indexOf(widget);
    if (index < 0) {
        delete widget->findChild<QObject *>(TokenName, Qt::FindDirectChildrenOnly);
        auto *token = new QObject(widget);
        token->setObjectName(TokenName);
        // A widget deletes its children while it is still one. Later the engine would touch a
        // widget that has gone.
        connect(token, &QObject::destroyed, this, &EmbeddedWidgets::giveUp);
        widget->installEventFilter(this);
        m_entries.append({widget, token, {}});
        index = m_entries.size() - 1;
    }
    if (!m_entries.at(index).classids.contains(classid))
        m_entries[index].classids.append(classid);
}

// The engine would touch them when the page goes, and by then the host may have deleted them.
void EmbeddedWidgets::leaveView()
{
    const QVector<Entry> entries = m_entries;
    for (const Entry &entry : entries) {
        if (entry.widget && entry.widget->parentWidget() == m_view)
            entry.widget->setParent(nullptr);
        const auto tags = tagsOf(m_page, entry.classids);
        for (QWebElement tag : tags)
            tag.removeFromDocument();
    }
}

bool EmbeddedWidgets::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Hide)
        takeFocusFrom(static_cast<QWidget *>(watched));
    if (event->type() != QEvent::DeferredDelete)
        return QObject::eventFilter(watched, event);
    const int index = indexOf(watched);
    if (index < 0)
        return false;
    if (isShown(m_entries.at(index).classids))
        static_cast<QWidget *>(watched)->show(); // the tag that went has hidden it
    else
        release(index);
    return true;
}

// The engine hides a widget while it takes a page apart. One that had the focus would hand it on to
// the view, and the view to what is left of the page. When the whole view hides, the focus goes on
// as ever.
void EmbeddedWidgets::takeFocusFrom(QWidget *widget)
{
    QWidget *focus = QApplication::focusWidget();
    if (focus && widget->isHidden() && (focus == widget || widget->isAncestorOf(focus)))
        focus->clearFocus();
}

int EmbeddedWidgets::indexOf(const QObject *widget) const
{
    const auto found = std::find_if(m_entries.cbegin(), m_entries.cend(),
                                    [&](const Entry &entry) { return entry.widget == widget; });
    return found == m_entries.cend() ? -1 : int(found - m_entries.cbegin());
}

void EmbeddedWidgets::release(int index)
{
    const Entry entry = m_entries.takeAt(index);
    entry.token->disconnect(this);
    delete entry.token;
    if (!entry.widget)
        return;
    entry.widget->removeEventFilter(this);
    if (m_view && entry.widget->parentWidget() == m_view)
        entry.widget->setParent(nullptr);
}

void EmbeddedWidgets::giveUp(const QObject *token)
{
    const auto found = std::find_if(m_entries.begin(), m_entries.end(),
                                    [&](const Entry &entry) { return entry.token == token; });
    if (found == m_entries.end())
        return;
    const Entry entry = *found;
    m_entries.erase(found);
    if (entry.widget)
        entry.widget->removeEventFilter(this);
    const auto tags = tagsOf(m_page, entry.classids);
    for (QWebElement tag : tags)
        tag.removeFromDocument();
}

bool EmbeddedWidgets::isShown(const QStringList &classids) const
{
    const auto tags = tagsOf(m_page, classids);
    return std::any_of(tags.cbegin(), tags.cend(), [](QWebElement tag) {
        return tag.evaluateJavaScript(QLatin1String("this.getClientRects().length > 0")).toBool();
    });
}
