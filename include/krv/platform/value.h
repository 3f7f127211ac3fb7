#pragma once

#include "krv/platform/error.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace krv::platform {

/// Any object that a host hands to the control or gets from it.
class Object {
public:
    virtual ~Object() = default;

    /// Calls the object's member `SetFocus` by name.
    /// \throws RuntimeError 438 when the object has no such member, 5 when it cannot take the focus
    virtual void SetFocus() {
        throw RuntimeError(error_number::no_such_member,
                           "Object doesn't support this property or method",
                           "krvList3");
    }
};

/// Amount of money: 64-bit whole number of ten-thousandths; the least value is legal.
struct Currency {
    std::int64_t ten_thousandths = 0;

    friend bool operator==(Currency, Currency) = default;
};

/// Exact decimal number: 96-bit magnitude divided by ten to the power `scale` (0 to 28).
struct Decimal {
    std::uint64_t low = 0;
    std::uint32_t high = 0;
    std::uint8_t scale = 0;
    bool negative = false;

    friend bool operator==(Decimal, Decimal) = default;
};

/// Point in time: days since 1899-12-30 with the time of day as fraction. Before that day the
/// fraction's absolute value is the time: 1899-12-29 18:00 is -1.75. -657434 (1 January 100) up to,
/// not including, 2958466 (1 January 10000).
struct Date {
    double serial = 0;

    friend bool operator==(Date, Date) = default;
};

enum class ValueKind : std::uint8_t {
    empty,        ///< no value was ever assigned
    null,         ///< a database's missing value
    boolean,      ///<
    byte,         ///< 8 bits unsigned
    integer,      ///< 16 bits signed
    long_integer, ///< 32 bits signed
    long_long,    ///< 64 bits signed
    single,       ///< 32-bit float
    double_float, ///< 64-bit float
    currency,     ///<
    decimal,      ///<
    date,         ///<
    text,         ///< UTF-8
    bytes,        ///<
    object        ///< reference to an object, or to none
};

/// A value whose texts, bytes and objects belong to somebody else: cheap to pass and to copy, valid
/// as long as its owner says (a field's value: until the recordset moves). Never allocates.
class ValueView {
public:
    /// Empty.
    constexpr ValueView() noexcept
        : whole_(0) {}

    static constexpr ValueView null() noexcept { return ValueView(ValueKind::null); }

    static constexpr ValueView boolean(bool value) noexcept {
        return ValueView(ValueKind::boolean, value ? std::int64_t{-1} : std::int64_t{0});
    }

    static constexpr ValueView byte(std::uint8_t value) noexcept {
        return ValueView(ValueKind::byte, std::int64_t{value});
    }

    static constexpr ValueView integer(std::int16_t value) noexcept {
        return ValueView(ValueKind::integer, std::int64_t{value});
    }

    static constexpr ValueView long_integer(std::int32_t value) noexcept {
        return ValueView(ValueKind::long_integer, std::int64_t{value});
    }

    static constexpr ValueView long_long(std::int64_t value) noexcept {
        return ValueView(ValueKind::long_long, value);
    }

    static constexpr ValueView single(float value) noexcept {
        ValueView view(ValueKind::single);
        view.single_ = value;
        return view;
    }

    static constexpr ValueView double_float(double value) noexcept {
        ValueView view(ValueKind::double_float);
        view.double_ = value;
        return view;
    }

    static constexpr ValueView currency(Currency value) noexcept {
        return ValueView(ValueKind::currency, value.ten_thousandths);
    }

    static constexpr ValueView decimal(Decimal value) noexcept {
        ValueView view(ValueKind::decimal);
        view.decimal_ = value;
        return view;
    }

    static constexpr ValueView date(Date value) noexcept {
        ValueView view(ValueKind::date);
        view.double_ = value.serial;
        return view;
    }

    static constexpr ValueView text(std::string_view value) noexcept {
        ValueView view(ValueKind::text);
        view.chars_ = {value.data(), value.size()};
        return view;
    }

