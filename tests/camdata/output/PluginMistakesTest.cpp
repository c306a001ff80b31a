#include "support/AssertionOf.h"
#include "support/TempFolder.h"
#include "support/TestMember.h"
#include "support/host/FakeHostObjects.h"

#include "camdata/output/CMxCamGlobAcc.h"
#include "camdata/platform/dialog/DialogWindow.h"
#include "camdata/project/CProjectInformation.h"
#include "camdata/project/ProjectDialogGuide.h"

#include <cstdio>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>

#include <gtest/gtest.h>

// What a plug-in may do wrong in the operations that it overrides: what comes out of the library,
// and what is left behind. A mistake that the library cannot see stands in the plug-in guide.

namespace {

[[noreturn]] void Raise() {
    throw std::runtime_error("of the plug-in");
}

/// What comes out of a call: the text of an assertion or of an exception, "none".
std::string OutcomeOf(const std::function<void()>& call) {
    try {
        return AssertionOf(call);
    } catch (const std::exception& error) {
        return error.what();
    }
}

/// A member that does what the test says where the library calls it.
class MistakenMember final : public TestMember {
  public:
    void WriteMemOutPut(const ZetArray<ZetFileAccess*>& files, ZetArray<CMxPeilaib*>&) override {
        m_write(*files.first());
    }
    void PrintSinglePartDetail(const ZetArray<ZetFileAccess*>& files) override {
        m_report(*files.first());
    }

    std::function<void(ZetFileAccess&)> m_write = [](ZetFileAccess& file) { file.Write(L"M\n"); };
    std::function<void(ZetFileAccess&)> m_report = [](ZetFileAccess& file) { file.Write(L"P\n"); };
};

/// A run with one file and one member, which is a part of an assembly.
struct WrittenRun {
    WrittenRun() {
        ZetArray<CMxFileGroups> files = {{}, {}, {}, {}};
        for (long i = 0; i < 4; ++i)
            files[i].setValues(
                7, m_folder.NameOf(kNames[i]), L"", ZetArray<ZetString>(), false, true);
        ZetArray<CMxGroups> groups = {{}, {}};
        groups[1].setValues(1, ZetArray<long>{0}, ZetArray<ZetString>(), ZetArray<eSortOrder>());
        m_accumulator.appendGroups({0, 1}, std::move(groups));
        m_accumulator.appendFileGroups(std::move(files));
        CMxAddlInfo info;
        info.SetAddInfoArr({ZetArray<ZetString>{L"all"}}, {0});
        m_accumulator.SetAddInfo(info);
        m_member.SetGroupID(1);
        m_member.m_validations.SetPartofAssy(true);
        m_accumulator.Append(&m_member);
    }
    std::string File() const { return m_folder.Read("a.txt"); }

    static constexpr const char* kNames[] = {"a.txt", "info.txt", "errors.txt", "warnings.txt"};
    TempFolder m_folder;
    CMxCamGlobAcc m_accumulator;
    MistakenMember m_member;
};

TEST(PluginMistakes, OfAMemberThatIsWritten) {
    struct Case {
        const char* name;
        std::function<void(MistakenMember&)> mistake;
        const char* outcome;
        const char* file;
    };
    const auto raise = [](ZetFileAccess&) { Raise(); };
    // clang-format off
    const Case cases[] = {
        {"none", [](MistakenMember&) {}, "none", "M\nP\n"},
        {"raises while it is written", [&](MistakenMember& m) { m.m_write = raise; }, "of the plug-in", ""},
        {"raises while it reports", [&](MistakenMember& m) { m.m_report = raise; }, "of the plug-in", "M\n"},
        {"closes a file", [](MistakenMember& m) { m.m_write = [](ZetFileAccess& file) { file.Close(); EXPECT_FALSE(file.Write(L"M\n")); }; }, "none", ""},
        {"reads beyond the files", [](MistakenMember& m) { m.m_write = [](ZetFileAccess&) { ZetArray<int>()[0] = 1; }; }, "isValid( index )", ""},
    };
    // clang-format on
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        WrittenRun run;
        c.mistake(run.m_member);
        EXPECT_EQ(OutcomeOf([&] { run.m_accumulator.WriteOutPut(); }), c.outcome);
        EXPECT_EQ(run.File(), c.file);
        run.m_member.m_write = MistakenMember().m_write;
        run.m_member.m_report = MistakenMember().m_report;
        EXPECT_EQ(OutcomeOf([&] { run.m_accumulator.WriteOutPut(); }), "none");
        EXPECT_EQ(run.File(), "M\nP\n");
        EXPECT_TRUE(run.m_accumulator.GetFileFaults().isEmpty());
    }
}

/// A member that ends the run that writes it would go on with files that are closed: the handler
/// is told, then the process ends.
TEST(PluginMistakes, OfAMemberThatEndsItsRun) {
    const auto endWhileItIsWritten = [] {
        auto run = std::make_unique<WrittenRun>();
        auto accumulator = std::make_unique<CMxCamGlobAcc>(run->m_accumulator);
        run->m_member.m_write = [&](ZetFileAccess&) { accumulator.reset(); };
        SetZetAssertHandler([](const char* text, const char*, int) { std::fputs(text, stderr); });
        accumulator->WriteOutPut();
    };
    EXPECT_DEATH(endWhileItIsWritten(), "!isWriting\\(\\)");
}

