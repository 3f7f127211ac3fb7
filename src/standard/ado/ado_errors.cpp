#include "standard/ado/ado_errors.h"

namespace krv::standard {

namespace {

const char* text_of(std::int32_t number) {
    switch (number) {
    case data_error_number::wrong_arguments:
        return "Arguments are of the wrong type, are out of acceptable range, or are in conflict "
               "with one another.";
    case data_error_number::no_current_record:
        return "Either BOF or EOF is True, or the current record has been deleted. Requested "
               "operation requires a current record.";
    case data_error_number::not_supported:
        return "Object or provider is not capable of performing requested operation.";
    case data_error_number::item_not_found:
        return "Item cannot be found in the collection corresponding to the requested name or "
               "ordinal.";
    case data_error_number::object_closed:
        return "Operation is not allowed when the object is closed.";
    case data_error_number::object_open:
        return "Operation is not allowed when the object is open.";
    case data_error_number::invalid_connection:
        return "The connection cannot be used to perform this operation. It is either closed or "
               "invalid in this context.";
    default:
        return "Unspecified error";
    }
}

} // namespace

void raise(std::int32_t number, const char* layer) {
    throw DataError(number, text_of(number), layer);
}

} // namespace krv::standard
