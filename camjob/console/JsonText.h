#pragma once

#include "camjob/console/ReportJson.h"

#include <concepts>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// @file
/// Values of a JSON document as text, for lists that are too long to make a `Json` of each item
/// first. The bytes are those that Dump makes.

namespace camjob {

/// A value as it stands in a document.
struct JsonText {
    std::string text;
};

/// Texts are UTF-8.
void AppendJson(std::string& json, std::string_view text);
void AppendJson(std::string& json, double number);
template <std::integral T>
void AppendJson(std::string& json, T value) {
    if constexpr (std::same_as<T, bool>)
        json += value ? "true" : "false";
    else
        json += std::to_string(value);
}
inline void AppendJson(std::string& json, const std::same_as<Json> auto& value) {
    json += Dump(value);
}
inline void AppendJson(std::string& json, const JsonText& value) {
    json += value.text;
}

/// An object in the making. Its keys are words of our own, in the order in which they were first
/// set.
class JsonObject {
  public:
    JsonObject() { m_fields.reserve(kUsualFields); }

    template <typename T>
    void Set(const char* key, const T& value) {
        std::string& text = TextOf(key);
        text.clear();
        AppendJson(text, value);
    }
    JsonText ToText() const;

  private:
    static constexpr std::size_t kUsualFields = 16;

    std::string& TextOf(std::string_view key);

    std::vector<std::pair<std::string_view, std::string>> m_fields;
};

/// An array in the making.
class JsonArray {
  public:
    void Add(const JsonText& item) {
        m_text += m_text.empty() ? "[" : ",";
        m_text += item.text;
    }
    JsonText ToText() const { return {m_text.empty() ? "[]" : m_text + "]"}; }

  private:
    std::string m_text;
};

}  // namespace camjob
