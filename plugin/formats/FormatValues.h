#pragma once

#include "job/formats/MachineFormat.h"
#include "plugin/formats/MachineMember.h"

#include <optional>
#include <string_view>
#include <variant>
#include <vector>

/// @file
/// What each field of a format stands for.

namespace plugin {

/// What the lines of a run have in common.
struct FormatTexts {
    ZetString fileName;
    ZetString job;
    ZetString project;
    ZetString number;
    ZetString client;
    ZetString revision;
    ZetString date;
};

/// What a line is written about; null and 0 for what it has not.
struct FormatSubject {
    const FormatTexts* texts = nullptr;
    const ZetString* group = nullptr;
    const ZetString* section = nullptr;
    const MachineMember* member = nullptr;
    const MachineOperation* operation = nullptr;
    const ZetGeomPoint2d* point = nullptr;
    const ZetString* header = nullptr;
    long members = 0;
    long pieces = 0;
    long lines = 0;
    long index = 0;
    long count = 0;
    double pitch = 0.0;
};

/// A word that the format gives, unlike a text of the data.
struct FormatWord {
    std::wstring_view word;
    bool isOfProgram = false;  ///< it can be in capitals
};

/// Why there is no value.
struct NoValue {
    ZetString reason;
    std::optional<double> found = {};
};

using FormatValue = std::variant<double, long, std::wstring_view, FormatWord, NoValue>;

/// The names and frames of a format, looked up. The format must outlive it.
class FormatValues {
  public:
    explicit FormatValues(const job::MachineFormat& format);

    /// Of any field but points. A text lives as long as the subject and the format.
    FormatValue ValueOf(job::FormatField field, const FormatSubject& subject) const;

    /// Positions in the format's tables, for the order; behind all others where there is none.
    std::size_t ToolRowOf(const MachineOperation& operation) const;
    std::size_t FaceRowOf(const MachineOperation& operation) const;

  private:
    friend struct FieldValues;

    const job::FaceName* FaceOf(int face) const;
    FormatValue NameOfFace(int face) const;
    FormatValue NameOfTool(const MachineOperation& operation) const;
    FormatValue NameOfProfile(const ZetString& profile) const;
    FormatValue PlaceAlong(double x, const FormatSubject& subject) const;
    FormatValue PlaceAcross(double y, const FormatSubject& subject) const;
    int SideOf(const MachineOperation& operation) const;
    FormatValue AngleOf(const MachineOperation& operation) const;

    const job::MachineFormat& m_format;
};

/// The part that an operation is in formats.
job::FormatPart PartOf(const MachineOperation& operation);

}  // namespace plugin
