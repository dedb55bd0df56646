#pragma once

#include "bridge/mediator/JS_Mediator.h"

/// What the page of a dialog sees.
///
/// `reject` goes from page to dialog and `rejected` comes back from dialog to page, whatever closed
/// the dialog.
class JS_Mediator_Dialog : public JS_Mediator
{
    Q_OBJECT

public:
    using JS_Mediator::JS_Mediator;

signals:
    void accept();
    void reject();
    void rejected();

public slots:
    /// Wanted size of the dialog in pixels; -1 means none.
    int getHeight();
    int getWidth();

protected:
    void setWantedSize(int width, int height);

private:
    int m_width = -1;
    int m_height = -1;
};
