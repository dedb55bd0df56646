#pragma once

#include <QWidget>

/// A native widget that pages embed, under a class of its own. The host makes it.
class GUI_EmbeddedWidget : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;
};
