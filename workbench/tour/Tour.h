#pragma once

#include "workbench/base/Options.h"

#include <QString>

/// Walks through the whole workbench by itself and looks at the effect of each step. Settings and
/// files of its own lie in a temporary folder.
class Tour
{
public:
    /// The options' tour folder gets the pictures and the transcript.
    explicit Tour(const Options &options);

    /// 0 when everything was seen, 1 when something was not, 2 when the folder cannot be written
    /// to.
    int run();

private:
    Options m_options;
};
