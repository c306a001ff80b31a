#include "job/JobValue.h"

#include "camdata/platform/text/Unicode.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <tuple>

namespace job {

namespace {

/// Of a text.
constexpr std::size_t kMaxCharacters = 10'000;

constexpr const char* kPlainly = "without quotes";
constexpr const char* kInQuotes = "in quotes";
constexpr const char* kInDoubleBrackets = "in double brackets, for there can be several";
constexpr const char* kInBrackets = "in square brackets, also for a single value";

struct NodeName {
    toml::node_type type;
    const char* name;
};

constexpr NodeName kNodeNames[] = {
    {toml::node_type::none,           "nothing"              },
    {toml::node_type::table,          "a table"              },
    {toml::node_type::array,          "a list"               },
    {toml::node_type::string,         "a text"               },
    {toml::node_type::integer,        "a whole number"       },
    {toml::node_type::floating_point, "a number with a point"},
    {toml::node_type::boolean,        "true or false"        },
    {toml::node_type::date,           "a date"               },
    {toml::node_type::time,           "a time of day"        },
    {toml::node_type::date_time,      "a date with a time"   },
};

Position AsPosition(const toml::source_position& position) {
    return {static_cast<long>(position.line), static_cast<long>(position.column)};
}

/// What a fault of one value is about.
std::string SubjectOf(const Key& key) {
    return (key.isList ? "each of " : "") + LabelOf(key);
}

void AddFault(const Key& key, const toml::node& node, const std::string& text, JobFaults& faults) {
    faults.Add(PositionOf(node), SubjectOf(key) + " " + text);
}

std::string Join(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words)
        text += (text.empty() ? "" : ", ") + Quoted(word);
    return text;
}

const Key* FindKey(const KeyTable& keys, std::string_view name) {
    const auto key = std::find_if(
        keys.keys.begin(), keys.keys.end(), [&](const Key& row) { return row.name == name; });
    return key == keys.keys.end() ? nullptr : &*key;
}

void AddUnknown(const KeyTable& keys,
                const std::string& title,
                const toml::key& name,
                const toml::node& node,
                JobFaults& faults) {
    std::vector<std::string> names;
    for (const Key& key : keys.keys)
        names.emplace_back(key.name);
    const std::string known = Suggest(name.str(), names);
    const bool isTable = node.is_table() || node.is_array();
    if (!title.empty())
        faults.Add(PositionOf(name), "unknown key " + Quoted(name.str()) + " in " + title + known);
    else if (isTable || !known.empty())
        faults.Add(PositionOf(name), "unknown table " + Quoted(name.str()) + known);
    else
        faults.Add(PositionOf(name),
                   Quoted(name.str()) + " belongs under the line of a table, such as [job]");
}

void AddMissing(const Key& key,
                const std::string& title,
                const toml::table& table,
                JobFaults& faults) {
    if (title.empty())
        faults.Add({}, LabelOf(key) + " is missing");
    else
        faults.Add(PositionOf(table), LabelOf(key) + " is missing in " + title);
}

std::string DefaultOf(const Key& key) {
    if (key.options.isRequired)
        return "required";
    return key.options.defaultNote != nullptr ? key.options.defaultNote : key.showDefault();
}

/// Lists the tables that the keys of `table` open, each followed by its own.
void ListTablesIn(const KeyTable& table, const std::string& path, std::vector<JobKeyTable>& list) {
    for (const Key& key : table.keys) {
        if (key.table == nullptr)
            continue;
        const std::string name = path + key.name;
        JobKeyTable entry{key.options.isTop ? LabelOf(key) : name, key.meaning, {}};
        for (const Key& row : key.table().keys)
            entry.keys.push_back(
                {row.name, row.describe(row), row.options.unit, DefaultOf(row), row.meaning});
        list.push_back(std::move(entry));
        ListTablesIn(key.table(), name + ".", list);
    }
}

}  // namespace

