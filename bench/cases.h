// SPDX-License-Identifier: MIT
// What is measured: each piece of work as the plug-in does it, by hand, and, for posted commands,
// by hand with asio::post.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace bench {

struct Case {
  std::string name;
  std::size_t elements = 0;       // of a list; 0: not a list
  std::function<void()> prepare;  // not measured; leaves the same state however often it runs
  std::function<void()> plugin;
  std::function<void()> by_hand;
  std::function<void()> asio;  // empty: not a posted command
};

// Starts the plug-in on the bench's host loop.
void StartPlugin();
std::vector<Case> AllCases();

// Runs `case_` once on both sides and compares log lines, pushed records and notifications. Says on
// stderr where they first differ.
bool DoTheSame(const Case& case_);

}  // namespace bench
