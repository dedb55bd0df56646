#pragma once

#include "workbench/tour/TourStage.h"

#include <QVector>

/// The walks of the tour, a subject each. Each begins on a fresh stage, does what a user would do,
/// and looks at the effect; means that are missing fail its checks.
namespace Walks {

void lock(TourStage &stage);            ///< live cameras and the lock
void region(TourStage &stage);          ///< the region that the cameras read out
void recording(TourStage &stage);       ///< recordings in cameras and files
void trouble(TourStage &stage);         ///< a tool that fails, and the log
void pages(TourStage &stage);           ///< panels, dialogs and lists that are pages
void note(TourStage &stage);            ///< a tool with a dialog beside the window
void editInfo(TourStage &stage);        ///< what stands over pictures and in saved ones
void support(TourStage &stage);         ///< the support file
void style(TourStage &stage);           ///< window and pages in the dark style
void regionInTheDark(TourStage &stage); ///< panel and dialog of a tool in the dark style
void empty(TourStage &stage);           ///< no camera is left, and one comes
void information(TourStage &stage);     ///< time code, comments, and how values are written
void catalogue(TourStage &stage);       ///< each page by keyboard, in the style of the scene
void discovery(TourStage &stage);       ///< cameras of the network, in the style of the scene
void customInfo(TourStage &stage);      ///< custom information, in the style of the scene
void deviceEdit(TourStage &stage);      ///< cameras added, named, edited, in the style of the scene
void deviceList(TourStage &stage);      ///< several devices, heads and groups
void save(TourStage &stage);            ///< where saves go, in the style of the scene
void cameraSettings(TourStage &stage);  ///< settings in files and presets, in the scene's style
void cameras(TourStage &stage);         ///< as many cameras as there can be
void scale(TourStage &stage);           ///< a workbench on a screen that enlarges by 1.5
void scaled(TourStage &stage);          ///< what that one does; a walk for itself alone

struct Walk
{
    QString name;
    TourStage::Scene scene;
    void (*run)(TourStage &stage);
    bool isAsked = false; ///< Whether it is taken only when it is asked for by its name.
};

/// All of them, in their order.
const QVector<Walk> &all();

}
