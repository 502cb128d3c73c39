// SPDX-License-Identifier: MIT
// Field values between the JSON of scenarios and what a user reads and types.
//
//   FromText(field, "12")  ->  12,  FromText(field, "twelve")  ->  "twelve"
//   FindFault(field, "twelve")  ->  "should be an integer from ... to ..., not "twelve""
#pragma once

#include <QString>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

#include "host/abi/layout.h"

namespace vellomar_workbench {

// What was typed, as it is: text that is no number stays a text, for FindFault to tell.
nlohmann::json FromText(const vellomar_host::Field& field, const std::string& text);
QString ToText(const nlohmann::json& value);

// 0, false, "", an empty list, or a record of these.
nlohmann::json DefaultValue(const vellomar_host::Field& field);

// In words, what is wrong with the value; none where a command takes it.
std::optional<std::string> FindFault(const vellomar_host::Field& field,
                                     const nlohmann::json& value);

// The fields of one element of an array, or of a record; the field itself for a plain type.
std::vector<vellomar_host::Field> ElementFields(const vellomar_host::Field& field);
bool IsRecord(const vellomar_host::Field& field);

// Whether the field takes the widget library's keys, and the names of all of these.
bool TakesKeys(const vellomar_host::Field& field);
std::vector<std::string> KeyNames();

// "32 muted": the status word of a button with the meaning of its bits.
QString StatusText(std::int32_t status);

}  // namespace vellomar_workbench
