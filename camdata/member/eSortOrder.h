#pragma once

/// One key by which members are ordered, ascending. Any other value is skipped.
enum eSortOrder : int {
    eSortMark = 0,               ///< mark, as text
    eSortProfileName = 1,        ///< profile name, as text
    eSortProfileHeight = 2,      ///< profile height
    eSortProfileWidth = 3,       ///< profile width
    eSortProfileThick = 4,       ///< profile thickness
    eSortLength = 5,             ///< length rounded to three decimals
    eSortProfileNameLength = 6,  ///< number of characters of the profile name
    eSortGroupID = 7,            ///< group ID
};
