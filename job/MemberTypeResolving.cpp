#include "job/JobMaker.h"
#include "job/MessageTexts.h"

#include "camdata/util/CMxUtil.h"

#include <optional>

namespace job {

namespace {

std::vector<NumberInName> NumbersInName(const MemberTypeTable& table) {
    std::vector<NumberInName> numbers;
    const auto add = [&](const char* key, const SizeTable& size) {
        if (size.source == eProfPropName)
            numbers.push_back(
                {key, size.start.value_or(0), size.length.value_or(0), true, size.at.line});
    };
    add("height", table.height);
    add("width", table.width);
    add("thickness", table.thickness);
    // A sign stands before the number.
    if (table.slope && table.slope->source == SlopeSource::kName)
        numbers.push_back({"slope",
                           table.slope->start.value_or(0) + 1,
                           table.slope->length.value_or(0),
                           false,
                           table.slope->at.line});
    return numbers;
}

}  // namespace

void JobMaker::TakeMemberTypes() {
    JobIds ids("[[member_type]]");
    for (const MemberTypeTable& table : m_document.memberTypes) {
        ids.Add(table.id, m_faults);
        m_job.memberTypes.push_back(MakeMemberType(table));
    }
}

MemberType JobMaker::MakeMemberType(const MemberTypeTable& table) {
    MemberType type;
    type.id = table.id.text;
    type.line = table.at.line;
    type.profilePattern = table.profile;
    type.codePattern = table.code;
    type.isSkipped = table.isSkipped;
    Require(table.isSkipped || table.group.at.line > 0 || !table.group.text.isEmpty(),
            table.at,
            "\"group\" is missing in [[member_type]]");
    if (table.group.at.line > 0)
        type.group = m_groups.Find(table.group, m_faults).value_or(kFirstOwnGroup);
    Require(type.group != kSecondaryGroup,
            table.group.at,
            "the group of single parts takes its members from the assemblies alone");
    type.type = MakeDimensions(table, type.group);
    type.numbersInName = NumbersInName(table);
    type.limits = MakeLimits(table);
    type.reports = table.report.types;
    type.areMarksMade = table.areMarksMade;
    type.hasSection = table.attributes.has_value();
    type.topFlange = table.topFlange;
    type.bottomFlange = table.bottomFlange;
    if (table.pattern.at.line > 0)
        type.pattern = m_patterns.Find(table.pattern, m_faults);
    return type;
}

CMemTypeAndAttrib JobMaker::MakeDimensions(const MemberTypeTable& table, std::size_t group) {
    const bool hasAttributes = table.attributes.has_value();
    CheckDimension("height", table.height, table.height.source, hasAttributes);
    CheckDimension("width", table.width, table.width.source, hasAttributes);
    CheckDimension("thickness", table.thickness, table.thickness.source, hasAttributes);
    const SlopeTable slope = table.slope.value_or(SlopeTable());
    const eProfPropType slopeSource =
        table.slope ? static_cast<eProfPropType>(slope.source) : eProfPropNone;
    CheckDimension("slope", slope, slopeSource, hasAttributes);
    const auto start = [](const DimensionTable& d) {
        return static_cast<int>(d.start.value_or(-1));
    };
    const auto length = [](const DimensionTable& d) {
        return static_cast<int>(d.length.value_or(0));
    };
    const auto value = [](const DimensionTable& d) { return d.value.value_or(0.0); };
    const SizeTable& height = table.height;
    const SizeTable& width = table.width;
    const ThicknessTable& thick = table.thickness;
    const auto orId = [&](const ZetString& text) { return text.isEmpty() ? table.id.text : text; };
    CMemTypeAndAttrib type;
    // clang-format off
    type.SetValues(static_cast<int>(group), 0,
                   height.source, start(height), length(height), value(height),
                   width.source, start(width), length(width), value(width),
                   thick.source, start(thick), length(thick), value(thick), thick.factor,
                   slopeSource, start(slope), length(slope), value(slope), 1.0,
                   0, 0, orId(table.description), orId(table.shortName),
                   table.nameStart, table.nameLength, 0);
    // clang-format on
    if (const auto& section = table.attributes) {
        CMemAttrib attributes;
        attributes.SetValues(
            section->height, section->bottomFlange, section->topFlange, section->thickness);
        type.SetMemAttrib(attributes);
    }
    return type;
}

/// What a source needs must be there, and nothing that it does not look at.
void JobMaker::CheckDimension(const char* key,
                              const DimensionTable& table,
                              eProfPropType source,
                              bool hasAttributes) {
    struct Part {
        const char* name;
        bool isGiven;
        eProfPropType source;
        const char* word;
    };
    const Part parts[] = {
        {"start",  table.start.has_value(),  eProfPropName,  "name" },
        {"length", table.length.has_value(), eProfPropName,  "name" },
        {"value",  table.value.has_value(),  eProfPropFixed, "fixed"},
    };
    for (const Part& part : parts) {
        const std::string name = Quoted(part.name);
        RequireOf(table,
                  part.source != source || part.isGiven,
                  name + " is missing in " + Quoted(key) + ": the source " + Quoted(part.word) +
                      " needs it");
        RequireOf(table,
                  part.source == source || !part.isGiven,
                  name + " in " + Quoted(key) + " is only for the source " + Quoted(part.word));
    }
    RequireOf(table,
              source != eProfPropAttrib || hasAttributes,
              Quoted(key) + " comes from \"attributes\", which are missing in [[member_type]]");
}

CMemberValidations JobMaker::MakeLimits(const MemberTypeTable& table) {
    constexpr long kAny = CMxUtil::m_NOT_LIMITED;
    const LimitsTable& given = table.limits;
    CMemberValidations limits;
    limits.SetNoOfHoles(given.maxHoles.value_or(kAny));
    limits.SetNoOfInternalContours(given.maxInternalContours.value_or(kAny));
    limits.SetNoOfExternalContours(given.maxExternalContours.value_or(kAny));
    limits.SetMinimumLength(given.minLength);
    limits.SetMaximumLength(given.maxLength.value_or(kAnyLength));
    RequireOf(given,
              limits.GetMinimumLength() <= limits.GetMaximumLength(),
              "\"min_length\" must not be above \"max_length\"");
    return limits;
}

}  // namespace job
