// Drives a fuzz target: replays the kept inputs, then runs random ones and random changes of the
// kept ones until the time is over. The options are those of clang's own fuzzer.
//
//     fuzz_region [-max_total_time=SECONDS] [-seed=NUMBER] [FILE or FOLDER]...
//
// A target that finds something ends the process; the input is then in the file "crash-input" of
// the working directory, and can be given as FILE.

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

namespace {

using Input = std::vector<std::uint8_t>;
using Clock = std::chrono::steady_clock;

constexpr std::size_t LongestInput = 512;
const char *const CrashFile = "crash-input";

Input read(const std::filesystem::path &file)
{
    std::ifstream stream(file, std::ios::binary);
    if (!stream) {
        std::fprintf(stderr, "cannot read %s\n", file.c_str());
        std::exit(2);
    }
    return Input(std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>());
}

std::vector<Input> readAll(const std::filesystem::path &path)
{
    std::vector<Input> inputs;
    if (std::filesystem::is_directory(path)) {
        for (const auto &entry : std::filesystem::directory_iterator(path))
            inputs.push_back(read(entry.path()));
    } else {
        inputs.push_back(read(path));
    }
    return inputs;
}

// A process that dies tells nothing, so the input is kept before it runs.
class CrashKeeper
{
public:
    ~CrashKeeper()
    {
        m_file.close();
        std::filesystem::remove(CrashFile);
    }

    void keep(const Input &input)
    {
        m_file.seekp(0);
        m_file.write(reinterpret_cast<const char *>(input.data()),
                     static_cast<std::streamsize>(input.size()));
        m_file.flush();
        std::filesystem::resize_file(CrashFile, input.size());
    }

private:
    std::ofstream m_file{CrashFile, std::ios::binary};
};

class Inputs
{
public:
    Inputs(std::uint64_t seed, std::vector<Input> kept) : m_random(seed), m_kept(std::move(kept)) {}

    Input next()
    {
        Input input;
        if (m_kept.empty() || below(4) == 0)
            input.resize(below(LongestInput));
        else
            input = m_kept[below(m_kept.size())];
        const bool fresh = m_kept.empty() || below(8) == 0;
        for (std::uint8_t &value : input) {
            if (fresh || below(16) == 0)
                value = std::uint8_t(m_random());
        }
        if (!m_kept.empty() && below(4) == 0) {
            const Input &other = m_kept[below(m_kept.size())];
            const std::size_t cut = below(input.size() + 1);
            input.resize(cut);
            input.insert(input.end(), other.begin() + std::ptrdiff_t(below(other.size() + 1)),
                         other.end());
        }
        return input;
    }

private:
    std::size_t below(std::size_t count) { return std::size_t(m_random()) % count; }

    std::mt19937_64 m_random;
    std::vector<Input> m_kept;
};

}

int main(int argc, char *argv[])
{
    LLVMFuzzerInitialize(&argc, &argv);

    double seconds = 10.0;
    std::uint64_t seed = std::random_device()();
    std::vector<Input> kept;
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        if (argument.rfind("-max_total_time=", 0) == 0) {
            seconds = std::atof(argument.c_str() + std::strlen("-max_total_time="));
        } else if (argument.rfind("-seed=", 0) == 0) {
            seed = std::strtoull(argument.c_str() + std::strlen("-seed="), nullptr, 10);
        } else if (argument.rfind('-', 0) == 0) {
            std::fprintf(stderr, "unknown option %s\n", argument.c_str());
            return 2;
        } else {
            for (Input &input : readAll(argument))
                kept.push_back(std::move(input));
        }
    }

    const auto begin = Clock::now();
    const auto elapsed = [begin] {
        return std::chrono::duration<double>(Clock::now() - begin).count();
    };
    CrashKeeper keeper;
    for (const Input &input : kept) {
        keeper.keep(input);
        LLVMFuzzerTestOneInput(input.data(), input.size());
    }
    std::printf("%zu kept inputs\n", kept.size());

    Inputs inputs(seed, kept);
    std::uint64_t runs = 0;
    std::printf("seed %llu, %g seconds\n", static_cast<unsigned long long>(seed), seconds);
    std::fflush(stdout);
    while (elapsed() < seconds) {
        const Input input = inputs.next();
        keeper.keep(input);
        LLVMFuzzerTestOneInput(input.data(), input.size());
        ++runs;
    }
    std::printf("%llu random inputs in %.1f seconds, nothing found\n",
                static_cast<unsigned long long>(runs), elapsed());
    return 0;
}
