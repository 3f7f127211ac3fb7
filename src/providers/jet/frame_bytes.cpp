#include "providers/jet/frame_bytes.h"

#include "standard/utf8.h"

#include <algorithm>
#include <limits>

namespace krv::providers::jet {

namespace {

using platform::ValueKind;
using platform::ValueView;

constexpr std::uint8_t largest_scale = 28;

std::uint32_t size_of(std::size_t size) {
    if (size > std::numeric_limits<std::uint32_t>::max()) {
        throw std::length_error("a text is too long for a frame");
    }
    return static_cast<std::uint32_t>(size);
}

} // namespace

void FrameWriter::enlarge(std::size_t count) {
    const std::size_t capacity = std::max<std::size_t>({size_ + count, 2 * capacity_, 1024});
    auto data = std::make_unique_for_overwrite<std::byte[]>(capacity);
    std::copy_n(data_.get(), size_, data.get());
    data_ = std::move(data);
    capacity_ = capacity;
}

void FrameWriter::put_text(std::string_view text) {
    const std::uint32_t size = size_of(text.size());
    std::byte* const place = grow(sizeof size + text.size());
    std::memcpy(place, &size, sizeof size);
    std::copy_n(reinterpret_cast<const std::byte*>(text.data()), text.size(), place + sizeof size);
}

void FrameWriter::put_value(ValueView value) {
    const ValueKind kind = value.kind();
    switch (kind) {
    case ValueKind::boolean:
        return put_tagged(kind, static_cast<std::uint8_t>(value.as_boolean() ? 1 : 0));
    case ValueKind::byte:
        return put_tagged(kind, static_cast<std::uint8_t>(value.as_whole()));
    case ValueKind::integer:
        return put_tagged(kind, static_cast<std::int16_t>(value.as_whole()));
    case ValueKind::long_integer:
        return put_tagged(kind, static_cast<std::int32_t>(value.as_whole()));
    case ValueKind::long_long:
        return put_tagged(kind, value.as_whole());
    case ValueKind::single:
        return put_tagged(kind, value.as_single());
    case ValueKind::double_float:
        return put_tagged(kind, value.as_double());
    case ValueKind::date:
        return put_tagged(kind, value.as_date().serial);
    case ValueKind::currency:
        return put_tagged(kind, value.as_currency().ten_thousandths);
    case ValueKind::decimal: {
        const platform::Decimal decimal = value.as_decimal();
        put_tagged(kind, decimal.low);
        put(decimal.high);
        put(decimal.scale);
        return put(static_cast<std::uint8_t>(decimal.negative ? 1 : 0));
    }
    case ValueKind::text:
        put(static_cast<std::uint8_t>(kind));
        return put_text(value.as_text());
    case ValueKind::bytes: {
        const auto bytes = value.as_bytes();
        put(static_cast<std::uint8_t>(kind));
        return put_text({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    }
    default:
        return put(static_cast<std::uint8_t>(ValueKind::null));
    }
}

std::span<const std::byte> FrameReader::take_bytes() {
    const auto size = take<std::uint32_t>();
    return {skip(size), size};
}

std::string_view FrameReader::take_text() {
    const auto bytes = take_bytes();
    const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    if (!standard::is_ascii(text) && !standard::is_valid_utf8(text)) {
        throw BadFrame();
    }
    return text;
}

ValueView FrameReader::take_decimal() {
    platform::Decimal decimal;
    decimal.low = take<std::uint64_t>();
    decimal.high = take<std::uint32_t>();
    decimal.scale = take<std::uint8_t>();
    decimal.negative = take<std::uint8_t>() != 0;
    if (decimal.scale > largest_scale) {
        throw BadFrame();
    }
    return ValueView::decimal(decimal);
}

ValueView FrameReader::take_value() {
    switch (static_cast<ValueKind>(take<std::uint8_t>())) {
    case ValueKind::null:
        return ValueView::null();
    case ValueKind::boolean:
        return ValueView::boolean(take<std::uint8_t>() != 0);
    case ValueKind::byte:
        return ValueView::byte(take<std::uint8_t>());
    case ValueKind::integer:
        return ValueView::integer(take<std::int16_t>());
    case ValueKind::long_integer:
        return ValueView::long_integer(take<std::int32_t>());
    case ValueKind::long_long:
        return ValueView::long_long(take<std::int64_t>());
    case ValueKind::single:
        return ValueView::single(take<float>());
    case ValueKind::double_float:
        return ValueView::double_float(take<double>());
    case ValueKind::date:
        return ValueView::date({take<double>()});
    case ValueKind::currency:
        return ValueView::currency({take<std::int64_t>()});
    case ValueKind::decimal:
        return take_decimal();
    case ValueKind::text:
        return ValueView::text(take_text());
    case ValueKind::bytes:
        return ValueView::bytes(take_bytes());
    default:
        throw BadFrame();
    }
}

} // namespace krv::providers::jet
