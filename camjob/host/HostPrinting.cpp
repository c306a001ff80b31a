#include "camjob/host/HostPrinting.h"

#include "camjob/console/ReportText.h"

#include <string>
#include <string_view>

namespace camjob {

namespace {

OutputStream* s_stream = nullptr;

/// The text comes as a format that has no values: all that it may hold is "%%".
std::wstring Filled(std::wstring_view format) {
    std::wstring text;
    for (std::size_t i = 0; i < format.size(); ++i) {
        text += format[i];
        i += format.substr(i, 2) == L"%%" ? 1 : 0;
    }
    return text;
}

}  // namespace

HostPrinting::HostPrinting(OutputStream& stream) {
    s_stream = &stream;
}

HostPrinting::~HostPrinting() {
    s_stream = nullptr;
}

}  // namespace camjob

#if defined(_WIN32)
extern "C" __declspec(dllexport) int icPrintfAsync(const wchar_t* text, ...);
#else
extern "C" __attribute__((visibility("default"))) int icPrintfAsync(const wchar_t* text, ...);
#endif

int icPrintfAsync(const wchar_t* text, ...) {
    using namespace camjob;
    if (s_stream != nullptr) {
        s_stream->Write(Printable(ZetString(Filled(text).c_str())));
        s_stream->Flush();
    }
    return 0;
}
