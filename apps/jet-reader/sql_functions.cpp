#include "sql_functions.h"

#include "regional.h"
#include "sql_value.h"
#include "standard/ascii.h"
#include "standard/letter_case.h"
#include "standard/utf8.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace krv::jet_reader {

namespace {

using platform::ValueKind;
using platform::ValueView;

void nz(const SqlArguments& in, SqlResult& out) {
    if (!in.is_null(0)) {
        out.same(in.raw(0));
    } else if (in.size() > 1) {
        out.same(in.raw(1));
    } else {
        out.text("");
    }
}

void is_null(const SqlArguments& in, SqlResult& out) {
    out.boolean(in.is_null(0));
}

void is_numeric(const SqlArguments& in, SqlResult& out) {
    const ValueView value = in.value(0);
    out.boolean(value.kind() != ValueKind::text || region_of_sql().is_number(value.as_text()));
}

void to_currency(const SqlArguments& in, SqlResult& out) {
    out.number(static_cast<double>(region_of_sql().CCur(in.value(0)).ten_thousandths) / 10000);
}

void to_double(const SqlArguments& in, SqlResult& out) {
    out.number(in.number(0));
}

void to_single(const SqlArguments& in, SqlResult& out) {
    out.number(static_cast<double>(static_cast<float>(in.number(0))));
}

void to_long(const SqlArguments& in, SqlResult& out) {
    out.whole(in.whole(0));
}

void to_integer(const SqlArguments& in, SqlResult& out) {
    out.whole(region_of_sql().CInt(in.value(0)));
}

void to_boolean(const SqlArguments& in, SqlResult& out) {
    const ValueView value = in.value(0);
    if (value.kind() == ValueKind::text) {
        const std::string_view text = standard::trimmed(value.as_text());
        if (standard::same_keyword(text, "True") || standard::same_keyword(text, "False")) {
            return out.boolean(standard::same_keyword(text, "True"));
        }
    }
    out.boolean(in.number(0) != 0);
}

void val(const SqlArguments& in, SqlResult& out) {
    out.number(region_of_sql().Val(in.text(0)));
}

void round_down(const SqlArguments& in, SqlResult& out) {
    out.number(std::floor(in.number(0)));
}

void cut(const SqlArguments& in, SqlResult& out) {
    out.number(std::trunc(in.number(0)));
}

void sign(const SqlArguments& in, SqlResult& out) {
    const double value = in.number(0);
    out.whole(value > 0 ? 1 : value < 0 ? -1 : 0);
}

/// Halves to even, as everywhere in Basic.
void round_half_even(const SqlArguments& in, SqlResult& out) {
    const int places = in.size() > 1 ? std::clamp(in.whole(1), 0, 15) : 0;
    const double factor = std::pow(10.0, places);
    const double scaled = in.number(0) * factor;
    const double nearest = std::nearbyint(scaled);
    out.number(std::isfinite(scaled) ? nearest / factor : in.number(0));
}

void power(const SqlArguments& in, SqlResult& out) {
    out.number(std::pow(in.number(0), in.number(1)));
}

bool take_whole_operands(const SqlArguments& in, std::int64_t& left, std::int64_t& right) {
    left = region_of_sql().CLngLng(in.value(0));
    right = region_of_sql().CLngLng(in.value(1));
    return right != 0;
}

/// Nothing is divided by 0, and the one quotient that has no room is not made.
void divide(const SqlArguments& in, SqlResult& out) {
    std::int64_t left = 0;
    std::int64_t right = 0;
    if (!take_whole_operands(in, left, right)) {
        return out.null();
    }
    right == -1 ? out.number(-static_cast<double>(left)) : out.whole(left / right);
}

void modulo(const SqlArguments& in, SqlResult& out) {
    std::int64_t left = 0;
    std::int64_t right = 0;
    if (!take_whole_operands(in, left, right)) {
        return out.null();
    }
    out.whole(right == -1 ? 0 : left % right);
}

void concat(const SqlArguments& in, SqlResult& out) {
    if (in.is_null(0) && in.is_null(1)) {
        return out.null();
    }
    std::string text = in.is_null(0) ? "" : in.text(0);
    text += in.is_null(1) ? "" : in.text(1);
    out.text(text);
}

void format(const SqlArguments& in, SqlResult& out) {
    out.text(region_of_sql().Format(in.value(0), in.size() > 1 ? in.text(1) : std::string()));
}

constexpr FunctionEntry other_functions[] = {
    {"jet_nz", "Nz", 1, 2, nz, NullRule::is_handled},
    {"jet_is_null", "IsNull", 1, 1, is_null, NullRule::is_handled},
    {"jet_is_numeric", "IsNumeric", 1, 1, is_numeric},
    {"jet_ccur", "CCur", 1, 1, to_currency},
    {"jet_cdbl", "CDbl", 1, 1, to_double},
    {"jet_csng", "CSng", 1, 1, to_single},
    {"jet_clng", "CLng", 1, 1, to_long},
    {"jet_cint", "CInt", 1, 1, to_integer},
    {"jet_cbool", "CBool", 1, 1, to_boolean},
    {"jet_val", "Val", 1, 1, val},
    {"jet_int", "Int", 1, 1, round_down},
    {"jet_fix", "Fix", 1, 1, cut},
    {"jet_sgn", "Sgn", 1, 1, sign},
    {"jet_round", "Round", 1, 2, round_half_even},
    {"jet_format", "Format", 1, 2, format},
    {"jet_power", "", 2, 2, power},
    {"jet_divide", "", 2, 2, divide},
    {"jet_mod", "", 2, 2, modulo},
    {"jet_concat", "", 2, 2, concat, NullRule::is_handled},
};

/// Nothing may be thrown through SQLite.
void call(sqlite3_context* context, int count, sqlite3_value** values) noexcept {
    const auto& entry = *static_cast<const FunctionEntry*>(sqlite3_user_data(context));
    const SqlArguments arguments({values, static_cast<std::size_t>(count)});
    SqlResult result(context);
    try {
        if (entry.nulls == NullRule::passes_on && arguments.has_null()) {
            result.null();
        } else {
            entry.function(arguments, result);
        }
    } catch (const std::exception& error) {
        result.error(error.what());
    }
}

/// Ordered by small letters; texts of ASCII, the most, without making any.
int compare(void*, int left_size, const void* left, int right_size, const void* right) noexcept {
    const std::string_view first(static_cast<const char*>(left),
                                 static_cast<std::size_t>(left_size));
    const std::string_view second(static_cast<const char*>(right),
                                  static_cast<std::size_t>(right_size));
    if (!standard::is_ascii(first) || !standard::is_ascii(second)) {
        return standard::lower_case(first).compare(standard::lower_case(second));
    }
    const std::size_t common = std::min(first.size(), second.size());
    for (std::size_t i = 0; i < common; ++i) {
        const int difference = standard::lower_ascii(first[i]) - standard::lower_ascii(second[i]);
        if (difference != 0) {
            return difference;
        }
    }
    return left_size - right_size;
}

void register_all(sqlite3* database, std::span<const FunctionEntry> entries) {
    for (const FunctionEntry& entry : entries) {
        for (int count = entry.fewest; count <= entry.most; ++count) {
            sqlite3_create_function_v2(database,
                                       entry.name,
                                       count,
                                       SQLITE_UTF8 | SQLITE_SUBTYPE,
                                       const_cast<FunctionEntry*>(&entry),
                                       call,
                                       nullptr,
                                       nullptr,
                                       nullptr);
        }
    }
}

std::array<std::span<const FunctionEntry>, 3> all_functions() {
    return {std::span<const FunctionEntry>(other_functions), text_functions(), date_functions()};
}

} // namespace

std::optional<std::string_view> own_function(std::string_view name) {
    if (name.ends_with('$')) {
        name.remove_suffix(1);
    }
    for (const auto& functions : all_functions()) {
        for (const FunctionEntry& entry : functions) {
            if (!entry.jet.empty() && standard::same_keyword(entry.jet, name)) {
                return entry.name;
            }
        }
    }
    return std::nullopt;
}

void register_functions(sqlite3* database) {
    for (const auto& functions : all_functions()) {
        register_all(database, functions);
    }
    sqlite3_create_collation(database, "NOCASE", SQLITE_UTF8, nullptr, compare);
}

} // namespace krv::jet_reader
