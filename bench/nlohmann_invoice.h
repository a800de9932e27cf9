#pragma once

#include "model/invoice.h"

#include <nlohmann/json.hpp>

namespace ledra {

/// The invoice file as a user of nlohmann's library would write and read it: one pair of functions for each
/// type, found by the library itself.
void to_json(nlohmann::ordered_json& json, const Invoice::Item& item);
void from_json(const nlohmann::ordered_json& json, Invoice::Item& item);
void to_json(nlohmann::ordered_json& json, const Invoice& invoice);
void from_json(const nlohmann::ordered_json& json, Invoice& invoice);

} // namespace ledra
