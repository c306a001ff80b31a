#pragma once

/// The text list of a record that AppendMsg appends to.
enum eHoleMsgType : int {
    eHoleMsgCode = 0,     ///< output codes, oldest first
    eHoleMsgError = 1,    ///< error messages
    eHoleMsgWarning = 2,  ///< warning messages
};
