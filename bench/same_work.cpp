// SPDX-License-Identifier: MIT
// The proof that both sides of a case do the same work.
#include <cstdio>
#include <string>
#include <vector>

#include "cases.h"
#include "stubs/observer.h"

namespace bench {
namespace {

std::vector<std::string> seen;

// Without what differs from run to run: times, addresses, and the folder of the library.
void See(const char* text) {
  std::string line(text);
  for (const std::string start : {"cost : ", "item data: ", "res path len: "}) {
    const std::size_t found = line.find(start);
    if (found != std::string::npos) {
      line.resize(found + start.size());
    }
  }
  seen.push_back(std::move(line));
}

std::vector<std::string> Watch(const std::function<void()>& work) {
  seen.clear();
  ObserveLog(&See);
  ObserveWidgets(&See);
  work();
  ObserveLog(nullptr);
  ObserveWidgets(nullptr);
  return seen;
}

}  // namespace

bool DoTheSame(const Case& case_) {
  case_.prepare();
  const std::vector<std::string> expected = Watch(case_.plugin);
  for (const auto& work : {case_.by_hand, case_.asio}) {
    if (!work) {
      continue;
    }
    const std::vector<std::string> actual = Watch(work);
    for (std::size_t i = 0; i < expected.size() || i < actual.size(); ++i) {
      const std::string plugin = i < expected.size() ? expected[i] : "(nothing)";
      const std::string by_hand = i < actual.size() ? actual[i] : "(nothing)";
      if (plugin == by_hand) {
        continue;
      }
      std::fprintf(stderr, "%s differs at %zu:\n  plug-in: %s\n  by hand: %s\n", case_.name.c_str(),
                   i + 1, plugin.c_str(), by_hand.c_str());
      return false;
    }
  }
  return !expected.empty();
}

}  // namespace bench
