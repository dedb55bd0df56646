#pragma once

#include "workbench/pages/PageEntry.h"

#include <QVector>

/// All pages of the workbench. From a row come the menu entry, the dialog, the panel's page, and
/// what the test of the catalogue and the walk-through visit.
namespace PageCatalogue {

/// In the order of the menus.
const QVector<PageEntry> &pages();

/// The page of this name; there must be one.
const PageEntry &page(const QString &name);

}