/// Two runs, one within the other: what is written within is whole.
TEST(PluginMistakes, NotOfAMemberThatWritesAnotherRun) {
    WrittenRun outer;
    WrittenRun inner;
    outer.m_member.m_write = [&](ZetFileAccess& file) {
        inner.m_accumulator.WriteOutPut();
        file.Write(L"M\n");
    };
    outer.m_accumulator.WriteOutPut();
    EXPECT_EQ(outer.File(), "M\nP\n");
    EXPECT_EQ(inner.File(), "M\nP\n");
}

/// Members in threads of the plug-in's own, one run in each.
TEST(PluginMistakes, NotOfRunsInTwoThreads) {
    WrittenRun runs[2];
    std::thread first([&] { runs[0].m_accumulator.WriteOutPut(); });
    runs[1].m_accumulator.WriteOutPut();
    first.join();
    for (const WrittenRun& run : runs)
        EXPECT_EQ(run.File(), "M\nP\n");
}

/// An entity of which one operation raises an exception.
class RaisingEntity final : public ZetNCEntity {
  public:
    explicit RaisingEntity(int raising) : m_raising(raising) {}
    NCTypes getType() const override { return eNCTypeStructure; }
    IHostObject* getModelObject() override { return Maybe(0), nullptr; }
    ZetNCHeaderData getHeader(long) const override { return Maybe(1), HeaderOf{.mark = L"new"}; }
    ZetNCStructure getNCStructure(long) const override { return Maybe(2), ZetNCStructure(); }
    ZetArray<ZetNCEntity*> getAttachedEntities() const override {
        return Maybe(3), ZetArray<ZetNCEntity*>();
    }

  private:
    void Maybe(int operation) const {
        if (operation == m_raising)
            Raise();
    }

    int m_raising;
};

TEST(PluginMistakes, OfAnEntityOfTheHost) {
    for (const int raising : {0, 1, 2, 3}) {
        SCOPED_TRACE(raising);
        RaisingEntity entity(raising);
        ZetNCCreator creator;
        creator.setNCEntity(&entity);
        const std::string created = raising == 0 ? "none" : "of the plug-in";
        EXPECT_EQ(OutcomeOf([&] { creator.create(); }), created);
        EXPECT_EQ(creator.getHeader().mark, raising == 1 ? L"" : L"new");
        TestMember member;
        EXPECT_EQ(OutcomeOf([&] { member.SetNCObjects(&creator); }),
                  raising == 0 ? "of the plug-in" : "none");
    }
}

/// A main part whose attached parts are nobody, and one that raises.
TEST(PluginMistakes, OfAttachedParts) {
    RaisingEntity good(-1);
    RaisingEntity raising(1);
    struct Main final : ZetNCEntity {
        NCTypes getType() const override { return eNCTypeStructure; }
        IHostObject* getModelObject() override { return nullptr; }
        ZetNCHeaderData getHeader(long) const override { return {}; }
        ZetNCStructure getNCStructure(long) const override { return {}; }
        ZetArray<ZetNCEntity*> getAttachedEntities() const override { return m_attached; }
        ZetArray<ZetNCEntity*> m_attached;
    } main;
    for (ZetNCEntity* second :
         {static_cast<ZetNCEntity*>(nullptr), static_cast<ZetNCEntity*>(&raising)}) {
        main.m_attached = {&good, second};
        ZetNCCreator creator;
        creator.setNCEntity(&main);
        creator.create();
        TestMember member;
        member.SetNCObjects(&creator);
        EXPECT_EQ(OutcomeOf([&] { member.GetAttachedPartNos(); }),
                  second == nullptr ? "none" : "of the plug-in");
        ASSERT_EQ(member.m_attachedParts.length(), second == nullptr ? 2 : 0);
        if (second == nullptr) {
            EXPECT_EQ(member.m_attachedParts[1].GetPartNo(), L"");
        }
    }
}

/// Operation by operation of the guide; the record stays as it was. What "Save Settings" has
/// written before it tells the guide stays written.
TEST(PluginMistakes, OfTheGuideOfTheDialog) {
    struct Guide final : ProjectDialogGuide {
        explicit Guide(int raising) : m_raising(raising) {}
        void OnFilled(DialogWindow&) override { Maybe(0); }
        void OnEdited(DialogWindow&, int) override { Maybe(1); }
        ZetString FindFault(DialogWindow&, const CProjectInformation&) override {
            return Maybe(2), ZetString();
        }
        void OnSaved() override { Maybe(3); }
        void Maybe(int operation) const {
            if (operation == m_raising)
                Raise();
        }
        int m_raising;
    };
    const TempFolder folder;
    SetDialogDriver(DialogDriver{DialogDriver::Backend::kMemory,
                                 [](DialogWindow& window) {
                                     window.SetText(1101, L"typed");
                                     window.Click(1001);
                                     window.Click(1);
                                 },
                                 [](const ZetString&, const ZetString&) { return true; }});
    for (const int raising : {0, 1, 2, 3}) {
        SCOPED_TRACE(raising);
        CProjectInformation project;
        project.SetFileName(L"before");
        project.SetProjFileName(folder.NameOf("settings.txt"));
        project.SetProjInfoArrInFile({L"+", L"+", L"+", L"+", L"+", L"+", L"+", L"+"});
        Guide guide(raising);
        EXPECT_EQ(OutcomeOf([&] { project.ShowGuidedDialog(guide); }), "of the plug-in");
        EXPECT_EQ(project.GetFileName(), L"before");
        EXPECT_EQ(folder.Read("settings.txt").empty(), raising != 3);
    }
}

}  // namespace
