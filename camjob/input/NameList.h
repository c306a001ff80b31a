#pragma once

#include <fstream>
#include <iosfwd>
#include <optional>
#include <string>

namespace camjob {

/// Names of files that another program or a file lists, UTF-8, a line each; empty lines are none.
/// Each is there as soon as its line is.
class NameList {
  public:
    /// The name of a file, or "-" for the standard input.
    explicit NameList(const std::string& source);

    /// False: there is no such list, or it could not be read to its end.
    bool IsGood() const;
    /// Nothing: there are no more.
    std::optional<std::string> Next();

  private:
    std::ifstream m_file;
    std::istream* m_lines;  ///< the file, or the standard input
    bool m_isBegun = false;
};

}  // namespace camjob
