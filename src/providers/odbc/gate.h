#pragma once

#include "providers/odbc/wide_text.h"

#include <cstdint>
#include <utility>

namespace krv::providers::odbc {

inline constexpr const char* layer = "ODBC";

/// What was under way when a driver failed: a text that did not compile is a bad statement, a
/// statement that fails while it runs is a failing engine.
enum class Phase { connecting, preparing, running };

/// Throws what the driver says about its last call on a handle.
/// \throws DataError always, with SQLSTATE and native code
[[noreturn]] void raise(SQLSMALLINT kind, SQLHANDLE handle, Phase phase);

/// Passes the return codes of the driver manager.
/// \throws DataError for every code but success, with or without information, and no data
inline void check(SQLRETURN code, SQLSMALLINT kind, SQLHANDLE handle, Phase phase) {
    if (!SQL_SUCCEEDED(code) && code != SQL_NO_DATA) {
        raise(kind, handle, phase);
    }
}

/// The twin for clean-up, where nobody is left who could be told.
inline void ignore(SQLRETURN /*code*/) noexcept {}

/// SQLSTATE of what the last call on a handle said first; empty when it said nothing.
std::string first_state(SQLSMALLINT kind, SQLHANDLE handle);

/// A handle of the driver manager's, freed with this object.
template <SQLSMALLINT Kind>
class Handle {
public:
    Handle() = default;

    /// \param parent_kind, parent  the handle that it is made under, which outlives it
    Handle(SQLSMALLINT parent_kind, SQLHANDLE parent) {
        odbc::check(SQLAllocHandle(Kind, parent, &handle_), parent_kind, parent, Phase::running);
    }

    Handle(Handle&& other) noexcept
        : handle_(std::exchange(other.handle_, nullptr)) {}

    Handle& operator=(Handle&& other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }

    ~Handle() { reset(); }

    SQLHANDLE get() const noexcept { return handle_; }

    explicit operator bool() const noexcept { return handle_ != nullptr; }

    void check(SQLRETURN code, Phase phase) const { odbc::check(code, Kind, handle_, phase); }

    void reset() noexcept {
        if (handle_ != nullptr) {
            ignore(SQLFreeHandle(Kind, std::exchange(handle_, nullptr)));
        }
    }

private:
    SQLHANDLE handle_ = nullptr;
};

using EnvironmentHandle = Handle<SQL_HANDLE_ENV>;
using ConnectionHandle = Handle<SQL_HANDLE_DBC>;
using StatementHandle = Handle<SQL_HANDLE_STMT>;

} // namespace krv::providers::odbc
