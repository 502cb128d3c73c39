// SPDX-License-Identifier: MIT
// From an event id to an operation of ControlbarManager: decode the record, open the command's
// trace scope, and have the operation run on the host's loop.
#include "commands/command_table.h"

#include <algorithm>
#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

#include "bridge/antenna_event_loop.h"
#include "bridge/resources.h"
#include "commands/decode.h"
#include "frame/log/trace_scope.h"
#include "manager/controlbar_manager.h"

namespace VELLOMAR_CONTROLBAR {
namespace {

using VELLOMAR_LOG::TraceScope;

// Values of a record become the operation's own type. A number is held to that type's range, not
// cut, and a null text is empty for operations that do not tell the two apart.
template <typename To, typename From>
decltype(auto) ConvertTo(From& value) {
  if constexpr (std::is_same_v<To, int> && std::is_same_v<From, std::int64_t>) {
    using Range = std::numeric_limits<int>;
    return static_cast<int>(std::clamp<std::int64_t>(value, Range::min(), Range::max()));
  } else if constexpr (std::is_arithmetic_v<To>) {
    static_assert(std::is_same_v<To, From>);
    return To{value};
  } else if constexpr (std::is_same_v<To, std::string> && !std::is_same_v<From, std::string>) {
    return std::move(value).value_or(std::string());
  } else {
    return std::move(value);
  }
}

// One value for each parameter, converted to its type.
template <typename Result, typename... Parameters, typename... Values>
Result Call(Result (ControlbarManager::*operation)(Parameters...), Values&... values) {
  static_assert(sizeof...(Parameters) == sizeof...(Values),
                "the record does not have the operation's arguments");
  return (ControlbarManager::GetInstance()->*operation)(
      ConvertTo<std::remove_cvref_t<Parameters>>(values)...);
}

template <const char* name, typename Record, auto operation>
void Post(std::uint64_t, void* payload) {
  auto arguments = Decode(*static_cast<const Record*>(payload));
  const TraceScope scope(name);
  // Captured one by one: std::function holds one or two numbers without a block of their own, but
  // never a tuple, which is not trivially copyable.
  std::apply(
      [](auto&... values) {
        AntennaEventLoop::GetInstance()->PostTask(
            [... owned = std::move(values)]() mutable { Call(operation, owned...); });
      },
      arguments);
}

template <const char* name, typename Record, auto operation>
void Sync(std::uint64_t id, void* payload) {
  auto& record = *static_cast<Record*>(payload);
  auto arguments = Decode(record);
  auto& pool = *__ResourceCollectionPool__::GetInstance();
  auto kept = __ResourceCollectionPool__::MakeEntry(id);
  const auto call = [&arguments] {
    return std::apply([](auto&... values) { return Call(operation, values...); }, arguments);
  };
  decltype(call()) result{};  // what the host reads if its loop runs nothing
  {
    const TraceScope scope(name);
    auto run = [&] { result = call(); };
    AntennaEventLoop::Task task(std::ref(run));  // by reference: nothing is copied to the heap
    AntennaEventLoop::GetInstance()->RunTaskSync(task);
  }
  Answer(record, result);
  // What the answer points to would live here until the host drops it; today it points to nothing.
  pool.Add(std::move(kept));
}

template <const char* name>
void TraceOnly(std::uint64_t, void*) {
  const TraceScope scope(name);
}

#define VELLOMAR_COMMAND(id, name, record, route, operation, fields, meaning) \
  constexpr char kName_##name[] = #name;
#include "vellomar/command_table.def"

}  // namespace

#define VELLOMAR_HANDLER_Post(name, record, operation) \
  &Post<kName_##name, record, &ControlbarManager::operation>
#define VELLOMAR_HANDLER_Sync(name, record, operation) \
  &Sync<kName_##name, record, &ControlbarManager::operation>
#define VELLOMAR_HANDLER_TraceOnly(name, record, operation) &TraceOnly<kName_##name>

EventTable MakeEventTable() {
  EventTable table;
#define VELLOMAR_COMMAND(id, name, record, route, operation, fields, meaning) \
  table.Add(id, VELLOMAR_HANDLER_##route(name, record, operation));
#include "vellomar/command_table.def"
  return table;
}

}  // namespace VELLOMAR_CONTROLBAR
