#include "job/Remnants.h"

#include "job/CsvTable.h"
#include "job/TextFile.h"
#include "job/Utf8Path.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <optional>
#include <string_view>
#include <system_error>

namespace job {

namespace {

enum Column : std::size_t {
    kProfile,
    kMaterial,
    kLength,
    kQuantity,
    kName,
    kColumns,
};
constexpr std::array<std::string_view, kColumns> kColumnNames = {
    "profile", "material", "length", "quantity", "name"};

constexpr double kMaxLength = 100000.0;
constexpr long kMaxQuantity = 1'000'000;

/// "profile,material,length,quantity,name"
std::string HeadLine() {
    std::string line;
    for (const std::string_view name : kColumnNames)
        line += (line.empty() ? "" : ",") + std::string(name);
    return line;
}

/// Only digits and, in a length, one point among them.
std::optional<double> NumberOf(std::string_view text, bool isWhole) {
    const std::string_view characters = isWhole ? "0123456789" : "0123456789.";
    double number = 0.0;
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    const bool isNumber = result.ec == std::errc() && result.ptr == end &&
                          text.find_first_not_of(characters) == std::string_view::npos;
    return isNumber ? std::optional(number) : std::nullopt;
}

class RemnantReader {
  public:
    explicit RemnantReader(std::string file) : m_file(std::move(file)) {}

    void Read(std::string_view bytes) {
        const std::vector<CsvRecord> records = ReadCsv(bytes);
        if (records.empty())
            return AddFault(0, "the table is empty: its first line is " + HeadLine());
        if (!ReadHead(records.front()))
            return;
        for (std::size_t i = 1; i < records.size(); ++i)
            ReadRow(records[i]);
    }

    std::variant<std::vector<Remnant>, std::vector<JobError>> TakeResult() {
        if (!m_faults.empty())
            return std::move(m_faults);
        return std::move(m_remnants);
    }

    void AddFault(long line, std::string text) {
        m_faults.push_back({m_file, line, 0, std::move(text)});
    }

  private:
    bool ReadHead(const CsvRecord& head) {
        bool isGood = head.fault.empty() && head.fields.size() == kColumns;
        for (std::size_t column = 0; column < kColumns; ++column) {
            const auto at = std::find(head.fields.begin(), head.fields.end(), kColumnNames[column]);
            isGood = isGood && at != head.fields.end();
            m_places[column] = static_cast<std::size_t>(at - head.fields.begin());
        }
        if (!isGood)
            AddFault(head.line,
                     head.fault.empty()
                         ? "the first line must be " + HeadLine() +
                               ", in any order: save the table with commas between its fields"
                         : head.fault);
        return isGood;
    }

    void ReadRow(const CsvRecord& row) {
        if (!row.fault.empty())
            return AddFault(row.line, row.fault);
        if (row.fields.size() != kColumns)
            return AddFault(row.line,
                            "the row has " + std::to_string(row.fields.size()) +
                                (row.fields.size() == 1 ? " field" : " fields") + " instead of " +
                                std::to_string(std::size_t{kColumns}) +
                                ": a field with a comma stands in quotes, and a number has a "
                                "decimal point");
        const auto field = [&](Column column) -> const std::string& {
            return row.fields[m_places[column]];
        };
        const std::optional<double> length = NumberOf(field(kLength), false);
        const std::optional<double> quantity = NumberOf(field(kQuantity), true);
        if (field(kProfile).empty())
            AddFault(row.line, "\"profile\" is missing: it is the profile name of the members");
        if (!length || *length <= 0.0 || *length > kMaxLength)
            AddFault(row.line,
                     "\"length\" is " + QuotedField(field(kLength)) +
                         ": write mm above 0, at most 100000, such as 2350.5");
        if (!quantity || *quantity > static_cast<double>(kMaxQuantity))
            AddFault(row.line,
                     "\"quantity\" is " + QuotedField(field(kQuantity)) +
                         ": write a whole number of bars from 0 to " +
                         std::to_string(kMaxQuantity));
        m_remnants.push_back({TextOfField(field(kProfile)),
                              TextOfField(field(kMaterial)),
                              length.value_or(0.0),
                              static_cast<long>(quantity.value_or(0.0)),
                              TextOfField(field(kName))});
    }

    static std::string QuotedField(const std::string& field) {
        return field.empty() ? "missing" : "\"" + field + "\"";
    }

    std::string m_file;
    std::array<std::size_t, kColumns> m_places{};  ///< of the columns in a row
    std::vector<Remnant> m_remnants;
    std::vector<JobError> m_faults;
};

}  // namespace

std::filesystem::path GetRemnantFile(const Job& job) {
    if (job.cutting.remnants.empty())
        return {};
    return PathFromUtf8(job.file).parent_path() / PathFromUtf8(job.cutting.remnants);
}

std::variant<std::vector<Remnant>, std::vector<JobError>> ReadRemnants(const Job& job) {
    const std::filesystem::path file = GetRemnantFile(job);
    if (file.empty())
        return std::vector<Remnant>();
    const std::u8string name = file.generic_u8string();
    RemnantReader reader({name.begin(), name.end()});
    const auto bytes = ReadTextFile(file, "table of remnants");
    if (const auto* fault = std::get_if<TextFileFault>(&bytes))
        reader.AddFault(0, fault->text + "; \"remnants\" in [cutting] of the job file names it");
    else
        reader.Read(std::get<std::string>(bytes));
    return reader.TakeResult();
}

std::string MakeRemnantTable(const std::vector<Remnant>& remnants) {
    std::string table = HeadLine() + kCsvLineEnd;
    for (const Remnant& remnant : remnants)
        table += CsvField(remnant.profileName) + "," + CsvField(remnant.material) + "," +
                 ZetString::format(L"%.10g", remnant.length).toUtf8() + "," +
                 std::to_string(remnant.quantity) + "," + CsvField(remnant.name) + kCsvLineEnd;
    return table;
}

}  // namespace job
