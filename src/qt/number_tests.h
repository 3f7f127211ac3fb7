#pragma once

#include "qt/two_generations.h"

#include <functional>
#include <string_view>
#include <utility>

namespace krv::qt {

/// Which texts are numbers; each text is asked about once.
class NumberTests {
public:
    using Test = std::function<bool(std::string_view)>;

    void set_test(Test test) {
        test_ = std::move(test);
        known_.clear();
    }

    bool is_number(std::string_view text) {
        if (!test_ || text.find_first_of("0123456789") == std::string_view::npos) {
            return false;
        }
        return known_.find_or_make(text, [&] { return test_(text); });
    }

private:
    Test test_;
    TwoGenerations<bool> known_;
};

} // namespace krv::qt
