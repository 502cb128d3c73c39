// SPDX-License-Identifier: MIT
// The arguments of one command while they are being filled in, made from the command's row in the
// table.
//
//   FormModel form(*FindCommand("setHostType"));
//   form.SetValue(0, FromText(form.fields()[0], "1"));
//   if (form.IsValid()) session.Send(form.command(), form.Arguments());
#pragma once

#include <cstddef>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

#include "host/abi/layout.h"
#include "host/abi/tables.h"

namespace vellomar_workbench {

class FormModel {
 public:
  explicit FormModel(const vellomar_host::Command& command);

  const vellomar_host::Command& command() const { return command_; }
  // Those that the host fills in, in the order of the record.
  const std::vector<vellomar_host::Field>& fields() const { return fields_; }
  const nlohmann::json& value(std::size_t index) const { return values_[index]; }
  void SetValue(std::size_t index, nlohmann::json value) { values_[index] = std::move(value); }

  // What is wrong with a field, in words.
  std::optional<std::string> Fault(std::size_t index) const;
  bool IsValid() const;
  nlohmann::json Arguments() const;
  // Takes over the arguments that the command has; the other fields stay.
  void Load(const nlohmann::json& arguments);

 private:
  const vellomar_host::Command& command_;
  std::vector<vellomar_host::Field> fields_;
  std::vector<nlohmann::json> values_;
};

}  // namespace vellomar_workbench
