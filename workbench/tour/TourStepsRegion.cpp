#include "bridge/dialog/GUI_ModelessPatternDialog.h"
#include "bridge/page/GUI_WebView.h"
#include "contract/PLG_Interface.h"
#include "workbench/app/Workbench.h"
#include "workbench/base/SettingsText.h"
#include "workbench/tour/PageHand.h"
#include "workbench/tour/TourHand.h"
#include "workbench/tour/TourReport.h"
#include "workbench/tour/TourSteps.h"
#include "workbench/views/DocumentView.h"
#include "workbench/views/PictureArea.h"
#include "workbench/views/ViewArea.h"
#include "workbench/window/MainWindow.h"
#include "workbench/window/ToolBar.h"
#include "workbench/window/ToolPanel.h"

#include <QAction>
#include <QMenuBar>

#include <cmath>

namespace {

constexpr int DragLength = 10; // view pixels
constexpr int NearEnough = 3;  // view pixels: of a drawn edge from the pointer that brought it

bool isNear(int first, int second)
{
    return std::abs(first - second) <= NearEnough;
}

bool isCorner(const QPoint &direction)
{
    return direction.x() != 0 && direction.y() != 0;
}

QString text(const QRect &rect)
{
    return QStringLiteral("%1 at %2, %3")
        .arg(SettingsText::size(rect.size()), QString::number(rect.x()), QString::number(rect.y()));
}

}

PLG_Interface *TourSteps::regionTool() const
{
    for (PLG_Interface *tool : m_workbench.loader().tools()) {
        if (tool->name() == QLatin1String("t_region"))
            return tool;
    }
    return nullptr;
}

// A step with the tool; without it nobody waits for what cannot come.
void TourSteps::regionStep(const QString &name, const QString &title,
                           const std::function<void()> &body)
{
    step(name, title, [&] {
        check(regionTool(), "the module with the tool \"t_region\" is loaded");
        if (regionTool())
            body();
    });
}

void TourSteps::pressRegionTool()
{
    PLG_Interface *tool = regionTool();
    const QAction *action = tool ? m_window.tools()->action(tool) : nullptr;
    check(action && TourHand::click(buttonOf(action)), "a click on the button Region");
}

// Of the first camera, as it is drawn.
QRect TourSteps::regionInView() const
{
    PLG_Interface *tool = regionTool();
    StandInDocument *document = viewAt(0) ? m_host.document(viewAt(0)->key()) : nullptr;
    if (!tool || !document)
        return QRect();
    return document->geometry().toScreen(tool->region(document->contract()));
}

void TourSteps::turnPicture(int quarterTurns, bool horizontally, bool vertically)
{
    StandInDocument *document = viewAt(0) ? m_host.document(viewAt(0)->key()) : nullptr;
    if (!document)
        return;
    const DocumentState &state = document->state();
    const auto choose = [this](const QString &entry) {
        check(TourHand::chooseMenu(m_window.menuBar(), "Picture", entry), "Picture, " + entry);
    };
    while (state.quarterTurns != quarterTurns) {
        const int before = state.quarterTurns;
        choose("Turn right");
        if (state.quarterTurns == before)
            break;
    }
    if (state.isFlippedHorizontally != horizontally)
        choose("Flip left to right");
    if (state.isFlippedVertically != vertically)
        choose("Flip top to bottom");
}

// The handle on the side or corner that `direction` points to, in the view; 0, 0: the inside. The
// sides that it moves follow the pointer, out of the region or into it, the others stay.
void TourSteps::dragsHandle(const QString &handle, const QPoint &direction, bool outward)
{
    auto *area = viewAt(0) ? viewAt(0)->findChild<PictureArea *>() : nullptr;
    const QRect before = regionInView();
    const auto along = [](int sign, int low, int middle, int high) {
        return sign < 0 ? low : sign > 0 ? high : middle;
    };
    const QPoint from(along(direction.x(), before.left(), before.center().x(), before.right()),
                      along(direction.y(), before.top(), before.center().y(), before.bottom()));
    const bool inside = direction.isNull();
    const QPoint way = (inside ? QPoint(1, 1) : direction) * (outward ? DragLength : -DragLength);
    check(TourHand::drag(area, from, from + way), "a drag of " + handle);
    const QRect after = regionInView();
    const auto follows = [](int then, int now, int moved) { return isNear(now, then + moved); };
    check(follows(before.left(), after.left(), inside || direction.x() < 0 ? way.x() : 0) &&
              follows(before.right(), after.right(), inside || direction.x() > 0 ? way.x() : 0) &&
              follows(before.top(), after.top(), inside || direction.y() < 0 ? way.y() : 0) &&
              follows(before.bottom(), after.bottom(), inside || direction.y() > 0 ? way.y() : 0),
          "it follows the pointer, and what it does not hold stays");
    const StandInCamera *camera = m_host.cameras().value(0);
    PLG_Interface *tool = regionTool();
    if (camera && tool)
        compare(text(camera->deviceSettings().region),
                text(tool->region(m_host.document(camera->key())->contract())),
                "what the camera reads");
}

