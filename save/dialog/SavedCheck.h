#pragma once

#include "contract/HostTypes.h"

#include <QList>

/// What a search for saved copies has found.
struct SavedCheck
{
    bool done = false;          ///< there was a search
    QList<SavedRecord> records; ///< those with a copy
};
