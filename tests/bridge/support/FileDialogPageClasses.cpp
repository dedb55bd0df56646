#include "bridge/operation/FileChoice.h"
#include "save/convert/GUI_ConvertParameterEditDialog.h"
#include "save/convert/JS_Mediator_ConvertParameterEditDialog.h"
#include "save/dialog/GUI_FileSaveDialog.h"
#include "save/dialog/JS_Mediator_FileDialog.h"
#include "save/dialog/JS_Mediator_FileSaveDialog.h"
#include "tests/bridge/support/FaultMatrix.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

// The classes of save dialogs.

namespace {

// The user chooses a folder with a recording in it.
void chooseRecordings()
{
    static const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("shot.rih")));
    if (!file.open(QIODevice::WriteOnly))
        qFatal("%s cannot be written", qPrintable(file.fileName()));
    FileChoice::setAnswer(
        [path = folder.path()](const FileChoice::Question &) { return QStringList(path); });
}

QObject *makeFileDialogMediator(StandInHost &host)
{
    chooseRecordings();
    auto *page = new JS_Mediator_FileDialog(&host, QStringLiteral("filesavedialog"));
    page->setSelectDocKey(1);
    return page;
}

QObject *makeFileSaveMediator(StandInHost &host)
{
    return new JS_Mediator_FileSaveDialog(&host, QStringLiteral("filesavedialog"));
}

// A page finds it by its mediator, whose signals reach the dialog.
QObject *makeFileSaveDialog(StandInHost &host)
{
    return new GUI_FileSaveDialog(&host, QStringLiteral("Export"), QStringLiteral("about:blank"),
                                  QStringLiteral("filesavedialog"), nullptr);
}

QObject *makeConvertMediator(StandInHost &host)
{
    return new JS_Mediator_ConvertParameterEditDialog(&host, {1, QStringLiteral("2")}, 1, 2);
}

QObject *makeConvertDialog(StandInHost &host)
{
    return new GUI_ConvertParameterEditDialog(&host, nullptr, {1}, 1, 1);
}

// Two recordings in memory, with everything that a path can be made of.
void record(FaultScene &scene)
{
    scene.host.setMode(StandInHost::Mode::Memory);
    scene.host.state().openedKeys = {1, 2};
    scene.host.state().temporaryKeys = {2, 1};
    for (DOCKEY key : {1, 2}) {
        DocumentState &state = scene.host.camera(key)->state();
        state.partitions = {{1, QStringLiteral("P1"), 10, 1000},
                            {2, QStringLiteral("P2"), 20, 500}};
        state.infoMap = {{"partitions", QVariantList({QVariantMap{{"totalframesplain", 10}},
                                                      QVariantMap{{"totalframesplain", 20}}})}};
        state.nameAddition = QStringLiteral("S%1");
    }
    for (const char *setting : {"export/groupdir", "export/groupdirasfilename", "export/subdir",
                                "export/subdirasfilename", "recording/LoopRecord"})
        scene.host.settings().setValue(QLatin1String(setting), true);
    scene.host.settings().setValue("export/filename", "Shot");
}

void besideTheOriginal(FaultScene &scene)
{
    record(scene);
    scene.host.settings().setValue("convert/dirasoriginal", true);
}

void openFiles(FaultScene &scene)
{
    record(scene);
    scene.host.setMode(StandInHost::Mode::File);
    for (DOCKEY key : {1, 2})
        scene.host.camera(key)->state().documentKind = 2;
}

void convert(FaultScene &scene)
{
    record(scene);
    scene.host.state().isConverting = true;
}

void skipInTime(FaultScene &scene)
{
    record(scene);
    scene.host.settings().setValue("export/skipunit", 1);
    scene.host.settings().setValue("export/skipsavemsec", 1000000.0);
}

QVector<SlotCase> fileDialogCases()
{
    const QVariantList both = {1, QStringLiteral("2")};
    const QVariantMap targets = {{"1", QVariantList({1, 2})}, {"2", QVariantList({1})}};
    return {
        {"openFolder()", {}, record},
        {"openCustumTimeCodeDialog()", {}, convert},
        {"openConvertParameterEditDialog(QVariantList)", {QVariant(both)}, besideTheOriginal},
        {"openConvertParameterEditDialog(QVariantList)", {QVariant(both)}, convert},
        {"importTarget(QVariantList)", {QVariant(both)}, record},
        {"list(bool)", {true}, record},
        {"list(bool)", {true}, openFiles},
        {"list(bool)", {false}, openFiles},
        {"list()", {}, record},
        {"select(DOCKEY,PARTITIONNUMBER,int,int)", {2, 1, 16, 16}, record},
        {"saveInfoView(QVariantList)", {QVariant(both)}, record},
        {"saveInfoView(QVariantList)", {QVariant(both)}, convert},
        {"getExportPath()", {}, record},
        {"getExportFile()", {}, record},
        {"getExportGroupDir(DOCKEY,PARTITIONNUMBER)", {2, 1}, record},
        {"getExportGroupDir()", {}, record},
        {"getExportSubDir()", {}, record},
        {"setSkipFrames(double)", {3.0}, skipInTime},
        {"getSkipFrames()", {}, skipInTime},
        {"refreshSkipFrame(QVariantMap)", {targets}, record},
        {"refreshSkipFrame(QVariantMap)", {targets}, skipInTime},
    };
}

}

QVector<PageClass> fileDialogPageClasses()
{
    return {
        {&GUI_ConvertParameterEditDialog::staticMetaObject, makeConvertDialog, {}},
        {&GUI_FileSaveDialog::staticMetaObject, makeFileSaveDialog, {}},
        {&JS_Mediator_ConvertParameterEditDialog::staticMetaObject,
         makeConvertMediator,
         {{"getExportPath()", {}, besideTheOriginal}}},
        {&JS_Mediator_FileDialog::staticMetaObject, makeFileDialogMediator, fileDialogCases()},
        {&JS_Mediator_FileSaveDialog::staticMetaObject, makeFileSaveMediator, {}},
    };
}
