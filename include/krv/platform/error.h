#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <utility>

namespace krv::platform {

/// A run-time error as it reaches a host: a number, a text and the layer that raised it.
///
/// Numbers are those of the platform's error object: 5 invalid call, 6 overflow, 9 subscript out of
/// range, 13 type mismatch, 91 object not set, 380 and 381 bad property value or index, 438 no such
/// member, 30000 and above for the grid, 3xxx and negative ones for data access.
class RuntimeError : public std::exception {
public:
    RuntimeError(std::int32_t number, std::string description, std::string source)
        : number_(number)
        , description_(std::move(description))
        , source_(std::move(source)) {}

    std::int32_t number() const noexcept { return number_; }

    /// UTF-8, never empty.
    const std::string& description() const noexcept { return description_; }

    /// Name of the layer or part that raised it, for example "krvList3" or "Grid".
    const std::string& source() const noexcept { return source_; }

    const char* what() const noexcept override { return description_.c_str(); }

private:
    std::int32_t number_;
    std::string description_;
    std::string source_;
};

namespace error_number {

inline constexpr std::int32_t invalid_call = 5;
inline constexpr std::int32_t overflow = 6;
inline constexpr std::int32_t out_of_memory = 7;
inline constexpr std::int32_t subscript_out_of_range = 9;
inline constexpr std::int32_t type_mismatch = 13;
inline constexpr std::int32_t out_of_stack_space = 28;
inline constexpr std::int32_t object_not_set = 91;
inline constexpr std::int32_t invalid_use_of_null = 94;
inline constexpr std::int32_t invalid_property_value = 380;
inline constexpr std::int32_t invalid_property_array_index = 381;
inline constexpr std::int32_t property_is_read_only = 383;
inline constexpr std::int32_t object_required = 424;
inline constexpr std::int32_t no_such_member = 438;
inline constexpr std::int32_t wrong_number_of_arguments = 450;

} // namespace error_number

/// A reference leads to nothing, or to what is gone.
[[noreturn]] inline void fail_object_not_set() {
    throw RuntimeError(error_number::object_not_set,
                       "Object variable or With block variable not set",
                       "krvList3");
}

} // namespace krv::platform
