#pragma once

#include "camdata/platform/base/Export.h"
#include "camdata/platform/host/ZetNCHeaderData.h"
#include "camdata/platform/text/ZetString.h"
#include "camdata/rules/CMemAttrib.h"
#include "camdata/rules/eProfPropType.h"

#include <utility>

/// One kind of member: where its profile dimensions and its name come from, its descriptive texts,
/// and the NC header of the member at hand. A value; mm.
///
/// A dimension that is not available reads as -0.1. Positions in the profile name count from 0; a
/// part of the name that does not exist, or is no number, reads as 0.
class CAMDATA_API CMemTypeAndAttrib {
  public:
    CMemTypeAndAttrib() = default;
    virtual ~CMemTypeAndAttrib();
    CMemTypeAndAttrib(const CMemTypeAndAttrib&) = default;
    CMemTypeAndAttrib& operator=(const CMemTypeAndAttrib&) = default;
    CMemTypeAndAttrib(CMemTypeAndAttrib&&) = default;
    CMemTypeAndAttrib& operator=(CMemTypeAndAttrib&&) = default;

    /// Sets everything but the header and the attributes. `thickFactor` multiplies a thickness that
    /// is cut out of the profile name; `slopeFactor` is only kept.
    void SetValues(int recordType,
                   int profileLength,
                   eProfPropType heightSource,
                   int heightStart,
                   int heightLength,
                   double heightValue,
                   eProfPropType widthSource,
                   int widthStart,
                   int widthLength,
                   double widthValue,
                   eProfPropType thickSource,
                   int thickStart,
                   int thickLength,
                   double thickValue,
                   double thickFactor,
                   eProfPropType slopeSource,
                   int slopeStart,
                   int slopeLength,
                   double slopeValue,
                   double slopeFactor,
                   int checkProfileLength,
                   long viewStartNo,
                   ZetString profDesc,
                   ZetString shortName,
                   long nameStartPos,
                   long nameLength,
                   long searchLenForAttrib);
    /// Sets the explicit section attributes, which then decide the flange widths.
    void SetMemAttrib(CMemAttrib attrib);
    void SetHeaderData(ZetNCHeaderData headerData) { m_headerData = std::move(headerData); }
    void SetLength(double length) { m_headerData.length = length; }
    void SetProfileName(ZetString name) { m_headerData.profileName = std::move(name); }
    /// Takes `n` from the header's quantity, below zero too, and returns what is left.
    int SubtractQty(int n);

    /// The header's length rounded to three decimals, ties of the exact value to the even digit.
    double GetLength() const;
    double GetProfileHeight() const;
    /// From the attributes, it is their bottom flange width.
    double GetProfileWidth() const;
    double GetProfileThick() const;
    /// The profile width while no attributes are set.
    double GetTopFlangeWidth() const;
    double GetBottomFlangeWidth() const;
    /// Only from the profile name (a sign character, then the number) and as a fixed value.
    double GetTopFlangeSlope() const;

    const ZetNCHeaderData& GetHeaderData() const { return m_headerData; }
    long GetQty() const { return m_headerData.quantity; }
    ZetString GetMark() const { return m_headerData.mark; }
    ZetString GetProfileName() const { return m_headerData.profileName; }
    ZetString GetProfileCode() const { return m_headerData.profileCode; }

    /// Below 2: the member counts as not processed.
    void SetRecordType(int type) { m_recordType = type; }
    int GetRecordType() const { return m_recordType; }
    int GetProfileLength() const { return m_profileLength; }
    int GetCheckProfileLength() const { return m_checkProfileLength; }
    long GetViewStartNo() const { return m_viewStartNo; }
    void SetProfDesc(ZetString text) { m_profDesc = std::move(text); }
    ZetString GetProfDesc() const { return m_profDesc; }
    void SetShortName(ZetString name) { m_shortName = std::move(name); }
    ZetString GetShortName() const { return m_shortName; }
    /// Where the member's name begins in the profile name.
    void SetNameStartPos(long position) { m_nameStartPos = position; }
    long GetNameStartPos() const { return m_nameStartPos; }
    void SetNameLength(long length) { m_nameLength = length; }
    long GetNameLength() const { return m_nameLength; }
    long GetSearchLenForAttrib() const { return m_searchLenForAttrib; }

  private:
    /// How one dimension is obtained.
    struct Dimension {
        eProfPropType source;
        int start;  ///< in the profile name
        int length;
        double value;   ///< fixed value
        double factor;  ///< of a number from the profile name
    };

    double NumberInName(int start, int length) const;
    double Resolve(const Dimension& dimension, double fromHeader, double fromAttributes) const;

    ZetNCHeaderData m_headerData;
    int m_recordType = 0;
    int m_profileLength = 0;
    Dimension m_height{eProfPropNone, -1, 0, 0.0, 1.0};
    Dimension m_width{eProfPropNone, -1, 0, 0.0, 1.0};
    Dimension m_thick{eProfPropNone, -1, 0, 0.0, 0.1};
    /// `start` is the place of the sign character.
    Dimension m_slope{eProfPropNone, -1, 0, -0.1, 1.0};
    int m_checkProfileLength = 0;
    long m_viewStartNo = 99;
    ZetString m_profDesc = L"Not Implemented";
    ZetString m_shortName = L"NA";
    /// Reserved: only copied.
    [[maybe_unused]] bool m_reserved = false;
    long m_nameStartPos = 4;
    long m_nameLength = 0;
    long m_searchLenForAttrib = 0;
    CMemAttrib m_attributes;
    bool m_hasAttributes = false;
};
