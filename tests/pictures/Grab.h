#pragma once

#include <string>

/// Saves a picture of the dialog that is shown, as `file` and an ending of the picture's format.
bool GrabDialog(const std::string& file);
