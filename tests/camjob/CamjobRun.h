#pragma once

#include "camjob/ToolRun.h"
#include "support/TempFolder.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

/// The argument for a file of the folder.
inline std::string ArgumentFor(const TempFolder& folder, const std::string& file) {
    return folder.NameOf(file).toUtf8();
}

/// All that a run left, as one text.
inline std::string ReportOf(const CamjobRun& run) {
    return "exit code " + std::to_string(run.exitCode) + "\n---- stdout\n" + run.out +
           "---- stderr\n" + run.err;
}

/// Parts of a text, each of which has to be in it.
inline void ExpectParts(const std::string& text, const std::vector<std::string>& parts) {
    for (const std::string& part : parts)
        EXPECT_NE(text.find(part), std::string::npos) << "no \"" << part << "\" in:\n" << text;
}

/// A file of tests/camjob/check/nc.
inline std::string CheckedFile(const std::string& name) {
    std::ifstream stream(CAMJOB_GOLDEN_FOLDER "/check/nc/" + name + ".nc1", std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// The documents of a report, one in each line.
inline std::vector<nlohmann::json> DocumentsIn(const std::string& lines) {
    std::vector<nlohmann::json> documents;
    std::istringstream stream(lines);
    for (std::string line; std::getline(stream, line);)
        documents.push_back(nlohmann::json::parse(line));
    return documents;
}

/// A report without the part of names that differs from test to test.
inline std::string WithoutFolder(std::string text, const TempFolder& folder) {
    const std::string path = ArgumentFor(folder, "");
    std::string withSlashes = path;
    std::replace(withSlashes.begin(), withSlashes.end(), '\\', '/');
    for (const std::string& name : {path, withSlashes})
        for (std::size_t at = text.find(name); at != std::string::npos; at = text.find(name, at))
            text.erase(at, name.size());
    return text;
}

inline void DropFolder(nlohmann::json& value, const std::string& folder) {
    if (value.is_structured()) {
        for (nlohmann::json& each : value)
            DropFolder(each, folder);
    } else if (value.is_string()) {
        std::string text = value;
        std::replace(text.begin(), text.end(), '\\', '/');
        if (const std::size_t at = text.find(folder); at != text.npos)
            text.erase(at, folder.size());
        value = text;
    }
}

/// A JSON document to be approved, a member a line: names of files without the folder, and with
/// slashes on every system.
inline std::string ApprovableJson(const std::string& text, const TempFolder& folder) {
    nlohmann::json document = nlohmann::json::parse(text);
    const std::u8string path = folder.PathOf("").generic_u8string();
    DropFolder(document, {path.begin(), path.end()});
    return document.dump(1) + "\n";
}
