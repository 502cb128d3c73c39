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

// The parameters and result of an operation: a member function, or a row of its own.
template <typename Operation>
struct Signature;
template <>
struct Signature<const FlagCommand*> {
  using Result = void;
  using Parameters = std::tuple<bool>;
};
template <typename Value>
struct Signature<const StoreCommand<Value>*> {
  using Result = void;
  using Parameters = std::tuple<Value>;
};
template <typename R, typename... Ps>
struct Signature<R (ControlbarManager::*)(Ps...)> {
  using Result = R;
  using Parameters = std::tuple<std::remove_cvref_t<Ps>...>;
};

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

template <auto operation, typename Parameters, typename Arguments>
auto Invoke(ControlbarManager& manager, Arguments& arguments) {
  return [&]<std::size_t... i>(std::index_sequence<i...>) {
    return (manager.*
            operation)(ConvertTo<std::tuple_element_t<i, Parameters>>(std::get<i>(arguments))...);
  }
  (std::make_index_sequence<std::tuple_size_v<Arguments>>());
}

template <auto operation, typename Arguments>
auto Call(Arguments& arguments) {
  using Parameters = typename Signature<decltype(operation)>::Parameters;
  static_assert(std::tuple_size_v<Parameters> == std::tuple_size_v<Arguments>,
                "the record does not have the operation's arguments");
  ControlbarManager& manager = *ControlbarManager::GetInstance();
  if constexpr (std::is_pointer_v<decltype(operation)>) {
    manager.Run(*operation, std::get<0>(arguments));
  } else {
    return Invoke<operation, Parameters>(manager, arguments);
  }
}

template <const char* name, typename Record, auto operation>
void Post(std::uint64_t, void* payload) {
  auto arguments = Decode(*static_cast<const Record*>(payload));
  const TraceScope scope(name);
  // Captured one by one: std::function holds one or two numbers without a block of their own, but
  // never a tuple, which is not trivially copyable.
  std::apply(
      [](auto&&... values) {
        AntennaEventLoop::GetInstance()->PostTask([... owned = std::move(values)]() mutable {
          auto all = std::tie(owned...);
          Call<operation>(all);
        });
      },
      std::move(arguments));
}

template <const char* name, typename Record, auto operation>
void Sync(std::uint64_t id, void* payload) {
  auto& record = *static_cast<Record*>(payload);
  auto arguments = Decode(record);
  auto& pool = *__ResourceCollectionPool__::GetInstance();
  auto kept = __ResourceCollectionPool__::MakeEntry(id);
  typename Signature<decltype(operation)>::Result result{};
  {
    const TraceScope scope(name);
    auto run = [&result, &arguments] { result = Call<operation>(arguments); };
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
