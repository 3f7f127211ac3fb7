#pragma once

#include "jet_writer.h"

#include <string>
#include <vector>

namespace krv::providers {

inline std::vector<jet_sample::JetColumn> big_columns() {
    using jet_sample::JetType;
    return {{"ID", JetType::long_integer},
            {"Codice", JetType::text, 12},
            {"Descrizione", JetType::text, 80},
            {"Quantità", JetType::long_integer},
            {"Prezzo", JetType::currency},
            {"Peso", JetType::double_float},
            {"Data", JetType::date},
            {"Attivo", JetType::boolean},
            {"Livello", JetType::integer},
            {"Città", JetType::text, 40}};
}

inline jet_sample::JetRow big_row(std::size_t index) {
    using platform::Value;
    using platform::ValueView;
    const auto i = static_cast<std::int32_t>(index);
    const auto number = static_cast<double>(i);
    return {Value(ValueView::long_integer(i)),
            Value::text("C-" + std::to_string(100'000 + i)),
            Value::text("Descrizione numero " + std::to_string(i)),
            Value(ValueView::long_integer(i % 977)),
            Value(ValueView::currency({std::int64_t{i} * 137})),
            Value(ValueView::double_float(number / 8)),
            Value(ValueView::date({40'000 + number / 64})),
            Value(ValueView::boolean(i % 3 == 0)),
            Value(ValueView::integer(static_cast<std::int16_t>(i % 100))),
            i % 10 == 9 ? Value(ValueView::null())
                        : Value::text("Città " + std::to_string(i % 500))};
}

/// A file with the table "Grande" of ten columns.
inline std::string big_file(std::size_t rows) {
    jet_sample::JetWriter writer;
    writer.add_table("Grande", big_columns(), rows, big_row);
    return writer.file();
}

} // namespace krv::providers
