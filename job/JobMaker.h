#pragma once

#include "job/BuiltInJob.h"
#include "job/CodeFormat.h"
#include "job/JobDocument.h"
#include "job/JobIds.h"
#include "job/Utf8Path.h"

#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace job {

/// Makes a job from what its file says, table by table; each topic has its source:
/// JobResolving.cpp, FileResolving.cpp, GroupResolving.cpp, CuttingResolving.cpp,
/// MemberTypeResolving.cpp, HoleRuleResolving.cpp, NotchResolving.cpp, AssemblyResolving.cpp.
class JobMaker {
  public:
    JobMaker(const JobDocument& document, const std::filesystem::path& jobFile, JobFaults& faults)
        : m_document(document),
          m_folder(jobFile.parent_path()),
          m_stem(ZetString::fromUtf8(Utf8FromPath(jobFile.stem()))),
          m_faults(faults) {}

    Job Make();

  private:
    void TakeJob();
    void TakeFiles();
    void TakeFormat(const FileTable& table, std::size_t position);
    void TakeNcOutput(const FileTable& table, std::size_t position);
    void RefuseHeader(const FileTable& table, const std::string& reason);
    void RequireHeaderFile(const SecondaryPartsTable& table, const Group& group);
    void RequireMembers(const FileTable& table, std::size_t position);
    std::optional<MachineFormat> ReadFormat(const PlacedText& name);
    void CheckFileNames();
    void TakeGroups();
    void TakeGroup(const SecondaryPartsTable& table, const PlacedText& id, Group& group);
    void TakeGroupFile(const PlacedText& reference, std::size_t file, Group& group);
    void TakeStocks();
    void CheckStock(const StockTable& table, bool hasPrice);
    void CheckKerfsAndGrips();
    void CheckPlan(const GroupTable& table);
    void TakePatterns();
    void CheckPatternHole(const FixedPattern& pattern, const PatternHoleTable& hole);
    void TakeMemberTypes();
    MemberType MakeMemberType(const MemberTypeTable& table);
    CMemTypeAndAttrib MakeDimensions(const MemberTypeTable& table, std::size_t group);
    CMemberValidations MakeLimits(const MemberTypeTable& table);
    void CheckDimension(const char* key,
                        const DimensionTable& table,
                        eProfPropType source,
                        bool hasAttributes);
    void TakeHoleRules();
    void CheckHoleRule(const HoleRuleTable& table, const JobIds& ids);
    void TakeCornerNotches();
    void CheckCornerNotch(const CornerNotchTable& table);
    void CheckNotchValues(const CornerNotchTable& table);
    void TakeTrims();
    void TakeAssemblies();
    void CheckPart(const AssemblyTable& assembly, std::size_t part, const JobIds& mains);
    void TakeInfo();

    void TakeUncovered();
    bool CheckCode(const PlacedText& code, CodeOf what);
    void TakeDates();
    void TakeCommentMarker();
    void CheckHeadings(const PlacedTable& table, const std::vector<ZetString>& lines);
    void CheckPath(const char* key, const std::string& path, Position at);
    void Require(bool isGood, Position at, const std::string& text) {
        if (!isGood)
            m_faults.Add(at, text);
    }
    /// For what several keys of a table say together: only told when each can be trusted.
    void RequireOf(const PlacedTable& table, bool isGood, const std::string& text) {
        Require(isGood || !table.isSound, table.at, text);
    }

    const JobDocument& m_document;
    const std::filesystem::path m_folder;
    const ZetString m_stem;
    JobFaults& m_faults;
    std::set<ZetString> m_formatFiles;  ///< whose faults are told
    Job m_job = MakeEmptyJob();
    JobIds m_files{"[[file]]"};
    JobIds m_groups{"[[group]]"};
    JobIds m_patterns{"[[fixed_pattern]]"};
};

}  // namespace job
