#pragma once

#include "bridge/mediator/JS_Mediator.h"

/// What a plain page sees: the slots of JS_Mediator, under a class of its own.
class JS_Mediator_Page : public JS_Mediator
{
    Q_OBJECT

public:
    using JS_Mediator::JS_Mediator;
};
