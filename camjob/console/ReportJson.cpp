#include "camjob/console/ReportJson.h"

#include "camjob/console/ReportText.h"

namespace camjob {

/// The writer escapes what is below U+0020; others stand in texts only, where an escape is as good.
std::string Dump(const Json& value, int indent) {
    // The first bytes of all characters that steer whoever shows them.
    constexpr const char* kSuspicious = "\x7F\xC2\xD8\xE2";
    std::string json = value.dump(indent, ' ', false, Json::error_handler_t::replace);
    return json.find_first_of(kSuspicious) == std::string::npos
               ? json
               : Printable(ZetString::fromUtf8(json));
}

}  // namespace camjob
