#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace krv::demo {

/// A customer of the shop. All of them are made up.
struct Customer {
    std::string_view name;
    std::string_view town;
    std::string_view country;
    /// Empty for a customer who gave none.
    std::string_view mail;
};

/// A thing that the shop sells.
struct Article {
    std::string_view code;
    std::string_view description;
    std::string_view category;
    std::int32_t price_cents;
    std::int32_t weight_grams;
};

/// In many scripts, so that fonts, sorting and widths have something to show.
std::span<const Customer> customers();

std::span<const Article> articles();

/// Remarks that an order may carry.
std::span<const std::string_view> remarks();

} // namespace krv::demo
