// SPDX-License-Identifier: MIT
// The baseline: the work of a few commands and callbacks written out by hand in the shortest way,
// without a dispatch table, decoders, singletons or operations. It writes the same log lines,
// pushes the same records, and copies and keeps what every implementation must.
//
//     by_hand::CallEvent<by_hand::HostPost>(VELLOMAR_COMMAND_setWindowTitle, &record);
#pragma once

#include <fmt/format.h>

#include <algorithm>
#include <asio/io_context.hpp>
#include <asio/post.hpp>
#include <chrono>
#include <cstdint>
#include <functional>
#include <iterator>
#include <map>
#include <string_view>
#include <utility>

#include "vellomar/controlbar.h"
#include "vellomar/log.h"
#include "vellomar/lorimel.h"

namespace by_hand {

// --- Log lines

template <typename... Args>
void Line(fmt::format_string<Args...> format, Args&&... args) {
  fmt::memory_buffer line;
  fmt::format_to(std::back_inserter(line), format, std::forward<Args>(args)...);
  line.push_back('\0');
  VellomarLogWrite("vellomar_controlbar", VELLOMAR_LOG_INFO, line.data());
}

inline std::uint64_t Now() {
  using std::chrono::milliseconds;
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  return static_cast<std::uint64_t>(std::chrono::duration_cast<milliseconds>(now).count());
}

// The same without a format string: a scope's lines need none.
template <typename... Parts>
void Join(Parts... parts) {
  fmt::memory_buffer line;
  line.resize((parts.size() + ... + 1));
  char* end = line.data();
  ((end = std::copy(parts.begin(), parts.end(), end)), ...);
  *end = '\0';
  VellomarLogWrite("vellomar_controlbar", VELLOMAR_LOG_INFO, line.data());
}

class Scope {
 public:
  explicit Scope(std::string_view name) : name_(name), start_(Now()) {
    Join(std::string_view("entry "), name_);
  }
  ~Scope() {
    const fmt::format_int cost(Now() - start_);
    Join(std::string_view("exit "), name_, std::string_view(", cost : "),
         std::string_view(cost.data(), cost.size()));
  }
  Scope(const Scope&) = delete;
  Scope& operator=(const Scope&) = delete;

 private:
  std::string_view name_;
  std::uint64_t start_;
};

// --- Posting

// Through the host's loop: the callable on the heap, and its address under the host's id, as
// cancelling and unloading need it.
struct HostPost {
  using Task = std::function<void()>;

  template <typename Work>
  static void Post(Work work) {
    auto* const task = new Task(std::move(work));
    tasks[table.postFn(&Run, task)] = task;
  }

  static void Run(void* context) {
    auto* const task = static_cast<Task*>(context);
    (*task)();
    for (auto next = tasks.begin(); next != tasks.end(); ++next) {
      if (next->second != task) {
        continue;
      }
      tasks.erase(next);
      break;
    }
    delete task;
  }

  inline static EventLoopTable table;
  inline static std::map<std::uint64_t, Task*> tasks;
};

struct AsioPost {
  template <typename Work>
  static void Post(Work work) {
    asio::post(context, std::move(work));
  }

  static void RunAll() {
    context.poll();
    context.restart();
  }

  inline static asio::io_context context{1};
};

// --- The exports and callbacks

void SetNotify(Notify* target);
bool Start();
template <typename Poster>
bool CallEvent(std::uint32_t id, void* payload);
void OnEvent(VELLOMAR_LORIMEL::BtnParams& params);
VELLOMAR_LORIMEL::BtnParams* OnShowWindow(VELLOMAR_LORIMEL::EventKey key, int& count);

}  // namespace by_hand
