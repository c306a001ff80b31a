#pragma once

#include "camdata/platform/text/ZetString.h"

#include <array>
#include <cstddef>
#include <utility>

namespace ZetProjectDataEnums {

/// One text of the project that the model belongs to.
enum eZetCProjectDataID : int {
    eZetCProjectName = 0,        ///< name of the project
    eZetCProjectNo = 1,          ///< number of the project
    eZetCClient = 2,             ///< client
    eZetCColdRolledCust = 3,     ///< cold-rolled customer
    eZetCColdRolledOrderNo = 4,  ///< cold-rolled order number
    eZetCContractor = 5,         ///< contractor
    eZetCContractorContact = 6,  ///< whom to ask at the contractor
    eZetCDesigner = 7,           ///< designer
    eZetCDesignerContact = 8,    ///< whom to ask at the designer
    eZetCDetailer = 9,           ///< detailer
};

}  // namespace ZetProjectDataEnums

/// What the host knows of the project: a text per ZetProjectDataEnums::eZetCProjectDataID. A value.
class ZetNCProjectData {
  public:
    using ID = ZetProjectDataEnums::eZetCProjectDataID;

    /// Does nothing for a value outside the enumeration.
    void SetData(ID id, ZetString text) {
        if (IsValid(id))
            m_texts[static_cast<std::size_t>(id)] = std::move(text);
    }
    /// "" when it was never set, and for a value outside the enumeration.
    ZetString GetData(ID id) const {
        return IsValid(id) ? m_texts[static_cast<std::size_t>(id)] : ZetString();
    }

  private:
    static constexpr std::size_t kCount = 10;

    static bool IsValid(ID id) { return id >= 0 && static_cast<std::size_t>(id) < kCount; }

    std::array<ZetString, kCount> m_texts;
};
