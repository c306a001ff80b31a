#pragma once

#include <filesystem>
#include <string>

#include <gtest/gtest.h>

/// Success when `text` is what FOLDER/NAME.txt holds; else the first place where they differ, with
/// both characters and both lines. With UPDATE_GOLDEN=1 in the environment the file is written
/// instead.
::testing::AssertionResult MatchesGolden(const std::string& folder,
                                         const std::string& name,
                                         const std::string& text);

/// The same for all files of a folder, which are the golden folder's by name and by byte: a file
/// too many or too few is a failure, too. Folders inside are not looked at.
::testing::AssertionResult MatchesGoldenFolder(const std::filesystem::path& goldenFolder,
                                               const std::filesystem::path& folder);
