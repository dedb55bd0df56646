#include "save/dialog/JS_Mediator_SaveFile.h"
#include "save/number/GUI_AddNumberDialog.h"
#include "save/number/JS_Mediator_AddNumberDialog.h"
#include "tests/bridge/support/FaultMatrix.h"

// The classes of save/ that stand for the settings of a page.

namespace {

QObject *makeSaveFile(StandInHost &host)
{
    auto *mediator = new JS_Mediator_SaveFile(&host, QStringLiteral("exportdialog"));
    mediator->selectedDocCount(2);
    return mediator;
}

QObject *makeAddNumberDialog(StandInHost &host)
{
    return new GUI_AddNumberDialog(&host, nullptr, 2, 2, 1);
}

QObject *makeAddNumberMediator(StandInHost &host)
{
    return new JS_Mediator_AddNumberDialog(&host, 2, 2, 1);
}

QVector<SlotCase> saveFileCases()
{
    const auto withDestinations = [](FaultScene &scene) {
        scene.host.settings().setValue("export/multipathlist", "A|/a?B|/b");
        scene.host.settings().setValue("export/multipathdevicelist", "S-1024|B");
    };
    const auto withFiles = [](FaultScene &scene) { scene.host.setMode(StandInHost::Mode::File); };
    const auto withoutFileName = [](FaultScene &scene) {
        for (int group = 0; group < 7; ++group)
            scene.host.settings().setValue("saveinfo/display" + QString::number(group),
                                           "Date:true");
    };
    return {
        {"addNumber4GroupDir()", {}, withFiles},
        {"isRawFormat(QString)", {"Raww"}, {}},
        {"editCustom(bool)", {true}, {}},
        {"getMultiPaths()", {}, withDestinations},
        {"getMultiPathDevices()", {}, withDestinations},
        {"isNeedRefreshPreview()", {}, withoutFileName},
    };
}

}

QVector<PageClass> saveFilePageClasses()
{
    return {
        {&GUI_AddNumberDialog::staticMetaObject, makeAddNumberDialog, {}},
        {&JS_Mediator_AddNumberDialog::staticMetaObject, makeAddNumberMediator, {}},
        {&JS_Mediator_SaveFile::staticMetaObject, makeSaveFile, saveFileCases()},
    };
}
