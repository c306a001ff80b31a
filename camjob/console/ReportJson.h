#pragma once

#include "camdata/platform/text/ZetString.h"

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

/// @file
/// What the commands' JSON documents have in common: keys in the order in which they were given,
/// UTF-8.

namespace camjob {

using Json = nlohmann::ordered_json;

/// The text of a value; bytes that are no UTF-8 become U+FFFD, control characters and those that
/// turn the direction of a text are escaped. With lines of their own for the parts when `indent` is
/// 0 or more.
std::string Dump(const Json& value, int indent = -1);

/// Makes an array of items, each as a function makes it.
template <typename ItemToJson>
class ListMaker {
  public:
    constexpr ListMaker(ItemToJson itemToJson) : m_itemToJson(itemToJson) {}

    template <typename T>
    Json operator()(const std::vector<T>& items) const {
        Json array = Json::array();
        for (const T& item : items)
            array.push_back(m_itemToJson(item));
        return array;
    }

  private:
    ItemToJson m_itemToJson;
};

/// An array of texts.
inline constexpr ListMaker TextList = {[](const ZetString& text) { return text.toUtf8(); }};

}  // namespace camjob
