#include "sample_content.h"

#include "jet_writer.h"
#include "standard/ado/exact_number.h"

#include <array>
#include <chrono>
#include <limits>

namespace krv::jet_sample {

namespace {

using platform::Value;
using platform::ValueView;

Value null() {
    return Value(ValueView::null());
}

Value byte(int value) {
    return Value(ValueView::byte(static_cast<std::uint8_t>(value)));
}

Value integer(int value) {
    return Value(ValueView::integer(static_cast<std::int16_t>(value)));
}

Value whole(std::int32_t value) {
    return Value(ValueView::long_integer(value));
}

Value single(float value) {
    return Value(ValueView::single(value));
}

Value real(double value) {
    return Value(ValueView::double_float(value));
}

Value money(std::string_view amount) {
    return Value(ValueView::currency(*standard::currency_from_text(amount)));
}

Value cents(std::int64_t count) {
    return Value(ValueView::currency({count * 100}));
}

/// \param scale  of the column
Value decimal(std::string_view text, std::uint8_t scale) {
    platform::Decimal value = *standard::decimal_from_text(text);
    for (; value.scale < scale; ++value.scale) {
        const std::uint64_t low = (value.low & 0xFFFFFFFFU) * 10;
        const std::uint64_t middle = (value.low >> 32U) * 10 + (low >> 32U);
        value.high = static_cast<std::uint32_t>(value.high * 10 + (middle >> 32U));
        value.low = middle << 32U | (low & 0xFFFFFFFFU);
    }
    return Value(ValueView::decimal(value));
}

/// Before the first day the time of day still counts forward, away from 0.
Value date(int year, unsigned month, unsigned day, int hour = 0, int minute = 0, int second = 0) {
    using std::chrono::sys_days;
    const sys_days date(std::chrono::year(year) / static_cast<int>(month) / static_cast<int>(day));
    const auto days =
        static_cast<double>((date - sys_days(std::chrono::year(1899) / 12 / 30)).count());
    const double time = (hour * 3600 + minute * 60 + second) / 86400.0;
    return Value(ValueView::date({days < 0 ? days - time : days + time}));
}

Value text(std::string value) {
    return Value::text(std::move(value));
}

Value boolean(bool value) {
    return Value(ValueView::boolean(value));
}

Value bytes(const std::string& content) {
    return Value(ValueView::bytes(std::as_bytes(std::span(content))));
}

JetRow article(std::size_t index) {
    static const std::array<const char*, 8> names = {"Bullone M8 zincato",
                                                     "Rondella piana Ø 8",
                                                     "Caffè macinato 250 g",
                                                     "Olio d'oliva \"extra\"",
                                                     "Мир (libro)",
                                                     "漢字ドリル",
                                                     "Emoji 😀 adesivi",
                                                     "Tubo 3/4; lungo, flessibile"};
    const int i = static_cast<int>(index);
    const std::string number = std::to_string(i + 1);
    return {whole(i + 1),
            text("A-" + std::string(4 - number.size(), '0') + number),
            i % 13 == 12 ? null() : text(names[index % 8] + (" " + std::to_string(i / 8 + 1))),
            cents(i * i * 7 + 1),
            integer(i * 37 % 500 - 20),
            i % 7 == 3 ? null() : real(i * 0.1 + 0.005),
            date(2024,
                 static_cast<unsigned>(1 + i % 12),
                 static_cast<unsigned>(1 + i % 28),
                 i % 24,
                 i,
                 i),
            boolean(i % 3 != 0),
            text(i % 9 == 4 ? "riga uno\r\nriga due\r\n" + std::string(index * 700, 'x')
                            : "nota " + std::to_string(i))};
}

void add_articles(JetWriter& writer) {
    writer.add_table("Articoli",
                     {{"ID", JetType::long_integer, 0, 0, true},
                      {"Codice", JetType::text, 12},
                      {"Descrizione", JetType::text, 80},
                      {"Prezzo", JetType::currency},
                      {"Giacenza", JetType::integer},
                      {"Peso kg", JetType::double_float},
                      {"Inserito", JetType::date},
                      {"Attivo", JetType::boolean},
                      {"Note", JetType::memo}},
                     40,
                     article);
}

void add_order_lines(JetWriter& writer) {
    writer.add_table("Order Lines",
                     {{"Order No", JetType::long_integer},
                      {"Line", JetType::byte},
                      {"Article ID", JetType::long_integer},
                      {"Qty", JetType::single},
                      {"Discount %", JetType::numeric, 9, 4}},
                     120,
                     [](std::size_t index) {
                         const int i = static_cast<int>(index);
                         return JetRow{whole(1000 + i / 4),
                                       byte(i % 4 + 1),
                                       whole(1 + i * 11 % 40),
                                       single(static_cast<float>(i % 5) + 0.25F),
                                       decimal(i % 7 == 0 ? "-0.0125" : "12.5", 4)};
                     });
}

std::vector<JetColumn> type_columns() {
    return {{"fByte", JetType::byte},
            {"fInteger", JetType::integer},
            {"fLong", JetType::long_integer},
            {"fSingle", JetType::single},
            {"fDouble", JetType::double_float},
            {"fCurrency", JetType::currency},
            {"fDecimal", JetType::numeric, 28, 10},
            {"fDate", JetType::date},
            {"fText50", JetType::text, 50},
            {"fText255", JetType::text, 255},
            {"fMemo", JetType::memo},
            {"fYesNo", JetType::boolean},
            {"fGuid", JetType::guid},
            {"fBinary", JetType::binary, 32},
            {"fOle", JetType::ole}};
}

std::vector<JetRow> type_rows() {
    using Long = std::numeric_limits<std::int32_t>;
    std::vector<JetRow> rows;
    rows.push_back({byte(255),
                    integer(-32768),
                    whole(Long::min()),
                    single(-1.5F),
                    real(0.1),
                    money("-922337203685477.5808"),
                    decimal("123456789012345678.0123456789", 10),
                    date(1899, 12, 30),
                    text(""),
                    text(std::string(255, 'a')),
                    text(""),
                    boolean(false),
                    text("{00000000-0000-0000-0000-000000000000}"),
                    bytes({'\0', '\1', '\2', '\xFF'}),
                    bytes("")});
    rows.push_back({byte(127),
                    integer(32767),
                    whole(Long::max()),
                    single(std::numeric_limits<float>::max()),
                    real(std::numeric_limits<double>::max()),
                    money("922337203685477.5807"),
                    decimal("-0.0000000001", 10),
                    date(9999, 12, 31, 23, 59, 59),
                    text("L'été d'Émile"),
                    text("Ā一😀"),
                    text(std::string(40'000, 'm')),
                    boolean(true),
                    text("{12345678-9ABC-DEF0-1234-56789ABCDEF0}"),
                    bytes(std::string(32, '\0')),
                    bytes(std::string(10'000, '\0'))});
    rows.emplace_back(type_columns().size(), null());
    rows.back()[11] = boolean(false);
    rows.push_back({byte(0),
                    integer(0),
                    whole(0),
                    single(0),
                    real(-0.0),
                    money("0"),
                    decimal("0", 10),
                    date(1582, 10, 14, 6),
                    text("blank "),
                    text(" lead"),
                    text("riga1\r\nriga2\ttab"),
                    boolean(true),
                    null(),
                    bytes(""),
                    null()});
    rows.push_back({byte(1),
                    integer(1),
                    whole(1),
                    single(1e-38F),
                    real(std::numeric_limits<double>::denorm_min()),
                    money("0.0001"),
                    decimal("1", 10),
                    date(1899, 12, 29, 18),
                    text("=1+1"),
                    text("@SUM(A1)"),
                    text("<b>&amp;</b>"),
                    boolean(true),
                    null(),
                    null(),
                    null()});
    return rows;
}

} // namespace

std::string sample_file() {
    JetWriter writer;
    add_articles(writer);
    add_order_lines(writer);
    const std::vector<JetRow> types = type_rows();
    writer.add_table("Tipi", type_columns(), types.size(), [&](std::size_t i) { return types[i]; });
    writer.add_table("Vuota",
                     {{"ID", JetType::long_integer}, {"Nome", JetType::text, 50}},
                     0,
                     [](std::size_t) { return JetRow(); });
    return writer.file();
}

} // namespace krv::jet_sample
