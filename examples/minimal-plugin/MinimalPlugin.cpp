#include "PunchMember.h"

#include "camdata/output/CMxCamGlobAcc.h"
#include "camdata/platform/host/ZetNCPlugin.h"

#include <deque>

namespace {

CMxFileGroups FileNamed(const ZetString& folder, const wchar_t* name, const wchar_t* header) {
    CMxFileGroups file;
    file.setValues(-1, folder + L"/" + name, name, ZetArray<ZetString>{header}, false, true);
    return file;
}

/// The position in the list is what a file is for; from 4 on the plug-in is free.
ZetArray<CMxFileGroups> FilesIn(const ZetString& folder) {
    return {FileNamed(folder, L"punch.txt", L"Punch line"),
            FileNamed(folder, L"info.txt", L"Members"),
            FileNamed(folder, L"errors.txt", L"Errors"),
            FileNamed(folder, L"warnings.txt", L"Warnings")};
}

/// A group that writes to punch.txt.
CMxGroups GroupWithID(long id) {
    CMxGroups group;
    group.setValues(id, ZetArray<long>{0}, {}, ZetArray<eSortOrder>{eSortMark});
    return group;
}

/// The members and the creators that they read from, at addresses that stay.
struct Members {
    void Add(ZetNCEntity* entity) {
        ZetNCCreator& creator = creators.emplace_back();
        creator.setNCEntity(entity);
        creator.create();
        members.emplace_back(creator);
    }

    bool AreValid() const {
        for (const PunchMember& member : members)
            if (!member.GetValid())
                return false;
        return true;
    }

    std::deque<ZetNCCreator> creators;
    std::deque<PunchMember> members;
};

void SetUp(CMxCamGlobAcc& run, const ZetString& folder) {
    run.appendGroups(ZetArray<int>{0, 1, 2},
                     ZetArray<CMxGroups>{GroupWithID(0), GroupWithID(1), GroupWithID(2)});
    run.appendFileGroups(FilesIn(folder));
    CMxAddlInfo info;
    // All members; one block that is free; those with errors; those with warnings.
    info.SetAddInfoArr(ZetArray<ZetArray<ZetString>>{{L"All"}, {}, {L"Errors"}, {L"Warnings"}},
                       ZetArray<long>{0, 2, 3});
    run.SetAddInfo(info);
}

eNCPluginResult RunJob(ZetNCEntity* const* entities, long count, const ZetString& folder) {
    CMxCamGlobAcc::SetGeomEPSs(0.1, 0.5, 0.5, 0.5, 0.01, 15.0, 15.0, 15.0);
    Members members;
    for (long i = 0; i < count; ++i)
        members.Add(entities[i]);
    CMxCamGlobAcc run;
    SetUp(run, folder);
    for (PunchMember& member : members.members)
        run.Append(&member);
    run.WriteOutPut();
    if (!run.GetFileFaults().isEmpty())
        return eNCPluginFileFault;
    return members.AreValid() ? eNCPluginDone : eNCPluginInvalidMembers;
}

}  // namespace

/// Writes the members to the files punch.txt, info.txt, errors.txt and warnings.txt.
int RunNCPlugin(ZetNCEntity* const* entities, long count, const char* folder) {
    try {
        return RunJob(entities, count, ZetString::fromUtf8(folder));
    } catch (...) {
        return eNCPluginFailed;
    }
}
