// What a list pays for one formatted cell, beside the least that the same text costs by hand.

#include "krv/standard/value_formatter.h"

#include <benchmark/benchmark.h>

#include <charconv>
#include <chrono>
#include <cstdint>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace {

using krv::platform::Date;
using krv::platform::Formatter;
using krv::platform::ValueView;
using krv::standard::regional_settings;
using krv::standard::ValueFormatter;

constexpr std::size_t value_count = 4096;

std::unique_ptr<Formatter> make_formatter() {
    return std::make_unique<ValueFormatter>(regional_settings("it-IT"));
}

std::vector<double> amounts() {
    std::mt19937_64 random(1);
    std::uniform_int_distribution<std::int64_t> cents(-99'999'999, 999'999'999);
    std::vector<double> values(value_count);
    for (double& value : values) {
        value = static_cast<double>(cents(random)) / 100;
    }
    return values;
}

std::vector<double> measurements() {
    std::mt19937_64 random(2);
    std::uniform_real_distribution<double> values(-1000, 1000);
    std::vector<double> result(value_count);
    for (double& value : result) {
        value = values(random);
    }
    return result;
}

std::vector<double> days() {
    std::mt19937_64 random(3);
    std::uniform_int_distribution<int> serials(20'000, 60'000);
    std::vector<double> values(value_count);
    for (double& value : values) {
        value = serials(random);
    }
    return values;
}

template <class Work>
void for_each_value(benchmark::State& state, const std::vector<double>& values, Work work) {
    std::size_t index = 0;
    for (auto _ : state) {
        work(values[index]);
        index = (index + 1) % value_count;
    }
}

template <class MakeView>
void format_values(benchmark::State& state,
                   const std::vector<double>& values,
                   std::string_view pattern,
                   MakeView make_view) {
    const auto formatter = make_formatter();
    std::string text;
    for_each_value(state, values, [&](double value) {
        formatter->Format(make_view(value), pattern, text);
        benchmark::DoNotOptimize(text.data());
    });
}

void shortest_double_by_hand(benchmark::State& state) {
    std::string text;
    for_each_value(state, amounts(), [&](double value) {
        char buffer[32];
        text.assign(buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr);
        benchmark::DoNotOptimize(text.data());
    });
}

BENCHMARK(shortest_double_by_hand);

void double_with_groups_and_decimals(benchmark::State& state) {
    format_values(
        state, amounts(), "#,##0.00", [](double value) { return ValueView::double_float(value); });
}

BENCHMARK(double_with_groups_and_decimals);

void long_double_with_groups_and_decimals(benchmark::State& state) {
    format_values(state, measurements(), "#,##0.00", [](double value) {
        return ValueView::double_float(value);
    });
}

BENCHMARK(long_double_with_groups_and_decimals);

void double_without_pattern(benchmark::State& state) {
    format_values(
        state, amounts(), "", [](double value) { return ValueView::double_float(value); });
}

BENCHMARK(double_without_pattern);

void double_as_text(benchmark::State& state) {
    const auto formatter = make_formatter();
    std::string text;
    for_each_value(state, amounts(), [&](double value) {
        formatter->CStr(ValueView::double_float(value), text);
        benchmark::DoNotOptimize(text.data());
    });
}

BENCHMARK(double_as_text);

void integer_by_hand(benchmark::State& state) {
    std::string text;
    for_each_value(state, days(), [&](double value) {
        char buffer[32];
        text.assign(
            buffer,
            std::to_chars(buffer, buffer + sizeof buffer, static_cast<std::int32_t>(value)).ptr);
        benchmark::DoNotOptimize(text.data());
    });
}

BENCHMARK(integer_by_hand);

void integer_as_text(benchmark::State& state) {
    const auto formatter = make_formatter();
    std::string text;
    for_each_value(state, days(), [&](double value) {
        formatter->CStr(ValueView::long_integer(static_cast<std::int32_t>(value)), text);
        benchmark::DoNotOptimize(text.data());
    });
}

BENCHMARK(integer_as_text);

void integer_with_groups(benchmark::State& state) {
    format_values(state, days(), "#,##0", [](double value) {
        return ValueView::long_integer(static_cast<std::int32_t>(value));
    });
}

BENCHMARK(integer_with_groups);

char* two_digits(unsigned value, char* out) {
    *out++ = static_cast<char>('0' + value / 10);
    *out++ = static_cast<char>('0' + value % 10);
    return out;
}

void date_by_hand(benchmark::State& state) {
    std::string text;
    for_each_value(state, days(), [&](double value) {
        const std::chrono::sys_days day{std::chrono::days(static_cast<int>(value) - 25569)};
        const std::chrono::year_month_day date{day};
        const auto year = static_cast<unsigned>(static_cast<int>(date.year()));
        char buffer[10];
        char* out = two_digits(static_cast<unsigned>(date.day()), buffer);
        *out++ = '/';
        out = two_digits(static_cast<unsigned>(date.month()), out);
        *out++ = '/';
        two_digits(year % 100, two_digits(year / 100, out));
        text.assign(buffer, sizeof buffer);
        benchmark::DoNotOptimize(text.data());
    });
}

BENCHMARK(date_by_hand);

void date_with_day_month_year(benchmark::State& state) {
    format_values(
        state, days(), "dd/mm/yyyy", [](double value) { return ValueView::date(Date{value}); });
}

BENCHMARK(date_with_day_month_year);

void text_without_pattern(benchmark::State& state) {
    format_values(state, days(), "", [](double) { return ValueView::text("Via Roma, 15"); });
}

BENCHMARK(text_without_pattern);

void numeric_text_with_groups_and_decimals(benchmark::State& state) {
    format_values(state, days(), "#,##0.00", [](double) { return ValueView::text("1.234.567,5"); });
}

BENCHMARK(numeric_text_with_groups_and_decimals);

void text_in_capitals(benchmark::State& state) {
    format_values(state, days(), ">", [](double) { return ValueView::text("Via Roma, 15"); });
}

BENCHMARK(text_in_capitals);

} // namespace

BENCHMARK_MAIN();
