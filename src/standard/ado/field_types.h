#pragma once

#include <cstdint>

namespace krv::standard {

/// Data-type codes of the classic data objects (`DataTypeEnum`).
namespace field_type {

inline constexpr std::int16_t small_int = 2;
inline constexpr std::int16_t integer = 3;
inline constexpr std::int16_t single = 4;
inline constexpr std::int16_t double_float = 5;
inline constexpr std::int16_t currency = 6;
inline constexpr std::int16_t date = 7;
inline constexpr std::int16_t boolean = 11;
inline constexpr std::int16_t tiny_int = 16;
inline constexpr std::int16_t unsigned_tiny_int = 17;
inline constexpr std::int16_t unsigned_small_int = 18;
inline constexpr std::int16_t unsigned_int = 19;
inline constexpr std::int16_t big_int = 20;
inline constexpr std::int16_t unsigned_big_int = 21;
inline constexpr std::int16_t guid = 72;
inline constexpr std::int16_t binary = 128;
inline constexpr std::int16_t char_type = 129;
inline constexpr std::int16_t w_char = 130;
inline constexpr std::int16_t numeric = 131;
inline constexpr std::int16_t db_date = 133;
inline constexpr std::int16_t db_time = 134;
inline constexpr std::int16_t db_time_stamp = 135;
inline constexpr std::int16_t var_char = 200;
inline constexpr std::int16_t long_var_char = 201;
inline constexpr std::int16_t var_w_char = 202;
inline constexpr std::int16_t long_var_w_char = 203;
inline constexpr std::int16_t var_binary = 204;
inline constexpr std::int16_t long_var_binary = 205;

} // namespace field_type

/// Longest length that a text or binary may have and still count as one with a length: what
/// follows from it (widths in twips) goes into 16 bits.
inline constexpr std::int32_t longest_sized_field = 32767;

/// The size of a type that has the same size in every column, long types included; 0 for the types
/// whose columns have lengths of their own.
std::int32_t fixed_size_of(std::int16_t type) noexcept;

} // namespace krv::standard
