#include "job/TomlFile.h"

#include "job/JobLines.h"
#include "job/TextFile.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <variant>

namespace job {

namespace {

/// Reasons of the parser, in other words.
struct SyntaxWords {
    std::string_view reason;  ///< part of it
    const char* words;        ///< null: what such a file has
};

constexpr SyntaxWords kSyntaxWords[] = {
    {"cannot redefine",        "the same name stands here a second time"                    },
    {"end-of-file",            "the file ends in the middle of a value"                     },
    {"determine value type",   "this is no value: texts stand in quotes"                    },
    {"interpreted as a value", "this is no value: texts stand in quotes"                    },
    {"leading zeroes",         "a number must not begin with 0, and a text stands in quotes"},
    {"escape sequence",        "a backslash in a text stands twice, or the text in '...'"   },
    {"expected '='",           "a line is key = value, or [table]"                          },
    {"whitespace, saw ','",    "a comma cannot stand here: a number has a decimal point"    },
    {"parsing string",         "a text must end with its quote on the line where it begins" },
    {"closing ']'",            "a list is [value, value, ...]"                              },
    {"inline table",           "a table on one line is { key = value, key = value }"        },
    {"parsing boolean",        "true and false stand without quotes, in small letters"      },
    {"parsing date",           "a date is written 2026-03-31, and a text stands in quotes"  },
    {"integer",                "this is no number: a text stands in quotes"                 },
    {"floating-point",         "this is no number: a text stands in quotes"                 },
    {"nested value depth",     "too many brackets in each other"                            },
    {"",                       nullptr                                                      },
};

void AddSyntaxFault(const toml::parse_error& error, const char* what, JobFaults& faults) {
    const std::string_view reason = error.description();
    const auto words =
        std::find_if(std::begin(kSyntaxWords), std::end(kSyntaxWords), [&](const SyntaxWords& row) {
            return reason.find(row.reason) != std::string_view::npos;
        });
    const toml::source_position at = error.source().begin;
    // The parser cuts a long reason, perhaps in the middle of a character, and quotes line ends.
    std::string whole = ZetString::fromUtf8(reason).toUtf8();
    std::replace(whole.begin(), whole.end(), '\n', ' ');
    const std::string inOurs =
        words->words != nullptr
            ? words->words
            : std::string("a ") + what + " has lines of key = value under lines of [table]";
    faults.Add({static_cast<long>(at.line), static_cast<long>(at.column)},
               inOurs + " (" + whole + ")");
}

}  // namespace

std::optional<toml::table> ReadToml(std::string_view bytes, const char* what, JobFaults& faults) {
    CheckLines(bytes, faults);
    if (!faults.IsEmpty())
        return std::nullopt;
    try {
        return toml::parse(bytes);
    } catch (const toml::parse_error& error) {
        AddSyntaxFault(error, what, faults);
        return std::nullopt;
    }
}

std::optional<toml::table> ReadTomlFile(const std::filesystem::path& file,
                                        const char* what,
                                        JobFaults& faults) {
    const auto bytes = ReadTextFile(file, what);
    if (const auto* fault = std::get_if<TextFileFault>(&bytes)) {
        faults.Add({}, fault->text);
        return std::nullopt;
    }
    return ReadToml(std::get<std::string>(bytes), what, faults);
}

}  // namespace job
