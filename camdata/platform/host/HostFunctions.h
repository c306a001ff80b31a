#pragma once

/// @file
/// What a host offers to the library besides objects: functions with C names that its modules
/// export. The library never links to them. It looks among the modules that are loaded in the
/// process and does without what it does not find, so a host exports those that it has.
///
/// | module                                      | function         | type               |
/// |---------------------------------------------|------------------|--------------------|
/// | "kwdb17.dll", "kwdb18.dll" or "kwdb19.dll"  | `kwutPrintf`     | HostPrintWide      |
/// | "kwdb16.dll" or "kwutil15.dll"              | `kwutPrintf`     | HostPrintNarrow    |
/// | the main program, without any of the above  | `icPrintfAsync`  | HostPrintWide      |
/// | "kwcore.dll"                                | `kwedGetVar`     | HostGetVariable    |
///
/// Off Windows a module is a shared object whose SONAME or file name is the name in the table, and
/// the main program has to export its function (linked with -rdynamic).

/// Prints a text on the host's command line, as `printf` does. The library passes the text as the
/// format and nothing else. The result is not read.
using HostPrintWide = int (*)(const wchar_t* text, ...);

/// The same with the platform's narrow characters: the ANSI code page on Windows, else UTF-8.
using HostPrintNarrow = int (*)(const char* text, ...);

/// Takes the value of a system variable of the host. The library fills in eTypeNone and null.
struct HostVariable {
    enum Type {
        eTypeNone = 0,  ///< no value
        eTypeText = 1,  ///< `text` is the value
    };

    int type = eTypeNone;
    /// Ends with a zero character. Stays the host's and is valid until the next call of
    /// `kwedGetVar`; the library copies it before that and never frees it.
    const wchar_t* text = nullptr;
};

/// Reads the system variable `name` into `value`. Negative: there is no such variable, and `value`
/// is not read. The library asks for two: "PLXPREFIX", the folder of the current drawing, and
/// "PLXNAME", the file name of the current drawing, both texts.
using HostGetVariable = int (*)(const wchar_t* name, HostVariable* value);
