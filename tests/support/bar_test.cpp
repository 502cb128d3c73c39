// SPDX-License-Identifier: MIT
#include "support/bar_test.h"

#include <algorithm>

#include "host/payload.h"
#include "host/tables.h"
#include "vellomar/controlbar.h"

using VELLOMAR_CONTROLBAR::ControlbarManager;
using vellomar_widgets::OwnedButton;

BarTest* BarTest::current_ = nullptr;

BarTest::BarTest() {
  current_ = this;
  ControlbarManager::DestroyInstance();
  Library().Reset();
  const EventLoopTable table = host.Table();
  ExportedInit(&OnRequest, &OnNotify, nullptr, &table, "", "", 0);
  Forget();
}

BarTest::~BarTest() {
  ExportedUninit();
  Library().Reset();
  ControlbarManager::DestroyInstance();
  current_ = nullptr;
}

void BarTest::OnNotify(const char* sender, std::uint32_t low, std::uint32_t high, void* payload) {
  EXPECT_STREQ(sender, "VELLOMAR_CONTROLBAR_uuid");
  EXPECT_EQ(high, 0u);
  const vellomar_host::Notification* const row = vellomar_host::FindNotification(low);
  ASSERT_NE(row, nullptr) << low;
  const Json fields = vellomar_host::DecodeNotification(*row, payload);
  std::string line(row->name);
  if (!fields.empty()) line += " " + vellomar_host::ToLine(fields);
  current_->told_.push_back(line);
  if (auto action = current_->inside.extract(std::string(row->name))) action.mapped()();
}

void BarTest::OnRequest(const char* sender, std::uint32_t low, std::uint32_t high, void* record) {
  EXPECT_STREQ(sender, "VELLOMAR_CONTROLBAR_uuid");
  EXPECT_EQ(low, VELLOMAR_REQUEST_PARTICIPANT);
  EXPECT_EQ(high, 0u);
  auto& request = *static_cast<VellomarParticipantRequest*>(record);
  EXPECT_EQ(request.answer, 0);
  const std::string user_id = request.userId;
  current_->requests.push_back(user_id);
  if (current_->in_request) current_->in_request(user_id);
  request.answer = current_->answers[user_id];
}

BarTest::Json BarTest::Send(const std::string& command, const Json& arguments) {
  const vellomar_host::Command* const row = vellomar_host::FindCommand(command);
  if (row == nullptr) {
    ADD_FAILURE() << "no command " << command;
    return {};
  }
  vellomar_host::Payload payload = vellomar_host::EncodeArguments(*row, arguments);
  EXPECT_TRUE(ExportedCallEvent(static_cast<std::uint32_t>(row->id), 0, payload.data()));
  host.RunAll();
  return vellomar_host::DecodeAnswer(*row, payload.data());
}

void BarTest::InstallTexts(const std::map<std::uint64_t, std::string>& texts) {
  Json ids = Json::array();
  Json values = Json::array();
  for (std::uint64_t id = 10001; id <= 10096; ++id) {
    ids.push_back(id);
    const auto found = texts.find(id);
    values.push_back(found != texts.end() ? found->second : std::to_string(id));
  }
  Send("setTextMap", {{"ids", ids}, {"texts", values}});
}

bool BarTest::ShowBar() {
  const Json display = {{"x", 0}, {"y", 0}, {"width", 1920}, {"height", 1080}};
  return Send("showSharedControlbar", {{"display", display}}).at("result").get<bool>();
}

BarTest::Json BarTest::Person(const std::string& id, const Json& changes) {
  Json person = {{"userId", id},
                 {"instanceId", "-"},
                 {"number", 1},
                 {"displayName", "Name " + id},
                 {"room", ""},
                 {"avatarKey", "key " + id},
                 {"avatarPath", "path " + id},
                 {"flag", true}};
  person.update(changes);
  return person;
}

void BarTest::UpdateParticipants(const std::vector<Json>& people) {
  Send("updateParticipants", {{"participants", people}});
}

void BarTest::Fire(BtnParams params) {
  EXPECT_TRUE(Library().Fire(params));
}

void BarTest::Click(std::int32_t key, std::int32_t status) {
  BtnParams params = key < 1092 ? Button(key) : BtnParams{};
  params.key = Key(key);
  params.status = status;
  Fire(params);
}

std::vector<OwnedButton> BarTest::Rows(std::int32_t window) {
  int count = 0;
  BtnParams* const rows = Library().Ask(Key(window), count);
  std::vector<OwnedButton> copies;
  if (rows == nullptr) return copies;
  std::transform(rows, rows + count, std::back_inserter(copies),
                 [](const BtnParams& row) { return OwnedButton(row); });
  return copies;
}

const BarTest::BtnParams& BarTest::Button(std::int32_t key) {
  int count = 0;
  return Manager().Data().GetAllParams(&count)[key - 1000];
}

std::vector<std::int32_t> BarTest::PushedStatus(std::int32_t key) {
  std::vector<std::int32_t> words;
  for (const auto& push : Library().Pushed(Key(key))) words.push_back(push.copy.status);
  return words;
}

std::vector<std::int32_t> BarTest::PushedKeys() {
  std::vector<std::int32_t> keys;
  const auto& pushed = Library().Pushed();
  for (std::size_t i = forgotten_pushes_; i < pushed.size(); ++i) {
    keys.push_back(static_cast<std::int32_t>(pushed[i].copy.key));
  }
  return keys;
}

std::vector<std::string> BarTest::ToldBesidesEvents() const {
  std::vector<std::string> lines;
  std::copy_if(told_.begin(), told_.end(), std::back_inserter(lines),
               [](const std::string& line) { return line.rfind("uiEvent", 0) != 0; });
  return lines;
}

void BarTest::Forget() {
  recording_log::Clear();
  told_.clear();
  requests.clear();
  forgotten_pushes_ = Library().Pushed().size();
}

bool BarTest::LoggedFault(const std::string& text) {
  const std::vector<std::string> faults = recording_log::Texts(4);
  return std::find(faults.begin(), faults.end(), text) != faults.end();
}