void TourSteps::opensTheRegion()
{
    regionStep("region", "The region tool shows the whole sensor, and what of it is read", [this] {
        chooseView(0);
        const StandInCamera *camera = m_host.cameras().value(0);
        const QSize sensor = camera ? camera->sensorSize() : QSize();
        const QSize read = camera ? camera->deviceSettings().region.size() : QSize();
        compare(SettingsText::size(viewAt(0) ? viewAt(0)->picture().size() : QSize()),
                SettingsText::size(read), "size of the picture");
        pressRegionTool();
        auto *panel = m_window.findChild<ToolPanel *>();
        check(TourHand::waitFor([&] { return panel->isVisible() && panel->isLoaded(); }),
              "the panel with its page");
        TourHand::settle();
        compare(SettingsText::size(viewAt(0) ? viewAt(0)->picture().size() : QSize()),
                SettingsText::size(sensor), "size of the picture");
        PLG_Interface *tool = regionTool();
        StandInDocument *document = m_host.document(m_host.currentKey());
        check(tool && document && tool->isChecked(document->contract(), false),
              "the tool's isChecked answers true");
        if (panel->view())
            compare(
                PageHand::read(panel->view(), "document.getElementById('Width').value").toString(),
                QString::number(read.width()), "the width in the panel");
    });
}

void TourSteps::dragsEveryHandle()
{
    struct Drag
    {
        const char *name;
        const char *handle;
        QPoint direction;
        int quarterTurns;
        bool horizontally;
        bool vertically;
    };
    const Drag drags[] = {{"top", "the top edge", {0, -1}, 0, false, false},
                          {"right", "the right edge", {1, 0}, 1, false, false},
                          {"bottom", "the bottom edge", {0, 1}, 2, false, false},
                          {"left", "the left edge", {-1, 0}, 3, false, false},
                          {"top-left", "the top left corner", {-1, -1}, 0, true, false},
                          {"top-right", "the top right corner", {1, -1}, 1, false, true},
                          {"bottom-left", "the bottom left corner", {-1, 1}, 2, true, true},
                          {"bottom-right", "the bottom right corner", {1, 1}, 3, true, false},
                          {"inside", "the inside", {0, 0}, 0, false, false}};
    for (const Drag &drag : drags) {
        const QString turned =
            QStringLiteral(", turned by %1%2%3")
                .arg(QString::number(drag.quarterTurns * 90), drag.horizontally ? ", flipped" : "",
                     drag.vertically ? ", upside down" : "");
        regionStep(QStringLiteral("drag-") + drag.name,
                   QStringLiteral("A drag of ") + drag.handle + turned, [&] {
                       turnPicture(drag.quarterTurns, drag.horizontally, drag.vertically);
                       dragsHandle(drag.handle, drag.direction, isCorner(drag.direction));
                   });
    }
}

void TourSteps::movesTheRegionByKeys()
{
    regionStep("nudge", "Arrow keys move the region, with Shift they make it larger", [this] {
        PLG_Interface *tool = regionTool();
        StandInDocument *document = m_host.document(m_host.currentKey());
        const auto region = [&] {
            return tool && document ? tool->region(document->contract()) : QRect();
        };
        if (viewAt(0))
            viewAt(0)->setFocus();
        const QRect before = region();
        check(TourHand::press(Qt::Key_Left, Qt::NoModifier, viewAt(0)), "the key Left");
        compare(text(region()), text(before.translated(-1, 0)), "the region");
        check(TourHand::press(Qt::Key_Down, Qt::ShiftModifier, viewAt(0)), "the keys Shift+Down");
        compare(text(region()), text(before.translated(-1, 0).adjusted(0, 0, 0, 1)), "the region");
        pressAction("undo");
        pressAction("undo");
        compare(text(region()), text(before), "the region behind Undo, twice");
        const StandInCamera *camera = m_host.cameras().value(0);
        compare(text(camera ? camera->deviceSettings().region : QRect()), text(before),
                "what the camera reads");
    });
}

