#pragma once

#include "server/json.h"
#include "server/object_table.h"

#include "krv/platform/value.h"

namespace krv::server {

// Values of the control's interface.

/// What the client gave: a whole number as Long where it fits, any other number as Double, a text,
/// true, false, null, or an object by its name. Anything else becomes a value that converts to
/// nothing.
/// \throws RuntimeError 424 for the name of no object
platform::Value value_of(const Json& json, const ObjectTable& objects);

/// An object that has no name yet gets one.
Json json_of(const platform::Value& value, ObjectTable& objects);

/// The shortest number that means this Single.
double shortest(float number);

} // namespace krv::server
