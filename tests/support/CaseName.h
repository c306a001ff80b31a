#pragma once

/// Names each test of a parameterised suite by the `name` of its case.
inline constexpr auto kCaseName = [](const auto& test) { return test.param.name; };
