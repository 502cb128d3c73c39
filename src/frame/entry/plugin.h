// SPDX-License-Identifier: MIT
// Keeps the host pointer that ExportedInit was given. Nothing in the plug-in follows it.
#pragma once

#include "common/singleton.h"

namespace VELLOMAR_CONTROLBAR {

class Plugin : public VELLOMAR_COMMON::Singleton<Plugin> {
 public:
  void SetHost(void* host) { m_host = host; }

 private:
  void* m_host = nullptr;
};

}  // namespace VELLOMAR_CONTROLBAR
