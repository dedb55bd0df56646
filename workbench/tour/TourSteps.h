#pragma once

#include "contract/HostTypes.h"

#include <QString>

#include <functional>

class DocumentView;
class GUI_ModelessPatternDialog;
class GUI_WebView;
class MainWindow;
class PLG_Interface;
class QAction;
class QComboBox;
class QPoint;
class QRect;
class QWebView;
class QWidget;
class StandInHost;
class TourReport;
class Workbench;

/// The steps of the walk-through, in the order of their use. Each does what a user would do and
/// tells the report what came of it. A step whose means are missing fails its checks and goes on.
class TourSteps
{
public:
    /// `folder` is for files of the walk-through's own.
    TourSteps(Workbench &workbench, TourReport &report, const QString &folder);

    /// All of them.
    void walk();

private:
    // TourSteps.cpp: what all steps use.
    void step(const QString &name, const QString &title, const std::function<void()> &body);
    void check(bool seen, const QString &what);
    void compare(const QString &seen, const QString &expected, const QString &what);
    void pressAction(const char *name);
    void pressTool();
    void chooseView(int index);
    void chooseSetting(const char *box, const QString &value);
    void compareSettings(int camera, const QString &shutter, const QString &recordRate);
    void checkLock(bool locked, int cameras);
    PLG_Interface *lockTool() const;
    QAction *lockAction() const;
    QWidget *buttonOf(const QAction *action) const;
    DocumentView *viewAt(int index) const;
    bool isToolChecked() const;
    bool logHolds(const QString &text) const;
    int callsOf(const QString &call) const;

    // TourStepsLock.cpp: live cameras and the lock.
    void opens();
    void loadsTheTool();
    void choosesACamera();
    void setsACameraAlone();
    void locksTheCameras();
    void carriesTheShutter();
    void carriesTheRecordRate();
    void carriesToAThirdCamera();
    void undoesAndRedoes();
    void movesByKeys();
    void releasesTheCameras();
    void followsAReleaseElsewhere();

    // TourStepsRecording.cpp: recordings in cameras and files.
    void showsTheMemory();
    void saysThatNoRecordingIsOpen();
    void opensAFolder();
    void movesInARecording();
    void playsARecording();
    void tellsThatAFolderHasNoPictures();
    void closesARecording();

    // TourStepsRegion.cpp: the region that the cameras read out.
    PLG_Interface *regionTool() const;
    void regionStep(const QString &name, const QString &title, const std::function<void()> &body);
    void pressRegionTool();
    QRect regionInView() const;
    void turnPicture(int quarterTurns, bool horizontally, bool vertically);
    void dragsHandle(const QString &handle, const QPoint &direction, bool outward);
    void opensTheRegion();
    void dragsEveryHandle();
    void movesTheRegionByKeys();
    void setsTheRegionInItsPanel();
    void carriesTheRegionToLockedCameras();
    void showsTheRegionInTheDark();

    // TourStepsPages.cpp: panels, dialogs and lists that are pages.
    void clickInPage(QWebView *view, const QString &selector, const QString &what);
    void visitDialog(const QString &menu, const QString &entry, const QString &picture,
                     const std::function<void(GUI_WebView *)> &body);
    void choosesInTheDeviceList();
    void commandsFromTheStatus();
    void choosesAPartition();
    void reloadsTheViews();
    void changesPreferences();
    void showsAboutAndEthernet();
    void writesASupportFile();
    void showsDarkPages();

    // TourStepsNote.cpp: a tool with a dialog beside the window.
    PLG_Interface *noteTool() const;
    GUI_ModelessPatternDialog *noteDialog() const;
    GUI_WebView *notePage() const;
    bool openNote();
    void closeNote();
    void activateNote();
    void typeNote(const QString &text);
    void chooseNote(int index, const QString &note);
    void addNotePicture(const QString &suffix);
    void writesNotes();
    void showsNoNote();

    // TourStepsWindow.cpp: tools that fail, log, style.
    void reportsABrokenTool();
    void dismissesTheNotice();
    void filtersTheLog();
    void showsTheHostCalls();
    void showsNoCamera();
    void turnsDark();
    void turnsLight();

    Workbench &m_workbench;
    MainWindow &m_window;
    StandInHost &m_host;
    TourReport &m_report;
    QString m_folder;
};
