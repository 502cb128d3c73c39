// SPDX-License-Identifier: MIT
// One list, in order, of everything that crosses a boundary of the plug-in: log lines, calls of the
// widget library, notifications, requests and calls of the host's loop. What happens in a trace
// scope stands below its name.
#pragma once

#include <string>
#include <vector>

#include "support/recording_log.h"

namespace streams {

using Lines = std::vector<std::string>;

class Stream {
 public:
  void Add(const std::string& line);
  void Log(const recording_log::Line& line);
  // What has come since the last call. Says so where a scope is still open.
  Lines Take();

  bool shows_data_scopes = false;

 private:
  struct Scope {
    std::string name;
    bool shown;
  };
  bool OpenOrClose(const std::string& text);

  Lines lines_;
  std::vector<Scope> scopes_;
};

}  // namespace streams