    static ValueView bytes(std::span<const std::byte> value) noexcept {
        ValueView view(ValueKind::bytes);
        view.chars_ = {reinterpret_cast<const char*>(value.data()), value.size()};
        return view;
    }

    static constexpr ValueView object(Object* value) noexcept {
        ValueView view(ValueKind::object);
        view.object_ = value;
        return view;
    }

    constexpr ValueKind kind() const noexcept { return kind_; }

    constexpr bool is_null() const noexcept { return kind_ == ValueKind::null; }

    /// True for the kinds that `as_whole` serves.
    constexpr bool is_whole() const noexcept {
        return kind_ >= ValueKind::boolean && kind_ <= ValueKind::long_long;
    }

    // Each accessor serves the kinds that it names; for another kind its result means nothing.

    /// boolean.
    constexpr bool as_boolean() const noexcept { return whole_ != 0; }

    /// boolean (-1 or 0), byte, integer, long_integer, long_long.
    constexpr std::int64_t as_whole() const noexcept { return whole_; }

    /// single.
    constexpr float as_single() const noexcept { return single_; }

    /// double_float.
    constexpr double as_double() const noexcept { return double_; }

    /// currency.
    constexpr Currency as_currency() const noexcept { return Currency{whole_}; }

    /// decimal.
    constexpr Decimal as_decimal() const noexcept { return decimal_; }

    /// date.
    constexpr Date as_date() const noexcept { return Date{double_}; }

    /// text.
    constexpr std::string_view as_text() const noexcept { return {chars_.data, chars_.size}; }

    /// bytes.
    std::span<const std::byte> as_bytes() const noexcept {
        return {reinterpret_cast<const std::byte*>(chars_.data), chars_.size};
    }

    /// object; may be null.
    constexpr Object* as_object() const noexcept { return object_; }

private:
    struct Chars {
        const char* data;
        std::size_t size;
    };

    constexpr explicit ValueView(ValueKind kind) noexcept
        : kind_(kind)
        , whole_(0) {}

    constexpr ValueView(ValueKind kind, std::int64_t whole) noexcept
        : kind_(kind)
        , whole_(whole) {}

    ValueKind kind_ = ValueKind::empty;

    union {
        std::int64_t whole_;
        float single_;
        double double_;
        Decimal decimal_;
        Chars chars_;
        Object* object_;
    };
};

/// A value that owns its text or bytes and shares its object.
class Value {
public:
    /// Empty.
    Value() = default;

    /// Copies what the view shows. An object is referred to, not owned; use the other constructor.
    explicit Value(ValueView view)
        : view_(view) {
        if (view.kind() == ValueKind::text) {
            chars_ = view.as_text();
        } else if (view.kind() == ValueKind::bytes) {
            const auto bytes = view.as_bytes();
            chars_.assign(reinterpret_cast<const char*>(bytes.data()), bytes.size());
        }
    }

    explicit Value(std::shared_ptr<Object> object)
        : view_(ValueView::object(object.get()))
        , object_(std::move(object)) {}

    static Value text(std::string value) {
        Value result;
        result.view_ = ValueView::text({});
        result.chars_ = std::move(value);
        return result;
    }

    ValueKind kind() const noexcept { return view_.kind(); }

    /// Valid until the value is assigned, moved from or destroyed.
    ValueView view() const noexcept {
        if (kind() == ValueKind::text) {
            return ValueView::text(chars_);
        }
        if (kind() == ValueKind::bytes) {
            return ValueView::bytes(std::as_bytes(std::span(chars_.data(), chars_.size())));
        }
        return view_;
    }

    /// The shared object; null for every other kind, and for an object not shared with this value.
    const std::shared_ptr<Object>& shared_object() const noexcept { return object_; }

private:
    ValueView view_;
    std::string chars_;
    std::shared_ptr<Object> object_;
};

} // namespace krv::platform
