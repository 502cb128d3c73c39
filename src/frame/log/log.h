// SPDX-License-Identifier: MIT
// The front to the host's log library: formats a line and writes it under the plug-in's module
// name.
//
//     VELLOMAR_LOG::Info("[Controlbar] Set chat enable {}.", enable);
//     VELLOMAR_LOG::Fault("params is nullptr!");
//
// Format strings are checked against their arguments at compile time. A line of ordinary length is
// formatted on the stack. [loop thread: LogInstance is made at its first use, without a lock]
#pragma once

#include <fmt/format.h>

#include <cstdint>
#include <utility>

#include "common/singleton.h"
#include "vellomar/log.h"

namespace VELLOMAR_LOG {

inline constexpr char kModule[] = "vellomar_controlbar";

#if FMT_VERSION >= 80000
template <typename... Args>
using FormatString = fmt::format_string<Args...>;
#else
template <typename...>
using FormatString = fmt::string_view;  // version 7 checks at run time only
#endif

class LogInstance : public VELLOMAR_COMMON::Singleton<LogInstance> {
 public:
  // Opens the log library with the host's arguments.
  void Open(std::uint32_t kind, const char* first, const char* second);

  void Write(const char* module, int level, fmt::string_view format, fmt::format_args args);
  // The text as it stands, without placeholders.
  void Write(const char* module, int level, const char* text);
};

template <typename... Args>
void Write(const char* module, int level, FormatString<Args...> format, Args&&... args) {
  LogInstance::GetInstance()->Write(module, level, format, fmt::make_format_args(args...));
}

template <typename... Args>
void Info(FormatString<Args...> format, Args&&... args) {
  Write<Args...>(kModule, VELLOMAR_LOG_INFO, format, std::forward<Args>(args)...);
}

template <typename... Args>
void Fault(FormatString<Args...> format, Args&&... args) {
  Write<Args...>(kModule, VELLOMAR_LOG_FAULT, format, std::forward<Args>(args)...);
}

inline void Info(const char* text) {
  LogInstance::GetInstance()->Write(kModule, VELLOMAR_LOG_INFO, text);
}

inline void Fault(const char* text) {
  LogInstance::GetInstance()->Write(kModule, VELLOMAR_LOG_FAULT, text);
}

}  // namespace VELLOMAR_LOG
