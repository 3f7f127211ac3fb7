#pragma once

#include "krv/platform/value.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include <sqlite3.h>

namespace krv::jet_reader {

/// What a function is called with.
class SqlArguments {
public:
    explicit SqlArguments(std::span<sqlite3_value*> values)
        : values_(values) {}

    std::size_t size() const noexcept { return values_.size(); }

    bool is_null(std::size_t index) const {
        return sqlite3_value_type(values_[index]) == SQLITE_NULL;
    }

    bool has_null() const;

    /// Valid until the argument is asked for as another type.
    platform::ValueView value(std::size_t index) const;

    // By the conversions of `region_of_sql`.
    std::string text(std::size_t index) const;
    double number(std::size_t index) const;
    std::int32_t whole(std::size_t index) const;
    double date(std::size_t index) const;

    sqlite3_value* raw(std::size_t index) const { return values_[index]; }

private:
    std::span<sqlite3_value*> values_;
};

/// What a function gives back.
class SqlResult {
public:
    explicit SqlResult(sqlite3_context* context)
        : context_(context) {}

    void null() { sqlite3_result_null(context_); }

    void whole(std::int64_t value) { sqlite3_result_int64(context_, value); }

    void number(double value) { sqlite3_result_double(context_, value); }

    void date(double serial);

    void boolean(bool value) { whole(value ? -1 : 0); }

    void same(sqlite3_value* value) { sqlite3_result_value(context_, value); }

    void text(std::string_view value) {
        sqlite3_result_text64(context_, value.data(), value.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
    }

    void error(const char* text) { sqlite3_result_error(context_, text, -1); }

private:
    sqlite3_context* context_;
};

/// Marks a number that is a date, on its way from one function to another and to the result.
inline constexpr unsigned date_mark = 'D';

using SqlFunction = void (*)(const SqlArguments&, SqlResult&);

enum class NullRule { passes_on, is_handled };

struct FunctionEntry {
    const char* name;     ///< as it is registered
    std::string_view jet; ///< as it is called in Jet; empty for an operator
    int fewest;           ///< arguments
    int most;
    SqlFunction function;
    NullRule nulls = NullRule::passes_on;
};

std::span<const FunctionEntry> text_functions();
std::span<const FunctionEntry> date_functions();

} // namespace krv::jet_reader