std::vector<JobFaults::Fault> JobFaults::TakeSorted() {
    std::stable_sort(m_faults.begin(), m_faults.end(), [](const Fault& a, const Fault& b) {
        return std::tie(a.file, a.at.line, a.at.column) < std::tie(b.file, b.at.line, b.at.column);
    });
    return std::move(m_faults);
}

void JobFaults::AddOf(const std::string& file, JobFaults faults) {
    for (Fault& fault : faults.TakeSorted())
        m_faults.push_back({fault.at, std::move(fault.text), file});
}

bool Range::Contains(double value) const {
    return value <= most && (isAbove ? value > least : value >= least);
}

std::string Range::Describe() const {
    if (isAbove)
        return "above " + ShowNumber(least) + ", at most " + ShowNumber(most);
    return ShowNumber(least) + " to " + ShowNumber(most);
}

Position PositionOf(const toml::node& node) {
    return AsPosition(node.source().begin);
}

Position PositionOf(const toml::key& key) {
    return AsPosition(key.source().begin);
}

std::map<std::string, Position, std::less<>> PlacesIn(const toml::table& table) {
    std::map<std::string, Position, std::less<>> places;
    for (const auto& [name, node] : table)
        places.emplace(name.str(), PositionOf(node));
    return places;
}

std::string DescribeNode(const toml::node& node) {
    const auto name = std::find_if(std::begin(kNodeNames),
                                   std::end(kNodeNames),
                                   [&](const NodeName& row) { return row.type == node.type(); });
    return name->name;
}

std::string LabelOf(const Key& key) {
    if (!key.options.isTop)
        return Quoted(key.name);
    return (key.isList ? "[[" : "[") + std::string(key.name) + (key.isList ? "]]" : "]");
}

void AddWrongType(const Key& key,
                  const toml::node& node,
                  std::string_view wanted,
                  std::string_view how,
                  JobFaults& faults) {
    std::string text = "must be " + std::string(wanted) + ", not " + DescribeNode(node);
    if (!how.empty())
        text += "; write it " + std::string(how);
    AddFault(key, node, text, faults);
}

bool ReadNumber(const Key& key, const toml::node& node, double& value, JobFaults& faults) {
    if (!node.is_number()) {
        AddWrongType(key, node, Value<double>::kName, node.is_string() ? kPlainly : "", faults);
        return false;
    }
    // Asked for a double, the parser gives none for a whole number that has more digits.
    const auto* const whole = node.as_integer();
    const double number =
        whole != nullptr ? static_cast<double>(whole->get()) : node.value<double>().value_or(0.0);
    if (!std::isfinite(number)) {
        AddFault(key, node, "must be an ordinary number, not nan or inf", faults);
        return false;
    }
    if (!key.options.range.Contains(number)) {
        AddFault(key,
                 node,
                 "must be " + key.options.range.Describe() + ", not " + ShowNumber(number),
                 faults);
        return false;
    }
    value = number;
    return true;
}

bool ReadWhole(const Key& key, const toml::node& node, long& value, JobFaults& faults) {
    if (!node.is_integer()) {
        AddWrongType(key, node, Value<long>::kName, node.is_string() ? kPlainly : "", faults);
        return false;
    }
    double number = 0.0;
    if (!ReadNumber(key, node, number, faults))
        return false;
    value = static_cast<long>(number);
    return true;
}

bool ReadText(const Key& key, const toml::node& node, std::string& text, JobFaults& faults) {
    const auto* value = node.as_string();
    if (value == nullptr) {
        AddWrongType(key, node, Value<ZetString>::kName, node.is_value() ? kInQuotes : "", faults);
        return false;
    }
    text = value->get();
    const ZetString characters = ZetString::fromUtf8(text);
    const std::wstring_view view = characters.view();
    if (std::any_of(view.begin(), view.end(), camdata::detail::IsControl)) {
        AddFault(key, node, "must be one line, without tabs and control characters", faults);
        return false;
    }
    if (view.size() > kMaxCharacters) {
        AddFault(key,
                 node,
                 "must have at most " + std::to_string(kMaxCharacters) + " characters",
                 faults);
        return false;
    }
    if (text.empty() && key.options.isRequired) {
        AddFault(key, node, "must not be empty", faults);
        return false;
    }
    return true;
}

