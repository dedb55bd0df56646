#include "bridge/dialog/GUI_ModelessPatternDialog.h"
#include "bridge/page/GUI_WebView.h"
#include "contract/PLG_Interface.h"
#include "workbench/app/Workbench.h"
#include "workbench/base/SettingsText.h"
#include "workbench/tour/PageHand.h"
#include "workbench/tour/TourHand.h"
#include "workbench/tour/TourStage.h"
#include "workbench/tour/walks/Walks.h"
#include "workbench/views/DocumentView.h"
#include "workbench/views/PictureArea.h"
#include "workbench/window/MainWindow.h"
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

PLG_Interface *regionTool(const TourStage &stage)
{
    return stage.tool("t_region");
}

// A step with the tool; without it nobody waits for what cannot come.
void regionStep(TourStage &stage, const QString &name, const QString &title,
                const std::function<void()> &body)
{
    stage.step(name, title, [&] {
        stage.check(regionTool(stage), "the module with the tool \"t_region\" is loaded");
        if (regionTool(stage))
            body();
    });
}

void pressRegionTool(TourStage &stage)
{
    stage.check(TourHand::click(stage.toolButton("t_region")), "a click on the button Region");
}

// Of the first camera, as it is drawn.
QRect regionInView(TourStage &stage)
{
    PLG_Interface *tool = regionTool(stage);
    StandInDocument *document =
        stage.viewAt(0) ? stage.host().document(stage.viewAt(0)->key()) : nullptr;
    if (!tool || !document)
        return QRect();
    return document->geometry().toScreen(tool->region(document->contract()));
}

void turnPicture(TourStage &stage, int quarterTurns, bool horizontally, bool vertically)
{
    StandInDocument *document =
        stage.viewAt(0) ? stage.host().document(stage.viewAt(0)->key()) : nullptr;
    if (!document)
        return;
    const DocumentState &state = document->state();
    const auto choose = [&](const QString &entry) {
        stage.check(TourHand::chooseMenu(stage.window().menuBar(), "Picture", entry),
                    "Picture, " + entry);
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
void dragsHandle(TourStage &stage, const QString &handle, const QPoint &direction, bool outward)
{
    auto *area = stage.viewAt(0) ? stage.viewAt(0)->findChild<PictureArea *>() : nullptr;
    const QRect before = regionInView(stage);
    const auto along = [](int sign, int low, int middle, int high) {
        return sign < 0 ? low : sign > 0 ? high : middle;
    };
    const QPoint from(along(direction.x(), before.left(), before.center().x(), before.right()),
                      along(direction.y(), before.top(), before.center().y(), before.bottom()));
    const bool inside = direction.isNull();
    const QPoint way = (inside ? QPoint(1, 1) : direction) * (outward ? DragLength : -DragLength);
    stage.check(TourHand::drag(area, from, from + way), "a drag of " + handle);
    const QRect after = regionInView(stage);
    const auto follows = [](int then, int now, int moved) { return isNear(now, then + moved); };
    stage.check(
        follows(before.left(), after.left(), inside || direction.x() < 0 ? way.x() : 0) &&
            follows(before.right(), after.right(), inside || direction.x() > 0 ? way.x() : 0) &&
            follows(before.top(), after.top(), inside || direction.y() < 0 ? way.y() : 0) &&
            follows(before.bottom(), after.bottom(), inside || direction.y() > 0 ? way.y() : 0),
        "it follows the pointer, and what it does not hold stays");
    const StandInCamera *camera = stage.host().cameras().value(0);
    PLG_Interface *tool = regionTool(stage);
    if (camera && tool)
        stage.compare(text(camera->deviceSettings().region),
                      text(tool->region(stage.host().document(camera->key())->contract())),
                      "what the camera reads");
}

void opensTheRegion(TourStage &stage)
{
    regionStep(
        stage, "region", "The region tool shows the whole sensor, and what of it is read", [&] {
            stage.chooseView(0);
            const StandInCamera *camera = stage.host().cameras().value(0);
            const QSize sensor = camera ? camera->sensorSize() : QSize();
            const QSize read = camera ? camera->deviceSettings().region.size() : QSize();
            stage.compare(
                SettingsText::size(stage.viewAt(0) ? stage.viewAt(0)->picture().size() : QSize()),
                SettingsText::size(read), "size of the picture");
            pressRegionTool(stage);
            auto *panel = stage.window().findChild<ToolPanel *>();
            stage.check(TourHand::waitFor([&] { return panel->isVisible() && panel->isLoaded(); }),
                        "the panel with its page");
            TourHand::settle();
            stage.compare(
                SettingsText::size(stage.viewAt(0) ? stage.viewAt(0)->picture().size() : QSize()),
                SettingsText::size(sensor), "size of the picture");
            PLG_Interface *tool = regionTool(stage);
            StandInDocument *document = stage.host().document(stage.host().currentKey());
            stage.check(tool && document && tool->isChecked(document->contract(), false),
                        "the tool's isChecked answers true");
            if (panel->view())
                stage.compare(
                    PageHand::read(panel->view(), "document.getElementById('Width').value")
                        .toString(),
                    QString::number(read.width()), "the width in the panel");
        });
}

void dragsEveryHandle(TourStage &stage)
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
        regionStep(stage, QStringLiteral("drag-") + drag.name,
                   QStringLiteral("A drag of ") + drag.handle + turned, [&] {
                       turnPicture(stage, drag.quarterTurns, drag.horizontally, drag.vertically);
                       dragsHandle(stage, drag.handle, drag.direction, isCorner(drag.direction));
                   });
    }
}

