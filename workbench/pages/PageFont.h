#pragma once

#include <QObject>

/// Gives pages the font size of the application, in all views and also when it changes: what a page
/// calls "medium" is as large as the text of native widgets. GUI thread.
class PageFont : public QObject
{
    Q_OBJECT

public:
    explicit PageFont(QObject *parent = nullptr);
};
