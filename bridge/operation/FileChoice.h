#pragma once

#include <QFileDialog>
#include <QString>
#include <QStringList>

#include <functional>

class QWidget;

/// The one place that asks the user for files and folders.
namespace FileChoice {

/// What is asked for.
enum class Kind { SaveFile, OpenFile, OpenFiles, Folder };

struct Question
{
    Kind kind = Kind::SaveFile;
    QWidget *parent = nullptr;
    QString caption;
    QString start; ///< folder or path that is offered first
    QString filter;
    QFileDialog::Options options;
};

/// The paths that were chosen; empty when the user cancelled. GUI thread.
QStringList ask(const Question &question);

/// The first of them, or empty text.
QString askOne(const Question &question);

using Answer = std::function<QStringList(const Question &)>;

/// Answers in place of the user from here on; an empty function gives the dialogs back.
void setAnswer(const Answer &answer);

}
