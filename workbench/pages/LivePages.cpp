#include "workbench/pages/LivePages.h"

#include "bridge/page/GUI_WebPage.h"
#include "workbench/pages/PageFolderAccess.h"

#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <QWebFrame>
#include <QWebSettings>
#include <QWebView>

#include <algorithm>

namespace {

// Bytes that the engine keeps of what pages have loaded, unless it is told otherwise.
constexpr int EngineCache = 8 * 1024 * 1024;

// A place in the page is no other page.
QUrl addressOf(const QWebPage *page)
{
    return page->mainFrame()->requestedUrl().adjusted(QUrl::RemoveFragment);
}

}

// What one page has loaded another would take from the engine's memory, as it was then and unseen.
LivePages::LivePages(const QString &folder) : m_access(std::make_unique<PageFolderAccess>(folder))
{
    connect(m_access.get(), &PageFolderAccess::asked, this, &LivePages::note);
    QWebSettings::setObjectCacheCapacities(0, 0, 0);
    auto *timer = new QTimer(this);
    connect(timer, &QTimer::timeout, this, &LivePages::look);
    timer->start(LookInterval);
    m_clock.start();
    qApp->installEventFilter(this);
}

// Pages that outlive it take the resources again.
LivePages::~LivePages()
{
    QWebSettings::setObjectCacheCapacities(0, EngineCache, EngineCache);
    for (const Shown &shown : m_shown) {
        if (shown.page)
            shown.page->setNetworkAccessManager(nullptr);
    }
}

// A view hears of the things in it and of drops being off before it loads anything. Those of the
// library are made in many places, also in tools.
bool LivePages::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::AcceptDropsChange:
    case QEvent::Polish:
    case QEvent::Show:
        if (auto *view = qobject_cast<QWebView *>(watched))
            take(view->findChild<QWebPage *>(QString(), Qt::FindDirectChildrenOnly));
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void LivePages::take(QWebPage *page)
{
    if (!page || find(page))
        return;
    page->setNetworkAccessManager(m_access.get());
    connect(page, &QWebPage::loadStarted, this, [this, page] { begin(page); });
    connect(page, &QWebPage::loadFinished, this, [this, page] {
        if (Shown *shown = find(page))
            shown->loading = false;
    });
    m_shown.push_back({page, {}, {}, false});
}

LivePages::Shown *LivePages::find(const QWebPage *page)
{
    const auto found = std::find_if(m_shown.begin(), m_shown.end(),
                                    [page](const Shown &shown) { return shown.page == page; });
    return found == m_shown.end() ? nullptr : &*found;
}

void LivePages::begin(QWebPage *page)
{
    Shown *shown = find(page);
    if (!shown)
        return;
    shown->files.clear();
    shown->stack = scriptStack();
    shown->loading = true;
}

void LivePages::note(QObject *origin, const QUrl &url, const PageFolder::State &state)
{
    auto *frame = qobject_cast<QWebFrame *>(origin);
    Shown *shown = frame ? find(frame->page()) : nullptr;
    if (shown)
        shown->files.insert(url, state);
}

void LivePages::look()
{
    m_shown.erase(std::remove_if(m_shown.begin(), m_shown.end(),
                                 [](const Shown &shown) { return !shown.page; }),
                  m_shown.end());
    see();
    QVector<QPointer<QWebPage>> due;
    for (const Shown &shown : m_shown) {
        if (isDue(shown))
            due.append(shown.page);
    }
    if (due.isEmpty())
        return;
    const QString stack = scriptStack();
    for (const QPointer<QWebPage> &page : due) {
        // Script that was there before the page is that of others.
        const Shown *shown = page ? find(page) : nullptr;
        if (shown && (stack.isEmpty() || stack == shown->stack))
            page->mainFrame()->load(addressOf(page));
    }
}

void LivePages::see()
{
    QHash<QUrl, Seen> seen;
    for (const Shown &shown : m_shown) {
        for (auto file = shown.files.cbegin(); file != shown.files.cend(); ++file) {
            if (seen.contains(file.key()))
                continue;
            const PageFolder::State state = m_access->folder().stateOf(file.key());
            const auto before = m_seen.constFind(file.key());
            const bool same = before != m_seen.constEnd() && before->state == state;
            seen.insert(file.key(), {state, same ? before->since : m_clock.elapsed()});
        }
    }
    m_seen = seen;
}

// One whose text did not come from here, as that of a tool, has nothing to be loaded from.
bool LivePages::isDue(const Shown &shown) const
{
    const auto *guiPage = dynamic_cast<const GUI_WebPage *>(shown.page.data());
    if (shown.loading || (guiPage && guiPage->telling()) ||
        !shown.files.contains(addressOf(shown.page)))
        return false;
    bool changed = false;
    for (auto file = shown.files.cbegin(); file != shown.files.cend(); ++file) {
        const Seen seen = m_seen.value(file.key());
        if (seen.state == file.value())
            continue;
        const bool isEmpty = !seen.state.file.isEmpty() && seen.state.size == 0;
        if (m_clock.elapsed() - seen.since < (isEmpty ? EmptyTime : SettleTime))
            return false;
        changed = true;
    }
    return changed;
}

// Without its first lines, the look at it; empty when no script runs. Where script has filled the
// stack nothing can be asked any more.
QString LivePages::scriptStack()
{
    const QVariant stack = m_bare.mainFrame()->evaluateJavaScript(
        QStringLiteral("(function () { try { null.x; } catch (e) { return e.stack; } })()"));
    if (stack.type() != QVariant::String)
        return QStringLiteral("full");
    return stack.toString().section('\n', 2);
}
