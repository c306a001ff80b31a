#include "plugin/ledger/Finding.h"

#include <cmath>

namespace plugin {

namespace {

/// As people write it: without decimals that say nothing.
ZetString Shown(double value) {
    return ZetString::format(L"%.10g", std::round(value * 10.0) / 10.0 + 0.0);
}

}  // namespace

ZetString DescribeRule(const Finding& finding) {
    ZetString numbers;
    if (finding.required)
        numbers += L": required " + Shown(*finding.required);
    if (finding.found)
        numbers += (numbers.isEmpty() ? L": found " : L", found ") + Shown(*finding.found);
    const ZetString name = ZetString::fromUtf8(job::kFindingTypes[finding.type].name);
    ZetString rule = finding.rule.isEmpty() ? L"" : L" by " + finding.rule;
    if (finding.ruleLine > 0)
        rule += ZetString::format(L", job line %d", finding.ruleLine);
    return name + rule + numbers;
}

ZetString Describe(const Finding& finding) {
    return finding.text + L" [" + DescribeRule(finding) + L"]";
}

}  // namespace plugin
