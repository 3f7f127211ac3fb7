#include "krv/standard/value_formatter.h"

#include "standard/formatting/number_of_value.h"
#include "standard/formatting/val.h"
#include "standard/formatting/value_formatter_parts.h"
#include "standard/run_time_errors.h"

#include <cmath>
#include <limits>
#include <utility>

namespace krv::standard {

using platform::ValueKind;
using platform::ValueView;

namespace {

platform::Date today_by_system() {
    return {static_cast<double>(serial_day_of_today())};
}

std::function<int()> current_year(ValueFormatter::Clock today) {
    return [clock = today ? std::move(today) : ValueFormatter::Clock(today_by_system)] {
        return calendar_time(clock().serial).year;
    };
}

} // namespace

ValueFormatter::Parts::Parts(RegionalSettings settings, Clock today)
    : region(std::move(settings))
    , dates(region)
    , date_reader(region, current_year(std::move(today)))
    , patterns(region) {}

ValueFormatter::ValueFormatter(RegionalSettings settings, Clock today)
    : parts_(std::make_unique<Parts>(std::move(settings), std::move(today))) {}

ValueFormatter::~ValueFormatter() = default;

const RegionalSettings& ValueFormatter::settings() const noexcept {
    return parts_->region;
}

void ValueFormatter::Format(ValueView value, std::string_view pattern, std::string& text) const {
    if (value.kind() == ValueKind::bytes || value.kind() == ValueKind::object) {
        fail_type_mismatch();
    }
    if (pattern.empty()) {
        return parts_->format_plainly(value, text);
    }
    parts_->format(value, parts_->patterns.find(pattern), text);
}

void ValueFormatter::CStr(ValueView value, std::string& text) const {
    switch (value.kind()) {
    case ValueKind::null:
        fail_invalid_use_of_null();
    case ValueKind::bytes:
    case ValueKind::object:
        fail_type_mismatch();
    default:
        parts_->write_plainly(value, text);
    }
}

double ValueFormatter::Val(std::string_view text) const {
    return val(text);
}

std::int16_t ValueFormatter::CInt(ValueView value) const {
    using Limits = std::numeric_limits<std::int16_t>;
    return static_cast<std::int16_t>(
        converted_to_integer(value, parts_->region, Limits::min(), Limits::max()));
}

std::int32_t ValueFormatter::CLng(ValueView value) const {
    using Limits = std::numeric_limits<std::int32_t>;
    return converted_to_integer(value, parts_->region, Limits::min(), Limits::max());
}

double ValueFormatter::CDbl(ValueView value) const {
    return converted_to_double(value, parts_->region);
}

platform::Currency ValueFormatter::CCur(ValueView value) const {
    return converted_to_currency(value, parts_->region);
}

std::int64_t ValueFormatter::CLngLng(ValueView value) const {
    return converted_to_int64(value, parts_->region);
}

platform::Decimal ValueFormatter::CDec(ValueView value) const {
    return converted_to_decimal(value, parts_->region);
}

platform::Date ValueFormatter::CDate(ValueView value, std::string_view pattern) const {
    if (value.kind() == ValueKind::text) {
        if (const auto serial = parts_->date_in(value.as_text(), pattern)) {
            return {*serial};
        }
    }
    const double serial = converted_to_double(value, parts_->region);
    if (!is_date_serial(serial)) {
        fail_overflow();
    }
    return {serial};
}

void ValueFormatter::Str(ValueView value, std::string& text) const {
    switch (value.kind()) {
    case ValueKind::boolean:
    case ValueKind::date:
    case ValueKind::null:
    case ValueKind::bytes:
    case ValueKind::object:
        return CStr(value, text);
    case ValueKind::empty:
        return Str(ValueView::integer(0), text);
    case ValueKind::text:
        return Str(ValueView::double_float(CDbl(value)), text);
    default:
        parts_->write_number(value, invariant_number_form, text);
    }
}

bool ValueFormatter::is_number(std::string_view text) const {
    const auto number = read_number(text, parts_->region, PercentSign::divides);
    return number && std::isfinite(number->value);
}

} // namespace krv::standard
