#pragma once

#include "job/BuiltInJob.h"
#include "job/Job.h"
#include "plugin/rules/JobMember.h"
#include "support/ContourOf.h"
#include "support/host/FakeHostObjects.h"

#include "camdata/camdata.h"

#include <map>
#include <optional>
#include <string>

#include <gtest/gtest.h>

/// A part as a host offers it: Part(L"Z1").Qty(4).Hole(1, 100, 50, 18). Without more it is one
/// Z200x2.0, 3000 long, 200 high, with flanges of 70. The tag of a hole or contour is its number.
/// Must outlive the members made from it, which hold its model object.
class Part : public ZetNCEntity {
  public:
    explicit Part(const wchar_t* mark, const wchar_t* profile = L"Z200x2.0") {
        m_header.mark = mark;
        m_header.profileName = profile;
        m_header.profileCode = L"SO";
        m_header.quantity = 1;
        m_header.length = 3000.0;
        m_header.height = 200.0;
        m_header.width = 70.0;
        m_header.thickness = 2.0;
        m_equalPart.m_offers = {
            {IEqualPartObject::kId, &m_equalPart}
        };
        m_equalPart.m_isMainPart = 0;
    }
    Part(const Part&) = delete;
    Part& operator=(const Part&) = delete;

    Part& Qty(long quantity) { return m_header.quantity = quantity, *this; }
    Part& Material(const wchar_t* material) { return m_header.material = material, *this; }
    Part& Thickness(double thickness) { return m_header.thickness = thickness, *this; }
    Part& Length(double length) { return m_header.length = length, *this; }
    Part& Hole(int view, double x, double y, double size, int kind = 0) {
        return Hole(view, ZetNCHoleData{.x = x, .y = y, .kind = kind, .size = size});
    }
    /// (x, y) is the centre of its first end, `distance` the way to the other one.
    Part& Slot(int view, double x, double y, double size, double distance, double angle = 0.0) {
        // clang-format off
        return Hole(view, ZetNCHoleData{.x = x, .y = y, .size = size, .slot = 1,
                                        .slotLength = distance, .slotAngle = angle});
        // clang-format on
    }
    Part& Hole(int view, ZetNCHoleData hole) {
        hole.hostTag = ++m_tags;
        ZetNCView& target = m_views[view];
        ZetArray<ZetNCHoleData> holes = target.getHoles();
        holes.append(hole);
        return target.setHoles(holes), *this;
    }
    /// A closed contour; the first point is repeated here.
    Part& Contour(int view, int type, ZetArray<ZetGeomPoint2d> points) {
        points.append(points.first());
        ZetNCContour contour = ContourOf(type, points);
        contour.hostTag = ++m_tags;
        if (type == ZetNCContour::eTypeInternal)
            return Append(m_views[view], contour), *this;
        return m_views[view].setExternalContours({contour}), *this;
    }
    /// An opening with its centre at (x, y).
    Part& Opening(int view, double x, double y, double length, double width) {
        const double a = length * 0.5;
        const double b = width * 0.5;
        // clang-format off
        return Contour(view, ZetNCContour::eTypeInternal,
                       {{x - a, y - b}, {x + a, y - b}, {x + a, y + b}, {x - a, y + b}});
        // clang-format on
    }
    /// The main part of an assembly with these parts fixed to it, one each.
    Part& MainPartWith(const ZetArray<ZetNCEntity*>& attached) {
        m_equalPart.m_isMainPart = IEqualPartObject::kHostTrue;
        m_attached = attached;
        return *this;
    }

    NCTypes getType() const override { return eNCTypeBeam; }
    IHostObject* getModelObject() override {
        m_equalPart.addRef();
        return &m_equalPart;
    }
    ZetNCHeaderData getHeader(long) const override { return m_header; }
    ZetNCStructure getNCStructure(long) const override {
        ZetArray<ZetNCView> views;
        for (const auto& [position, view] : m_views) {
            views.append(view);
            views.last().setViewPos(position);
        }
        ZetNCStructure structure;
        structure.setViews(views);
        return structure;
    }
    ZetArray<ZetNCEntity*> getAttachedEntities() const override { return m_attached; }

  private:
    static void Append(ZetNCView& view, const ZetNCContour& contour) {
        ZetArray<ZetNCContour> contours = view.getInternalContours();
        contours.append(contour);
        view.setInternalContours(contours);
    }

    ZetNCHeaderData m_header;
    std::map<int, ZetNCView> m_views;
    ZetArray<ZetNCEntity*> m_attached;
    FakeEqualPart m_equalPart;
    long m_tags = 0;
};

/// Views of a part.
enum SampleView : int {
    kTopView = 0,
    kWebView = 1,
    kBottomView = 2,
};

/// A job whose only member type has these limits: none, with every finding of the plug-in an error.
inline job::Job SampleJob() {
    job::Job job = job::BuiltInJob();
    job::MemberType& type = job.memberTypes.front();
    for (int check = job::kUncoveredHole; check < job::kMissingParts; ++check)
        type.reports[static_cast<std::size_t>(check)] = eReportingError;
    type.type.SetNameStartPos(0);
    job.areDistancesChecked = false;
    job.uncoveredHoles = {};
    job.uncoveredNotches = {};
    return job;
}

/// Names the tests of a table by the rows' names.
struct RowName {
    template <typename Case>
    std::string operator()(const ::testing::TestParamInfo<Case>& row) const {
        return row.param.name;
    }
};

/// A member and what it needs, judged.
struct Judged {
    Judged(const job::Job& job, Part& part) : rules(job) {
        creator.setNCEntity(&part);
        creator.create();
        member.emplace(rules, job.memberTypes.front(), creator);
        member->ValidateMember();
    }

    plugin::JobMember* operator->() { return &*member; }

    /// "100 50 P18" for each hole, blank after blank; "(...)" when it is not manufactured.
    std::string Holes() const {
        std::string text;
        for (const CHoleAddlInfo& hole : member->GetHoles()) {
            const ZetString shown =
                ZetString::format(L"%g %g %s", hole.GetXPos(), hole.GetYPos(), hole.GetHoleCode());
            text += hole.GetValid() ? "[" + shown.toUtf8() + "]" : "(" + shown.toUtf8() + ")";
        }
        return text;
    }
    /// Errors without their indentation, each with its line end.
    std::string Errors() const { return Lines(member->GetErrors()); }
    std::string Warnings() const { return Lines(member->GetWarnings()); }

    static std::string Lines(const ZetArray<ZetString>& lines) {
        std::string text;
        for (const ZetString& line : lines)
            text += line.trimmedLeft().toUtf8() + "\n";
        return text;
    }

    plugin::JudgingRules rules;
    ZetNCCreator creator;
    std::optional<plugin::JobMember> member;
};
