#pragma once

#include "workbench/tour/Walk.h"

#include <QVector>

/// The walks of the tour, a subject each.
namespace Walks {

void lock(TourStage &stage);            ///< live cameras and the lock
void region(TourStage &stage);          ///< the region that the cameras read out
void trouble(TourStage &stage);         ///< a tool that fails, and the log
void pages(TourStage &stage);           ///< panels, dialogs and lists that are pages
void note(TourStage &stage);            ///< a tool with a dialog beside the window
void support(TourStage &stage);         ///< the support file
void style(TourStage &stage);           ///< window and pages in the dark style
void regionInTheDark(TourStage &stage); ///< panel and dialog of a tool in the dark style
void empty(TourStage &stage);           ///< no camera is left, and one comes
void catalogue(TourStage &stage);       ///< each page by keyboard, in the style of the scene
void scale(TourStage &stage);           ///< a workbench on a screen that enlarges by 1.5
void scaled(TourStage &stage);          ///< what that one does; a walk for itself alone

/// All of them, in their order.
const QVector<Walk> &all();

}
