// SPDX-License-Identifier: MIT
// Where the plug-in's own library file lies. One source file per operating system.
#pragma once

#include <string>

namespace VELLOMAR_COMMON {

// The directory of the file that this code was loaded from, in UTF-8 and with a separator at its
// end; empty when the system does not tell.
std::string ModuleDirectory();

}  // namespace VELLOMAR_COMMON
