#pragma once

#include <string>

/// NC files that several tests use. The first data line after the 20 header lines is line 22.
namespace nc {

/// ST and the header of a Z section without text lines. `profile` is name and code, a line each.
inline std::string Header(const std::string& mark = "Z-101",
                          const std::string& profile = "Z200x2.0\n  SO",
                          const std::string& length = "6000.00,5990.50") {
    return "ST\n  ORDER-1\n  D-4711\n  1\n  " + mark + "\n  S350GD\n  12\n  " + profile + "\n  " +
           length +
           "\n  200.00\n  65.00\n  2.00\n  2.00\n  4.00\n  5.3\n  0.7\n"
           "  0.0\n  0.0\n  0.0\n  0.0\n";
}

/// Two holes and nothing to note.
inline std::string Plain(const std::string& mark = "P1") {
    return Header(mark, "Z200x2.0\n  SO", "1500.00") +
           "BO\n"
           "  v 50.00 50.00 18.00\n"
           "  o 1450.00 32.50 14.00\n"
           "EN\n";
}

/// Its length, line 10, is no number.
inline std::string BadLength() {
    return Header("BAD", "Z200x2.0\n  SO", "6236:88") + "EN\n";
}

}  // namespace nc
