#include "tests/workbench/support/PageVisit.h"

#include "bridge/page/GUI_WebView.h"
#include "workbench/pages/PageCatalogue.h"
#include "workbench/tour/PageHand.h"

#include <QApplication>
#include <QDialog>
#include <QPointer>
#include <QTest>
#include <QTimer>

using namespace PageHand;

PageVisit::PageVisit(const QString &settingsFile)
    : host(settingsFile), dialogs(host), commands(&host, "commands")
{
}

bool PageVisit::open(const QString &page, const std::function<void(QDialog &, GUI_WebView *)> &body)
{
    bool visited = false;
    QTimer::singleShot(0, [&] {
        const QPointer<QDialog> dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        auto *view = dialog ? dialog->findChild<GUI_WebView *>() : nullptr;
        if (view && QTest::qWaitFor([view] {
                return read(view, "document.body && document.body.classList.length > 0 && "
                                  "document.readyState === 'complete'")
                    .toBool();
            })) {
            visited = true;
            dialog->activateWindow();
            view->setFocus();
            body(*dialog, view);
        }
        if (dialog && dialog->isVisible())
            dialog->reject();
    });
    host.clearJournal();
    dialogs.open(PageCatalogue::page(page), commands);
    return visited;
}

QStringList PageVisit::stored() const
{
    return host.commands().filter("setPref");
}

QVariant shownIn(GUI_WebView *view, const QString &id, const QString &property)
{
    return read(view, "document.getElementById('" + id + "')." + property);
}

bool goTo(GUI_WebView *view, const QString &id)
{
    const QString isThere = "document.activeElement.id === '" + id + "'";
    for (int i = stops(view).size(); i >= 0 && !read(view, isThere).toBool(); --i)
        press(view, Qt::Key_Tab);
    return read(view, isThere).toBool();
}

bool chooseByKeys(GUI_WebView *view, const QString &id, int entry)
{
    if (!goTo(view, id))
        return false;
    for (int at = shownIn(view, id, "selectedIndex").toInt(); at != entry;
         at += at < entry ? 1 : -1)
        press(view, at < entry ? Qt::Key_Down : Qt::Key_Up);
    return shownIn(view, id, "selectedIndex").toInt() == entry;
}

bool typeInto(GUI_WebView *view, const QString &id, const QString &text)
{
    return click(view, '#' + id) && press(view, Qt::Key_A, Qt::ControlModifier) &&
           (text.isEmpty() ? press(view, Qt::Key_Delete) : type(view, text));
}
