#pragma once

class TourStage;

namespace Walks {

void discovery(TourStage &stage);      ///< cameras of the network, in the style of the scene
void deviceEdit(TourStage &stage);     ///< cameras added, named, edited, in the style of the scene
void deviceList(TourStage &stage);     ///< several devices, heads and groups
void cameraSettings(TourStage &stage); ///< settings in files and presets, in the scene's style
void cameras(TourStage &stage);        ///< as many cameras as there can be

}
