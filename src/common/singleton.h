// SPDX-License-Identifier: MIT
// The base of the process-wide objects.
//
//     class Plugin : public VELLOMAR_COMMON::Singleton<Plugin> { ... };
//     Plugin::GetInstance()->SetHost(host);
//
// No lock: all callers run on the host's loop thread, or while that thread waits for them.
#pragma once

#include <memory>

namespace VELLOMAR_COMMON {

template <typename T>
class Singleton {
 public:
  Singleton(const Singleton&) = delete;
  Singleton& operator=(const Singleton&) = delete;
  virtual ~Singleton() = default;

  // Creates the object at the first call. It lives until DestroyInstance, or else until the library
  // is unloaded: the host may load and unload the plug-in many times in one process.
  static T* GetInstance() {
    if (m_instance == nullptr) {
      m_instance = std::make_unique<T>();
    }
    return m_instance.get();
  }

  static bool HasInstance() { return m_instance != nullptr; }

  static void DestroyInstance() { m_instance.reset(); }

 protected:
  Singleton() = default;

 private:
  inline static std::unique_ptr<T> m_instance;
};

}  // namespace VELLOMAR_COMMON
