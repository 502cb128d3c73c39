// SPDX-License-Identifier: MIT
#include "bridge/resources.h"

#include <algorithm>
#include <exception>

namespace VELLOMAR_COMMON {

char* CopyToCString(std::string_view text) {
  char* block = static_cast<char*>(std::malloc(text.size() + 1));
  if (block == nullptr) {
    std::terminate();
  }
  const auto* zero = std::find(text.begin(), text.end(), '\0');
  char* end = std::copy(text.begin(), zero, block);
  std::fill(end, block + text.size() + 1, '\0');
  return block;
}

}  // namespace VELLOMAR_COMMON
