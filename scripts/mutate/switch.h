// The switch of the changes that are compiled into a source file. Its text stands at the top of
// each such file, behind the definitions of ORVIX_FILE and ORVIX_COUNT, so that every copy of the
// library in a process reads the environment for itself:
//
// ORVIX_MUTANT=FILE:NUMBER     the one change that holds in this process
// ORVIX_MUTANTS_REACHED=PATH   gets a line "FILE:NUMBER FUNCTION" for each change that a test
//                              function reaches, without FUNCTION outside of them
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <cstring>

// What is odd about a change is its point.
#pragma GCC diagnostic ignored "-Waddress"
#pragma GCC diagnostic ignored "-Warray-bounds"
#pragma GCC diagnostic ignored "-Wbool-compare"
#pragma GCC diagnostic ignored "-Wdangling-else"
#pragma GCC diagnostic ignored "-Wdiv-by-zero"
#pragma GCC diagnostic ignored "-Wempty-body"
#pragma GCC diagnostic ignored "-Wimplicit-fallthrough"
#pragma GCC diagnostic ignored "-Wint-in-bool-context"
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#pragma GCC diagnostic ignored "-Wnarrowing"
#pragma GCC diagnostic ignored "-Wnonnull"
#pragma GCC diagnostic ignored "-Woverflow"
#pragma GCC diagnostic ignored "-Wparentheses"
#pragma GCC diagnostic ignored "-Wsign-compare"
#pragma GCC diagnostic ignored "-Wstringop-overflow"
#pragma GCC diagnostic ignored "-Wstringop-overread"
#pragma GCC diagnostic ignored "-Wtautological-compare"
#pragma GCC diagnostic ignored "-Wtype-limits"
#pragma GCC diagnostic ignored "-Wuninitialized"
#pragma GCC diagnostic ignored "-Wunused-value"

extern "C" void *dlsym(void *, const char *) noexcept;

namespace {

namespace OrvixMutants {

constexpr char File[] = ORVIX_FILE;
constexpr int Count = ORVIX_COUNT;

// What the environment asks of this file, besides the number of a change.
enum : int { Unread = -3, Nothing = -2, Record = -1 };

std::atomic<int> wish{Unread};

int read()
{
    int result = Nothing;
    const char *mutant = std::getenv("ORVIX_MUTANT");
    const std::size_t length = sizeof File - 1;
    if (mutant && std::strncmp(mutant, File, length) == 0 && mutant[length] == ':')
        result = std::atoi(mutant + length + 1);
    else if (std::getenv("ORVIX_MUTANTS_REACHED"))
        result = Record;
    wish.store(result, std::memory_order_relaxed);
    return result;
}

// Writes a change down once for each test function.
void record(int number)
{
    using CurrentFunction = const char *(*)();
    static const auto current =
        reinterpret_cast<CurrentFunction>(dlsym(nullptr, "_ZN5QTest19currentTestFunctionEv"));
    static std::FILE *const reached = std::fopen(std::getenv("ORVIX_MUTANTS_REACHED"), "ae");
    static std::atomic<std::size_t> last[Count];

    const char *function = current ? current() : nullptr;
    std::size_t sum = 5381;
    for (const char *letter = function; letter && *letter; ++letter)
        sum = sum * 33 + static_cast<unsigned char>(*letter);
    if (last[number].exchange(sum, std::memory_order_relaxed) == sum || !reached)
        return;
    std::fprintf(reached, "%s:%d %s\n", File, number, function ? function : "");
    std::fflush(reached);
}

}

inline bool orvixMutant(int number)
{
    int wish = OrvixMutants::wish.load(std::memory_order_relaxed);
    if (wish == OrvixMutants::Nothing)
        return false;
    if (wish == OrvixMutants::Unread)
        wish = OrvixMutants::read();
    if (wish == OrvixMutants::Record)
        OrvixMutants::record(number);
    return wish == number;
}

}
