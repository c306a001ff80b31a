#pragma once

#include "camdata/platform/base/Export.h"
#include "camdata/platform/base/ZetArray.h"
#include "camdata/platform/geometry/ZetGeomPoint3d.h"
#include "camdata/platform/geometry/ZetGeomVector3d.h"
#include "camdata/platform/host/ICS3d.h"
#include "camdata/platform/system/Modules.h"
#include "camdata/platform/system/ZetFileAccess.h"
#include "camdata/platform/text/ZetString.h"

/// Text utilities of the reports, and printing on the host's command line.
///
/// What prints is silent outside a host (HostFunctions.h). Results are 1 unless said otherwise.
class CAMDATA_API CMxUtil {
  public:
    static constexpr wchar_t m_SpaceChar = L' ';        ///< fills every indentation
    static constexpr wchar_t m_LineDividerChar = L'-';  ///< fills every divider line
    static constexpr long m_NOT_LIMITED = -1;           ///< a limit that does not limit

    CMxUtil() = delete;

    /// `count` blanks; with `newLine` the last of them is a line feed. "" when count is below 1.
    static ZetString GetSpaces(int count, bool newLine);
    /// As GetSpaces, of divider characters.
    static ZetString GetLineDivider(int count, bool newLine);

    /// Prints a text on the host's command line, with a line feed added when it holds none at all.
    ///
    /// The first loaded one of "kwdb17.dll", "kwdb16.dll", "kwutil15.dll", "kwdb18.dll" and
    /// "kwdb19.dll" prints it, or nothing does when that one lacks `kwutPrintf`; without any of
    /// them the main program's `icPrintfAsync`. The host sees the text as a format: "%" is the
    /// caller's.
    static long PrintPrompt(const ZetString& text);
    /// Prints "label : x,y,z" with two decimals on a line of its own.
    static long PrintPoint(const ZetGeomPoint3d& point, const ZetString& label);
    static long PrintVector(const ZetGeomVector3d& vector, const ZetString& label);

    /// Prints origin and axes on the host's command line. 0 when there is no coordinate system.
    /// Raises HostComError when it cannot be read.
    static long PrintCS(ICS3d* cs);
    /// Writes origin and axes to a file, a blank line between; as PrintCS(cs) unless it is open.
    static long PrintCS(ICS3d* cs, ZetFileAccess* file);

    /// Prints each line with PrintPrompt, in order.
    static long AsArrStrPrint(const ZetArray<ZetString>& lines);
    /// Writes each line and a line feed to a file, in order; as AsArrStrPrint(lines) unless it is
    /// open.
    static long AsArrStrPrint(const ZetArray<ZetString>& lines, ZetFileAccess* file);

    /// The file version of a loaded module as "1.2.3.4"; "0.0.0.0" for null and for a module
    /// without one.
    static ZetString GetDllVersion(ModuleHandle module);
};
