#pragma once

#include "dstv/NcNote.h"

#include <cstdint>
#include <exception>
#include <optional>
#include <string_view>
#include <utility>

namespace dstv {

/// One line of a file, without its end.
struct NcLine {
    long number = 0;  ///< counted from 1
    std::string_view text;
};

/// Raised inside the reader; ParseNc hands the error out.
struct NcFailure : std::exception {
    explicit NcFailure(NcError reason) : error(std::move(reason)) {}

    NcError error;
};

/// Raises an NcFailure about a whole line or the value of one.
[[noreturn]] void FailAt(const NcLine& line,
                         const ZetString& what,
                         std::string_view found,
                         const ZetString& expected);

/// A text of a line, decoded. Fails on control characters, tabs apart.
ZetString TextAt(const NcLine& line, std::string_view bytes);

/// Cuts bytes into lines. LF and CR LF end a line; CR does when the bytes hold no LF at all.
class NcLines {
  public:
    explicit NcLines(std::string_view bytes);

    /// Takes the next line; false at the end. Fails beyond kMaxLines.
    bool Next(NcLine& line);

  private:
    const char* m_at;
    const char* m_end;
    char m_lineEnd;
    long m_number = 0;
};

/// Some letters, of which a and A count as one.
class NcLetters {
  public:
    /// Of lower case.
    consteval NcLetters(const char* letters) {
        for (; *letters != '\0'; ++letters)
            m_bits |= BitOf(*letters);
    }

    bool Has(char letter) const { return (m_bits & BitOf(letter)) != 0; }

  private:
    /// In ASCII the five last bits tell which letter it is.
    static constexpr std::uint32_t BitOf(char letter) {
        return std::uint32_t{1} << (static_cast<unsigned char>(letter) % 32);
    }

    std::uint32_t m_bits = 0;
};

/// The tokens of one line of geometry: single letters and numbers.
///
/// Blanks and tabs separate; so does every change between letter and number, and a sign after a
/// digit. Numbers have no exponent, no decimal comma and no thousands separator.
class NcTokens {
  public:
    explicit NcTokens(const NcLine& line);

    const NcLine& GetLine() const { return m_line; }
    bool IsAtEnd() const { return m_at == m_end; }
    bool IsAtNumber() const;
    /// Takes the next token when it is a letter, in lower case; 0 when it is none.
    char TakeLetter() { return IsAtLetter() ? TakeThisLetter() : '\0'; }
    /// Takes the next token when it is a letter of `letters`; fails on another letter, 0 when it is
    /// none.
    char TakeLetterOf(NcLetters letters, const wchar_t* what, const wchar_t* expected) {
        if (!IsAtLetter())
            return '\0';
        if (!letters.Has(*m_at))
            Fail(what, expected);
        return TakeThisLetter();
    }
    /// Takes a + or -; 0 when neither is next.
    char TakeSign();
    /// Takes a number; fails when the next token is none.
    double TakeNumber(const wchar_t* what, const wchar_t* expected);
    /// Takes a number that is not negative.
    double TakeSize(const wchar_t* what, const wchar_t* expected);
    /// Takes the next token when it is a number, else gives `missing`.
    double TakeNumberOr(double missing);
    /// The text from the next token to the end of the line, trimmed.
    std::string_view GetRest() const;
    /// Takes a letter of `letters` that follows the token taken last without a blank; 0 when there
    /// is none.
    char TakeGlued(NcLetters letters);
    void ExpectEnd() const;
    [[noreturn]] void Fail(const wchar_t* what, const wchar_t* expected) const;

  private:
    bool IsAtLetter() const {
        return !IsAtEnd() && ((*m_at >= 'a' && *m_at <= 'z') || (*m_at >= 'A' && *m_at <= 'Z'));
    }
    char TakeThisLetter() {
        // In ASCII one bit makes a letter lower case.
        const char letter = static_cast<char>(*m_at | 0x20);
        MoveTo(m_at + 1);
        return letter;
    }
    /// Takes all up to `end`, and the blanks behind it.
    void MoveTo(const char* end) {
        m_tokenEnd = end;
        while (end != m_end && (*end == ' ' || *end == '\t'))
            ++end;
        m_at = end;
    }
    /// Takes the next token when it is a number; false when it is none.
    bool TakeIfNumber(const wchar_t* what, double& value);
    /// Takes a number of many digits; fails when it is too large, or another point or a comma
    /// follows. True.
    bool TakeUnusualNumber(const char* end, const wchar_t* what, double& value);
    [[noreturn]] void FailFrom(const char* at, const wchar_t* what, const wchar_t* expected) const;

    NcLine m_line;
    const char* m_at;
    const char* m_end;
    const char* m_tokenEnd;
};

/// A whole text as one number; nothing when it is none. A decimal comma counts when `allowComma`.
std::optional<double> ParseNumber(std::string_view text, bool allowComma);

}  // namespace dstv
