#pragma once

#include "report/drawing/MemberDrawing.h"
#include "report/page/CompactMember.h"

#include <cstddef>
#include <string>
#include <vector>

namespace camjob {

/// What the features of a run's members are and where they lie: drawn while each member is judged,
/// since nobody knows its holes afterwards, and kept as short texts until the run is told.
class MemberDrawings {
  public:
    /// A member's own part, which any thread may make.
    struct Drawn {
        explicit Drawn(const report::MemberDrawing& member)
            : length(member.length), material(member.material), drawing(member) {}

        double length;
        std::string material;
        report::CompactDrawing drawing;
    };
    /// Members in the order of the run's.
    void Add(const Drawn& member);
    std::size_t GetCount() const { return m_members.size(); }
    double GetLength(std::size_t member) const { return m_members[member].length; }
    const std::string& GetMaterial(std::size_t member) const {
        return m_texts.At(m_members[member].material);
    }
    /// Faces and features, without mark, profile and findings; numbers with three decimals.
    report::MemberDrawing Get(std::size_t member) const;
    /// As report::CompactDrawing makes it.
    const std::string& GetCompact(std::size_t member) const { return m_members[member].drawing; }
    /// Those that the drawings share.
    const report::SharedTexts& GetTexts() const { return m_texts; }

  private:
    struct Member {
        double length = 0.0;
        std::size_t material = 0;  ///< among the texts
        std::string drawing;
    };

    std::vector<Member> m_members;
    report::SharedTexts m_texts;
};

}  // namespace camjob
