// SPDX-License-Identifier: MIT
// The order of set-up and tear-down, and the plug-in's ways into the host.
#include "host/scenario/session.h"

#include <fmt/format.h>

#include <array>
#include <functional>
#include <utility>

#include "host/abi/keys.h"
#include "host/abi/payload.h"
#include "host/host_error.h"

namespace vellomar_host {
namespace {

using nlohmann::json;

// For what the plug-in still has to do; a plug-in that posts for ever is left after it.
EventLoop::Clock::time_point TearDownDeadline() {
  return EventLoop::Clock::now() + std::chrono::seconds(2);
}

std::uint64_t Join(std::uint32_t low, std::uint32_t high) {
  return static_cast<std::uint64_t>(high) << 32U | low;
}

}  // namespace

Session* Session::current_ = nullptr;

Session::Session(const SessionFiles& files, ParticipantAnswers answers, Transcript& transcript,
                 LogSink on_log)
    : transcript_(transcript),
      answers_(std::move(answers)),
      widgets_(files.widgets),
      plugin_(files.plugin),
      on_log_(std::move(on_log)) {
  if (current_ != nullptr) {
    throw HostError("a session is running already");
  }
  if (auto* get_driver = widgets_.Find<LorimelGetDriverFunction>("LorimelGetDriver")) {
    driver_ = get_driver();
    driver_->observe(OnWidgetCall, this);
    driver_->observeUser(OnUserAction, this);
    loop_.SetWaiting({driver_->pump, driver_->wake});
  }
  current_ = this;
  ObserveLog();
  InitArguments arguments{
      .request = OnRequest, .notify = OnNotify, .host = this, .loop = loop_.Table()};
  if (!files.log.empty()) {
    arguments.log_file = files.log.c_str();
    arguments.log_kind = 1;
  }
  plugin_.Init(arguments);
  plugin_.Start();
  transcript_.Write("start", driver_ != nullptr ? driver_->name : "no driver");
}

Session::~Session() {
  const std::array<std::function<void()>, 4> steps = {
      [this] { CloseBar(); }, [this] { plugin_.Stop(); }, [this] { plugin_.Uninit(); },
      [this] { loop_.RunUntilIdle(TearDownDeadline()); }};
  for (const auto& step : steps) {
    try {
      step();
    } catch (const std::exception& error) {
      transcript_.Write("fault", error.what());
    }
  }
  transcript_.Write("stop", "plug-in");
  // What is left must not run once its code is unloaded.
  loop_.Clear();
  if (driver_ != nullptr) {
    driver_->observe(nullptr, nullptr);
    driver_->observeUser(nullptr, nullptr);
    loop_.ResetWaiting();
  }
  if (observe_log_ != nullptr) {
    observe_log_(nullptr, nullptr);
  }
  current_ = nullptr;
}

// Loading a library by its file name alone gives the one that the plug-in has brought along.
void Session::ObserveLog() {
  if (!on_log_) {
    return;
  }
  try {
    log_library_.emplace(VELLOMAR_LOG_LIBRARY);
  } catch (const HostError&) {
    return;  // it has another name: observes_log() says so
  }
  observe_log_ = log_library_->Find<VellomarLogObserveFunction>("VellomarLogObserve");
  if (observe_log_ != nullptr) {
    observe_log_(OnLogLine, this);
  }
}

void Session::OnLogLine(void* context, const char* module, int level, const char* text) {
  static_cast<Session*>(context)->on_log_(
      {std::chrono::steady_clock::now(), std::this_thread::get_id(), module, level, text});
}

void Session::CloseBar() {
  loop_.RunUntilIdle(TearDownDeadline());
  if (!bar_exists_) {
    return;
  }
  Send(*FindCommand(VELLOMAR_COMMAND_closeSharedControlbar), json::object());
  loop_.RunUntil([this] { return !bar_exists_; }, TearDownDeadline());
}

json Session::Send(const Command& command, const json& arguments, const json& written) {
  Payload payload = EncodeArguments(command, arguments);
  transcript_.Write("send", command.name, written);
  if (!plugin_.CallEvent(command.id, payload.data())) {
    throw HostError(fmt::format("the plug-in does not know the command {}", command.name));
  }
  json answer = DecodeAnswer(command, payload.data());
  if (!answer.empty()) {
    transcript_.Write("answer", command.name, answer);
  }
  return answer;
}

void Session::RespondAvatar(const std::string& key, const std::string& path) {
  transcript_.Write("respond", "avatar", {{"avatarKey", key}, {"avatarPath", path}});
  VellomarAvatarResponse response{key.c_str(), path.c_str()};
  plugin_.OnReceive(VELLOMAR_RESPONSE_AVATAR, &response);
}

void Session::Drop(const Command& command) {
  transcript_.Write("drop", command.name);
  plugin_.CallDrop(command.id);
}

void Session::OnNotify(const char* sender, std::uint32_t id_low, std::uint32_t id_high,
                       void* payload) {
  if (current_ == nullptr) {
    return;
  }
  if (sender == nullptr || std::string_view(sender) != VELLOMAR_SENDER) {
    current_->transcript_.Write("fault", "notification of an unknown sender");
    return;
  }
  current_->Receive(Join(id_low, id_high), payload);
}

// The payload is the plug-in's and goes when this returns. A widget library with a thread of its
// own calls from there; the loop's thread then keeps what was decoded here.
void Session::Receive(std::uint64_t id, const void* payload) {
  ReceivedNotification received{FindNotification(id), nullptr};
  if (received.notification != nullptr) {
    received.payload = DecodeNotification(*received.notification, payload);
  }
  if (loop_.IsLoopThread()) {
    Keep(id, std::move(received));
  } else {
    loop_.Post([this, id, received] { Keep(id, received); });
  }
}

void Session::Keep(std::uint64_t id, ReceivedNotification received) {
  if (received.notification == nullptr) {
    transcript_.Write("fault", fmt::format("unknown notification {}", id));
    return;
  }
  if (id == VELLOMAR_NOTIFY_controlbarCreated) {
    bar_exists_ = true;
  }
  if (id == VELLOMAR_NOTIFY_controlbarClosed) {
    bar_exists_ = false;
  }
  transcript_.Write("notify", received.notification->name, received.payload);
  notifications_.push_back(std::move(received));
  // What the loop is run for may be there now: it looks when the wait in the pump ends.
  if (driver_ != nullptr) {
    driver_->wake();
  }
}

void Session::OnRequest(const char* /*sender*/, std::uint32_t id_low, std::uint32_t id_high,
                        void* record) {
  if (current_ == nullptr || record == nullptr) {
    return;
  }
  if (Join(id_low, id_high) != VELLOMAR_REQUEST_PARTICIPANT) {
    current_->transcript_.Write("fault", "unknown request");
    return;
  }
  auto* request = static_cast<VellomarParticipantRequest*>(record);
  const std::string user = request->userId != nullptr ? request->userId : "";
  const auto answer = current_->answers_.find(user);
  request->answer = answer != current_->answers_.end() ? answer->second : 0;
  current_->transcript_.Write("request", "participant",
                              {{"userId", user}, {"answer", request->answer}});
}

void Session::OnWidgetCall(void* context, const char* member, const LorimelButton* record) {
  auto* session = static_cast<Session*>(context);
  if (record == nullptr) {
    session->transcript_.Write("widgets", member);
  } else {
    session->transcript_.Write("push", KeyName(record->key),
                               {{"text", record->text}, {"status", record->status}});
  }
}

// In the words of the steps that do the same, so that a transcript reads alike for both.
void Session::OnUserAction(void* context, const char* action, std::int32_t key, const char* value) {
  Transcript& transcript = static_cast<Session*>(context)->transcript_;
  const std::string_view done = action;
  if (done == "closeList") {
    transcript.Write("close", "list");
  } else if (done == "closeBar") {
    transcript.Write("close", "bar");
  } else {
    transcript.Write(done, KeyName(key), value != nullptr ? json(value) : json());
  }
}

}  // namespace vellomar_host
