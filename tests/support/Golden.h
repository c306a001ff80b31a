#pragma once

#include <string>

#include <gtest/gtest.h>

/// Success when `text` is what FOLDER/NAME.txt holds; else the first place where they differ, with
/// both lines. With UPDATE_GOLDEN=1 in the environment the file is written instead.
::testing::AssertionResult MatchesGolden(const std::string& folder,
                                         const std::string& name,
                                         const std::string& text);
