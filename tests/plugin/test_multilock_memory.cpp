#include "contract/PLG_Interface.h"
#include "contract/makeButtonPlugin.h"
#include "tests/support/TestLog.h"

#include <cstdlib>
#include <memory>
#include <new>

// The factory when memory runs out at each of its allocations in turn.

namespace {

bool counting = false;
int allocations = 0;
int failingAllocation = 0; // 0: none

void *allocate(std::size_t size)
{
    if (counting && ++allocations == failingAllocation)
        throw std::bad_alloc();
    if (void *memory = std::malloc(size ? size : 1))
        return memory;
    throw std::bad_alloc();
}

PLG_Interface *makeWithFailureAt(int nth)
{
    allocations = 0;
    failingAllocation = nth;
    counting = true;
    PLG_Interface *tool = makeButtonPlugin();
    counting = false;
    return tool;
}

}

void *operator new(std::size_t size)
{
    return allocate(size);
}

void *operator new[](std::size_t size)
{
    return allocate(size);
}

void operator delete(void *memory) noexcept
{
    std::free(memory);
}

void operator delete[](void *memory) noexcept
{
    std::free(memory);
}

void operator delete(void *memory, std::size_t) noexcept
{
    std::free(memory);
}

void operator delete[](void *memory, std::size_t) noexcept
{
    std::free(memory);
}

class TestMultilockMemory : public TestBase
{
    Q_OBJECT

private slots:
    void factoryGivesNullWhenMemoryRunsOut();
};

void TestMultilockMemory::factoryGivesNullWhenMemoryRunsOut()
{
    std::unique_ptr<PLG_Interface> tool(makeWithFailureAt(0));
    QVERIFY(tool != nullptr);
    const int needed = allocations;
    int refused = 0;
    for (int nth = 1; nth <= needed; ++nth) {
        tool.reset(makeWithFailureAt(nth));
        if (!tool)
            ++refused;
        else // the toolkit does without what it could not get
            QCOMPARE(tool->name(), QStringLiteral("t_multilock"));
    }
    QVERIFY(refused >= 4); // the tool, its mutex, the font record, the font
    tool.reset(makeWithFailureAt(needed + 1));
    QVERIFY(tool != nullptr);
}

int main(int argc, char *argv[])
{
    TestMultilockMemory test;
    return runTest(argc, argv, test);
}

#include "test_multilock_memory.moc"
