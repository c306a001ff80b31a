#pragma once

#include "camjob/CommandLine.h"

#include <string>
#include <utility>
#include <vector>

/// Keeps what the tool writes.
class KeptText : public camjob::OutputStream {
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

/// A run of the tool in this process.
struct ToolRun {
    explicit ToolRun(std::vector<std::string> arguments) {
        exitCode = camjob::RunCamjob(std::move(arguments), out, err);
    }

    KeptText out;
    KeptText err;
    int exitCode = 0;
};
