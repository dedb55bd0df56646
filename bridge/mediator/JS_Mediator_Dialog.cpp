#include "bridge/mediator/JS_Mediator_Dialog.h"

int JS_Mediator_Dialog::getHeight()
{
    return m_height;
}

int JS_Mediator_Dialog::getWidth()
{
    return m_width;
}

void JS_Mediator_Dialog::setWantedSize(int width, int height)
{
    m_width = width;
    m_height = height;
}
