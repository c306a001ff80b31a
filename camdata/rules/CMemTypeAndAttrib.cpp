#include "camdata/rules/CMemTypeAndAttrib.h"

#include "camdata/platform/text/FixedPoint.h"

namespace {

constexpr double kNotAvailable = -0.1;
constexpr int kLengthDecimals = 3;

}  // namespace

CMemTypeAndAttrib::~CMemTypeAndAttrib() = default;

void CMemTypeAndAttrib::SetValues(int recordType,
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
                                  long searchLenForAttrib) {
    m_recordType = recordType;
    m_profileLength = profileLength;
    m_height = {heightSource, heightStart, heightLength, heightValue, 1.0};
    m_width = {widthSource, widthStart, widthLength, widthValue, 1.0};
    m_thick = {thickSource, thickStart, thickLength, thickValue, thickFactor};
    m_slope = {slopeSource, slopeStart, slopeLength, slopeValue, slopeFactor};
    m_checkProfileLength = checkProfileLength;
    m_viewStartNo = viewStartNo;
    m_profDesc = std::move(profDesc);
    m_shortName = std::move(shortName);
    m_nameStartPos = nameStartPos;
    m_nameLength = nameLength;
    m_searchLenForAttrib = searchLenForAttrib;
}

void CMemTypeAndAttrib::SetMemAttrib(CMemAttrib attrib) {
    m_attributes = attrib;
    m_hasAttributes = true;
}

int CMemTypeAndAttrib::SubtractQty(int n) {
    m_headerData.quantity -= n;
    return static_cast<int>(m_headerData.quantity);
}

double CMemTypeAndAttrib::GetLength() const {
    return camdata::detail::RoundToDecimals(m_headerData.length, kLengthDecimals);
}

double CMemTypeAndAttrib::GetProfileHeight() const {
    return Resolve(m_height, m_headerData.height, m_attributes.GetProfileHeight());
}

double CMemTypeAndAttrib::GetProfileWidth() const {
    // The bottom flange's on purpose, also where the top flange is wider.
    return Resolve(m_width, m_headerData.width, m_attributes.GetBottomFlangeWidth());
}

double CMemTypeAndAttrib::GetProfileThick() const {
    return Resolve(m_thick, m_headerData.thickness, m_attributes.GetProfileThick());
}

double CMemTypeAndAttrib::GetTopFlangeWidth() const {
    return m_hasAttributes ? m_attributes.GetTopFlangeWidth() : GetProfileWidth();
}

double CMemTypeAndAttrib::GetBottomFlangeWidth() const {
    return m_hasAttributes ? m_attributes.GetBottomFlangeWidth() : GetProfileWidth();
}

double CMemTypeAndAttrib::GetTopFlangeSlope() const {
    if (m_slope.source == eProfPropFixed)
        return m_slope.value;
    if (m_slope.source != eProfPropName)
        return kNotAvailable;
    const double number = NumberInName(m_slope.start + 1, m_slope.length);
    return m_headerData.profileName[m_slope.start] == L'-' ? -number : number;
}

double CMemTypeAndAttrib::NumberInName(int start, int length) const {
    // Of each hole, so without a text of its own.
    const std::wstring_view name = m_headerData.profileName.view();
    if (start < 0 || length <= 0 || static_cast<std::size_t>(start) >= name.size())
        return 0.0;
    return camdata::detail::ParseNumber(
               name.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(length)))
        .value;
}

double CMemTypeAndAttrib::Resolve(const Dimension& dimension,
                                  double fromHeader,
                                  double fromAttributes) const {
    switch (dimension.source) {
        case eProfPropHeader:
            return fromHeader;
        case eProfPropName:
            return NumberInName(dimension.start, dimension.length) * dimension.factor;
        case eProfPropFixed:
            return dimension.value;
        case eProfPropAttrib:
            return fromAttributes;
        default:
            return kNotAvailable;
    }
}
