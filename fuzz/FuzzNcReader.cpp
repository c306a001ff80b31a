#include "dstv/NcHost.h"
#include "dstv/NcReader.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

// Any bytes are a part or an error with a line. Built with a fuzzer, or linked into the tests,
// which run every damaged form of a sample through it.

namespace {

void Check(bool holds) {
    if (!holds)
        std::abort();
}

void CheckContour(const ZetNCContour& contour) {
    const long count = contour.getPointCount();
    Check(count >= 4 && contour.yValues.length() == count && contour.bulges.length() == count);
    Check(contour.xValues.first() == contour.xValues.last());
    Check(contour.yValues.first() == contour.yValues.last());
    for (long i = 0; i < count; ++i)
        Check(std::isfinite(contour.xValues[i]) && std::isfinite(contour.yValues[i]));
}

void CheckView(const ZetNCView& view) {
    for (const ZetNCHoleData& hole : view.getHoles())
        Check(std::isfinite(hole.x) && std::isfinite(hole.y) && hole.size > 0.0 &&
              hole.slotLength >= 0.0 && std::isfinite(hole.slotAngle));
    for (const ZetNCContour& contour : view.getExternalContours())
        CheckContour(contour);
    for (const ZetNCContour& contour : view.getInternalContours())
        CheckContour(contour);
    Check(std::abs(view.getPlane().normal().length() - 1.0) < 1e-9);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const dstv::NcResult result =
        dstv::ParseNc({reinterpret_cast<const char*>(data), size}, L"fuzz.nc");
    if (const auto* error = std::get_if<dstv::NcError>(&result)) {
        Check(error->line >= 1 && !error->what.isEmpty() && !error->expected.isEmpty());
        return 0;
    }
    const dstv::NcFileEntity entity(std::get<dstv::NcPart>(result));
    const ZetNCStructure structure = entity.getNCStructure(0);
    for (const ZetNCView& view : structure.getViews())
        CheckView(view);
    for (const dstv::NcHoleTarget& target : entity.getHoleTargets())
        Check(structure.getViews().isValid(target.view));
    return 0;
}
