#pragma once

#include "camjob/console/OutputStream.h"

#include <algorithm>
#include <string>

namespace camjob {

/// JSON on its way to another stream, without the line ends between its parts: texts in it have
/// none.
class OneLineStream : public OutputStream {
  public:
    /// The stream must outlive it.
    explicit OneLineStream(OutputStream& target) : m_target(target) {}

    /// Ends the line.
    void End() {
        Flush();
        m_target.Write("\n");
        m_target.Flush();
    }

  private:
    std::error_code WriteBytes(std::string_view bytes) override {
        std::string text(bytes);
        text.erase(std::remove(text.begin(), text.end(), '\n'), text.end());
        m_target.Write(text);
        m_target.Flush();
        return m_target.GetFailure();
    }

    OutputStream& m_target;
};

}  // namespace camjob