void movesTheRegionByKeys(TourStage &stage)
{
    regionStep(stage, "nudge", "Arrow keys move the region, with Shift they make it larger", [&] {
        PLG_Interface *tool = regionTool(stage);
        StandInDocument *document = stage.host().document(stage.host().currentKey());
        const auto region = [&] {
            return tool && document ? tool->region(document->contract()) : QRect();
        };
        if (stage.viewAt(0))
            stage.viewAt(0)->setFocus();
        const QRect before = region();
        stage.check(TourHand::press(Qt::Key_Left, Qt::NoModifier, stage.viewAt(0)), "the key Left");
        stage.compare(text(region()), text(before.translated(-1, 0)), "the region");
        stage.check(TourHand::press(Qt::Key_Down, Qt::ShiftModifier, stage.viewAt(0)),
                    "the keys Shift+Down");
        stage.compare(text(region()), text(before.translated(-1, 0).adjusted(0, 0, 0, 1)),
                      "the region");
        stage.pressAction("undo");
        stage.pressAction("undo");
        stage.compare(text(region()), text(before), "the region behind Undo, twice");
        const StandInCamera *camera = stage.host().cameras().value(0);
        stage.compare(text(camera ? camera->deviceSettings().region : QRect()), text(before),
                      "what the camera reads");
    });
}

void setsTheRegionInItsPanel(TourStage &stage)
{
    regionStep(stage, "region-panel", "Panel and options set the region by numbers", [&] {
        auto *panel = stage.window().findChild<ToolPanel *>();
        const StandInCamera *camera = stage.host().cameras().value(0);
        PLG_Interface *tool = regionTool(stage);
        if (!panel->view() || !camera || !tool) {
            stage.check(false, "panel and camera are there");
            return;
        }
        stage.clickInPage(panel->view(), "#options", "Options...");
        GUI_ModelessPatternDialog *dialog = tool->ensureDialog(false);
        stage.check(dialog && TourHand::waitFor([&] { return dialog->isVisible(); }),
                    "the options");
        if (dialog) {
            GUI_WebView *page = dialog->webView();
            stage.check(TourHand::waitFor([&] {
                            return PageHand::isEnabled(page, "#fixAspect") &&
                                   PageHand::read(page, "document.getElementById('minWidth').value")
                                           .toString() == "16";
                        }),
                        "their page");
            stage.clickInPage(page, "#symmetricX", "Centred from left to right");
            const QRect read = camera->deviceSettings().region;
            // An odd width leaves one pixel more on the right.
            const int beside = (camera->sensorSize().width() - read.width()) / 2;
            stage.compare(QString::number(read.left()), QString::number(beside), "the left side");
            stage.addPicture(dialog, "-options");
            stage.clickInPage(page, "#symmetricX", "it again");
            stage.clickInPage(page, "#close", "Close");
            stage.check(!dialog->isVisible(), "the options have gone");
        }
        stage.window().activateWindow();
        stage.clickInPage(panel->view(), "#Width", "the width");
        PageHand::press(panel->view(), Qt::Key_A, Qt::ControlModifier);
        PageHand::type(panel->view(), "512");
        PageHand::press(panel->view(), Qt::Key_Tab);
        stage.compare(QString::number(camera->deviceSettings().region.width()), "512",
                      "the width that the camera reads");
        stage.addPicture(panel, "-panel");
        stage.clickInPage(panel->view(), "#ok", "OK");
        stage.check(TourHand::waitFor([&] { return !panel->isVisible(); }), "the panel has gone");
        TourHand::settle();
        stage.compare(
            SettingsText::size(stage.viewAt(0) ? stage.viewAt(0)->picture().size() : QSize()),
            SettingsText::size(camera->deviceSettings().region.size()), "size of the picture");
    });
}

