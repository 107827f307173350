#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>

#include "text/Text.h"

namespace norvo::cli {

/// Keeps the order in which members were added. Whoever looks into a document includes
/// <nlohmann/json.hpp>.
using Json = nlohmann::ordered_json;

/// A count of bytes, as a whole number where it is one.
Json JsonNumber(double number);

/// The document in UTF-8. What would steer a terminal is escaped.
std::string JsonText(const Json& document);

}  // namespace norvo::cli
