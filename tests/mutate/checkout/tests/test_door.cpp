#include "contract/HostServices.h"
#include "part/Door.h"

#include <string>

bool isOpenAt(int hour);

struct Host final : HostServices
{
    void open() override { story += "open "; }
    void ring() override { story += "ring "; }

    std::string story;
};

struct LockedDoor final : Door
{
    bool isLocked() override { return true; }
};

int main()
{
    Host host;
    Host other;
    Door().enter(&host);
    LockedDoor().enter(&other);
    const int seven = 7;
    const bool passes = host.story == "open ring " && other.story.empty() && countDown(3) == 3 &&
                        valueAt(nullptr) == 0 && valueAt(&seven) == 7 && price(1) == 6 &&
                        price(3) == 8 && label() == nullptr && isOpenAt(10);
    return passes ? 0 : 1;
}
