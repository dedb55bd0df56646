#include "bridge/EmbeddedWidgets.h"

#include <QCoreApplication>
#include <QEvent>
#include <QVariant>
#include <QWebElement>
#include <QWebFrame>
#include <QWebPage>

#include <algorithm>

namespace {

// How often the engine is going to ask for the widget's deletion. It stands at the widget, since
// two pages can hold it for a moment: of two copies of this library, too.
constexpr char Embeddings[] = "orvixEmbeddings";

int embeddingsOf(const QWidget *widget)
{
    return widget->property(Embeddings).toInt();
}

void setEmbeddings(QWidget *widget, int count)
{
    widget->setProperty(Embeddings, count > 0 ? QVariant(count) : QVariant());
}

// What the engine has asked for is done at once, while it is known which tag it was for.
void deliverDeletion(QWidget *widget)
{
    if (embeddingsOf(widget) > 0)
        QCoreApplication::sendPostedEvents(widget, QEvent::DeferredDelete);
}

void removeTagsIn(QWebFrame *frame, const QString &classid)
{
    const auto objects = frame->findAllElements(QLatin1String("object")).toList();
    for (QWebElement object : objects) {
        if (object.attribute(QLatin1String("classid")) == classid)
            object.removeFromDocument();
    }
    const auto children = frame->childFrames();
    for (QWebFrame *child : children)
        removeTagsIn(child, classid);
}

}

EmbeddedWidgets::EmbeddedWidgets(QWebPage *page) : QObject(page), m_page(page) {}

EmbeddedWidgets::~EmbeddedWidgets()
{
    for (const Entry &entry : qAsConst(m_entries)) {
        if (entry.sentinel)
            disconnect(entry.sentinel, nullptr, this, nullptr);
        delete entry.sentinel;
        QWidget *widget = entry.widget;
        if (!widget)
            continue;
        deliverDeletion(widget);
        widget->removeEventFilter(this);
        if (m_view && widget->parentWidget() == m_view) { // a tag that died with another one
            setEmbeddings(widget, 0);
            widget->setParent(nullptr);
        }
    }
}

void EmbeddedWidgets::add(QWidget *widget, const QString &classid)
{
    deliverDeletion(widget);
    setEmbeddings(widget, embeddingsOf(widget) + 1);
    widget->installEventFilter(this);
    m_view = m_page->view();
    const bool known = std::any_of(m_entries.cbegin(), m_entries.cend(),
                                   [&](const Entry &entry) { return entry.widget == widget; });
    if (known)
        return;
    // A widget deletes its children while it is still one. Later the engine would touch a widget
    // that has gone.
    auto *sentinel = new QObject(widget);
    connect(sentinel, &QObject::destroyed, this, [this, classid] { removeTags(classid); });
    m_entries.append({widget, sentinel});
}

bool EmbeddedWidgets::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::DeferredDelete)
        return QObject::eventFilter(watched, event);
    auto *widget = static_cast<QWidget *>(watched);
    const int count = embeddingsOf(widget);
    if (count == 0)
        return false; // nobody but its owner asks
    setEmbeddings(widget, count - 1);
    if (count == 1)
        widget->setParent(nullptr);
    else
        widget->show(); // the tag that went has hidden it
    return true;
}

void EmbeddedWidgets::removeTags(const QString &classid)
{
    removeTagsIn(m_page->mainFrame(), classid);
}
