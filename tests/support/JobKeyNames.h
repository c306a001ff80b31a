#pragma once

#include "job/JobKeys.h"

#include <string>
#include <vector>

/// The keys of the job file that occur nowhere in a text, be it in a comment: as `key =`, or as the
/// line of a table of that name.
inline std::vector<std::string> FindMissingJobKeys(const std::string& text) {
    const auto occurs = [&](const std::string& part) {
        return text.find(part) != std::string::npos;
    };
    std::vector<std::string> missing;
    for (const job::JobKeyTable& table : job::ListJobKeys()) {
        std::string path = table.title;
        std::erase_if(path, [](char c) { return c == '[' || c == ']'; });
        for (const job::JobKey& key : table.keys) {
            const std::string value = key.name + " = ";
            if (!occurs("\n" + value) && !occurs(" " + value) &&
                !occurs("[" + path + "." + key.name + "]"))
                missing.push_back(path + "." + key.name);
        }
    }
    return missing;
}

/// The keys of a table, as the documents list them.
inline std::string KeyRowsText(const job::JobKeyTable& table) {
    std::string text = "| key | value | unit | default | meaning |\n|---|---|---|---|---|\n";
    for (const job::JobKey& key : table.keys)
        text += "| `" + key.name + "` | " + key.value + " | " + key.unit + " | " +
                key.defaultValue + " | " + key.meaning + " |\n";
    return text;
}
