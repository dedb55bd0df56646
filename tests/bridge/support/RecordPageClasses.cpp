#include "record/format/GUI_FrameFormatDialog.h"
#include "record/format/GUI_RecordRateFormatDialog.h"
#include "record/format/GUI_RectimeFormatDialog.h"
#include "record/format/GUI_ShutterSpeedFormatDialog.h"
#include "record/format/JS_Mediator_FrameFormatDialog.h"
#include "record/format/JS_Mediator_RecordRateFormatDialog.h"
#include "record/format/JS_Mediator_RectimeFormatDialog.h"
#include "record/format/JS_Mediator_ShutterSpeedFormatDialog.h"
#include "tests/bridge/support/FaultMatrix.h"

// The classes of record/.

namespace {

template <class Class> PageClass ofHost()
{
    return {&Class::staticMetaObject,
            [](StandInHost &host) -> QObject * { return new Class(&host); },
            {}};
}

}

QVector<PageClass> recordPageClasses()
{
    return {
        ofHost<GUI_FrameFormatDialog>(),           ofHost<GUI_RecordRateFormatDialog>(),
        ofHost<GUI_RectimeFormatDialog>(),         ofHost<GUI_ShutterSpeedFormatDialog>(),
        ofHost<JS_Mediator_FrameFormatDialog>(),   ofHost<JS_Mediator_RecordRateFormatDialog>(),
        ofHost<JS_Mediator_RectimeFormatDialog>(), ofHost<JS_Mediator_ShutterSpeedFormatDialog>(),
    };
}
