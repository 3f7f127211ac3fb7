#include "editing/line_numbers.h"

#include "control/control_state.h"

#include <charconv>
#include <cmath>
#include <string_view>

namespace krv::editing {

namespace {

double number_in(const ControlState& state, std::int32_t grid_row) {
    const platform::Grid& list = state.parts.Grid;
    return state.host.formatter.Val(list.TextMatrix(grid_row, state.LineNumberColumn));
}

/// Texts of numbers, one after the other in one buffer.
class NumberText {
public:
    explicit NumberText(const platform::Formatter& formatter)
        : formatter_(formatter) {}

    /// With a period in every region and without the leading blank. Valid until the next one.
    std::string_view of(double number) {
        constexpr double exact_whole_numbers = 1e15;
        if (std::abs(number) < exact_whole_numbers && number == std::trunc(number)) {
            const auto [end, error] = std::to_chars(
                std::begin(digits_), std::end(digits_), static_cast<std::int64_t>(number));
            return {digits_, static_cast<std::size_t>(end - digits_)};
        }
        formatter_.Str(platform::ValueView::double_float(number), text_);
        const std::string_view text = text_;
        return text.starts_with(' ') ? text.substr(1) : text;
    }

private:
    const platform::Formatter& formatter_;
    char digits_[24] = {};
    std::string text_;
};

} // namespace

bool has_line_numbers(const ControlState& state) {
    return state.LineNumberColumn >= 0;
}

void require_line_number_column(const ControlState& state) {
    if (has_line_numbers(state)) {
        state.parts.Grid.TextMatrix(0, state.LineNumberColumn);
    }
}

std::string next_line_number(const ControlState& state) {
    const double last = number_in(state, state.parts.Grid.Rows() - 1);
    return std::string(NumberText(state.host.formatter).of(last + 1));
}

void renumber_from(const ControlState& state, std::int32_t row) {
    if (!has_line_numbers(state)) {
        return;
    }
    platform::Grid& list = state.parts.Grid;
    double number = row == 0 ? 1 : number_in(state, row) + 1;
    NumberText text(state.host.formatter);
    const std::int32_t rows = list.Rows();
    for (std::int32_t grid_row = row + 1; grid_row < rows; ++grid_row) {
        list.SetTextMatrix(grid_row, state.LineNumberColumn, text.of(number));
        ++number;
    }
}

} // namespace krv::editing
