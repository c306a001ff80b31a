#pragma once

/// @file
/// Every public header of the library.
