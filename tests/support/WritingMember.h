#pragma once

#include "support/TestMember.h"
#include "support/host/FakeHostObjects.h"

#include "camdata/member/MemberFiles.h"
#include "camdata/util/CMxUtil.h"

#include <string>
#include <vector>

/// How a member is to behave in a run: writes one line to the first of its files unless told
/// otherwise.
struct MemberRow {
    explicit MemberRow(const wchar_t* partNo) : mark(partNo) {}
    MemberRow& Group(long id) { return groupID = id, *this; }
    MemberRow& Qty(long count) { return quantity = count, *this; }
    /// Positions in the list of files; each gets one line.
    MemberRow& WritesTo(std::vector<long> positions) { return writesTo = positions, *this; }
    MemberRow& Invalid() { return isInvalid = true, *this; }
    /// A part of an assembly, but not the main part.
    MemberRow& SecondaryPart() { return isPart = true, *this; }
    /// The main part of an assembly with one attached part.
    MemberRow& MainPartWith(const wchar_t* partNo) {
        return isPart = true, attached = partNo, *this;
    }
    MemberRow& ShortfallAsWarning() { return shortfallAsWarning = true, *this; }
    MemberRow& InfoBlocks(ZetArray<long> positions) { return infoBlocks = positions, *this; }

    const wchar_t* mark;
    long groupID = 0;
    long quantity = 1;
    std::vector<long> writesTo = {0};
    bool isInvalid = false;
    bool isPart = false;
    const wchar_t* attached = nullptr;
    bool shortfallAsWarning = false;
    ZetArray<long> infoBlocks;
};

/// A member that writes as a plug-in's members do: takes attached parts from the secondary ones,
/// makes its report, and writes a line "MARK xQUANTITY" and the report. Notes what it was handed.
class WritingMember : public TestMember {
  public:
    /// Appends "MARK > FILES | SECONDARY PARTS" to `log` for each writing ("MARK (holder) > ..."
    /// once the nesting flag is cleared) and "MARK reports > FILES" for each report as a single
    /// part. Among the files "-" is none, "(NAME)" one that is not open.
    WritingMember(const MemberRow& row, std::vector<std::string>& log)
        : m_writesTo(row.writesTo), m_log(&log) {
        // clang-format off
        m_memType.SetHeaderData(HeaderOf{.mark = row.mark, .quantity = row.quantity,
                                         .profileName = L"Z200", .length = 1000.0});
        // clang-format on
        m_memType.SetNameStartPos(0);
        SetGroupID(row.groupID);
        SetNesting(true);
        SetAddInfoArrLoc(row.infoBlocks);
        m_shortfallAsWarning = row.shortfallAsWarning;
        if (row.isInvalid)
            m_errors.append(L"          is wrong");
        TakePart(row);
    }

    void WriteMemOutPut(const ZetArray<ZetFileAccess*>& files,
                        ZetArray<CMxPeilaib*>& secondaryParts) override {
        std::string handed = Handed(GetNesting() ? "" : " (holder)", files) + " |";
        for (const CMxPeilaib* part : secondaryParts)
            handed += " " + part->GetMark().toUtf8();
        m_log->push_back(handed);
        CheckAttachedPartsSelection(secondaryParts);
        CreateErrWarHeader();
        for (const long position : m_writesTo) {
            if (files[position] != nullptr)
                files[position]->WriteFormat(L"%s x%d\n", GetMark(), GetQty());
        }
        CMxUtil::AsArrStrPrint(m_errorReport, ErrorFileOf(files));
        CMxUtil::AsArrStrPrint(m_errors, ErrorFileOf(files));
        CMxUtil::AsArrStrPrint(m_warningReport, WarningFileOf(files));
        CMxUtil::AsArrStrPrint(m_warnings, WarningFileOf(files));
    }

    void PrintSinglePartDetail(const ZetArray<ZetFileAccess*>& files) override {
        m_log->push_back(Handed(" reports", files));
        CMxPeilaib::PrintSinglePartDetail(files);
    }

    /// A file's name without its folder.
    static std::string PlainName(const ZetString& fileName) {
        const std::string name = fileName.toUtf8();
        return name.substr(name.find_last_of("/\\") + 1);
    }

    /// A line "MARK holds PART xQUANTITY LENGTH ..." for a member that holds parts; else "".
    std::string NestText() const {
        if (m_partsToNest.isEmpty())
            return {};
        ZetString text = GetMark() + L" holds";
        for (const CMxParts& part : m_partsToNest)
            text += ZetString::format(
                L" %s x%d %.1f", part.GetPartNo(), part.GetQty(), part.GetLength());
        return text.toUtf8() + "\n";
    }

  private:
    void TakePart(const MemberRow& row) {
        static FakeEqualPart mainPart;
        m_validations.SetPartofAssy(row.isPart);
        if (row.attached == nullptr)
            return;
        mainPart.addRef();
        m_equalPart = HostPtr<IEqualPartObject>::adopt(&mainPart);
        m_attachedParts.append({});
        m_attachedParts.last().SetPartNo(row.attached);
    }

    static std::string Shown(const ZetFileAccess* file) {
        if (file == nullptr)
            return "-";
        const std::string name = PlainName(file->GetName());
        return file->IsOpen() ? name : "(" + name + ")";
    }

    std::string Handed(const char* role, const ZetArray<ZetFileAccess*>& files) const {
        std::string text = GetMark().toUtf8() + role + " >";
        for (const ZetFileAccess* file : files)
            text += " " + Shown(file);
        return text;
    }

    std::vector<long> m_writesTo;
    std::vector<std::string>* m_log;
};
