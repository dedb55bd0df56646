#pragma once

class HostServices;

class Door
{
public:
    virtual ~Door() = default;

    virtual bool isLocked();
    void enter(HostServices *host);
    bool leave();

    bool m_locked = false;
};

int countDown(int from);
int valueAt(const int *place);
int price(int persons);
const char *label();
