#include "workbench/app/Workbench.h"
#include "workbench/tour/TourHand.h"
#include "workbench/tour/TourStage.h"
#include "workbench/tour/device/DeviceWalks.h"
#include "workbench/views/DocumentView.h"
#include "workbench/views/ViewArea.h"
#include "workbench/window/MainWindow.h"

namespace {

QRect placeOf(const DocumentView *view)
{
    return {view->mapToGlobal({0, 0}), view->size()};
}

// The titles of the first two that share a pixel; empty: none do.
QString overlap(const QList<DocumentView *> &views)
{
    for (int i = 0; i < views.size(); ++i) {
        for (int j = 0; j < i; ++j) {
            if (placeOf(views.at(i)).intersects(placeOf(views.at(j))))
                return views.at(j)->title() + ", " + views.at(i)->title();
        }
    }
    return QString();
}

void showsSixteenCameras(TourStage &stage)
{
    stage.step("sixteen", "Sixteen cameras have a place each, and keys reach all of them", [&] {
        const QList<DocumentView *> views = stage.window().views()->views();
        stage.compare(QString::number(views.size()), "16", "number of pictures");
        stage.compare(overlap(views), QString(), "pictures that overlap");
        stage.pressTool();
        stage.checkLock(true, 16);
        stage.addPicture("-first");
        int seen = 0;
        for (int i = 0; i < views.size(); ++i) {
            TourHand::press(Qt::Key_PageDown, Qt::ControlModifier, &stage.window());
            const DocumentView *view = stage.viewAt((i + 1) % 16);
            const bool whole = view && view->visibleRegion().boundingRect() == view->rect();
            seen += view && view->isCurrent() && whole ? 1 : 0;
            if (i == 14)
                stage.addPicture("-last");
        }
        stage.compare(QString::number(seen), "16", "pictures that Ctrl+PgDown brought into view");
    });
}

}

void Walks::cameras(TourStage &stage)
{
    showsSixteenCameras(stage);
}
