// SPDX-License-Identifier: MIT
// What the library throws: one sentence that says what went wrong and with what.
//
//   throw HostError("cannot load \"x.so\": no such file");
#pragma once

#include <stdexcept>

namespace vellomar_host {

class HostError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace vellomar_host
