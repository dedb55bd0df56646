#pragma once

#include "contract/HostTypes.h"

#include <QVariant>

class DOC_Interface;
class HostServices;

/// How the pages of the devices select documents, and take them out of the selection again. All of
/// it throws what the host throws. GUI thread.
namespace DocumentSelection {

/// The key that a page hands over, as number or decimal text; 0 for what is neither.
DOCKEY keyOf(const QVariant &pageKey);

/// The document of a key, when it can be selected; null when it cannot, or is not there.
DOC_Interface *selectable(HostServices *host, DOCKEY key);

/// Makes a document the current one and selects it. `doc` has the key `key`.
void select(HostServices *host, DOC_Interface *doc, DOCKEY key);

/// Selects the other members of the group that a document stands for or is part of, as far as they
/// can be selected. The current document stays as it is.
void selectGroup(HostServices *host, DOC_Interface *doc);

/// Takes the other members of the group out of the selection.
void unselectGroup(HostServices *host, DOC_Interface *doc);

}
