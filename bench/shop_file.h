#pragma once

#include <cstdint>
#include <string>

namespace krv::bench {

/// Path of a SQLite file with the table "righe" of so many rows, made once in a temporary folder
/// that goes when the program ends. Ten columns, nine bytes of text a cell on average: id, codice,
/// cliente, citta, data (date), quantita, prezzo, totale (reals), nota, stato.
const std::string& shop_file(std::int64_t rows);

} // namespace krv::bench
