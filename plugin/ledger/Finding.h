#pragma once

#include "job/FindingTypes.h"
#include "plugin/ledger/Feature.h"

#include "camdata/platform/text/ZetString.h"
#include "camdata/rules/eReportingTypes.h"
#include "camdata/rules/eValidationTypes.h"

#include <optional>
#include <vector>

namespace plugin {

/// One thing that was found about a member, beside the library's texts of it. Also what the job
/// does not want to have printed is one.
struct Finding {
    int type = 0;  ///< eValidationTypes, or job::ValidationType
    eReportingTypes report = eReportingWarning;
    ZetString text = {};  ///< one line, without indentation
    ZetString rule = {};  ///< id of the job's rule that judged, or of the member type
    long ruleLine = 0;    ///< of its table in the job file; 0: not from there
    std::optional<double> required = {};
    std::optional<double> found = {};
    std::optional<Feature> feature = {};  ///< nothing: the member as a whole
    /// The feature is not made because of it, whatever becomes of the member.
    bool isRefusal = false;
    /// The feature is set aside for another one.
    bool isSetAside = false;

    bool IsError() const { return report == eReportingError || report == eReportingSecondError; }
    /// It stands in the file of errors or in that of warnings.
    bool IsPrinted() const {
        return report != job::kReportingOff && report != eReportingNonStdSilent;
    }
};

/// Its name, the rule that judged, and what was required and found.
ZetString DescribeRule(const Finding& finding);
/// Its text, with the same in brackets.
ZetString Describe(const Finding& finding);

/// What somebody should know of a feature, although nothing is wrong with it.
struct FeatureNote {
    Feature feature;
    ZetString text;
};

/// Why a feature is not made for itself.
enum class SetAside {
    kNot,          ///< it is
    kMarked,       ///< set aside in the NC data
    kInsideSlot,   ///< lies inside a slot
    kDuplicate,    ///< stands at the place of another, touches it or overlaps it
    kCountersink,  ///< the countersink of another hole
};

/// A feature that is not made because another is.
struct SetAsideFeature {
    Feature feature;
    SetAside reason = SetAside::kNot;
    Feature other;  ///< that it repeats or lies in; its tag is 0 for what the NC data set aside
};

}  // namespace plugin
