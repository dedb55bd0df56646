#include "bridge/operation/FileChoice.h"
#include "record/comment/GUI_CommentDialog.h"
#include "record/display/GUI_EditInfoDialog.h"
#include "record/format/GUI_FrameFormatDialog.h"
#include "record/format/GUI_RecordRateFormatDialog.h"
#include "record/format/GUI_RectimeFormatDialog.h"
#include "record/format/GUI_ShutterSpeedFormatDialog.h"
#include "record/format/JS_Mediator_FrameFormatDialog.h"
#include "record/format/JS_Mediator_RecordRateFormatDialog.h"
#include "record/format/JS_Mediator_RectimeFormatDialog.h"
#include "record/format/JS_Mediator_ShutterSpeedFormatDialog.h"
#include "record/info/GUI_CustomInfoDialog.h"
#include "record/info/JS_Mediator_CustomInfoDialog.h"
#include "record/timecode/GUI_TimeCodeCustomDialog.h"
#include "tests/bridge/support/FaultMatrix.h"

#include <QFile>
#include <QTemporaryDir>

// The classes of record/.

namespace {

template <class Class> QObject *make(StandInHost &host)
{
    return new Class(&host);
}

QObject *makeTimeCodeDialog(StandInHost &host)
{
    return new GUI_TimeCodeCustomDialog(&host, nullptr);
}

QObject *makeCustomInfoDialog(StandInHost &host)
{
    return new GUI_CustomInfoDialog(&host, nullptr, false);
}

// The user chooses a file that can be read, which saving replaces.
QObject *makeCustomInfoMediator(StandInHost &host)
{
    static const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("job.xml")));
    if (!file.open(QIODevice::WriteOnly) || file.write("<job><Speed>3</Speed></job>") < 0)
        qFatal("%s cannot be written", qPrintable(file.fileName()));
    FileChoice::setAnswer(
        [path = file.fileName()](const FileChoice::Question &) { return QStringList(path); });
    return new JS_Mediator_CustomInfoDialog(&host, nullptr, false);
}

QVector<SlotCase> customInfoCases()
{
    const auto recorded = [](FaultScene &scene) {
        for (DOCKEY key : {1, 2}) {
            scene.host.camera(key)->state().customInfo = {
                QVariantMap{{"name", "Speed"}, {"value", "3"}, {"display", "on"}},
                QVariantMap{{"name", "TestNo"}, {"value", "7"}, {"usefilename", "on"}}};
        }
    };
    const QVariantList both = {1, QStringLiteral("2")};
    const QVariantMap speed = {{"oldname", "Speed"}, {"name", "Pace"}, {"value", "4"}};
    const QVariantList customs = {QVariantMap{{"name", "Speed"}, {"selected", true}},
                                  QVariantMap{{"name", "Comments"}, {"value", "text"}}};
    return {
        {"cancel()", {}, recorded},
        {"getCustomInfo(DOCKEY)", {2}, recorded},
        {"load(QVariantList)", {QVariant(both)}, recorded},
        {"deleteCustomData(QVariantList,QVariantList)", {both, customs}, recorded},
        {"restoreCustomData(QVariantList,QVariantList)", {both, customs}, recorded},
        {"editCustomData(QVariantList,QVariant)", {both, speed}, recorded},
        {"addCustomData(QVariantList,QVariant)", {both, speed}, recorded},
        {"enableCustomData(QVariantList,QVariantList)", {both, customs}, recorded},
    };
}

// Set together, the groups need the save form.
bool isForSaving(StandInHost &host)
{
    return host.settings().value("saveinfo/collectiveSetting", QVariant()).toBool();
}

DOC_Interface *documentOf(StandInHost &host, DOCKEY key)
{
    StandInCamera *camera = host.camera(key);
    return camera ? camera->contract() : nullptr;
}

QObject *makeEditInfoDialog(StandInHost &host)
{
    return new GUI_EditInfoDialog(&host, 6, isForSaving(host), documentOf(host, 1), 0,
                                  {documentOf(host, 2)}, QDateTime());
}

QVector<SlotCase> editInfoCases()
{
    const auto forSaving = [](FaultScene &scene) {
        scene.host.settings().setValue("saveinfo/collectiveSetting", true);
        scene.host.settings().setValue("saveinfo/FixedFontSizeRatio6", true);
        scene.host.settings().setValue("saveinfo/display2", "Comment:true,<hr>,Date:false");
    };
    const auto withFiles = [](FaultScene &scene) {
        scene.host.setMode(StandInHost::Mode::File);
        scene.host.settings().setValue("info/LogoPath", "/logos/old.png");
    };
    return {
        {"getInfoSettingsHtml(int)", {2}, forSaving},
        {"changeDisp(QString,bool,int)", {"Date", true, 2}, forSaving},
        {"changeOrder(QString,int)", {"Date,HR,Comment", 2}, forSaving},
        {"backupFontSettings(int)", {2}, forSaving},
        {"restoreFontSettings()", {}, forSaving},
        {"isCollectiveSetting()", {}, forSaving},
        {"setCollectiveSetting(bool,bool)", {false, true}, forSaving},
        {"getFixedFontSizeRatioBaseResolution(int)", {2}, forSaving},
        {"setFixedFontSizeRatioBaseResolution(QSize,bool)", {QSize(3, 4), true}, forSaving},
        {"setFontName(QString,bool)", {"Serif", true}, forSaving},
        {"getThumbnail(int,int)", {0, 0}, forSaving},
        {"setLogoPath()", {}, withFiles},
        {"writeFontOK()", {}, forSaving},
        {"reset()", {}, forSaving},
        {"cancel()", {}, forSaving},
    };
}

template <class Class> PageClass ofHost()
{
    return {&Class::staticMetaObject, make<Class>, {}};
}

}

QVector<PageClass> recordPageClasses()
{
    return {
        ofHost<GUI_CommentDialog>(),
        {&GUI_CustomInfoDialog::staticMetaObject, makeCustomInfoDialog, {}},
        {&GUI_EditInfoDialog::staticMetaObject, makeEditInfoDialog, editInfoCases()},
        {&GUI_TimeCodeCustomDialog::staticMetaObject, makeTimeCodeDialog, {}},
        ofHost<GUI_FrameFormatDialog>(),
        ofHost<GUI_RecordRateFormatDialog>(),
        ofHost<GUI_RectimeFormatDialog>(),
        ofHost<GUI_ShutterSpeedFormatDialog>(),
        {&JS_Mediator_CustomInfoDialog::staticMetaObject, makeCustomInfoMediator,
         customInfoCases()},
        ofHost<JS_Mediator_FrameFormatDialog>(),
        ofHost<JS_Mediator_RecordRateFormatDialog>(),
        ofHost<JS_Mediator_RectimeFormatDialog>(),
        ofHost<JS_Mediator_ShutterSpeedFormatDialog>(),
    };
}
