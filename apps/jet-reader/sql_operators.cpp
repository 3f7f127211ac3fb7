#include "sql_operators.h"

#include "errors.h"

#include <algorithm>
#include <string_view>

namespace krv::jet_reader {

namespace {

using Kind = SqlPart::Kind;
using Parts = std::vector<SqlPart>;

struct Rule {
    std::string_view symbol;
    std::string_view function;
    std::string_view tighter; ///< operators of one letter that bind more tightly and remain
};

/// From the tightest on. A sign binds less tightly than a power, and more than all others.
constexpr Rule rules[] = {{"^", "jet_power", ""},
                          {"\\", "jet_divide", "*/"},
                          {"mod", "jet_mod", "*/"},
                          {"&", "jet_concat", "*/+-"}};

bool is_operand(const Parts& parts, std::size_t at) {
    return at < parts.size() && parts[at].kind == Kind::operand;
}

bool is_operation(const Parts& parts, std::size_t at, std::string_view among) {
    return at < parts.size() && parts[at].kind == Kind::operation && parts[at].text.size() == 1 &&
           among.find(parts[at].text) != std::string_view::npos;
}

bool is_sign(const Parts& parts, std::size_t at) {
    return is_operation(parts, at, "+-") && (at == 0 || !is_operand(parts, at - 1));
}

std::string joined(Parts::const_iterator first, Parts::const_iterator last) {
    std::string text;
    for (auto part = first; part != last; ++part) {
        const bool divides = part->kind == Kind::operation && part->text == "/";
        text += text.empty() ? "" : " ";
        text += divides ? "* 1.0 /" : part->text;
    }
    return text;
}

[[noreturn]] void refuse(const Rule& rule) {
    refuse_statement("An operand is missing beside " + std::string(rule.symbol) + ".");
}

std::size_t first_of_left(const Parts& parts, std::size_t at, const Rule& rule) {
    if (at == 0 || !is_operand(parts, at - 1)) {
        refuse(rule);
    }
    std::size_t first = at - 1;
    const bool takes_sign = !rule.tighter.empty();
    for (;;) {
        if (takes_sign && first > 0 && is_sign(parts, first - 1)) {
            --first;
        }
        if (first < 2 || !is_operation(parts, first - 1, rule.tighter) ||
            !is_operand(parts, first - 2)) {
            return first;
        }
        first -= 2;
    }
}

/// One operand with its signs.
std::size_t behind_operand(const Parts& parts, std::size_t at, const Rule& rule) {
    while (is_operation(parts, at, "+-")) {
        ++at;
    }
    if (!is_operand(parts, at)) {
        refuse(rule);
    }
    return at + 1;
}

std::size_t behind_right(const Parts& parts, std::size_t at, const Rule& rule) {
    std::size_t end = behind_operand(parts, at + 1, rule);
    while (is_operation(parts, end, rule.tighter)) {
        end = behind_operand(parts, end + 1, rule);
    }
    return end;
}

void fold(Parts& parts, const Rule& rule) {
    for (std::size_t at = 0; at < parts.size(); ++at) {
        if (parts[at].kind != Kind::operation || parts[at].text != rule.symbol) {
            continue;
        }
        const auto begin = parts.begin();
        const auto first = static_cast<std::ptrdiff_t>(first_of_left(parts, at, rule));
        const auto middle = static_cast<std::ptrdiff_t>(at);
        const auto last = static_cast<std::ptrdiff_t>(behind_right(parts, at, rule));
        std::string call = std::string(rule.function) + "(" +
                           joined(begin + first, begin + middle) + ", " +
                           joined(begin + middle + 1, begin + last) + ")";
        parts[static_cast<std::size_t>(first)] = {Kind::operand, std::move(call)};
        parts.erase(begin + first + 1, begin + last);
        at = static_cast<std::size_t>(first);
    }
}

} // namespace

std::string join_with_operators(Parts parts) {
    for (const Rule& rule : rules) {
        fold(parts, rule);
    }
    return joined(parts.begin(), parts.end());
}

} // namespace krv::jet_reader
