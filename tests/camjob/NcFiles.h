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

/// Every form of hole, a mark and a text.
inline std::string AllHoles() {
    return Header() +
           "BO\n"
           "  v 100.00u 50.00 18.00\n"                        // line 23
           "  v 200.00 50.00 18.00 0.00l 40.00 0.00 0.00\n"   // slot along
           "  v 300.00 60.00 14.00 0.00l 0.00 26.00 0.00\n"   // slot across
           "  v 400.00 50.00g 12.00 0.00\n"                   // right-hand thread
           "  v 450.00 50.00l 12.00 8.50\n"                   // left-hand thread, blind
           "  v 500.00 100.00 13.00 0.00\n"                   // hole ...
           "  v 500.00 100.00s 26.00 6.50 0.00 0.00 90.00\n"  // ... and its sink
           "  v 600.00 40.00 20.00 0.00l 80.00 40.00 0.00\n"  // rounded rectangle
           "  v 800.00 40.00 0.00 0.00l 50.00 50.00 0.00\n"   // sharp square
           "  v 900.00 50.00m 0.00 0.00\n"                    // mark
           "  o 1000.00s 32.50 18.00\n"                       // top flange
           "  u 1000.00s 32.55 17.95\n"                       // bottom flange
           "  h 1500.00 -0.04 9.00\n"                         // web back
           "SI\n"
           "  v 50.00u 100.00 0.00 10r Z-101\n"
           "IK\n"
           "  v 2000.00u 50.00 0.00\n"
           "    2100.00 50.00 0.00\n"
           "    2100.00 100.00 0.00\n"
           "    2000.00 50.00 0.00\n"
           "EN\n";
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
