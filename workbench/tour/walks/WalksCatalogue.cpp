#include "bridge/page/GUI_WebView.h"
#include "device/selectbox/GUI_SelectBox.h"
#include "foundation/Keys.h"
#include "workbench/app/Workbench.h"
#include "workbench/pages/DropDownBoxes.h"
#include "workbench/pages/PageCatalogue.h"
#include "workbench/tour/PageHand.h"
#include "workbench/tour/TourHand.h"
#include "workbench/tour/TourStage.h"
#include "workbench/tour/walks/Walks.h"
#include "workbench/window/MainWindow.h"

#include <QPointer>
#include <QTabBar>

namespace {

QString styleOf(TourStage &stage)
{
    return stage.host().settings().value(Keys::application.style, QVariant()).toString();
}

// Tab goes through all controls in their order, and the user sees where it is. What a stop draws
// differs from what it draws without the focus.
void walkByTab(TourStage &stage, GUI_WebView *page)
{
    const QStringList stops = PageHand::stops(page);
    QStringList reached;
    QStringList unseen;
    QImage before = page->grab().toImage();
    for (int i = 0; i < stops.size(); ++i) {
        PageHand::press(page, Qt::Key_Tab);
        const int stop = PageHand::focusedStop(page);
        reached.append(stops.value(stop, "nothing"));
        const QRect place = PageHand::focusedPlace(page);
        const QImage now = page->grab().toImage();
        const qreal scale = page->devicePixelRatioF();
        const QRect around = place.adjusted(-3, -3, 3, 3);
        const QRect pixels(around.topLeft() * scale, around.size() * scale);
        if (!page->rect().contains(place) || now.copy(pixels) == before.copy(pixels))
            unseen.append(reached.last());
        before = now;
    }
    stage.compare(reached.join(", "), stops.join(", "), "the key Tab goes to");
    stage.compare(unseen.join(", "), QString(), "stops where no focus is seen");
    if (stops.size() < 2)
        return;
    PageHand::press(page, Qt::Key_Tab, Qt::ShiftModifier);
    stage.compare(stops.value(PageHand::focusedStop(page)), stops.at(stops.size() - 2),
                  "the keys Shift+Tab go back to");
}

void lookAt(TourStage &stage, GUI_WebView *page)
{
    const QString style = styleOf(stage);
    stage.check(
        TourHand::waitFor([&] {
            return PageHand::read(page, "document.body.className").toString().contains(style);
        }),
        "the page is " + style);
    stage.compare(PageHand::cutTexts(page).join(", "), QString(), "what is cut off");
}

// A panel that shares its place with others has a tab there, and says that it is visible in any
// case.
bool isBehindAnother(TourStage &stage, const QString &title)
{
    for (const QTabBar *tabs : stage.window().findChildren<QTabBar *>()) {
        for (int i = 0; i < tabs->count(); ++i) {
            if (tabs->tabText(i) == title)
                return tabs->currentIndex() != i;
        }
    }
    return false;
}

void walkPanel(TourStage &stage, const PageEntry &page)
{
    auto *view = stage.window().findChild<GUI_WebView *>(page.mediator + "View");
    if (isBehindAnother(stage, page.title))
        stage.raisePanel(page.title);
    stage.check(view && view->isVisible(), "the panel is in view");
    if (!view)
        return;
    lookAt(stage, view);
    // The embedded pictures have keys of their own.
    if (PageHand::stops(view).isEmpty()) {
        stage.addPicture(view, "-page");
        return;
    }
    view->setFocus(Qt::TabFocusReason);
    TourHand::settle();
    PageHand::read(view, "document.activeElement.blur()");
    walkByTab(stage, view);
    stage.addPicture(view, "-page");
    for (int i = 0; i < 2 && view->hasFocus(); ++i)
        PageHand::press(view, Qt::Key_Tab);
    stage.check(!view->hasFocus(), "the key Tab leaves the panel behind its last control");
}

// The one list that there is: the partitions, behind their field in the status.
void walkList(TourStage &stage)
{
    auto *status = stage.window().findChild<GUI_WebView *>("statuspanelView");
    const auto open = [&]() -> GUI_WebView * {
        status->setFocus();
        PageHand::read(status, "document.getElementById('partition').focus()");
        stage.check(PageHand::press(status, Qt::Key_Return), "the key Enter on the partition");
        GUI_SelectBox *box = stage.workbench().boxes()->box();
        const bool shown = TourHand::waitFor(
            [&] { return box && box->isVisible() && PageHand::count(box->webView(), "li") == 2; });
        stage.check(shown, "the list is open");
        return shown ? box->webView() : nullptr;
    };
    for (const int key : {int(Qt::Key_Escape), int(Qt::Key_Return)}) {
        GUI_WebView *list = open();
        if (!list)
            return;
        if (key == Qt::Key_Escape) {
            lookAt(stage, list);
            stage.addPicture(list, "-page");
        } else {
            stage.check(PageHand::press(list, Qt::Key_Down), "the key Down");
        }
        stage.check(PageHand::press(list, key),
                    key == Qt::Key_Escape ? "the key Esc" : "the key Enter");
        stage.check(TourHand::waitFor([&] { return !list->isVisible(); }), "the list has gone");
        const QString text = key == Qt::Key_Escape ? "Partition 1" : "Partition 2";
        stage.check(TourHand::waitFor([&] { return PageHand::text(status, "#partition") == text; }),
                    "the field says " + text);
        stage.window().activateWindow();
    }
}

// The key Esc is nobody's in these dialogs: what was typed is not lost by it.
void walkDialog(TourStage &stage, const PageEntry &page)
{
    stage.visitDialog(page.menu, QString(page.entry).remove('&'), "-page", [&](GUI_WebView *view) {
        lookAt(stage, view);
        PageHand::read(view, "document.activeElement.blur()"); // it may begin with a field
        walkByTab(stage, view);
        stage.addPicture(view, "-focus");
        const QPointer<QWidget> dialog = view->window();
        stage.check(PageHand::press(view, Qt::Key_Escape), "the key Esc");
        stage.check(dialog && dialog->isVisible(), "the dialog stays");
        const QString last = PageHand::lastButton(view) + ":focus";
        for (int i = PageHand::stops(view).size(); i > 0 && PageHand::count(view, last) == 0; --i)
            PageHand::press(view, Qt::Key_Tab);
        stage.check(PageHand::press(view, Qt::Key_Return), "the key Enter on the main button");
        stage.check(!dialog || !dialog->isVisible(), "the dialog has gone");
    });
}

}

void Walks::catalogue(TourStage &stage)
{
    const QString style = styleOf(stage);
    for (const PageEntry &page : PageCatalogue::pages()) {
        stage.step(QStringLiteral("%1-%2").arg(page.name, style),
                   QStringLiteral("The page %1 by keyboard, in the %2 style").arg(page.name, style),
                   [&] {
                       if (page.kind == PageEntry::Kind::Panel)
                           walkPanel(stage, page);
                       else if (page.kind == PageEntry::Kind::List)
                           walkList(stage);
                       else
                           walkDialog(stage, page);
                   });
    }
}
