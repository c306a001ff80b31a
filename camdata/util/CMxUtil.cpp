#include "camdata/util/CMxUtil.h"

#include "camdata/platform/host/HostComError.h"
#include "camdata/platform/host/HostFunctions.h"

#include <iterator>

namespace {

constexpr long kDone = 1;
constexpr long kNotDone = 0;

struct PrintModule {
    const wchar_t* name;
    bool isNarrow;
};

// In the order of the trials, which is not the order of the host's versions.
constexpr PrintModule kPrintModules[] = {
    {L"kwdb17.dll",   false},
    {L"kwdb16.dll",   true },
    {L"kwutil15.dll", true },
    {L"kwdb18.dll",   false},
    {L"kwdb19.dll",   false},
};
static_assert(std::size(kPrintModules) == 5);

void PrintWide(ModuleFunction function, const ZetString& text) {
    if (function != nullptr)
        reinterpret_cast<HostPrintWide>(function)(text.c_str());
}

void PrintNarrow(ModuleFunction function, const ZetString& text) {
    if (function != nullptr)
        reinterpret_cast<HostPrintNarrow>(function)(text.toNarrow().c_str());
}

// The first module found decides, even when it cannot print.
void PrintOnHost(const ZetString& text) {
    for (const PrintModule& row : kPrintModules) {
        const ModuleHandle module = FindLoadedModule(row.name);
        if (module == nullptr)
            continue;
        const auto print = row.isNarrow ? PrintNarrow : PrintWide;
        return print(FindFunction(module, "kwutPrintf"), text);
    }
    PrintWide(FindFunction(nullptr, "icPrintfAsync"), text);
}

ZetString Filled(wchar_t filler, int count, bool newLine) {
    if (count < 1)
        return {};
    return newLine ? ZetString(filler, count - 1) + L"\n" : ZetString(filler, count);
}

// Points and vectors.
template <typename T>
long PrintCoordinates(const T& value, const ZetString& label) {
    return CMxUtil::PrintPrompt(
        ZetString::format(L"\n%s : %0.2f,%0.2f,%0.2f", label, value.x, value.y, value.z));
}

// One property of a coordinate system.
template <typename T>
T Read(ICS3d& cs, HostResult (ICS3d::*get)(T*)) {
    T value;
    CheckHostCall((cs.*get)(&value));
    return value;
}

ZetArray<ZetString> LinesOf(ICS3d& cs) {
    const auto origin = Read(cs, &ICS3d::getOrigin);
    const auto x = Read(cs, &ICS3d::getXAxis);
    const auto y = Read(cs, &ICS3d::getYAxis);
    const auto z = Read(cs, &ICS3d::getZAxis);
    return {L"The CS output as follows",
            ZetString::format(L"\nOrigin %8.3f, %8.3f, %8.3f", origin.x, origin.y, origin.z),
            ZetString::format(L"\nX-Axis %8.3f, %8.3f, %8.3f", x.x, x.y, x.z),
            ZetString::format(L"\nY-Axis %8.3f, %8.3f, %8.3f", y.x, y.y, y.z),
            ZetString::format(L"\nZ-Axis %8.3f, %8.3f, %8.3f", z.x, z.y, z.z)};
}

bool IsOpen(const ZetFileAccess* file) {
    return file != nullptr && file->IsOpen();
}

}  // namespace

// A program that takes their address looks for them in the library on Windows.
constexpr wchar_t CMxUtil::m_SpaceChar;
constexpr wchar_t CMxUtil::m_LineDividerChar;
constexpr long CMxUtil::m_NOT_LIMITED;

ZetString CMxUtil::GetSpaces(int count, bool newLine) {
    return Filled(m_SpaceChar, count, newLine);
}

ZetString CMxUtil::GetLineDivider(int count, bool newLine) {
    return Filled(m_LineDividerChar, count, newLine);
}

long CMxUtil::PrintPrompt(const ZetString& text) {
    PrintOnHost(text.contains(L"\n") ? text : text + L"\n");
    return kDone;
}

long CMxUtil::PrintPoint(const ZetGeomPoint3d& point, const ZetString& label) {
    return PrintCoordinates(point, label);
}

long CMxUtil::PrintVector(const ZetGeomVector3d& vector, const ZetString& label) {
    return PrintCoordinates(vector, label);
}

long CMxUtil::PrintCS(ICS3d* cs) {
    return PrintCS(cs, nullptr);
}

long CMxUtil::PrintCS(ICS3d* cs, ZetFileAccess* file) {
    if (cs == nullptr)
        return kNotDone;
    // The lines begin with a line feed already: blank lines stand between them in a file.
    return AsArrStrPrint(LinesOf(*cs), file);
}

long CMxUtil::AsArrStrPrint(const ZetArray<ZetString>& lines) {
    for (const ZetString& line : lines)
        PrintPrompt(line);
    return kDone;
}

long CMxUtil::AsArrStrPrint(const ZetArray<ZetString>& lines, ZetFileAccess* file) {
    if (!IsOpen(file))
        return AsArrStrPrint(lines);
    for (const ZetString& line : lines)
        file->WriteUtf8(line.toUtf8() + '\n');
    return kDone;
}

ZetString CMxUtil::GetDllVersion(ModuleHandle module) {
    const ModuleVersion version = ModuleFileVersion(module).value_or(ModuleVersion{});
    return ZetString::format(L"%d.%d.%d.%d", version[0], version[1], version[2], version[3]);
}
