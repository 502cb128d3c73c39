// SPDX-License-Identifier: MIT
// The simplest event loop that a host can have: what is posted waits in an array until it is run.
//
//     HostLoop::Table().postFn(callback, context);
//     HostLoop::RunAll();
#pragma once

#include <cstdint>
#include <vector>

#include "vellomar/controlbar.h"

namespace bench {

class HostLoop {
 public:
  static EventLoopTable Table() {
    EventLoopTable table{};
    table.runSyncFn = [](LoopCallback* callback, void* context) { callback(context); };
    table.postFn = [](LoopCallback* callback, void* context) {
      waiting_.push_back({callback, context});
      return ++last_id_;
    };
    return table;
  }

  static void RunAll() {
    for (std::size_t i = 0; i < waiting_.size(); ++i) {
      waiting_[i].callback(waiting_[i].context);
    }
    waiting_.clear();
  }

 private:
  struct Posted {
    LoopCallback* callback;
    void* context;
  };

  inline static std::vector<Posted> waiting_;
  inline static std::uint64_t last_id_ = 0;
};

}  // namespace bench
