#include "workbench/pages/Pages.h"

#include <QDir> // Q_INIT_RESOURCE

// Has to stand outside of any namespace. A library's resources are not there by themselves.
static void initResources()
{
    Q_INIT_RESOURCE(workbench_pages);
}

void Pages::registerResources()
{
    initResources();
}
