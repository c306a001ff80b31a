#pragma once

#include "camjob/check/CheckWriter.h"
#include "camjob/console/OutputStream.h"

#include <string>

namespace camjob {

/// The report for programs: one JSON document, written file by file, a line each; or each file and
/// the summary a document on a line of its own. Their fields are told in docs/check-json.md.
class CheckJsonWriter : public CheckWriter {
  public:
    enum class Form { kDocument, kLines };
    CheckJsonWriter(Form form, OutputStream& out)
        : m_isDocument(form == Form::kDocument), m_out(out) {}

    void Begin() override;
    /// Instead of Begin, when an earlier writer's files are out already.
    void Continue();
    void AddRead(const CheckReport& report) override;
    void AddRefused(const dstv::NcError& error) override;
    void End(const CheckSummary& summary) override;

  private:
    void AddFile(const std::string& file);
    void AddLine(const std::string& object);

    static constexpr const char* kNextFile = ",\n";

    bool m_isDocument;
    OutputStream& m_out;
    const char* m_separator = "\n";  ///< before the next file
};

}  // namespace camjob
