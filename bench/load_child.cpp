// Loads libraries in a process that has none of them yet, and says how long that took.
//
// load_child LIBRARY...: the time to load them, in nanoseconds.
// load_child LIBRARY... --tool MODULE: the same, and to the module's first tool and its end.

#include "contract/PLG_Interface.h"

#include <dlfcn.h>

#include <chrono>
#include <cstdio>
#include <cstring>

namespace {

using MakeButtonPlugin = PLG_Interface *(*)();

void *load(const char *library)
{
    void *handle = dlopen(library, RTLD_NOW | RTLD_GLOBAL);
    if (!handle)
        std::fprintf(stderr, "%s\n", dlerror());
    return handle;
}

bool makeAndDeleteTool(const char *module)
{
    void *handle = load(module);
    if (!handle)
        return false;
    void *symbol = dlsym(handle, "makeButtonPlugin");
    if (!symbol) {
        std::fprintf(stderr, "%s\n", dlerror());
        return false;
    }
    MakeButtonPlugin make = nullptr;
    std::memcpy(&make, &symbol, sizeof make);
    PLG_Interface *tool = make();
    const bool made = tool != nullptr;
    delete tool;
    return made;
}

}

int main(int argc, char **argv)
{
    const auto begin = std::chrono::steady_clock::now();
    for (int i = 1; i < argc; ++i) {
        const bool isTool = std::strcmp(argv[i], "--tool") == 0;
        if (isTool ? i + 1 >= argc || !makeAndDeleteTool(argv[i + 1]) : !load(argv[i]))
            return 1;
        if (isTool)
            ++i;
    }
    const auto end = std::chrono::steady_clock::now();
    std::printf("%lld\n",
                static_cast<long long>(
                    std::chrono::duration_cast<std::chrono::nanoseconds>(end - begin).count()));
    return 0;
}
