// SPDX-License-Identifier: MIT
// The build folder and the installation have the same shape but for two folders' names.
#include "tools/libraries.h"

#include <fmt/format.h>

#include <vector>

#include "tools/platform.h"

namespace vellomar_tools {

using std::filesystem::path;

path FindLibrary(std::string_view name, Flavour flavour) {
  const path bin = ExecutableFolder();
  const auto file = fmt::format("{}{}{}", VELLOMAR_LIBRARY_PREFIX, name, VELLOMAR_LIBRARY_SUFFIX);
  std::vector<path> places;
  for (const path& folder : {bin / "../lib", bin / ".." / VELLOMAR_INSTALL_LIBDIR, bin}) {
    if (flavour == Flavour::kHeadless && !kOnlyHeadless) {
      places.push_back(folder / "headless" / file);
      places.push_back(folder / "vellomar/headless" / file);
    } else {
      places.push_back(folder / file);
    }
  }
  for (const path& place : places) {
    if (std::filesystem::exists(place)) {
      return std::filesystem::canonical(place);
    }
  }
  return places.front().lexically_normal();
}

}  // namespace vellomar_tools
