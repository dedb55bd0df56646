#include "record/comment/GUI_CommentDialog.h"
#include "record/format/GUI_FrameFormatDialog.h"
#include "record/format/GUI_RecordRateFormatDialog.h"
#include "record/format/GUI_RectimeFormatDialog.h"
#include "record/format/GUI_ShutterSpeedFormatDialog.h"
#include "record/format/JS_Mediator_FrameFormatDialog.h"
#include "record/format/JS_Mediator_RecordRateFormatDialog.h"
#include "record/format/JS_Mediator_RectimeFormatDialog.h"
#include "record/format/JS_Mediator_ShutterSpeedFormatDialog.h"
#include "record/timecode/GUI_TimeCodeCustomDialog.h"
#include "tests/bridge/support/FaultMatrix.h"

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

template <class Class> PageClass ofHost()
{
    return {&Class::staticMetaObject, make<Class>, {}};
}

}

QVector<PageClass> recordPageClasses()
{
    return {
        ofHost<GUI_CommentDialog>(),
        {&GUI_TimeCodeCustomDialog::staticMetaObject, makeTimeCodeDialog, {}},
        ofHost<GUI_FrameFormatDialog>(),
        ofHost<GUI_RecordRateFormatDialog>(),
        ofHost<GUI_RectimeFormatDialog>(),
        ofHost<GUI_ShutterSpeedFormatDialog>(),
        ofHost<JS_Mediator_FrameFormatDialog>(),
        ofHost<JS_Mediator_RecordRateFormatDialog>(),
        ofHost<JS_Mediator_RectimeFormatDialog>(),
        ofHost<JS_Mediator_ShutterSpeedFormatDialog>(),
    };
}
