#include "report/page/PageText.h"

#include "report/drawing/DrawingText.h"

namespace report {

std::string Element(std::string_view name, std::string_view text) {
    std::string html;
    Append(html, "<", name, ">", Escaped(text), "</", name, ">");
    return html;
}

std::string Filled(std::string_view pattern, const std::map<std::string, std::string>& values) {
    std::string text;
    for (;;) {
        const std::size_t start = pattern.find("{{");
        const std::size_t end = pattern.find("}}", start);
        if (end == std::string_view::npos)
            return text.append(pattern);
        text.append(pattern.substr(0, start));
        text.append(values.at(std::string(pattern.substr(start + 2, end - start - 2))));
        pattern.remove_prefix(end + 2);
    }
}

}  // namespace report
