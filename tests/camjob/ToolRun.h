#pragma once

#include "camjob/CommandLine.h"

#include <string>
#include <utility>
#include <vector>

/// Keeps what is written.
class TextStream : public camjob::OutputStream {
  public:
    const std::string& GetText() {
        Flush();
        return m_text;
    }

  private:
    std::error_code WriteBytes(std::string_view bytes) override {
        m_text += bytes;
        return {};
    }

    std::string m_text;
};

/// What one run of the program left behind.
struct CamjobRun {
    int exitCode;
    std::string out;
    std::string err;
};

inline CamjobRun RunTool(std::vector<std::string> arguments) {
    TextStream out;
    TextStream err;
    const int exitCode = camjob::RunCamjob(std::move(arguments), out, err);
    return {exitCode, out.GetText(), err.GetText()};
}
