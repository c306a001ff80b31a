#include "job/CodeFormat.h"

#include "job/MessageTexts.h"

#include <algorithm>
#include <charconv>
#include <fmt/format.h>
#include <string_view>
#include <vector>

namespace job {

/// A number that is filled in. Where it is written as zero it has no sign.
struct FilledNumber {
    double value;
};

}  // namespace job

template <>
struct fmt::formatter<job::FilledNumber> : fmt::formatter<double> {
    auto format(const job::FilledNumber& number, fmt::format_context& context) const {
        fmt::memory_buffer written;
        fmt::format_context inBuffer(fmt::appender(written), context.args());
        fmt::formatter<double>::format(number.value, inBuffer);
        const std::string_view text(written.data(), written.size());
        const bool isZero = text.find_first_of("123456789") == std::string_view::npos;
        return fmt::formatter<double>::format(isZero ? 0.0 : number.value, context);
    }
};

namespace job {

namespace {

/// Width and precision of one field.
constexpr int kMaxCharacters = 100;

/// A value that can be filled in.
struct ValueName {
    const char* name;
    CodeOf last;  ///< that has it, of the kinds in their order
};
constexpr ValueName kNames[] = {
    {"diameter", CodeOf::kHole },
    {"length",   CodeOf::kNotch},
    {"width",    CodeOf::kNotch},
    {"face",     CodeOf::kTrim },
    {"x",        CodeOf::kTrim },
    {"y",        CodeOf::kTrim },
    {"depth",    CodeOf::kHole },
};
constexpr std::string_view kFace = "face";

std::vector<std::string> NamesOf(CodeOf what) {
    std::vector<std::string> names;
    for (const ValueName& value : kNames)
        if (what <= value.last)
            names.emplace_back(value.name);
    return names;
}

std::string Listed(const std::vector<std::string>& words) {
    std::string list = words.front();
    for (std::size_t i = 1; i < words.size(); ++i)
        list += (i + 1 < words.size() ? ", " : " and ") + words[i];
    return list;
}

constexpr std::string_view kNumberTypes = "feEgGF";
/// Of printf; those that nobody writes for a size are left out.
constexpr std::string_view kConversions = "defgisu";
/// What a filled number can have besides its fill.
constexpr std::string_view kOfNumbers = "0123456789.+-eE ";
constexpr std::string_view kOfFaces = "abcdefghijklmnopqrstuvwxyz_ ";

/// One field of a code.
struct Field {
    std::string_view name;
    std::string_view spec;  ///< behind the colon
};

/// A code in its parts, or why it is none.
struct ParsedCode {
    std::string text;  ///< all that is no field, braces once
    std::vector<Field> fields;
    std::string fault;
};

/// Takes one field, which begins behind `at`; false when it has no end.
bool TakeField(std::string_view code, std::size_t& at, ParsedCode& parsed) {
    const std::size_t end = code.find_first_of("{}", at + 1);
    if (end == std::string_view::npos || code[end] == '{')
        return false;
    const std::string_view field = code.substr(at + 1, end - at - 1);
    const std::size_t colon = std::min(field.find(':'), field.size());
    parsed.fields.push_back(
        {field.substr(0, colon), field.substr(std::min(colon + 1, field.size()))});
    at = end;
    return true;
}

ParsedCode Parse(std::string_view code) {
    ParsedCode parsed;
    for (std::size_t at = 0; at < code.size(); ++at) {
        const bool isBrace = code[at] == '{' || code[at] == '}';
        const bool isDoubled = isBrace && at + 1 < code.size() && code[at + 1] == code[at];
        if (!isBrace || isDoubled)
            parsed.text += code[at];
        else if (code[at] == '}' || !TakeField(code, at, parsed)) {
            parsed.fault =
                "{ and } enclose a value, such as {diameter:.1f}; one that is meant as it "
                "stands is written twice";
            return parsed;
        }
        at += isDoubled ? 1 : 0;
    }
    return parsed;
}

/// The largest number in a text; beyond any limit when it has too many digits.
int LargestNumber(std::string_view text) {
    int largest = 0;
    while (!text.empty()) {
        int number = 0;
        const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
        if (result.ec == std::errc::result_out_of_range)
            return kMaxCharacters + 1;
        largest = std::max(largest, number);
        const auto taken = static_cast<std::size_t>(result.ptr - text.data());
        text.remove_prefix(std::max<std::size_t>(taken, 1));
    }
    return largest;
}

bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

std::string FaultOfField(const Field& field, CodeOf what) {
    const std::vector<std::string> names = NamesOf(what);
    if (std::find(names.begin(), names.end(), field.name) == names.end())
        return "there is no value {" + std::string(field.name) + "}, only " + Listed(names) +
               Suggest(field.name, names) + "; a { that is meant as it stands is written {{";
    // A minus sign before a number is an alignment or a sign, and never part of it.
    std::string spec(field.spec);
    std::replace(spec.begin(), spec.end(), '-', ' ');
    if (LargestNumber(spec) > kMaxCharacters)
        return "width and precision are at most 100 characters";
    const char type = spec.empty() ? '0' : spec.back();
    const bool isLetter = IsLetter(type);
    if (field.name != kFace && isLetter && kNumberTypes.find(type) == std::string_view::npos)
        return "{" + std::string(field.name) +
               "} is a number: f, e or g can stand at its end, not " + std::string(1, type);
    if (field.name == kFace && (type == '.' || (isLetter && type != 's')))
        return "{face} is a text: only a width can stand behind its colon, such as {face:14}";
    return "";
}

/// The first conversion of printf in a text, such as "%.1f"; "" without one. A word behind a
/// percent sign is none.
std::string_view FindConversion(std::string_view text) {
    for (std::size_t at = 0; (at = text.find('%', at)) != std::string_view::npos; ++at) {
        const std::size_t end =
            std::min(text.find_first_not_of("0123456789.+-#", at + 1), text.size());
        const std::string_view letters = text.substr(end, 2);
        const bool isWord = letters.size() > 1 && IsLetter(letters[1]);
        if (!letters.empty() && kConversions.find(letters[0]) != std::string_view::npos && !isWord)
            return text.substr(at, end + 1 - at);
    }
    return {};
}

/// Who knows printf expects it filled in.
std::string FaultOfConversion(std::string_view code, CodeOf what) {
    const std::string_view conversion = FindConversion(code);
    if (conversion.empty())
        return "";
    return Quoted(conversion) + " is not filled in here: a value stands in braces, such as " +
           (what == CodeOf::kHole ? "{diameter:.1f}" : "{x:.1f}");
}

std::string Fill(const std::string& code, const CodeValues& values) {
    return fmt::vformat(
        code,
        fmt::make_format_args(fmt::arg(kNames[0].name, FilledNumber{values.diameter}),
                              fmt::arg(kNames[1].name, FilledNumber{values.length}),
                              fmt::arg(kNames[2].name, FilledNumber{values.width}),
                              fmt::arg(kNames[3].name, values.face),
                              fmt::arg(kNames[4].name, FilledNumber{values.x}),
                              fmt::arg(kNames[5].name, FilledNumber{values.y}),
                              fmt::arg(kNames[6].name, FilledNumber{values.depth})));
}

}  // namespace

std::string FaultOfCode(const ZetString& code, CodeOf what) {
    const std::string text = code.toUtf8();
    const ParsedCode parsed = Parse(text);
    if (!parsed.fault.empty())
        return parsed.fault;
    for (const Field& field : parsed.fields)
        if (const std::string fault = FaultOfField(field, what); !fault.empty())
            return fault;
    try {
        Fill(text, {});
    } catch (const fmt::format_error& error) {
        return std::string("this is no format (") + error.what() + ")";
    }
    return FaultOfConversion(text, what);
}

bool HasFields(const ZetString& code) {
    return code.contains(L"{") || code.contains(L"}");
}

ZetString FillCode(const ZetString& code, const CodeValues& values) {
    return HasFields(code) ? ZetString::fromUtf8(Fill(code.toUtf8(), values)) : code;
}

bool NeverContains(const ZetString& code, const ZetString& text) {
    if (!HasFields(code))
        return !code.contains(text);
    const std::string format = code.toUtf8();
    const ParsedCode parsed = Parse(format);
    std::string possible = parsed.text;
    for (const Field& field : parsed.fields)
        possible.append(field.spec).append(field.name == kFace ? kOfFaces : kOfNumbers);
    return text.toUtf8().find_first_not_of(possible) != std::string::npos;
}

}  // namespace job
