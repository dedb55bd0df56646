#include "FuzzInput.h"

#include "record/timecode/TimeCodeModel.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>

// Random settings of the time code, as a page types them and as they are stored.

namespace {

void require(bool holds, const char *what)
{
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}

QString randomNumber(FuzzInput &input)
{
    switch (input.choice(4)) {
    case 0:
        return QString::number(input.real(), 'g', 17);
    case 1: {
        QString text;
        for (int length = input.choice(12); length > 0; --length)
            text += QChar("0123456789.-+einfa, "[input.choice(20)]);
        return text;
    }
    case 2:
        return QString::number(input.number());
    default:
        return QString::number(input.number() / 10000.0, 'f', 4);
    }
}

TimeCodeRecord randomRecord(FuzzInput &input)
{
    TimeCodeRecord record;
    record.timeCodeIndex = input.number();
    record.displayUnit = randomNumber(input);
    record.oneFrame = input.real();
    record.startValue = input.real();
    record.reset = input.flag();
    record.resetValue = input.real();
    record.scopeDisplayIndex = input.number();
    record.decimalPlaceIndex = input.number();
    record.decimalDivide = input.flag();
    return record;
}

void check(const TimeCodeModel &model)
{
    for (const QString &text : {model.oneFrame, model.startValue, model.resetValue}) {
        bool isNumber = false;
        const double number = text.toDouble(&isNumber);
        require(isNumber && std::isfinite(number), "a text is a number");
    }
    require(model.negative || !model.oneFrame.startsWith('-'), "the sign is told");
    if (model.resetUnitIndex == 0) {
        const double count = model.resetValue.toDouble();
        require(count >= 1.0 && count <= 99999.0, "a number of frames is in its limits");
    }
    const TimeCodeRecord record = model.record();
    require(std::isfinite(record.oneFrame) && std::isfinite(record.startValue) &&
                std::isfinite(record.resetValue),
            "what is stored is finite");
}

void change(TimeCodeModel &model, FuzzInput &input)
{
    switch (input.choice(8)) {
    case 0:
        model.load(randomRecord(input));
        require(model.resetUnitIndex == 0, "a page begins with a number of frames");
        break;
    case 1:
        model.setOneFrame(randomNumber(input));
        break;
    case 2:
        model.setStartValue(randomNumber(input));
        break;
    case 3:
        model.setResetValue(randomNumber(input));
        break;
    case 4:
        model.setResetUnitIndex(input.choice(3) - 1);
        break;
    case 5:
        model.reset = !model.reset;
        break;
    case 6:
        model.load(model.record());
        break;
    default:
        model.timeCodeIndex = input.choice(2);
        model.scopeDisplayIndex = input.choice(8) - 1;
        model.decimalPlaceIndex = input.number();
        model.decimalDivide = input.flag();
        break;
    }
}

}

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    FuzzInput input(data, size);
    TimeCodeModel model;
    for (int step = 0; step < 100 && !input.isAtEnd(); ++step) {
        change(model, input);
        check(model);
        model.updateSample();
        require(model.sample.startsWith(model.negative ? '-' : '+'), "a sample begins with a sign");
        require(model.sample.contains(' '), "a sample has a place for its unit");
    }
    return 0;
}
