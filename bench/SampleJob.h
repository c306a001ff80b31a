#pragma once

#include <filesystem>

/// Writes a job of `members` NC files into `folder`: nc/*.nc1, job.toml without report page and run
/// document, and reports.toml with both. Each member is a Z
/// purlin of its own length with 20 holes and outlines of web and top flange with a notch each, so
/// every stage of a run has something to do. The same files for the same number.
void WriteSampleJob(const std::filesystem::path& folder, long members);
