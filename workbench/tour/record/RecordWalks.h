#pragma once

class TourStage;

namespace Walks {

void recording(TourStage &stage);   ///< recordings in cameras and files
void information(TourStage &stage); ///< time code, comments, and how values are written
void editInfo(TourStage &stage);    ///< what stands over pictures and in saved ones
void customInfo(TourStage &stage);  ///< custom information, in the style of the scene
void save(TourStage &stage);        ///< where saves go, in the style of the scene

}
