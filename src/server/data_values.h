#pragma once

#include "server/json.h"

#include "krv/platform/formatter.h"
#include "krv/platform/value.h"

#include <string>
#include <string_view>
#include <vector>

namespace krv::server {

// Values of a database: more kinds than the control's interface has.

/// Null and Empty as null; exact decimals, currency and whole numbers beyond 2^53 as
/// `{"decimal": text}`, dates as `{"date": text}`, bytes as `{"hex": text}`, an infinite number as
/// its text.
/// \throws RuntimeError 6 for a date outside the years 100 to 9999
Json json_of_data(platform::ValueView value, const platform::Formatter& formatter);

/// `YYYY-MM-DD HH:MM:SS`.
/// \throws RuntimeError 6 outside the years 100 to 9999
std::string date_text(platform::Date date);

/// A parameter of a statement, in the forms of `json_of_data`.
/// \throws RpcError -32602 for any other form
platform::Value data_value_of(const Json& json);

std::vector<platform::Value> data_values_of(const Json& array);

/// The value of a kind ("Null", "Integer", "Date"...) that a text stands for: numbers with a period,
/// dates as in `date_text`.
/// \param json  text, number, true or false; not looked at for Null and Empty
/// \throws RpcError -32602 for an unknown kind, and for what is no value of it
platform::Value value_of_kind(std::string_view kind, const Json& json);

} // namespace krv::server
