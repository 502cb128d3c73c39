// SPDX-License-Identifier: MIT
// Where the tools find the libraries that they load.
//
//   FindLibrary("vellomar-lorimel", Flavour::kHeadless)
#pragma once

#include <filesystem>
#include <string_view>

namespace vellomar_tools {

// Where there is one build of the widget library it lies beside the plug-in, screen or not.
inline constexpr bool kOnlyHeadless = std::string_view(VELLOMAR_DEFAULT_WIDGETS) == "headless";

enum class Flavour { kPlain, kHeadless };

// The library in the build folder or where it is installed, relative to the program. Where there is
// none, the first place, for the error that loading it gives.
std::filesystem::path FindLibrary(std::string_view name, Flavour flavour = Flavour::kPlain);

}  // namespace vellomar_tools
