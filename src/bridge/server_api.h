// SPDX-License-Identifier: MIT
// The plug-in's side of the host's server interface: requests go out through the host's request
// entry point, responses and delegate calls come in through two exports. All of it [loop thread].
//
//     const std::int64_t answer =
//         VellomarServerApiRequester::GetInstance()->RequestParticipant("user-7");
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <unordered_map>

#include "common/singleton.h"
#include "vellomar/controlbar.h"

namespace VELLOMAR_SERVER_API {

class VellomarServerApiRequester : public VELLOMAR_COMMON::Singleton<VellomarServerApiRequester> {
 public:
  void SetSendRequest(SendRequest* send_request) { sendRequestFn = send_request; }

  // Asks the host about a participant who is new. -1: it has no avatar, or there is nobody to ask.
  std::int64_t RequestParticipant(const std::string& user_id) const;

 private:
  SendRequest* sendRequestFn = nullptr;
};

// Hands each response to the callable stored for its id.
class VellomarServerApiResponser : public VELLOMAR_COMMON::Singleton<VellomarServerApiResponser> {
 public:
  using AvatarCallback = std::function<void(const std::string& key, const std::string& path)>;
  using Callback = std::function<void(std::uint64_t id, void* payload)>;

  VellomarServerApiResponser();

  void SetAvatarCallback(AvatarCallback callback) {
    m_avatarCallback = std::make_shared<const AvatarCallback>(std::move(callback));
  }
  // For the responses other than the avatar's, whose payload is passed on as it came. An id that is
  // not one of them is ignored.
  void SetCallback(std::uint64_t id, Callback callback);

  // False for a null payload and for an unknown id. What is called may store another callable in
  // its own place, and may end the plug-in.
  bool OnReceive(std::uint64_t id, void* payload);

 private:
  using Handler = void (VellomarServerApiResponser::*)(std::uint64_t id, void* payload);

  void OnAvatar(std::uint64_t id, void* payload);
  void OnOther(std::uint64_t id, void* payload);

  std::unordered_map<std::uint64_t, Handler> m_handlers;
  // Shared: a callable that is replaced while it runs lives until it returns.
  std::shared_ptr<const AvatarCallback> m_avatarCallback;
  std::unordered_map<std::uint64_t, std::shared_ptr<const Callback>> m_callbacks;
};

// Delegate calls: the host may make them, and the plug-in has a handler for none.
class VellomarServerApiSlot : public VELLOMAR_COMMON::Singleton<VellomarServerApiSlot> {
 public:
  // False for a null payload and for an unknown id, which is every id.
  bool OnDelegate(std::uint64_t id, void* payload);

 private:
  using Handler = void (VellomarServerApiSlot::*)(std::uint64_t id, void* payload);

  std::unordered_map<std::uint64_t, Handler> m_handlers;
};

}  // namespace VELLOMAR_SERVER_API
