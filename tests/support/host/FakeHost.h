#pragma once

#include "support/host/FakeHostModule.h"

#include "camdata/platform/system/Modules.h"

#include <ostream>
#include <string>
#include <vector>

/// A host module that is loaded into the test program, as a host loads its own, and unloaded at the
/// end of its life.
class FakeModule {
  public:
    /// A file in the folder of the fake modules, for example L"kwdb17.dll".
    explicit FakeModule(const std::wstring& file);
    FakeModule(const FakeModule&) = delete;
    FakeModule& operator=(const FakeModule&) = delete;
    ~FakeModule();

    /// A function of the module, of type T, by the platform's own lookup.
    template <typename T>
    T Function(const char* name) const {
        return reinterpret_cast<T>(Lookup(name));
    }

  private:
    ModuleFunction Lookup(const char* name) const;

    void* m_library;
};

/// Full name of a file in the folder of the fake modules.
std::wstring FakeModulePath(const std::wstring& file);

/// One call of a print function of the fake host.
struct HostPrint {
    std::string printer;  ///< module that printed, "main program" for icPrintfAsync
    std::wstring text;
    bool isNarrow = false;

    friend bool operator==(const HostPrint&, const HostPrint&) = default;
};

void PrintTo(const HostPrint& print, std::ostream* out);

/// What the fake host has printed since ClearHostPrints(), in order.
const std::vector<HostPrint>& HostPrints();
void ClearHostPrints();

/// Hand this to the print modules; it fills HostPrints().
void RecordHostPrint(const char* module, const wchar_t* wideText, const char* narrowText);
