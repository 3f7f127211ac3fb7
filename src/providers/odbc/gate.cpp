#include "providers/odbc/gate.h"

#include "krv/standard/data_error.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace krv::providers::odbc {

namespace {

namespace data_error_number = standard::data_error_number;

struct Diagnosis {
    std::string state;
    std::int32_t native_code = 0;
    std::string text;
};

std::string text_of(std::span<const char16_t> buffer, SQLSMALLINT length) {
    const auto size = std::clamp<std::ptrdiff_t>(length, 0, std::ssize(buffer) - 1);
    const std::u16string_view whole(buffer.data(), static_cast<std::size_t>(size));
    return narrow_text(whole.substr(0, whole.find(u'\0')));
}

/// One record of what a driver says; nothing behind the last one.
bool read_record(SQLSMALLINT kind, SQLHANDLE handle, SQLSMALLINT number, Diagnosis& record) {
    std::array<char16_t, 6> state{};
    std::vector<char16_t> text(1024);
    SQLINTEGER native_code = 0;
    SQLSMALLINT length = 0;
    const auto read = [&] {
        return SQLGetDiagRecW(kind,
                              handle,
                              number,
                              as_sql(state),
                              &native_code,
                              as_sql(text),
                              static_cast<SQLSMALLINT>(text.size()),
                              &length);
    };
    SQLRETURN code = read();
    if (code == SQL_SUCCESS_WITH_INFO && length >= std::ssize(text)) {
        text.assign(static_cast<std::size_t>(length) + 1, u'\0');
        code = read();
    }
    if (!SQL_SUCCEEDED(code)) {
        return false;
    }
    record = {text_of(state, 5), native_code, text_of(text, length)};
    return true;
}

Diagnosis diagnosis_of(SQLSMALLINT kind, SQLHANDLE handle) {
    constexpr SQLSMALLINT most_records = 8;
    Diagnosis result;
    Diagnosis record;
    for (SQLSMALLINT i = 1; i <= most_records && read_record(kind, handle, i, record); ++i) {
        if (i == 1) {
            result = record;
        } else if (result.text.find(record.text) == std::string::npos) {
            result.text += '\n' + record.text;
        }
    }
    return result;
}

/// "57P" is PostgreSQL's way of telling that the server ends.
bool is_lost(std::string_view state) {
    return state.starts_with("08") || state.starts_with("57P");
}

std::int32_t number_of(const Diagnosis& diagnosis, Phase phase) {
    const std::string_view state = diagnosis.state;
    // PostgreSQL's driver (13.02) has one state for whatever keeps it from connecting.
    const bool is_refused = phase == Phase::connecting &&
                            diagnosis.text.find("authentication failed") != std::string::npos;
    if (state.starts_with("28") || is_refused) {
        return data_error_number::login_refused;
    }
    if (state == "HYT00" || state == "HYT01") {
        return data_error_number::timeout;
    }
    if (state == "42S02" || state == "42P01" || state == "S0002") {
        return data_error_number::no_such_table;
    }
    if (state == "25006") { // would write where only reading is allowed
        return data_error_number::bad_statement;
    }
    if (is_lost(state) || phase == Phase::connecting) {
        return data_error_number::unspecified;
    }
    if (state.starts_with("42") || state == "37000") {
        return data_error_number::bad_statement;
    }
    // SQLite's driver has no states of its own, and may look at a text when it runs only.
    const bool is_bad_sqlite = diagnosis.native_code == 1 && diagnosis.text.starts_with("[SQLite]");
    if (phase == Phase::preparing || is_bad_sqlite) {
        const bool no_table = diagnosis.text.find("no such table: ") != std::string::npos;
        return no_table ? data_error_number::no_such_table : data_error_number::bad_statement;
    }
    return data_error_number::unspecified;
}

} // namespace

void raise(SQLSMALLINT kind, SQLHANDLE handle, Phase phase) {
    Diagnosis diagnosis = diagnosis_of(kind, handle);
    const auto number = number_of(diagnosis, phase);
    if (diagnosis.text.empty()) {
        diagnosis.text = "Unspecified error";
    }
    throw standard::DataError(number,
                              std::move(diagnosis.text),
                              layer,
                              diagnosis.native_code,
                              std::move(diagnosis.state));
}

std::string first_state(SQLSMALLINT kind, SQLHANDLE handle) {
    Diagnosis record;
    return read_record(kind, handle, 1, record) ? record.state : std::string();
}

} // namespace krv::providers::odbc
