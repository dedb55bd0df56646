#pragma once

#include "workbench/base/Options.h"
#include "workbench/tour/Walk.h"

#include <QVector>

/// Walks through the whole workbench by itself and looks at the effect of each step. Each walk has
/// a workbench of its own, with settings and files in a temporary folder: what one breaks, the next
/// does not find.
class Tour
{
public:
    /// The options' tour folder gets the pictures and the transcript.
    Tour(const Options &options, const QVector<Walk> &walks);

    /// 0 when everything was seen, 1 when something was not, 2 when the folder cannot be written
    /// to.
    int run();

private:
    Options m_options;
    QVector<Walk> m_walks;
};
