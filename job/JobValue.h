#pragma once

#include "job/JobDocument.h"
#include "job/JobKeys.h"
#include "job/MessageTexts.h"
#include "job/Toml.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>

/// @file
/// How values of each type are read from a job file and named in words. A key is one row that knows
/// the structure member it fills; everything about its type follows from that member.

namespace job {

/// What a number may be.
struct Range {
    double least = 0.0;
    double most = 0.0;
    bool isAbove = false;  ///< the least itself is too small

    bool Contains(double value) const;
    /// "0 to 100", or "above 0, to 100".
    std::string Describe() const;
};

struct KeyTable;

/// What a row says beside its name and meaning.
struct KeyOptions {
    bool isRequired = false;  ///< and not empty
    Range range = {};         ///< of a number, or of each in a list
    const char* unit = "";
    const char* defaultNote = nullptr;  ///< null: as the structure has it
    bool isTop = false;                 ///< a table that stands in no other
};

/// One key of a table.
struct Key {
    const char* name;
    const char* meaning;
    KeyOptions options;
    void (*read)(const Key&, const toml::node&, void* table, JobFaults&);
    std::string (*describe)(const Key&);
    std::string (*showDefault)();
    bool isList;
    const KeyTable& (*table)();  ///< of a table, or of each in a list; else null
};

/// The keys of a table.
struct KeyTable {
    std::span<const Key> keys;
};

/// One word of a choice.
template <typename T>
struct Choice {
    T value;
    const char* word;
};

Position PositionOf(const toml::node& node);
Position PositionOf(const toml::key& key);
/// Of the value of each key.
std::map<std::string, Position, std::less<>> PlacesIn(const toml::table& table);
/// "a number", "text", "a list", ...
std::string DescribeNode(const toml::node& node);
/// How a key is named: "[job]", "[[group]]" or its name in quotes.
std::string LabelOf(const Key& key);

/// Tells that a key's value is of another type than `wanted`, and how that is written.
void AddWrongType(const Key& key,
                  const toml::node& node,
                  std::string_view wanted,
                  std::string_view how,
                  JobFaults& faults);
bool ReadNumber(const Key& key, const toml::node& node, double& value, JobFaults& faults);
bool ReadWhole(const Key& key, const toml::node& node, long& value, JobFaults& faults);
bool ReadText(const Key& key, const toml::node& node, std::string& text, JobFaults& faults);
/// The position of the word in `words`; -1, told, for any other.
long ReadWord(const Key& key,
              const toml::node& node,
              const std::vector<std::string>& words,
              JobFaults& faults);
/// The list, told unless it is one.
const toml::array* ReadList(const Key& key, const toml::node& node, JobFaults& faults);
/// Reads the keys of a table into the structure `into`. `title` names the table in messages; "" is
/// the file itself.
void ReadTable(const KeyTable& keys,
               const std::string& title,
               const toml::table& table,
               void* into,
               JobFaults& faults);

/// The tables that the keys of `table` open, each followed by its own.
std::vector<JobKeyTable> ListKeys(const KeyTable& table);

/// The words of an enumeration; made for each one by the key tables.
template <typename T>
std::span<const Choice<T>> ChoicesOf();
/// The keys of a structure; made for each one by the key tables.
template <typename T>
const KeyTable& KeysOf();

template <typename T>
std::vector<std::string> WordsOf() {
    std::vector<std::string> words;
    for (const Choice<T>& choice : ChoicesOf<T>())
        words.emplace_back(choice.word);
    return words;
}

/// Reading, naming and showing a value of type T. The general case: a table.
template <typename T, typename = void>
struct Value {
    static constexpr bool kIsTable = true;
    static constexpr const char* kName = "a table";
    static bool Read(const Key& key, const toml::node& node, T& into, JobFaults& faults) {
        const toml::table* table = node.as_table();
        if (table == nullptr) {
            AddWrongType(key, node, kName, key.options.isTop ? "in single brackets" : "", faults);
            return false;
        }
        const std::size_t faultsBefore = faults.GetCount();
        ReadTable(key.table(), LabelOf(key), *table, &into, faults);
        if constexpr (requires { into.isSound; }) {
            into.at = PositionOf(node);
            into.keys = PlacesIn(*table);
            into.isSound = faults.GetCount() == faultsBefore;
        }
        return true;
    }
    static std::string Show(const T&) { return ""; }
};

template <typename T>
struct Scalar {
    static constexpr bool kIsTable = false;
};

template <>
struct Value<double> : Scalar<double> {
    static constexpr const char* kName = "a number";
    static constexpr auto Read = ReadNumber;
    static std::string Show(double value) { return ShowNumber(value); }
};

template <>
struct Value<long> : Scalar<long> {
    static constexpr const char* kName = "a whole number";
    static constexpr auto Read = ReadWhole;
    static std::string Show(long value) { return std::to_string(value); }
};

template <>
struct Value<bool> : Scalar<bool> {
    static constexpr const char* kName = "true or false";
    static bool Read(const Key& key, const toml::node& node, bool& into, JobFaults& faults);
    static std::string Show(bool value) { return value ? "true" : "false"; }
};

template <>
struct Value<CalendarDate> : Scalar<CalendarDate> {
    static constexpr const char* kName = "a date";
    static bool Read(const Key& key, const toml::node& node, CalendarDate& into, JobFaults& faults);
    static std::string Show(const CalendarDate&) { return ""; }
};

template <>
struct Value<ZetString> : Scalar<ZetString> {
    static constexpr const char* kName = "a text";
    static bool Read(const Key& key, const toml::node& node, ZetString& into, JobFaults& faults);
    static std::string Show(const ZetString& value) { return Quoted(value.toUtf8()); }
};

template <>
struct Value<PlacedText> : Scalar<PlacedText> {
    static constexpr const char* kName = "a text";
    static bool Read(const Key& key, const toml::node& node, PlacedText& into, JobFaults& faults);
    static std::string Show(const PlacedText& value) { return Quoted(value.text.toUtf8()); }
};

template <>
struct Value<NcFilePattern> : Scalar<NcFilePattern> {
    static constexpr const char* kName = "a text";
    static bool Read(const Key& key,
                     const toml::node& node,
                     NcFilePattern& into,
                     JobFaults& faults);
    static std::string Show(const NcFilePattern& value) { return Quoted(value.text); }
};

/// A word of an enumeration.
template <typename T>
struct Value<T, std::enable_if_t<std::is_enum_v<T>>> : Scalar<T> {
    static constexpr const char* kName = "a word";
    static bool Read(const Key& key, const toml::node& node, T& into, JobFaults& faults) {
        const long index = ReadWord(key, node, WordsOf<T>(), faults);
        if (index >= 0)
            into = ChoicesOf<T>()[static_cast<std::size_t>(index)].value;
        return index >= 0;
    }
    static std::string Show(T value) {
        for (const Choice<T>& choice : ChoicesOf<T>())
            if (choice.value == value)
                return Quoted(choice.word);
        return "";
    }
};

template <typename T>
struct Value<std::optional<T>> {
    static constexpr bool kIsTable = Value<T>::kIsTable;
    static constexpr const char* kName = Value<T>::kName;
    static bool Read(const Key& key,
                     const toml::node& node,
                     std::optional<T>& into,
                     JobFaults& faults) {
        // There even when its value is wrong: it is not missing.
        return Value<T>::Read(key, node, into.emplace(), faults);
    }
    static std::string Show(const std::optional<T>&) { return "none"; }
};

template <typename T>
struct Value<std::vector<T>> {
    static constexpr bool kIsTable = Value<T>::kIsTable;
    static constexpr const char* kName = Value<T>::kName;
    static bool Read(const Key& key,
                     const toml::node& node,
                     std::vector<T>& into,
                     JobFaults& faults) {
        const toml::array* list = ReadList(key, node, faults);
        if (list == nullptr)
            return false;
        into.assign(list->size(), T{});
        for (std::size_t i = 0; i < list->size(); ++i)
            Value<T>::Read(key, *list->get(i), into[i], faults);
        return true;
    }
    static std::string Show(const std::vector<T>& values) {
        std::string text;
        for (const T& value : values)
            text += (text.empty() ? "" : ", ") + Value<T>::Show(value);
        return "[" + text + "]";
    }
};

template <typename T>
struct ElementOf {
    using Type = T;
    static constexpr bool kIsList = false;
};
template <typename T>
struct ElementOf<std::optional<T>> : ElementOf<T> {};
template <typename T>
struct ElementOf<std::vector<T>> {
    using Type = T;
    static constexpr bool kIsList = true;
};

/// What a key takes: "a number, 0 to 100", "a list of words: ...".
std::string DescribeValue(const char* name,
                          bool isList,
                          const Range& range,
                          const std::vector<std::string>& words);

template <typename T>
std::string Describe(const Key& key) {
    using Element = typename ElementOf<T>::Type;
    std::vector<std::string> words;
    if constexpr (std::is_enum_v<Element>)
        words = WordsOf<Element>();
    return DescribeValue(Value<Element>::kName, ElementOf<T>::kIsList, key.options.range, words);
}

/// The row of a key that fills what `Access` finds in a table of type T.
template <typename T, auto Access>
constexpr Key MakeKey(const char* name, const char* meaning, KeyOptions options) {
    using Member = std::remove_reference_t<decltype(Access(std::declval<T&>()))>;
    using Element = typename ElementOf<Member>::Type;
    const KeyTable& (*table)() = nullptr;
    if constexpr (Value<Element>::kIsTable)
        table = &KeysOf<Element>;
    return {name,
            meaning,
            options,
            [](const Key& key, const toml::node& node, void* into, JobFaults& faults) {
                Value<Member>::Read(key, node, Access(*static_cast<T*>(into)), faults);
            },
            &Describe<Member>,
            [] {
                T whole{};
                return Value<Member>::Show(Access(whole));
            },
            ElementOf<Member>::kIsList,
            table};
}

/// As above, for a member of T or of a base of T.
template <typename T, auto Member>
constexpr Key Row(const char* name, const char* meaning, KeyOptions options = {}) {
    return MakeKey < T, [](T & table) -> auto& {
        return table.*Member;
    }
    > (name, meaning, options);
}

}  // namespace job
