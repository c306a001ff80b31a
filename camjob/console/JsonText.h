#pragma once

#include "camjob/console/ReportJson.h"

#include <concepts>
#include <string>
#include <string_view>
#include <utility>

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

/// An object in the making. Its keys are words of our own, each set once.
class JsonObject {
  public:
    template <typename T>
    void Set(std::string_view key, const T& value) {
        m_text += m_text.empty() ? '{' : ',';
        m_text += '"';
        m_text += key;
        m_text += '"';
        m_text += ':';
        AppendJson(m_text, value);
    }
    /// Once.
    JsonText ToText() {
        m_text += m_text.empty() ? "{}" : "}";
        return {std::move(m_text)};
    }

  private:
    std::string m_text;
};

/// An array in the making.
class JsonArray {
  public:
    void Add(const JsonText& item) {
        m_text += m_text.empty() ? '[' : ',';
        m_text += item.text;
    }
    /// Once.
    JsonText ToText() {
        m_text += m_text.empty() ? "[]" : "]";
        return {std::move(m_text)};
    }

  private:
    std::string m_text;
};

}  // namespace camjob
