#pragma once

namespace krv::providers::sqlite {

/// SQLite's authorizer callback. `data` points to a bool: true while a statement is compiled that
/// may only read; everything is allowed otherwise.
int authorize(void* data,
              int action,
              const char* first,
              const char* second,
              const char* database,
              const char* trigger) noexcept;

} // namespace krv::providers::sqlite
