#include "krv/standard/memory_bag.h"

#include <optional>
#include <utility>

namespace krv::standard {

namespace {

using platform::Value;
using platform::ValueKind;
using platform::ValueView;

std::optional<double> number_of(ValueView value) noexcept {
    if (value.is_whole()) {
        return static_cast<double>(value.as_whole());
    }
    switch (value.kind()) {
    case ValueKind::single:
        return value.as_single();
    case ValueKind::double_float:
        return value.as_double();
    default:
        return std::nullopt;
    }
}

} // namespace

bool same_in_bag(ValueView left, ValueView right) noexcept {
    if (left.kind() == ValueKind::text && right.kind() == ValueKind::text) {
        return left.as_text() == right.as_text();
    }
    const std::optional<double> number = number_of(left);
    return number.has_value() && number == number_of(right);
}

MemoryBag::MemoryBag(const MemoryBag& other) {
    for (const Entry& entry : other.entries_) {
        set(entry.key, entry.value);
    }
}

MemoryBag& MemoryBag::operator=(const MemoryBag& other) {
    return *this = MemoryBag(other);
}

Value MemoryBag::ReadProperty(std::string_view key, const Value& default_value) {
    const Value* const stored = find(key);
    return stored != nullptr ? *stored : default_value;
}

void MemoryBag::WriteProperty(std::string_view key,
                              const Value& value,
                              const Value& default_value) {
    if (same_in_bag(value.view(), default_value.view())) {
        erase(key);
    } else {
        set(key, value);
    }
}

const Value* MemoryBag::find(std::string_view key) const {
    const auto found = places_.find(key);
    return found == places_.end() ? nullptr : &found->second->value;
}

void MemoryBag::set(std::string_view key, Value value) {
    if (const auto found = places_.find(key); found != places_.end()) {
        found->second->value = std::move(value);
        return;
    }
    entries_.push_back({std::string(key), std::move(value)});
    const Place last = std::prev(entries_.end());
    places_.emplace(last->key, last);
}

void MemoryBag::erase(std::string_view key) {
    if (const auto found = places_.find(key); found != places_.end()) {
        const Place place = found->second;
        places_.erase(found);
        entries_.erase(place);
    }
}

} // namespace krv::standard
