// SPDX-License-Identifier: MIT
#include "bridge/server_api.h"

#include "bridge/resources.h"
#include "common/text.h"

namespace VELLOMAR_SERVER_API {
namespace {

using VELLOMAR_COMMON::OrEmpty;

// Responses of the host's protocol, in the order of registration. The first is the avatar's.
constexpr std::array<std::uint64_t, 11> kResponses = {VELLOMAR_RESPONSE_AVATAR,
                                                      15000753,
                                                      15000713,
                                                      15000240,
                                                      15000805,
                                                      15000152,
                                                      15000355,
                                                      15000068,
                                                      15000640,
                                                      15000610,
                                                      15000644};

// False for a null payload and for an id without a handler.
template <typename Object, typename Handlers>
bool RunHandler(Object& object, const Handlers& handlers, std::uint64_t id, void* payload) {
  if (payload == nullptr) {
    return false;
  }
  const auto found = handlers.find(id);
  if (found == handlers.end()) {
    return false;
  }
  (object.*found->second)(id, payload);
  return true;
}

}  // namespace

std::int64_t VellomarServerApiRequester::RequestParticipant(const std::string& user_id) const {
  if (sendRequestFn == nullptr) {
    return -1;
  }
  __ResourceCollection__ texts;
  VellomarParticipantRequest record{};
  MakeCString(user_id, record.userId, texts);
  sendRequestFn(VELLOMAR_SENDER, VELLOMAR_REQUEST_PARTICIPANT, 0, &record);
  return static_cast<std::int32_t>(record.answer);  // the low 32 bits, sign-extended
}

VellomarServerApiResponser::VellomarServerApiResponser() {
  for (const std::uint64_t id : kResponses) {
    m_handlers.emplace(id, id == VELLOMAR_RESPONSE_AVATAR ? &VellomarServerApiResponser::OnAvatar
                                                          : &VellomarServerApiResponser::OnOther);
  }
}

void VellomarServerApiResponser::SetCallback(std::uint64_t id, Callback callback) {
  if (id == VELLOMAR_RESPONSE_AVATAR || m_handlers.count(id) == 0) {
    return;
  }
  m_callbacks[id] = std::make_shared<const Callback>(std::move(callback));
}

bool VellomarServerApiResponser::OnReceive(std::uint64_t id, void* payload) {
  return RunHandler(*this, m_handlers, id, payload);
}

void VellomarServerApiResponser::OnAvatar(std::uint64_t, void* payload) {
  const auto& record = *static_cast<const VellomarAvatarResponse*>(payload);
  const auto callback = m_avatarCallback;
  if (!callback || !*callback) {
    return;
  }
  const std::string key(OrEmpty(record.avatarKey));
  const std::string path(OrEmpty(record.avatarPath));
  (*callback)(key, path);
}

void VellomarServerApiResponser::OnOther(std::uint64_t id, void* payload) {
  const auto found = m_callbacks.find(id);
  if (found == m_callbacks.end()) {
    return;
  }
  const auto callback = found->second;
  if (*callback) {
    (*callback)(id, payload);
  }
}

bool VellomarServerApiSlot::OnDelegate(std::uint64_t id, void* payload) {
  return RunHandler(*this, m_handlers, id, payload);
}

}  // namespace VELLOMAR_SERVER_API
