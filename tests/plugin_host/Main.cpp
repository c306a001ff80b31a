// plugin_host PLUGIN ENTITIES: loads the minimal plug-in, runs it on the parts of the module of
// entities, unloads both, twice, and checks the files, in a folder that it makes, and what is left
// behind.

#include "Process.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

class ZetNCEntity;

namespace {

using GetHostParts = long(ZetNCEntity* const** parts);
using RunPlugin = int(ZetNCEntity* const* entities, long count, const char* folder);

#if defined(_WIN32)
constexpr const char* kLibrary = "camdata.dll";
#else
constexpr const char* kLibrary = "libcamdata.so";
#endif

struct ExpectedFile {
    const char* name;
    const char* content;
};

// A hole of "Zü1" lies 10 mm from its start, where 15 mm are wanted; "R1" is longer than 12 m.
constexpr ExpectedFile kFiles[] = {
    {"punch.txt",
     "Punch line\n"
     "Zü1 x4 Z200 6000.0\n"
     "  RND 10.0 100.0 18.0\n"
     "  RND 3000.0 100.0 18.0\n"                                           },
    {"info.txt",
     "Members\n"
     "  \n  \n  \n"
     "All\n"
     "R1                  Z200                4   \n"
     "Zü1                 Z200                4   \n"
     "  \n  \n  \n"
     "Errors\n"
     "R1                  Z200                4   \n"
     "  \n  \n  \n"
     "Warnings\n"
     "Zü1                 Z200                4   \n"                     },
    {"errors.txt",
     "Errors\n"
     "Part Number = R1\n"
     "          Section    = Z200\n"
     "          Quantity   = 4\n"
     "          Member length (12500.0) should not be greater than 12000\n"},
    {"warnings.txt",
     "Warnings\n"
     "Part Number = Zü1\n"
     "          Section    = Z200\n"
     "          Quantity   = 4\n"
     "          *Warning in Hole* 18.0 round holes on web at (X:10.0, Y:100.0)\n"
     "                    End distance (10.0) is less than standard\n"     },
};

bool Check(bool holds, const char* what) {
    if (!holds)
        std::fprintf(stderr, "failed: %s\n", what);
    return holds;
}

bool RunOnce(const char* pluginPath,
             const char* entitiesPath,
             const std::filesystem::path& folder) {
    const Module plugin = Load(pluginPath);
    const Module entities = Load(entitiesPath);
    if (plugin == nullptr || entities == nullptr)
        return false;
    const auto getParts = reinterpret_cast<GetHostParts*>(FindFunction(entities, "GetHostParts"));
    const auto run = reinterpret_cast<RunPlugin*>(FindFunction(plugin, "RunNCPlugin"));
    if (!Check(getParts != nullptr && run != nullptr, "both functions are exported"))
        return false;
    ZetNCEntity* const* parts = nullptr;
    const long count = getParts(&parts);
    const int result = run(parts, count, reinterpret_cast<const char*>(folder.u8string().c_str()));
    const bool wasLoaded = IsLoaded(kLibrary);
    Unload(entities);
    Unload(plugin);
    return Check(result == 1, "the run tells that a member is invalid") &&
           Check(wasLoaded, "the library was loaded") &&
           Check(!IsLoaded(kLibrary), "the library is unloaded with the plug-in");
}

bool FileIsAsExpected(const std::filesystem::path& folder, const ExpectedFile& expected) {
    std::ifstream file(folder / expected.name, std::ios::binary);
    const std::string content{std::istreambuf_iterator<char>(file), {}};
    if (content == expected.content)
        return true;
    std::fprintf(stderr, "failed: %s is\n%s", expected.name, content.c_str());
    return false;
}

bool NothingIsLeft(const ProcessState& before) {
    const ProcessState after = CurrentState();
    if (after == before)
        return true;
    std::fprintf(stderr,
                 "failed: threads %ld, handles %ld, windows %ld; before: %ld, %ld, %ld\n",
                 after.threads,
                 after.handles,
                 after.windows,
                 before.threads,
                 before.handles,
                 before.windows);
    return false;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3)
        return std::fprintf(stderr, "usage: plugin_host PLUGIN ENTITIES\n"), 2;
    const std::filesystem::path folder = u8"Tr\u00e4ger und Ma\u00dfe";
    std::filesystem::create_directories(folder);
    bool passed = true;
    for (int round = 0; round < 2 && passed; ++round) {
        const ProcessState before = CurrentState();
        passed = RunOnce(argv[1], argv[2], folder) && NothingIsLeft(before);
        for (const ExpectedFile& file : kFiles)
            passed = FileIsAsExpected(folder, file) && passed;
    }
    if (passed)
        std::printf("plug-in loaded, run and unloaded twice\n");
    return passed ? 0 : 1;
}
