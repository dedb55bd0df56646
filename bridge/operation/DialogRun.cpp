#include "bridge/operation/DialogRun.h"

#include <QDialog>

namespace {

DialogRun::Answer &presetAnswer()
{
    static DialogRun::Answer answer;
    return answer;
}

}

namespace DialogRun {

int exec(QDialog &dialog)
{
    return presetAnswer() ? presetAnswer()(dialog) : dialog.exec();
}

void setAnswer(const Answer &answer)
{
    presetAnswer() = answer;
}

}
