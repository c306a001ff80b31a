#include "job/JobMaker.h"

#include "camdata/platform/text/ZetFormat.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace job {

namespace {

constexpr std::size_t kCornersOfRectangle = 4;
constexpr std::size_t kSizesOfNotch = 2;
constexpr std::size_t kMaxNotchValues = 3;

}  // namespace

void JobMaker::TakeCornerNotches() {
    JobIds ids("[[corner_notch]]");
    for (const CornerNotchTable& table : m_document.cornerNotches) {
        ids.Add(table.id, m_faults);
        CheckCornerNotch(table);
        CornerNotch& notch = m_job.cornerNotches.emplace_back(table);
        notch.id = table.id.text;
        notch.line = table.at.line;
        notch.across = static_cast<NotchCorner>(table.across);
        SCheckNotch& definition = notch.definition;
        definition.id = static_cast<std::int64_t>(m_job.cornerNotches.size()) - 1;
        definition.face = table.face;
        definition.vertexCount = static_cast<int>(table.corners);
        definition.mustBeRect = table.isRectangle;
        definition.mustBeParallelToAxis = table.isParallel;
        definition.outPutFormat = table.output.text;
        for (const NotchValue value : table.values)
            definition.valueSelectors.append(static_cast<int>(value));
    }
}

void JobMaker::CheckCornerNotch(const CornerNotchTable& table) {
    RequireOf(table,
              !table.isRectangle || table.corners == kCornersOfRectangle,
              "a rectangle has 4 corners, not " + std::to_string(table.corners));
    CheckNotchValues(table);
    constexpr ZetFormatArg::Kind kNumber = ZetFormatArg::Kind::kDouble;
    const std::wstring_view format = table.output.text.view();
    const bool fits = table.values.size() == kSizesOfNotch
                          ? camdata::detail::FormatTakes(format, {kNumber, kNumber})
                          : camdata::detail::FormatTakes(format, {kNumber, kNumber, kNumber});
    Require(fits || format.empty(),
            table.output.at,
            "\"output\" needs a conversion such as %.1f for each of \"values\"; a percent sign is "
            "written %%");
}

void JobMaker::CheckNotchValues(const CornerNotchTable& table) {
    const std::size_t count = table.values.size();
    bool areInPlace = true;
    for (std::size_t i = 0; i < count; ++i) {
        const bool isSize =
            table.values[i] == NotchValue::kLength || table.values[i] == NotchValue::kWidth;
        areInPlace = areInPlace && isSize == (i < kSizesOfNotch);
    }
    RequireOf(table,
              count == 0 || (count >= kSizesOfNotch && count <= kMaxNotchValues && areInPlace),
              "\"values\" are two of \"length\" and \"width\", then at most one of \"x\", "
              "\"corner_x\", \"y\" and \"corner_y\"");
}

void JobMaker::TakeTrims() {
    JobIds ids("[[trim]]");
    for (const TrimTable& table : m_document.trims) {
        ids.Add(table.id, m_faults);
        CheckCode(table.code, CodeOf::kTrim);
        TrimRule& trim = m_job.trims.emplace_back(table);
        trim.id = table.id.text;
        trim.code = table.code.text;
    }
}

}  // namespace job
