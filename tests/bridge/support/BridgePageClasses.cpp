#include "bridge/dialog/GUI_EmbeddedWidget.h"
#include "bridge/dialog/GUI_MarqueeProgressDialog.h"
#include "bridge/dialog/GUI_ModelessPatternDialog.h"
#include "bridge/dialog/GUI_PageDialog.h"
#include "bridge/dialog/GUI_QFileDialog.h"
#include "bridge/dialog/GUI_SyncProgress.h"
#include "bridge/mediator/JS_Mediator_ModelessPatternDialog.h"
#include "bridge/mediator/JS_Mediator_Page.h"
#include "bridge/mediator/JS_Mediator_Plugin.h"
#include "bridge/operation/FileChoice.h"
#include "bridge/page/GUI_WebPage.h"
#include "bridge/page/GUI_WebView.h"
#include "plugin/PLG_Common.h"
#include "tests/bridge/support/FaultMatrix.h"

// The classes of bridge/, and the base of tools, whose slots a dialog's page reaches.

namespace {

const QString Name = QStringLiteral("page");
const QString NoPage = QStringLiteral("about:blank");

/// A tool's mediator as a tool writes it.
class ToolMediator : public JS_Mediator_Plugin
{
public:
    using JS_Mediator_Plugin::JS_Mediator_Plugin;

    QString name() override { return Name; }
    QString uiName() override { return translate(Name); }
    void onOpen() override {}
    void onApply() override {}
    void onOK() override {}
    void onCancel() override {}
    void onReset() override {}
    void onClose() override {}
    void onClosed() override {}
    void undo() override {}
    void redo() override {}
    void beginMacro() override {}
    void endMacro() override {}
    bool isCurrentDummy() override { return false; }
    QString getCurrentWindowTitle() override { return QString(); }
};

class PatternMediator : public JS_Mediator_ModelessPatternDialog
{
public:
    using JS_Mediator_ModelessPatternDialog::JS_Mediator_ModelessPatternDialog;

    void onOpen() override {}
    void onClose() override {}
};

class OwnPageDialog : public GUI_PageDialog
{
public:
    explicit OwnPageDialog(HostServices *host) : GUI_PageDialog(host, Name, nullptr)
    {
        loadPage(NoPage);
    }

    void populateJavaScriptWindowObject() override { showToPage(Name); }
};

class DialogTool : public PLG_Common
{
public:
    explicit DialogTool(HostServices *host)
    {
        m_toolName = Name;
        m_suspendsView = true;
        setHost(host);
        ensureDialog(true);
    }

    GUI_ModelessPatternDialog *createModelessPatternDialog(bool) override
    {
        return new GUI_ModelessPatternDialog(m_host, Name, NoPage,
                                             new PatternMediator(m_host, Name), nullptr);
    }
};

template <class Mediator> QObject *makeMediator(StandInHost &host)
{
    return new Mediator(&host, Name);
}

template <class Dialog> QObject *makeDialog(StandInHost &)
{
    return new Dialog(nullptr, Qt::WindowCloseButtonHint, true);
}

template <class Dialog> QObject *makePageDialog(StandInHost &host)
{
    return new Dialog(&host, Name, NoPage, new JS_Mediator_Dialog(&host, Name), nullptr);
}

QObject *makeSelected(StandInHost &)
{
    return new GUI_QFileDialog;
}

QVector<SlotCase> mediatorCases()
{
    const auto fileMode = [](FaultScene &scene) { scene.host.setMode(StandInHost::Mode::File); };
    const auto metric = [](FaultScene &scene) {
        scene.host.settings().setValue("customize/unitSystem", 1);
    };
    const auto noDeviceName = [](FaultScene &scene) {
        scene.host.camera(1)->state().deviceName.clear();
    };
    const auto notFound = [](FaultScene &scene) { scene.host.camera(1)->state().isFound = false; };
    const auto fileChosen = [](FaultScene &scene) {
        scene.host.answerConfirm(true);
        FileChoice::setAnswer(
            [](const FileChoice::Question &) { return QStringList(QStringLiteral("/o/s.zip")); });
    };
    const auto cancelled = [](FaultScene &) {
        FileChoice::setAnswer([](const FileChoice::Question &) { return QStringList(); });
    };
    return {
        {"openPlugin(QString)", {"binning"}, {}},
        {"openPlugin(QString)", {"binning"}, fileMode},
        {"openPrefsDialog(QString)", {"display"}, fileMode},
        {"getDeviceInfoList(bool)", {true}, fileMode},
        {"getDeviceInfoList(bool)", {true}, notFound},
        {"getDeviceInfoList(bool)", {false}, noDeviceName},
        {"getControlStatus(DOC_Interface*)", {2}, {}},
        {"setSelectDoc(QString)", {"no number"}, {}},
        {"getCalibrationUnits()", {}, metric},
        {"setPrefInt(QString,int,bool)", {"a/b", 1, false}, {}},
        {"setPrefBool(QString,bool,bool)", {"a/b", true, false}, {}},
        {"setPrefFloat(QString,double,bool)", {"a/b", 1.5, false}, {}},
        {"setPrefString(QString,QString,bool)", {"a/b", "c", false}, {}},
        {"setPrefDQString(QString,QString,bool)", {"a/b", "c", false}, {}},
        {"openExportSupportFileDialog()", {}, fileChosen},
        {"openExportSupportFileDialog()", {}, cancelled},
    };
}

}

QVector<PageClass> bridgePageClasses()
{
    return {
        {&JS_Mediator::staticMetaObject, makeMediator<JS_Mediator>, mediatorCases()},
        {&JS_Mediator_Page::staticMetaObject, makeMediator<JS_Mediator_Page>, {}},
        {&JS_Mediator_Plugin::staticMetaObject, makeMediator<ToolMediator>, {}},
        {&JS_Mediator_Dialog::staticMetaObject, makeMediator<JS_Mediator_Dialog>, {}},
        {&JS_Mediator_ModelessPatternDialog::staticMetaObject, makeMediator<PatternMediator>, {}},
        {&GUI_Dialog::staticMetaObject, makeDialog<GUI_Dialog>, {}},
        {&GUI_ProgressDialog::staticMetaObject, makeDialog<GUI_ProgressDialog>, {}},
        {&GUI_MarqueeProgressDialog::staticMetaObject, makeDialog<GUI_MarqueeProgressDialog>, {}},
        {&GUI_SyncProgress::staticMetaObject, makeDialog<GUI_SyncProgress>, {}},
        {&GUI_WebViewDialog::staticMetaObject, makePageDialog<GUI_WebViewDialog>, {}},
        {&GUI_ModelessPatternDialog::staticMetaObject,
         makePageDialog<GUI_ModelessPatternDialog>,
         {}},
        {&GUI_PageDialog::staticMetaObject,
         [](StandInHost &host) -> QObject * { return new OwnPageDialog(&host); },
         {}},
        {&GUI_WebView::staticMetaObject,
         [](StandInHost &host) -> QObject * { return new GUI_WebView(&host, nullptr); },
         {}},
        {&GUI_WebPage::staticMetaObject,
         [](StandInHost &host) -> QObject * { return new GUI_WebPage(&host, nullptr); },
         {}},
        {&GUI_QFileDialog::staticMetaObject, makeSelected, {}},
        {&GUI_EmbeddedWidget::staticMetaObject,
         [](StandInHost &) -> QObject * { return new GUI_EmbeddedWidget; },
         {}},
        {&PLG_Common::staticMetaObject,
         [](StandInHost &host) -> QObject * { return new DialogTool(&host); },
         {}},
    };
}
