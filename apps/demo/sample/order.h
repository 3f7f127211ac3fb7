#pragma once

#include "catalogue.h"
#include "random.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace krv::demo {

/// An order of one article.
struct Order {
    std::int32_t number = 0;
    std::int32_t customer_id = 0; ///< position in `customers()`, from 1
    const Customer* customer = nullptr;
    const Article* article = nullptr;
    std::int32_t quantity = 0;
    std::optional<std::int32_t> discount_tenths; ///< of a percent
    std::int64_t total_cents = 0;
    std::string ordered;                ///< `2019-01-02`
    std::string entered;                ///< `2019-01-02 09:15:00`
    std::optional<std::string> shipped; ///< `2019-01-05`; none while it is still to be shipped
    std::optional<std::string_view> remark;
};

/// Makes one order after the other, in the order of their dates.
class OrderMaker {
public:
    /// \param first_number  the first order's number
    /// \param count         orders that the whole span of time is spread over
    OrderMaker(std::int32_t first_number, std::int32_t count)
        : first_number_(first_number)
        , count_(count) {}

    Order next();

private:
    void choose_article(Order& order);
    void choose_dates(Order& order);

    Random random_{20190102};
    std::int32_t first_number_;
    std::int32_t count_;
    std::int32_t made_ = 0;
};

} // namespace krv::demo