void TourSteps::setsTheRegionInItsPanel()
{
    regionStep("region-panel", "Panel and options set the region by numbers", [this] {
        auto *panel = m_window.findChild<ToolPanel *>();
        const StandInCamera *camera = m_host.cameras().value(0);
        PLG_Interface *tool = regionTool();
        if (!panel->view() || !camera || !tool) {
            check(false, "panel and camera are there");
            return;
        }
        clickInPage(panel->view(), "#options", "Options...");
        GUI_ModelessPatternDialog *dialog = tool->ensureDialog(false);
        check(dialog && TourHand::waitFor([&] { return dialog->isVisible(); }), "the options");
        if (dialog) {
            GUI_WebView *page = dialog->webView();
            check(TourHand::waitFor([&] {
                      return PageHand::isEnabled(page, "#fixAspect") &&
                             PageHand::read(page, "document.getElementById('minWidth').value")
                                     .toString() == "16";
                  }),
                  "their page");
            clickInPage(page, "#symmetricX", "Centred from left to right");
            const QRect read = camera->deviceSettings().region;
            // An odd width leaves one pixel more on the right.
            const int beside = (camera->sensorSize().width() - read.width()) / 2;
            compare(QString::number(read.left()), QString::number(beside), "the left side");
            m_report.addPicture(dialog->grab(), "-options");
            clickInPage(page, "#symmetricX", "it again");
            clickInPage(page, "#close", "Close");
            check(!dialog->isVisible(), "the options have gone");
        }
        m_window.activateWindow();
        clickInPage(panel->view(), "#Width", "the width");
        PageHand::press(panel->view(), Qt::Key_A, Qt::ControlModifier);
        PageHand::type(panel->view(), "512");
        PageHand::press(panel->view(), Qt::Key_Tab);
        compare(QString::number(camera->deviceSettings().region.width()), "512",
                "the width that the camera reads");
        m_report.addPicture(panel->grab(), "-panel");
        clickInPage(panel->view(), "#ok", "OK");
        check(TourHand::waitFor([&] { return !panel->isVisible(); }), "the panel has gone");
        TourHand::settle();
        compare(SettingsText::size(viewAt(0) ? viewAt(0)->picture().size() : QSize()),
                SettingsText::size(camera->deviceSettings().region.size()), "size of the picture");
    });
}

void TourSteps::carriesTheRegionToLockedCameras()
{
    regionStep("region-lock", "On locked cameras the region lands on all of them", [this] {
        pressTool();
        checkLock(true, 3);
        QStringList shutters;
        for (const StandInCamera *camera : m_host.cameras())
            shutters.append(SettingsText::shutter(camera->deviceSettings().shutterSpeed));
        QStringList before;
        for (const StandInCamera *camera : m_host.cameras())
            before.append(text(camera->deviceSettings().region));
        pressRegionTool();
        auto *panel = m_window.findChild<ToolPanel *>();
        check(TourHand::waitFor([&] { return panel->isVisible() && panel->isLoaded(); }),
              "the panel with its page");
        TourHand::settle();
        dragsHandle("the bottom right corner", {1, 1}, true);
        const QList<StandInCamera *> cameras = m_host.cameras();
        for (const StandInCamera *camera : cameras)
            compare(text(camera->deviceSettings().region),
                    text(cameras.first()->deviceSettings().region),
                    "what " + camera->name() + " reads");
        QStringList kept;
        for (const StandInCamera *camera : cameras)
            kept.append(SettingsText::shutter(camera->deviceSettings().shutterSpeed));
        compare(kept.join(", "), shutters.join(", "), "their shutters");
        check(text(cameras.value(0)->deviceSettings().region) != before.value(0),
              "it is another region than before");
        m_report.addPicture(m_window.grab(), "-all");
        if (panel->view())
            clickInPage(panel->view(), "#cancel", "Cancel");
        QStringList after;
        for (const StandInCamera *camera : cameras)
            after.append(text(camera->deviceSettings().region));
        compare(after.join("; "), before.join("; "), "behind Cancel the cameras read as before");
        pressTool();
        checkLock(false, 3);
        chooseView(1);
    });
}

void TourSteps::showsTheRegionInTheDark()
{
    regionStep("night-region", "Panel and options of the region are dark", [this] {
        pressRegionTool();
        auto *panel = m_window.findChild<ToolPanel *>();
        PLG_Interface *tool = regionTool();
        check(TourHand::waitFor([&] { return panel->isVisible() && panel->isLoaded(); }),
              "the panel with its page");
        if (!panel->view() || !tool)
            return;
        const auto isDark = [](QWebView *page) {
            return PageHand::read(page, "document.body.className") == "dark";
        };
        check(TourHand::waitFor([&] { return isDark(panel->view()); }), "the panel is dark");
        m_report.addPicture(m_window.grab(), "-panel");
        clickInPage(panel->view(), "#options", "Options...");
        GUI_ModelessPatternDialog *dialog = tool->ensureDialog(false);
        check(dialog && TourHand::waitFor([&] { return isDark(dialog->webView()); }),
              "the options are dark");
        if (dialog) {
            TourHand::settle();
            m_report.addPicture(dialog->grab(), "-options");
            clickInPage(dialog->webView(), "#close", "Close");
        }
        m_window.activateWindow();
        pressRegionTool();
        check(TourHand::waitFor([&] { return !panel->isVisible(); }),
              "the button closes the panel again");
    });
}
