#pragma once

#include "camjob/console/JsonText.h"
#include "camjob/console/OutputStream.h"
#include "camjob/console/ReportJson.h"

#include <cstddef>
#include <string>

namespace camjob {

/// A document in the making: each field begins a line, and so does each item of a list. Of a big
/// job it is never in memory as a whole.
///
/// When the memory ends, the same fields can be added once more to one whose lines go out at once:
/// those that are out are passed over, and a list that was begun ends.
class JsonLines {
  public:
    JsonLines(OutputStream& out, bool goesOutAtOnce)
        : m_out(&out), m_goesOutAtOnce(goesOutAtOnce) {}

    void Begin() { m_field = 0; }
    /// What is still to be added goes there.
    void GoOnIn(OutputStream& out) { m_out = &out; }
    void AddField(const char* key, const Json& value) {
        if (m_field++ == m_done)
            FinishField(HeadOf(key) + Dump(value));
    }
    /// Items are a `Json` or a `JsonText` each.
    template <typename Item>
    void AddList(const char* key, std::size_t count, Item item) {
        if (m_field++ != m_done)
            return;
        for (std::size_t i = 0; i < count; ++i) {
            std::string line = m_isListOpen ? ",\n" : HeadOf(key) + "[\n";
            AppendJson(line, item(i));
            Put(line);
            m_isListOpen = true;
        }
        FinishField(m_isListOpen ? "]" : HeadOf(key) + "[]");
    }
    /// The last fields, all or none: an object as text. Nothing of it may still need memory.
    void End(const std::string& object) { Put(",\n" + object.substr(1) + "\n"); }

  private:
    std::string HeadOf(const char* key) const {
        return (m_done == 0 ? "{" : ",\n") + Dump(key) + ":";
    }
    void Put(const std::string& text) {
        m_out->Write(text);
        if (m_goesOutAtOnce)
            m_out->Flush();
    }
    void FinishField(const std::string& text) {
        Put(text);
        m_isListOpen = false;
        ++m_done;
    }

    OutputStream* m_out;
    bool m_goesOutAtOnce;
    std::size_t m_field = 0;  ///< the next one to be added
    std::size_t m_done = 0;   ///< fields that are out
    bool m_isListOpen = false;
};

}  // namespace camjob
