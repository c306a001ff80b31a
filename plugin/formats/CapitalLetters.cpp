#include "plugin/formats/CapitalLetters.h"

#include <algorithm>
#include <iterator>

namespace plugin {

namespace {

/// Letters from `first` on, one after another, and what stands for each; a blank: itself.
struct LetterRow {
    wchar_t first;
    std::wstring_view capitals;
};

constexpr LetterRow kLetters[] = {
    {L'a',      L"ABCDEFGHIJKLMNOPQRSTUVWXYZ"                                                  },
    {L'\u00C0', L"AAAAAA CEEEEIIII NOOOOO OUUUUY  AAAAAA CEEEEIIII NOOOOO OUUUUY Y"            },
    {L'\u0100', L"AAAAAACCCCCCCCDDDDEEEEEEEEEEGGGGGGGGHHHHIIIIIIIIII  JJKK LLLLLLLLLLNNNNNN   "},
    {L'\u014C', L"OOOOOO  RRRRRRSSSSSSSSTTTTTTUUUUUUUUUUUUWWYYYZZZZZZ "                        },
    {L'\u0218', L"SSTT"                                                                        },
};

struct Replacement {
    wchar_t letter;
    std::wstring_view capitals;
};

constexpr Replacement kReplacements[] = {
    {L'\u00C6', L"AE"    },
    {L'\u00E6', L"AE"    },
    {L'\u00D0', L"D"     },
    {L'\u00F0', L"D"     },
    {L'\u00DE', L"TH"    },
    {L'\u00FE', L"TH"    },
    {L'\u00DF', L"SS"    },
    {L'\u0132', L"IJ"    },
    {L'\u0133', L"IJ"    },
    {L'\u0138', L"K"     },
    {L'\u0149', L"N"     },
    {L'\u014A', L"NG"    },
    {L'\u014B', L"NG"    },
    {L'\u0152', L"OE"    },
    {L'\u0153', L"OE"    },
    {L'\u017F', L"S"     },
    {L'\u03AC', L"\u0391"}, // Greek
    {L'\u03AD', L"\u0395"},
    {L'\u03AE', L"\u0397"},
    {L'\u03AF', L"\u0399"},
    {L'\u03CC', L"\u039F"},
    {L'\u03CD', L"\u03A5"},
    {L'\u03CE', L"\u03A9"},
    {L'\u03C2', L"\u03A3"},
};

/// Small letters whose capitals lie at one distance.
struct Alphabet {
    wchar_t first;
    wchar_t last;
    int toCapital;
};

constexpr Alphabet kAlphabets[] = {
    {L'\u03B1', L'\u03C9', -32},
    {L'\u0430', L'\u044F', -32}, // Cyrillic
    {L'\u0450', L'\u045F', -80},
};

void AppendCapital(std::wstring& text, wchar_t c) {
    for (const Replacement& row : kReplacements)
        if (row.letter == c) {
            text += row.capitals;
            return;
        }
    for (const LetterRow& row : kLetters)
        if (c >= row.first && static_cast<std::size_t>(c - row.first) < row.capitals.size()) {
            const wchar_t capital = row.capitals[static_cast<std::size_t>(c - row.first)];
            text += capital == L' ' ? c : capital;
            return;
        }
    for (const Alphabet& row : kAlphabets)
        if (c >= row.first && c <= row.last) {
            text += static_cast<wchar_t>(c + row.toCapital);
            return;
        }
    text += c;
}

}  // namespace

std::wstring InPlainCapitals(std::wstring_view text) {
    std::wstring capitals;
    for (const wchar_t c : text)
        AppendCapital(capitals, c);
    return capitals;
}

}  // namespace plugin
