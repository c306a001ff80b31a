#include "plugin/rules/MemberTypeSearch.h"

#include "job/FileNames.h"
#include "job/TextPattern.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace plugin {

namespace {

constexpr const wchar_t* kLeaveOut = L"; \"unmatched\" in [nc] can leave such files out";

/// "" fits any text.
bool FitsPattern(const ZetString& text, const ZetString& pattern) {
    return pattern.isEmpty() || job::MatchesPattern(text.view(), pattern.view());
}

ZetString TypeInJob(const job::MemberType& type) {
    return ZetString::format(L"\"%s\" in line %d of the job", type.id, type.line);
}

bool FitsInSmallLetters(const ZetString& text, const ZetString& pattern) {
    return FitsPattern(ZetString(job::SmallLetters(text)), ZetString(job::SmallLetters(pattern)));
}

/// The number of characters that a text has in common with the start of a pattern.
std::size_t CommonStart(const ZetString& text, const ZetString& pattern) {
    const std::wstring_view a = text.view();
    const std::wstring_view b = pattern.view();
    const auto end = std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first;
    return static_cast<std::size_t>(end - a.begin());
}

/// One way in which a type can be near; the first that applies to any type is told.
struct Nearness {
    bool (*applies)(const job::MemberType& type, const ZetString& name, const ZetString& code);
    ZetString (*describe)(const job::MemberType& type);
};

ZetString CodeOnly(const job::MemberType& type) {
    return L" takes the profile, but only code " + type.codePattern;
}

ZetString ProfileOnly(const job::MemberType& type) {
    return L" takes the code, but only profile \"" + type.profilePattern + L"\"";
}

ZetString InOtherLetters(const job::MemberType& type) {
    return L" is for profile \"" + type.profilePattern + L"\": capitals count";
}

const Nearness kNearnesses[] = {
    {[](const auto& type, const auto& name, const auto& code) {
         return FitsInSmallLetters(name, type.profilePattern) &&
                FitsPattern(code, type.codePattern);
     }, &InOtherLetters},
    {[](const auto& type, const auto& name, const auto&) {
         return !type.profilePattern.isEmpty() && FitsPattern(name, type.profilePattern);
     }, &CodeOnly      },
    {[](const auto& type, const auto&,      const auto& code) {
         return !type.codePattern.isEmpty() && FitsPattern(code, type.codePattern);
     },      &ProfileOnly   },
};

/// What the library reads a number of the name from, as far as it is one.
bool IsNumber(const ZetString& text, bool isSize) {
    const std::wstring_view digits = L"0123456789";
    const std::size_t first = text.view().find_first_not_of(L' ');
    const std::size_t end =
        std::min(text.view().find_first_not_of(L"0123456789. "), text.view().size());
    const bool isThere = first < end && text.view().find_first_of(digits) < end;
    // The library takes no decimal comma.
    const bool isCutOff = end < text.view().size() && text.view()[end] == L',';
    return isThere && !isCutOff && (!isSize || text.toDouble() > 0.0);
}

/// The type that comes nearest and what it wants to be otherwise, behind a semicolon; "" when none
/// is like the member.
ZetString DescribeNearest(const std::vector<job::MemberType>& types,
                          const ZetString& profileName,
                          const ZetString& profileCode) {
    for (const Nearness& nearness : kNearnesses) {
        const auto type = std::find_if(types.begin(), types.end(), [&](const auto& each) {
            return nearness.applies(each, profileName, profileCode);
        });
        if (type != types.end())
            return L"; " + TypeInJob(*type) + nearness.describe(*type);
    }
    const auto common = [&](const job::MemberType& type) {
        return CommonStart(profileName, type.profilePattern);
    };
    const auto nearest =
        std::max_element(types.begin(), types.end(), [&](const auto& a, const auto& b) {
            return common(a) < common(b);
        });
    if (nearest == types.end() || common(*nearest) == 0)
        return {};
    return L"; the nearest, " + TypeInJob(*nearest) + L", is for profile \"" +
           nearest->profilePattern + L"\"";
}

const job::NumberInName* FindMissing(const job::MemberType& type, const ZetString& profileName) {
    for (const job::NumberInName& number : type.numbersInName)
        if (!IsNumber(profileName.mid(number.start, number.length), number.isSize))
            return &number;
    return nullptr;
}

}  // namespace

const job::MemberType* FindMemberType(const job::Job& job,
                                      const ZetString& profileName,
                                      const ZetString& profileCode) {
    const std::vector<job::MemberType>& types = job.memberTypes;
    const auto at = std::find_if(types.begin(), types.end(), [&](const job::MemberType& type) {
        return FitsPattern(profileName, type.profilePattern) &&
               FitsPattern(profileCode, type.codePattern);
    });
    return at == types.end() ? nullptr : &*at;
}

bool HasNumbers(const job::MemberType& type, const ZetString& profileName) {
    return FindMissing(type, profileName) == nullptr;
}

ZetString WhyUnmatched(const job::Job& job,
                       const ZetString& profileName,
                       const ZetString& profileCode) {
    const job::MemberType* type = FindMemberType(job, profileName, profileCode);
    const ZetString leaveOut = job.nc.unmatched == job::WhenNot::kRefuse ? kLeaveOut : L"";
    if (type == nullptr)
        return ZetString::format(
            L"no member type of the job takes it%s; add or change a [[member_type]]%s",
            DescribeNearest(job.memberTypes, profileName, profileCode),
            leaveOut);
    const job::NumberInName* number = FindMissing(*type, profileName);
    if (number == nullptr)
        return {};
    return ZetString::format(
        L"%s looks for its %s in characters %d to %d of the name, counted from 0, and there is \"%s\" "
        L"instead of a number%s; correct \"start\" and \"length\" in line %d%s",
        TypeInJob(*type),
        ZetString::fromUtf8(number->key),
        number->start,
        number->start + number->length - 1,
        profileName.mid(number->start, number->length),
        number->isSize ? L" above 0" : L"",
        number->line,
        leaveOut);
}

}  // namespace plugin
