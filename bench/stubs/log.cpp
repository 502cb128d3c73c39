// SPDX-License-Identifier: MIT
#include "vellomar/log.h"

#include <cstdint>

#include "stubs/observer.h"

namespace bench {
namespace {

Observer* log_observer = nullptr;

}  // namespace

void ObserveLog(Observer* observer) {
  log_observer = observer;
}

}  // namespace bench

int CreateVellomarLogger(std::uint32_t, const char*, const char*, const char*, int, int, int) {
  return 1;
}

void VellomarLogWrite(const char*, int, const char* text) {
  if (bench::log_observer != nullptr) {
    bench::log_observer(text);
  }
}
