#include "workbench/app/Workbench.h"
#include "workbench/tour/TourHand.h"
#include "workbench/tour/TourStage.h"
#include "workbench/tour/walks/Walks.h"
#include "workbench/window/MainWindow.h"

#include <QApplication>
#include <QFile>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>

namespace {

bool clickStandardButton(QMessageBox::StandardButton button)
{
    QMessageBox *box = nullptr;
    TourHand::waitFor(
        [&] { return (box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())); });
    return box && TourHand::click(box->button(button));
}

void writesASupportFile(TourStage &stage)
{
    stage.step("support", "The support file is a ZIP", [&] {
        const QString path = stage.folder() + "/support.zip";
        bool agreed = false;
        bool chosen = false;
        bool told = false;
        TourHand::answerDialogs(
            [&] {
                stage.check(
                    TourHand::chooseMenu(stage.window().menuBar(), "Help", "Support file..."),
                    "Help, Support file...");
            },
            {[&](QDialog *dialog) {
                 stage.addPicture(dialog, "-question");
                 agreed = clickStandardButton(QMessageBox::Yes);
             },
             [&](QDialog *dialog) { chosen = TourHand::choosePath(dialog, path); },
             [&](QDialog *) { told = clickStandardButton(QMessageBox::Ok); }});
        stage.check(agreed, "the question what goes in is answered by Yes");
        stage.check(chosen, "a file is chosen");
        stage.check(told, "a message says what to do with it");
        QFile file(path);
        const QByteArray zip = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        stage.check(zip.startsWith("PK"), "the file is a ZIP");
        for (const char *name :
             {"settings.txt", "cameras.txt", "operation-log.txt", "host-calls.txt",
              "environment.txt", "version.txt", "screen.png", "frame.png"})
            stage.check(zip.contains(name), QStringLiteral("it holds %1").arg(name));
        stage.check(stage.host().handledErrors().isEmpty() ||
                        !stage.host().handledErrors().last().contains("support"),
                    "no error was reported");
    });
}

}

void Walks::support(TourStage &stage)
{
    writesASupportFile(stage);
}
