#include "order.h"

#include <array>
#include <chrono>
#include <cstdio>

namespace krv::demo {

namespace {

using std::chrono::days;
using std::chrono::sys_days;
using std::chrono::year_month_day;

constexpr sys_days first_day = std::chrono::year(2019) / 1 / 2;
constexpr sys_days last_day = std::chrono::year(2026) / 6 / 30;

std::string text_of(sys_days day) {
    const year_month_day date(day);
    std::array<char, 16> text{};
    std::snprintf(text.data(),
                  text.size(),
                  "%04d-%02u-%02u",
                  static_cast<int>(date.year()),
                  static_cast<unsigned>(date.month()),
                  static_cast<unsigned>(date.day()));
    return text.data();
}

/// One number after the other: as arguments of one call their order would be the compiler's choice.
std::string text_of_time(Random& random) {
    const unsigned hour = 8 + random.below(11);
    const unsigned minute = random.below(60);
    const unsigned second = random.below(60);
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), " %02u:%02u:%02u", hour, minute, second);
    return text.data();
}

bool is_sunday(sys_days day) {
    return std::chrono::weekday(day) == std::chrono::Sunday;
}

/// Cheap things are bought by the dozen, furniture by the piece.
std::int32_t quantity_of(const Article& article, Random& random) {
    const std::uint32_t most = article.price_cents > 10000  ? 3
                               : article.price_cents > 2000 ? 8
                                                            : 60;
    return 1 + static_cast<std::int32_t>(random.below(most));
}

/// Rounded half up to whole cents.
std::int64_t total_of(const Order& order) {
    const std::int64_t full = std::int64_t{order.article->price_cents} * order.quantity;
    return (full * (1000 - order.discount_tenths.value_or(0)) + 500) / 1000;
}

} // namespace

Order OrderMaker::next() {
    Order order;
    order.number = first_number_ + made_;
    const std::uint32_t customer = random_.below(static_cast<std::uint32_t>(customers().size()));
    order.customer_id = static_cast<std::int32_t>(customer) + 1;
    order.customer = &customers()[customer];
    choose_article(order);
    choose_dates(order);
    if (random_.chance(14)) {
        order.remark = remarks()[random_.below(static_cast<std::uint32_t>(remarks().size()))];
    }
    ++made_;
    return order;
}

void OrderMaker::choose_article(Order& order) {
    order.article = &articles()[random_.below(static_cast<std::uint32_t>(articles().size()))];
    order.quantity = quantity_of(*order.article, random_);
    if (random_.chance(45)) {
        order.discount_tenths = 25 * (1 + static_cast<std::int32_t>(random_.below(10)));
    }
    order.total_cents = total_of(order);
}

void OrderMaker::choose_dates(Order& order) {
    sys_days day = first_day + (last_day - first_day) * made_ / (count_ - 1);
    if (is_sunday(day) && day != last_day) {
        day += days(1);
    }
    order.ordered = text_of(day);
    order.entered = order.ordered + text_of_time(random_);

    const sys_days shipped = day + days(2 + random_.below(20));
    const bool was_forgotten = random_.chance(2);
    if (shipped <= last_day && !was_forgotten) {
        order.shipped = text_of(shipped);
    }
}

} // namespace krv::demo
