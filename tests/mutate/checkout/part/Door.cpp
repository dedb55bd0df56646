#include "part/Door.h"

#include "contract/HostServices.h"

#define NOTHING 0

namespace {

constexpr int Fee = 3;

constexpr int twice(int value)
{
    return value + value;
}

template <typename Value> Value next(Value value)
{
    return value + 1;
}

// Runs before main does.
const int early = countDown(2);

}

bool Door::isLocked()
{
    return m_locked;
}

void Door::enter(HostServices *host)
{
    if (isLocked()) // a comment goes
        return;
    host->open();
    host->ring();
}

bool Door::leave()
{
    return NOTHING == 0 && !m_locked;
}

int countDown(int from)
{
    int steps = 0;
    while (from > 0) {
        --from;
        ++steps;
    }
    return steps;
}

int valueAt(const int *place)
{
    if (!place)
        return NOTHING;
    return *place;
}

int price(int persons)
{
    int sum = twice(Fee);
    switch (persons) {
    case 1:
        sum -= 2;
        break;
    case 2:
        sum = next(sum);
        break;
    }
    return sum + early;
}

const char *label()
{
    const char *none = 0;
    return none;
}
