#pragma once

#include "krv/control/automation.h"
#include "krv/control/enumerations.h"
#include "krv/platform/data_access.h"
#include "krv/platform/units.h"

#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

namespace krv::automation {

/// The interface's type for a C++ type of the typed face, as a value or by reference.
template <class Native>
constexpr Type type_of() {
    using Plain = std::remove_cvref_t<Native>;
    if constexpr (std::is_same_v<Plain, bool>) {
        return Type::Boolean;
    } else if constexpr (std::is_same_v<Plain, std::int16_t>) {
        return Type::Integer;
    } else if constexpr (std::is_same_v<Plain, std::int32_t>) {
        return Type::Long;
    } else if constexpr (std::is_same_v<Plain, float>) {
        return Type::Single;
    } else if constexpr (std::is_same_v<Plain, platform::OleColor>) {
        return Type::OLE_COLOR;
    } else if constexpr (std::is_same_v<Plain, krvListRecords>) {
        return Type::krvListRecords;
    } else if constexpr (std::is_same_v<Plain, std::shared_ptr<platform::Object>>) {
        return Type::Object;
    } else if constexpr (std::is_same_v<Plain, std::shared_ptr<platform::Recordset>>) {
        return Type::Recordset;
    } else if constexpr (std::is_void_v<Plain>) {
        return Type::none;
    } else {
        static_assert(std::is_same_v<Plain, std::string> || std::is_same_v<Plain, std::string_view>,
                      "the interface has no such type");
        return Type::String;
    }
}

/// Whether a parameter is one that the routine may change.
template <class Native>
inline constexpr bool is_changeable =
    std::is_lvalue_reference_v<Native> && !std::is_const_v<std::remove_reference_t<Native>>;

/// A value in the kind that `convert` gives it.
template <class Native>
platform::Value value_of(const Native& native) {
    using platform::Value;
    using platform::ValueView;
    constexpr Type type = type_of<Native>();
    if constexpr (type == Type::Boolean) {
        return Value(ValueView::boolean(native));
    } else if constexpr (type == Type::Integer) {
        return Value(ValueView::integer(native));
    } else if constexpr (type == Type::Long || type == Type::krvListRecords) {
        return Value(ValueView::long_integer(native));
    } else if constexpr (type == Type::Single) {
        return Value(ValueView::single(native));
    } else if constexpr (type == Type::OLE_COLOR) {
        return Value(ValueView::long_long(std::int64_t{native}));
    } else if constexpr (type == Type::String) {
        return Value::text(std::string(native));
    } else {
        return Value(std::shared_ptr<platform::Object>(native));
    }
}

/// The other way. \param value  in the kind that `convert` gives; a view of its text is returned
/// for `std::string_view`
template <class Native>
Native native_of(const platform::Value& value) {
    const platform::ValueView view = value.view();
    constexpr Type type = type_of<Native>();
    if constexpr (type == Type::Boolean) {
        return view.as_boolean();
    } else if constexpr (type == Type::Single) {
        return view.as_single();
    } else if constexpr (type == Type::String) {
        return Native(view.as_text());
    } else if constexpr (type == Type::Object) {
        return value.shared_object();
    } else if constexpr (type == Type::Recordset) {
        return std::dynamic_pointer_cast<platform::Recordset>(value.shared_object());
    } else {
        return static_cast<Native>(view.as_whole());
    }
}

} // namespace krv::automation
