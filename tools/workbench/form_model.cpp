// SPDX-License-Identifier: MIT
#include "tools/workbench/form_model.h"

#include "tools/workbench/values.h"

namespace vellomar_workbench {

using nlohmann::json;
using vellomar_host::Field;

FormModel::FormModel(const vellomar_host::Command& command) : command_(command) {
  for (Field& field : vellomar_host::ParseLayout(command.fields).fields) {
    if (field.is_out) {
      continue;
    }
    values_.push_back(DefaultValue(field));
    fields_.push_back(std::move(field));
  }
}

std::optional<std::string> FormModel::Fault(std::size_t index) const {
  return FindFault(fields_[index], values_[index]);
}

bool FormModel::IsValid() const {
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    if (Fault(i)) {
      return false;
    }
  }
  return true;
}

json FormModel::Arguments() const {
  json arguments = json::object();
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    arguments[fields_[i].name] = values_[i];
  }
  return arguments;
}

void FormModel::Load(const json& arguments) {
  if (!arguments.is_object()) {
    return;
  }
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    const auto value = arguments.find(fields_[i].name);
    if (value != arguments.end()) {
      values_[i] = *value;
    }
  }
}

}  // namespace vellomar_workbench
