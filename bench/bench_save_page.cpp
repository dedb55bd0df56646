#include "bench/BenchRatios.h"
#include "bridge/page/GUI_WebView.h"
#include "standin/documents/StandInCamera.h"
#include "standin/host/StandInHost.h"
#include "workbench/pages/PageCatalogue.h"
#include "workbench/pages/PageDialogs.h"

#include <QApplication>
#include <QDialog>
#include <QFile>
#include <QKeyEvent>
#include <QTemporaryDir>
#include <QWebFrame>

#include <chrono>
#include <memory>

#include <fcntl.h>
#include <unistd.h>

// How fast the page of a save follows the user, in a folder that is full already.

namespace {

using Seconds = std::chrono::duration<double>;

constexpr int Files = 10000;

const QString TypedPath = QStringLiteral("ShoT_S010001");
const QString ShorterPath = QStringLiteral("Sho_S000001");

void dropMessages(QtMsgType, const QMessageLogContext &, const QString &) {}

/// The page of a save into a folder of "Shot_S000001.bmp" and so on.
class SavePage
{
public:
    SavePage() : m_dialogs(m_host)
    {
        m_host.setJournalEnabled(false);
        StandInCamera *camera = m_host.addCamera();
        camera->state().partitions = {{1, QStringLiteral("A"), 100, 1000}};
        m_host.setMode(StandInHost::Mode::Memory);
        m_host.settings().setValue("export/media", "camera");
        m_host.settings().setValue("export/dir", m_dir.path());
        m_host.settings().setValue("export/filename", "Sho");
        m_host.settings().setValue("export/filenameaddnumber", true);
        m_host.settings().setValue("export/filenameaddnumberformat", "");
        m_host.settings().setValue("export/filenameaddnumbercameranodigits", 0);
        m_host.settings().setValue("export/filenameaddnumberheadnodigits", 0);
        m_host.settings().setValue("export/filenameaddnumbersessionnodigits", 6);
        for (int number = 1; number <= Files; ++number) {
            const QString path =
                m_dir.path() + QStringLiteral("/Shot_S%1.bmp").arg(number, 6, 10, QLatin1Char('0'));
            ::close(creat(QFile::encodeName(path).constData(), 0644));
        }
        const PageEntry &page = PageCatalogue::page(QStringLiteral("exportdialog"));
        m_dialog = page.make(m_host, page, nullptr);
        m_dialog->setFixedSize(page.size);
        m_view = m_dialog->findChild<GUI_WebView *>();
        m_dialog->show();
        waitFor("document.readyState === 'complete' && document.body.classList.contains('light')");
        m_dialog->activateWindow();
        m_view->setFocus();
        script("SavePage.pause = 0; var field = document.getElementById('fileName');"
               "field.focus(); field.setSelectionRange(9, 9); 0");
        waitForPath(ShorterPath);
    }

    /// Types the letter that makes the name that of the files, in another case, and takes it back;
    /// the time from the key to the text on the page.
    double type()
    {
        const auto start = std::chrono::steady_clock::now();
        press(Qt::Key_T, QStringLiteral("T"));
        waitForPath(TypedPath);
        const Seconds taken = std::chrono::steady_clock::now() - start;
        press(Qt::Key_Backspace, QString());
        waitForPath(ShorterPath);
        return taken.count();
    }

    /// What that asks, from script alone.
    double ask()
    {
        const auto start = std::chrono::steady_clock::now();
        script("Page.bridge.setPrefString('export/filename', 'ShoT', false);"
               "savePreview.path(1, '1', 1, [], savePreview.now());"
               "savefile.getFreeSpace(document.getElementById('folder').value); 0");
        const Seconds taken = std::chrono::steady_clock::now() - start;
        script("Page.bridge.setPrefString('export/filename', 'Sho', false); 0");
        return taken.count();
    }

private:
    QVariant script(const QString &text)
    {
        return m_view->page()->mainFrame()->evaluateJavaScript(text);
    }

    void waitFor(const QString &condition)
    {
        while (!script(condition).toBool())
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

    void waitForPath(const QString &path)
    {
        waitFor("document.getElementById('path').dataset.path.slice(-" +
                QString::number(path.size()) + ") === '" + path + "'");
    }

    void press(int key, const QString &text)
    {
        QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier, text);
        QKeyEvent up(QEvent::KeyRelease, key, Qt::NoModifier, text);
        QApplication::sendEvent(m_view, &down);
        QApplication::sendEvent(m_view, &up);
    }

    QTemporaryDir m_dir;
    StandInHost m_host;
    PageDialogs m_dialogs;
    std::unique_ptr<QDialog> m_dialog;
    GUI_WebView *m_view = nullptr;
};

}

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    qInstallMessageHandler(dropMessages);
    SavePage page;
    BenchRatios ratios;
    ratios.addTimedByItself(
        "save page, key to path among 10,000 files", 1.2,
        [&page](benchmark::State &state) {
            for (auto _ : state)
                state.SetIterationTime(page.type());
        },
        [&page](benchmark::State &state) {
            for (auto _ : state)
                state.SetIterationTime(page.ask());
        });
    return ratios.run(argc, argv);
}
