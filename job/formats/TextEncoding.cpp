#include "job/formats/TextEncoding.h"

#include "codepages/CodePages.h"

#include "camdata/platform/text/ZetString.h"

namespace job {

std::optional<std::string> InEncoding(std::wstring_view text, const codepages::CodePage* page) {
    if (page == nullptr)
        return ZetString(text).toUtf8();
    std::string bytes;
    for (const wchar_t c : text) {
        // A half of a character beyond the basic plane is in no page.
        const std::optional<char> byte = codepages::ByteOf(static_cast<char32_t>(c), *page);
        if (!byte)
            return std::nullopt;
        bytes += *byte;
    }
    return bytes;
}

}  // namespace job
