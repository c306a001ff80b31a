#include "report/page/PageText.h"

#include "report/drawing/DrawingText.h"

namespace report {

std::string Element(std::string_view name, std::string_view text) {
    std::string html;
    Append(html, "<", name, ">", Escaped(text), "</", name, ">");
    return html;
}

void Fill(std::string_view pattern, const Values& values, const Sink& sink) {
    for (;;) {
        const std::size_t start = pattern.find("{{");
        const std::size_t end = pattern.find("}}", start);
        sink(pattern.substr(0, end == std::string_view::npos ? end : start));
        if (end == std::string_view::npos)
            return;
        values.at(pattern.substr(start + 2, end - start - 2))();
        pattern.remove_prefix(end + 2);
    }
}

}  // namespace report
