#include "standard/ado/field_types.h"

namespace krv::standard {

std::int32_t fixed_size_of(std::int16_t type) noexcept {
    switch (type) {
    case field_type::tiny_int:
    case field_type::unsigned_tiny_int:
        return 1;
    case field_type::small_int:
    case field_type::unsigned_small_int:
    case field_type::boolean:
        return 2;
    case field_type::integer:
    case field_type::unsigned_int:
    case field_type::single:
        return 4;
    case field_type::db_date:
    case field_type::db_time:
        return 6;
    case field_type::double_float:
    case field_type::currency:
    case field_type::date:
    case field_type::big_int:
    case field_type::unsigned_big_int:
        return 8;
    case field_type::guid:
    case field_type::db_time_stamp:
        return 16;
    case field_type::numeric:
        return 19;
    case field_type::long_var_w_char:
        return 536870910;
    case field_type::long_var_char:
    case field_type::long_var_binary:
        return 2147483647;
    default:
        return 0;
    }
}

} // namespace krv::standard
