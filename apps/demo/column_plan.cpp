#include "column_plan.h"

#include "text_width.h"

#include <algorithm>

namespace krv::demo {

namespace {

/// Data-type codes of the classic data objects.
namespace type {

constexpr std::int16_t single = 4;
constexpr std::int16_t double_float = 5;
constexpr std::int16_t currency = 6;
constexpr std::int16_t date = 7;
constexpr std::int16_t boolean = 11;
constexpr std::int16_t decimal = 14;
constexpr std::int16_t binary = 128;
constexpr std::int16_t numeric = 131;
constexpr std::int16_t db_date = 133;
constexpr std::int16_t db_time = 134;
constexpr std::int16_t time_stamp = 135;
constexpr std::int16_t long_var_char = 201;
constexpr std::int16_t long_var_w_char = 203;
constexpr std::int16_t var_binary = 204;
constexpr std::int16_t long_var_binary = 205;

} // namespace type

constexpr platform::Twips character_width = 115;
constexpr platform::Twips padding = 180;

platform::Twips width_of_characters(std::int32_t count) {
    return count * character_width + padding;
}

bool is_whole_number(std::int16_t code) {
    return code == 2 || code == 3 || (code >= 16 && code <= 21);
}

bool is_binary(std::int16_t code) {
    return code == type::binary || code == type::var_binary || code == type::long_var_binary;
}

struct Look {
    std::string format;
    krvAlignment alignment = krvleft;
    std::int32_t characters = 0;
};

Look look_of(std::int16_t code, std::int32_t size) {
    switch (code) {
    case type::currency:
    case type::decimal:
    case type::numeric:
        return {"#,##0.00", krvright, 11};
    case type::single:
    case type::double_float:
        return {"", krvright, 11};
    case type::date:
    case type::db_date:
        return {"dd/mm/yyyy", krvcenter, 10};
    case type::time_stamp:
        return {"dd/mm/yyyy hh:nn", krvcenter, 15};
    case type::db_time:
        return {"hh:nn:ss", krvcenter, 8};
    case type::boolean:
        return {R"("sì";"sì";"no")", krvcenter, 5};
    case type::long_var_char:
    case type::long_var_w_char:
        return {"", krvleft, 30};
    default:
        break;
    }
    return is_whole_number(code) ? Look{"", krvright, 8}
                                 : Look{"", krvleft, std::clamp(size, 6, 30)};
}

ColumnPlan
plan_column(std::string_view caption, std::string_view field, std::int16_t code, Look look) {
    // A caption is read as well as its column.
    const std::int32_t letters = text_width(caption);
    const platform::Twips width =
        std::max(width_of_characters(look.characters), width_of_characters(std::min(letters, 20)));
    ColumnPlan plan;
    plan.caption = caption;
    plan.field = field;
    plan.type = code;
    plan.format = std::move(look.format);
    plan.alignment = look.alignment;
    plan.width = width;
    return plan;
}

} // namespace

std::vector<ColumnPlan> plan_columns(const platform::Fields& fields) {
    std::vector<ColumnPlan> columns;
    for (std::int32_t i = 0; i < fields.Count(); ++i) {
        const platform::Field& field = fields.Item(i);
        if (!is_binary(field.Type())) {
            columns.push_back(plan_column(field.Name(),
                                          field.Name(),
                                          field.Type(),
                                          look_of(field.Type(), field.DefinedSize())));
        }
    }
    return columns;
}

std::vector<ColumnPlan> sample_columns() {
    const auto money = [] { return Look{"#,##0.00", krvright, 8}; };
    std::vector<ColumnPlan> columns = {
        plan_column("Numero", "Numero", 3, {"", krvright, 6}),
        plan_column("Data", "Data", type::db_date, look_of(type::db_date, 0)),
        plan_column("Cliente", "Cliente", 202, {"", krvleft, 23}),
        plan_column("Articolo", "Articolo", 202, {"", krvleft, 30}),
        plan_column("Quantità", "Quantità", 3, {"#,##0", krvright, 8}),
        plan_column("Prezzo €", "Prezzo", type::currency, money()),
        plan_column("Sconto %", "Sconto", type::numeric, {"0.0", krvright, 7}),
        plan_column("Totale €", "Totale", type::currency, money()),
        plan_column("Spedito", "Spedito", type::boolean, look_of(type::boolean, 0)),
        plan_column("Note", "Note", 203, {"", krvleft, 20})};
    columns.front().is_key = true;
    columns.front().is_given = true;
    for (ColumnPlan& column : columns) {
        column.is_necessary = !column.is_given && column.field != "Sconto" &&
                              column.field != "Spedito" && column.field != "Note";
    }
    return columns;
}

void set_up_columns(KarvoList& list, const std::vector<ColumnPlan>& columns) {
    list.SetCols(static_cast<std::int32_t>(columns.size()));
    for (std::int32_t col = 0; col < list.Cols(); ++col) {
        const ColumnPlan& plan = columns[static_cast<std::size_t>(col)];
        list.SetCaption(col, plan.caption);
        list.SetColDataField(col, plan.field);
        list.SetColFieldType(col, plan.type);
        list.SetColFormat(col, plan.format);
        list.SetColAlignment(col, plan.alignment);
        list.SetColWidth(col, plan.width);
        list.SetColEditable(col, !plan.is_given);
        list.SetColIsKey(col, plan.is_key ? krvRec1 : krvListRecord);
        list.SetColIsNecessary(col, plan.is_necessary);
    }
}

} // namespace krv::demo
