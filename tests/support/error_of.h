// SPDX-License-Identifier: MIT
// What a HostError says:
//
//   EXPECT_EQ(ErrorOf([] { ParseLayout("short x"); }), "...");
#pragma once

#include <string>

#include "host/host_error.h"

namespace vellomar_host {

template <typename Function>
std::string ErrorOf(Function function) {
  try {
    function();
  } catch (const HostError& error) {
    return error.what();
  }
  return "no error";
}

}  // namespace vellomar_host
