#pragma once

/// What a finding about a member does when CMxPeilaib::AppendMsg_VT files it; ValidateMember files
/// errors and what comes after them differently. A value outside the enumeration acts as
/// eReportingWarning.
enum eReportingTypes : int {
    eReportingDefault = 0,        ///< a line in the warning list
    eReportingWarning = 1,        ///< a line in the warning list
    eReportingNonStd = 2,         ///< non-standard member; a line in the warning list
    eReportingNonStdSilent = 3,   ///< non-standard member; the line is dropped
    eReportingError = 4,          ///< invalid member; a line in the error list
    eReportingSecondWarning = 5,  ///< a line in the second warning list
    eReportingSecondNonStd = 6,   ///< non-standard member; a line in the second warning list
    eReportingSecondError = 7,    ///< invalid member; a line in the second error list
};
