#include "bridge/page/GUI_WebView.h"
#include "workbench/app/Workbench.h"
#include "workbench/pages/PageCatalogue.h"
#include "workbench/tour/PageHand.h"
#include "workbench/tour/TourHand.h"
#include "workbench/tour/TourStage.h"
#include "workbench/tour/walks/Walks.h"
#include "workbench/window/MainWindow.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QMenuBar>
#include <QPixmap>
#include <QProcess>
#include <QTest>

namespace {

constexpr int Patience = 120000; // milliseconds
const char Scale[] = "1.5";

QStringList linesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly)
               ? QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts)
               : QStringList();
}

// The toolkit reads its scale at the start of a process, and nothing but a workbench of that scale
// shows what its users see.
void startsAnotherWorkbench(TourStage &stage)
{
    stage.step("scale", "On a screen that enlarges by 1.5 nothing is cut off or blurred", [&] {
        const QDir dir(stage.folder() + "/scaled");
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("QT_SCALE_FACTOR", Scale);
        QStringList arguments = {"--tour", dir.path(), "--walk", "scaled"};
        if (!stage.options().pluginFolder.isEmpty())
            arguments += {"--plugins", stage.options().pluginFolder};
        if (!stage.options().pagesFolder.isEmpty())
            arguments += {"--pages", stage.options().pagesFolder};
        QProcess process;
        process.setProcessEnvironment(environment);
        process.setStandardOutputFile(QProcess::nullDevice());
        process.setStandardErrorFile(QProcess::nullDevice());
        process.start(QCoreApplication::applicationFilePath(), arguments);
        const bool ended =
            QTest::qWaitFor([&] { return process.state() == QProcess::NotRunning; }, Patience);
        if (!ended)
            process.kill();
        stage.check(ended && process.exitStatus() == QProcess::NormalExit &&
                        process.exitCode() == 0,
                    "the other workbench has seen everything");
        for (const QString &line : linesOf(dir.filePath("transcript.txt"))) {
            if (line.startsWith("  "))
                stage.check(line.startsWith("  seen "), "there: " + line.mid(10));
        }
        const QStringList pictures = dir.entryList({"*.png"}, QDir::Files, QDir::Name);
        stage.check(!pictures.isEmpty(), "its pictures");
        // "02-prefs-page.png"
        for (const QString &picture : pictures)
            stage.addPicture(QPixmap(dir.filePath(picture)),
                             '-' + picture.section('-', 1).section('.', 0, 0));
    });
}

// Sharp: made of pixels of the screen, not enlarged from those of the window.
void comparePixels(TourStage &stage, QWidget *shown)
{
    const QSize pixels = shown->grab().size();
    const QSize wanted = QSize(qRound(shown->width() * 1.5), qRound(shown->height() * 1.5));
    stage.check(pixels == wanted, "its picture has the pixels of the screen");
}

void lookAtPage(TourStage &stage, GUI_WebView *page)
{
    comparePixels(stage, page);
    stage.compare(PageHand::read(page, "window.devicePixelRatio").toString(), Scale,
                  "the scale that the page is told");
    stage.compare(PageHand::cutTexts(page).join(", "), QString(), "what is cut off");
}

void showsTheWindowScaled(TourStage &stage, const QString &style)
{
    stage.step("window-" + style, "The window, in the " + style + " style", [&] {
        comparePixels(stage, &stage.window());
        for (const char *panel : {"devicepanelView", "statuspanelView"}) {
            auto *view = stage.window().findChild<GUI_WebView *>(panel);
            stage.check(view, QStringLiteral("the view %1").arg(panel));
            if (view)
                lookAtPage(stage, view);
        }
    });
}

void showsDialogsScaled(TourStage &stage, const QString &style)
{
    stage.step("dialogs-" + style, "The dialogs, in the " + style + " style", [&] {
        for (const PageEntry &page : PageCatalogue::pages()) {
            if (page.kind != PageEntry::Kind::Dialog)
                continue;
            stage.visitDialog(page.menu, QString(page.entry).remove('&'), '-' + page.name,
                              [&](GUI_WebView *view) {
                                  lookAtPage(stage, view);
                                  stage.clickInPage(view, PageHand::lastButton(view),
                                                    "the main button");
                              });
        }
    });
}

}

void Walks::scale(TourStage &stage)
{
    startsAnotherWorkbench(stage);
}

void Walks::scaled(TourStage &stage)
{
    for (const QString style : {"light", "dark"}) {
        if (style == "dark")
            TourHand::chooseMenu(stage.window().menuBar(), "View", "Dark style");
        showsTheWindowScaled(stage, style);
        showsDialogsScaled(stage, style);
    }
}
