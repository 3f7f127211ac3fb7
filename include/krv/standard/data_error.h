#pragma once

#include "krv/platform/error.h"

#include <cstdint>
#include <string>
#include <utility>

namespace krv::standard {

/// An error of the data layer with what the driver said beside the number.
class DataError : public platform::RuntimeError {
public:
    /// \param native_code  the engine's own number, 0 when no engine was involved
    /// \param sql_state    five characters, empty when the engine has none (SQLite)
    DataError(std::int32_t number,
              std::string description,
              std::string source,
              std::int32_t native_code = 0,
              std::string sql_state = {})
        : RuntimeError(number, std::move(description), std::move(source))
        , native_code_(native_code)
        , sql_state_(std::move(sql_state)) {}

    std::int32_t native_code() const noexcept { return native_code_; }

    const std::string& sql_state() const noexcept { return sql_state_; }

private:
    std::int32_t native_code_;
    std::string sql_state_;
};

/// Numbers of the classic data objects: their own are positive, a provider's are the 32-bit results
/// of OLE DB (`DB_E_...`, `E_FAIL`) taken as signed.
namespace data_error_number {

inline constexpr std::int32_t wrong_arguments = 3001;
inline constexpr std::int32_t no_current_record = 3021;
inline constexpr std::int32_t not_supported = 3251;
inline constexpr std::int32_t item_not_found = 3265;
inline constexpr std::int32_t object_closed = 3704;
inline constexpr std::int32_t object_open = 3705;
inline constexpr std::int32_t provider_not_found = 3706;
inline constexpr std::int32_t invalid_connection = 3709;

inline constexpr std::int32_t bad_statement = -2147217900;
inline constexpr std::int32_t timeout = -2147217871;
inline constexpr std::int32_t no_such_table = -2147217865;
inline constexpr std::int32_t login_refused = -2147217843;
inline constexpr std::int32_t malformed_connection_string = -2147217805;
inline constexpr std::int32_t unspecified = -2147467259;

} // namespace data_error_number

} // namespace krv::standard
