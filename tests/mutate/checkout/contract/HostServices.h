#pragma once

class HostServices
{
public:
    virtual void open() = 0;
    virtual void ring() = 0;

protected:
    ~HostServices() = default;
};