long ReadWord(const Key& key,
              const toml::node& node,
              const std::vector<std::string>& words,
              JobFaults& faults) {
    std::string text;
    if (!ReadText(key, node, text, faults))
        return -1;
    const auto word = std::find(words.begin(), words.end(), text);
    if (word != words.end())
        return static_cast<long>(word - words.begin());
    AddFault(key,
             node,
             "must be one of " + Join(words) + ", not " + Quoted(text) + Suggest(text, words),
             faults);
    return -1;
}

const toml::array* ReadList(const Key& key, const toml::node& node, JobFaults& faults) {
    const toml::array* list = node.as_array();
    if (list == nullptr) {
        const bool isTopTable = key.options.isTop && node.is_table();
        faults.Add(PositionOf(node),
                   LabelOf(key) + " must be a list, not " + DescribeNode(node) + "; write it " +
                       (isTopTable ? kInDoubleBrackets : kInBrackets));
        return nullptr;
    }
    if (list->empty() && key.options.isRequired)
        faults.Add(PositionOf(node), LabelOf(key) + " must not be empty");
    return list;
}

void ReadTable(const KeyTable& keys,
               const std::string& title,
               const toml::table& table,
               void* into,
               JobFaults& faults) {
    for (const auto& [name, node] : table) {
        if (const Key* key = FindKey(keys, name.str()))
            key->read(*key, node, into, faults);
        else
            AddUnknown(keys, title, name, node, faults);
    }
    for (const Key& key : keys.keys)
        if (key.options.isRequired && !table.contains(key.name))
            AddMissing(key, title, table, faults);
}

std::vector<JobKeyTable> ListKeys(const KeyTable& table) {
    std::vector<JobKeyTable> list;
    ListTablesIn(table, "", list);
    return list;
}

std::string DescribeValue(const char* name,
                          bool isList,
                          const Range& range,
                          const std::vector<std::string>& words) {
    std::string text = isList ? std::string("list, each ") + name : name;
    if (!words.empty())
        text += ": " + Join(words);
    if (range.most > range.least)
        text += ", " + range.Describe();
    return text;
}

bool Value<bool>::Read(const Key& key, const toml::node& node, bool& into, JobFaults& faults) {
    const auto* value = node.as_boolean();
    if (value == nullptr) {
        AddWrongType(key, node, kName, node.is_string() ? kPlainly : "", faults);
        return false;
    }
    into = value->get();
    return true;
}

bool Value<CalendarDate>::Read(const Key& key,
                               const toml::node& node,
                               CalendarDate& into,
                               JobFaults& faults) {
    const auto* value = node.as_date();
    if (value == nullptr) {
        AddWrongType(key, node, kName, node.is_string() ? kPlainly : "", faults);
        return false;
    }
    into = {value->get().year, value->get().month, value->get().day};
    return true;
}

bool Value<ZetString>::Read(const Key& key,
                            const toml::node& node,
                            ZetString& into,
                            JobFaults& faults) {
    std::string text;
    if (!ReadText(key, node, text, faults))
        return false;
    into = ZetString::fromUtf8(text);
    return true;
}

bool Value<PlacedText>::Read(const Key& key,
                             const toml::node& node,
                             PlacedText& into,
                             JobFaults& faults) {
    if (!Value<ZetString>::Read(key, node, into.text, faults))
        return false;
    into.at = PositionOf(node);
    return true;
}

bool Value<NcFilePattern>::Read(const Key& key,
                                const toml::node& node,
                                NcFilePattern& into,
                                JobFaults& faults) {
    const Position at = PositionOf(node);
    into.line = at.line;
    into.column = at.column;
    return ReadText(key, node, into.text, faults);
}

}  // namespace job
