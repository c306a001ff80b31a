#pragma once

#include "camjob/console/JsonLines.h"
#include "camjob/console/OutputStream.h"
#include "camjob/console/Paths.h"
#include "camjob/run/MemberJson.h"
#include "camjob/run/RunReport.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace camjob {

/// What a status is called.
const char* WordOf(RunStatus status);

/// The report for programs: one JSON document. Its fields are told in docs/run-json.md.
class RunJsonWriter {
  public:
    enum class Form {
        kScreen,    ///< names as the user gave them
        kDocument,  ///< a file of the output: the same wherever that stands and whoever made it
    };
    /// `threads` put members together. Of a document some may be made already.
    RunJsonWriter(Form form, OutputStream& out, unsigned threads = 1, MadeMembers made = {})
        : m_isDocument(form == Form::kDocument),
          m_threads(threads),
          m_made(std::move(made)),
          m_lines(out, !m_isDocument) {}

    /// When the memory ends on the way, a second call with a report of that ends the document.
    void Write(const RunReport& report);
    void GoOnIn(OutputStream& out) { m_lines.GoOnIn(out); }

  private:
    void WriteHead();
    std::vector<std::string> NamesOfMembers();
    void AddMembers();
    std::string EndText();
    /// An NC file.
    std::string NameOf(const std::string& file) {
        return m_isDocument && !file.empty() ? m_names->Of(file) : file;
    }
    static std::string WithoutFolder(const std::string& file) {
        return Utf8FromPath(PathFromUtf8(file).filename());
    }
    Json ToJson(const RunFault& fault);
    Json ToJson(const RunNote& note);
    Json ToJson(const RunUnmadeFile& file);
    Json ToJson(const RunFile& file) const;
    static Json ToJson(const RunGroup& group);
    static Json ToJson(const plugin::ProfileResult& profile);
    static JsonText ToJson(const RunPlan& plan);
    Json ChangesOf() const;
    template <typename T>
    void AddList(const char* key, const std::vector<T>& items) {
        m_lines.AddList(key, items.size(), [&](std::size_t i) { return ToJson(items[i]); });
    }

    const RunReport* m_report = nullptr;
    std::optional<NamesFromFolder> m_names;
    bool m_isDocument;
    unsigned m_threads;
    MadeMembers m_made;
    JsonLines m_lines;
};

}  // namespace camjob