void carriesTheRegionToLockedCameras(TourStage &stage)
{
    regionStep(stage, "region-lock", "On locked cameras the region lands on all of them", [&] {
        // Shutters that differ show that the region alone is carried.
        const uint parts[] = {4000, 8000, 1000};
        for (int i = 0; i < qMin(3, stage.host().cameras().size()); ++i)
            stage.host().cameras().at(i)->setShutterSpeed(parts[i]);
        stage.pressTool();
        stage.checkLock(true, 3);
        QStringList shutters;
        for (const StandInCamera *camera : stage.host().cameras())
            shutters.append(SettingsText::shutter(camera->deviceSettings().shutterSpeed));
        QStringList before;
        for (const StandInCamera *camera : stage.host().cameras())
            before.append(text(camera->deviceSettings().region));
        pressRegionTool(stage);
        auto *panel = stage.window().findChild<ToolPanel *>();
        stage.check(TourHand::waitFor([&] { return panel->isVisible() && panel->isLoaded(); }),
                    "the panel with its page");
        TourHand::settle();
        dragsHandle(stage, "the bottom right corner", {1, 1}, true);
        const QList<StandInCamera *> cameras = stage.host().cameras();
        for (const StandInCamera *camera : cameras)
            stage.compare(text(camera->deviceSettings().region),
                          text(cameras.first()->deviceSettings().region),
                          "what " + camera->name() + " reads");
        QStringList kept;
        for (const StandInCamera *camera : cameras)
            kept.append(SettingsText::shutter(camera->deviceSettings().shutterSpeed));
        stage.compare(kept.join(", "), shutters.join(", "), "their shutters");
        stage.check(text(cameras.value(0)->deviceSettings().region) != before.value(0),
                    "it is another region than before");
        stage.addPicture("-all");
        if (panel->view())
            stage.clickInPage(panel->view(), "#cancel", "Cancel");
        QStringList after;
        for (const StandInCamera *camera : cameras)
            after.append(text(camera->deviceSettings().region));
        stage.compare(after.join("; "), before.join("; "),
                      "behind Cancel the cameras read as before");
        stage.pressTool();
        stage.checkLock(false, 3);
        stage.chooseView(1);
    });
}

void showsTheRegionInTheDark(TourStage &stage)
{
    regionStep(stage, "night-region", "Panel and options of the region are dark", [&] {
        pressRegionTool(stage);
        auto *panel = stage.window().findChild<ToolPanel *>();
        PLG_Interface *tool = regionTool(stage);
        stage.check(TourHand::waitFor([&] { return panel->isVisible() && panel->isLoaded(); }),
                    "the panel with its page");
        if (!panel->view() || !tool)
            return;
        const auto isDark = [](QWebView *page) {
            return PageHand::read(page, "document.body.className") == "dark";
        };
        stage.check(TourHand::waitFor([&] { return isDark(panel->view()); }), "the panel is dark");
        stage.addPicture("-panel");
        stage.clickInPage(panel->view(), "#options", "Options...");
        GUI_ModelessPatternDialog *dialog = tool->ensureDialog(false);
        stage.check(dialog && TourHand::waitFor([&] { return isDark(dialog->webView()); }),
                    "the options are dark");
        if (dialog) {
            TourHand::settle();
            stage.addPicture(dialog, "-options");
            stage.clickInPage(dialog->webView(), "#close", "Close");
        }
        stage.window().activateWindow();
        pressRegionTool(stage);
        stage.check(TourHand::waitFor([&] { return !panel->isVisible(); }),
                    "the button closes the panel again");
    });
}

}

void Walks::region(TourStage &stage)
{
    opensTheRegion(stage);
    dragsEveryHandle(stage);
    movesTheRegionByKeys(stage);
    setsTheRegionInItsPanel(stage);
    carriesTheRegionToLockedCameras(stage);
}

void Walks::regionInTheDark(TourStage &stage)
{
    showsTheRegionInTheDark(stage);
}
