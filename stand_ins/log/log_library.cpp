// SPDX-License-Identifier: MIT
// The log library on spdlog: one set of sinks, a logger for each module that writes. What the
// arguments of CreateVellomarLogger mean stands in the README beside this file.
#include <spdlog/logger.h>
#include <spdlog/pattern_formatter.h>
#include <spdlog/sinks/rotating_file_sink.h>
#include <spdlog/sinks/stdout_color_sinks.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "vellomar/log.h"
#include "vellomar_dev/log_observer.h"

namespace {

constexpr std::size_t kFileBytes = std::size_t{10} << 20;
constexpr int kMostFiles = 1000;
constexpr const char* kPattern = "%Y-%m-%d %H:%M:%S.%e [%t] %n %^%l%$ %v";

enum Kind : std::uint32_t { kFileAndConsole = 0, kFileOnly = 1, kConsoleOnly = 2, kNone = 3 };

struct LogState {
  std::mutex mutex;  // guards all of it: lines come from any thread
  std::vector<spdlog::sink_ptr> sinks;
  spdlog::level::level_enum lowest = spdlog::level::info;
  spdlog::level::level_enum flush_from = spdlog::level::err;
  std::map<std::string, std::shared_ptr<spdlog::logger>, std::less<>> loggers;  // by module
};

// Not a function's static: it has to outlive the objects of the libraries that log.
LogState state;

struct Observation {
  std::mutex mutex;  // held during the call, so that an observer that was removed is left alone
  VellomarLogObserver* observer = nullptr;
  void* context = nullptr;
};

Observation observation;

std::string_view OrEmpty(const char* text) {
  return text != nullptr ? text : "";
}

spdlog::level::level_enum LevelOf(int number) {
  if (number <= 0) {
    return spdlog::level::trace;
  }
  constexpr std::array kLevels = {spdlog::level::debug, spdlog::level::debug, spdlog::level::info,
                                  spdlog::level::err};
  const auto index = static_cast<std::size_t>(number) - 1;
  return index < kLevels.size() ? kLevels[index] : spdlog::level::critical;
}

spdlog::level::level_enum LevelNamed(std::string_view name) {
  constexpr std::array<std::pair<std::string_view, spdlog::level::level_enum>, 6> kNames = {{
      {"trace", spdlog::level::trace},
      {"debug", spdlog::level::debug},
      {"info", spdlog::level::info},
      {"warning", spdlog::level::warn},
      {"error", spdlog::level::err},
      {"off", spdlog::level::off},
  }};
  const auto* found = std::find_if(kNames.begin(), kNames.end(),
                                   [name](const auto& entry) { return entry.first == name; });
  return found != kNames.end() ? found->second : spdlog::level::info;
}

// Null, and a line on stderr, where the file cannot be written.
spdlog::sink_ptr OpenFile(std::string_view path, int files) {
  try {
    const auto rotated = static_cast<std::size_t>(std::clamp(files, 1, kMostFiles) - 1);
    // As the system names files: in UTF-8, or on Windows in UTF-16.
    const std::filesystem::path file(path);
    return std::make_shared<spdlog::sinks::rotating_file_sink_mt>(file.native(), kFileBytes,
                                                                  rotated);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "vellomar-log-dll: no log file, logging to the console only: %s\n",
                 error.what());
    return nullptr;
  }
}

// The logger of the module, created at its first line. The caller holds the mutex.
std::shared_ptr<spdlog::logger> LoggerOf(std::string_view module) {
  const auto found = state.loggers.find(module);
  if (found != state.loggers.end()) {
    return found->second;
  }
  const std::string name(module);
  auto logger = std::make_shared<spdlog::logger>(name, state.sinks.begin(), state.sinks.end());
  logger->set_level(state.lowest);
  logger->flush_on(state.flush_from);
  state.loggers.emplace(name, logger);
  return logger;
}

bool Open(std::uint32_t kind, std::string_view path, std::string_view lowest, int files,
          bool flush) {
  const bool wants_file = kind != kConsoleOnly && kind != kNone && !path.empty();
  const spdlog::sink_ptr file = wants_file ? OpenFile(path, files) : nullptr;
  const bool file_failed = wants_file && file == nullptr;
  const bool wants_console = kind != kFileOnly && kind != kNone;

  std::vector<spdlog::sink_ptr> sinks;
  if (file != nullptr) {
    sinks.push_back(file);
  }
  if (wants_console || file_failed) {
    sinks.push_back(std::make_shared<spdlog::sinks::stderr_color_sink_mt>());
  }
  for (const spdlog::sink_ptr& sink : sinks) {
    sink->set_pattern(kPattern);
  }

  const std::lock_guard lock(state.mutex);
  state.loggers.clear();
  state.sinks = std::move(sinks);
  state.lowest = LevelNamed(lowest);
  state.flush_from = flush ? spdlog::level::trace : spdlog::level::err;
  return !file_failed;
}

// Runs `work`; what it throws ends here, as a line on stderr.
template <typename Work>
bool WithoutThrowing(Work work) noexcept {
  try {
    return work();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "vellomar-log-dll: %s\n", error.what());
  } catch (...) {
    std::fputs("vellomar-log-dll: unknown failure\n", stderr);
  }
  return false;
}

}  // namespace

int CreateVellomarLogger(std::uint32_t kind, const char* first, const char* second,
                         const char* /*module*/, int /*reserved*/, int files, int flush) {
  const bool opened = WithoutThrowing(
      [=] { return Open(kind, OrEmpty(first), OrEmpty(second), files, flush == 1); });
  return opened ? 1 : 0;
}

void VellomarLogObserve(VellomarLogObserver* observer, void* context) {
  const std::lock_guard lock(observation.mutex);
  observation.observer = observer;
  observation.context = context;
}

void VellomarLogWrite(const char* module, int level, const char* text) {
  WithoutThrowing([=] {
    {
      const std::lock_guard lock(observation.mutex);
      if (observation.observer != nullptr) {
        observation.observer(observation.context, OrEmpty(module).data(), level,
                             OrEmpty(text).data());
      }
    }
    std::shared_ptr<spdlog::logger> logger;
    {
      const std::lock_guard lock(state.mutex);
      if (state.sinks.empty()) {
        return false;
      }
      logger = LoggerOf(OrEmpty(module));
    }
    const std::string_view line = OrEmpty(text);
    logger->log(LevelOf(level), spdlog::string_view_t(line.data(), line.size()));
    return true;
  });
}
