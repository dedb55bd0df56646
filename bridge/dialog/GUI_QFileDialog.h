#pragma once

#include <QFileDialog>

/// The file chooser of the application, under a class of its own. The host makes it.
class GUI_QFileDialog : public QFileDialog
{
    Q_OBJECT

public:
    using QFileDialog::QFileDialog;
};
