#pragma once

#include "workbench/tour/TourStage.h"

/// A walk of the tour. It begins on a fresh stage, does what a user would do, and looks at the
/// effect; means that are missing fail its checks.
struct Walk
{
    QString name;
    TourStage::Scene scene;
    void (*run)(TourStage &stage);
    bool isAsked = false; ///< Whether it is taken only when it is asked for by its name.
};
