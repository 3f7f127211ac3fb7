#include "errors.h"

#include "krv/standard/data_error.h"

namespace krv::jet_reader {

namespace {

namespace number = standard::data_error_number;
using standard::DataError;

} // namespace

void refuse_damaged(const std::string& what) {
    throw DataError(number::unspecified,
                    "The database file is damaged or not whole; it is not read (" + what + ").",
                    layer);
}

void refuse_unknown_table(const std::string& name) {
    throw DataError(number::no_such_table, "no such table: " + name, layer);
}

void refuse_statement(const std::string& why) {
    throw DataError(number::bad_statement, why, layer);
}

} // namespace krv::jet_reader
