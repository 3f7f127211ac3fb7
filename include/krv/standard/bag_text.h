#pragma once

#include "krv/platform/error.h"
#include "krv/platform/value.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace krv::standard {

// Settings as text: `Key = value` on a line each. A value is true or false, a number (`-1`, `255.5`)
// or a text in double quotes, in which `\"`, `\\`, `\n`, `\r`, `\t` and `\u{1F}` (a code point in
// hexadecimal) stand for characters. Texts are UTF-8.

/// A text that is no setting.
class BagTextError : public platform::RuntimeError {
public:
    static constexpr std::int32_t invalid_format = 321;

    /// \param line  from 1; 0 when it is not known yet
    BagTextError(std::size_t line, const std::string& fault);

    std::size_t line() const noexcept { return line_; }

    /// What is wrong, without the line's number.
    const std::string& fault() const noexcept { return fault_; }

private:
    std::size_t line_;
    std::string fault_;
};

/// Takes the next line off the text, without its end.
std::string_view take_line(std::string_view& text);

/// Appends a value in its text form: flags, whole numbers, Single, Double, texts.
/// \throws RuntimeError 13 for another kind, a number that is not finite, a text that is not UTF-8
void append_setting(platform::ValueView value, std::string& text);

/// The key as a line begins with it: bare when letters, digits, `_`, `.` and `-` suffice, else in
/// quotes.
void append_setting_key(std::string_view key, std::string& text);

/// Reads the settings of one line from left to right, with blanks and tabs between.
class SettingReader {
public:
    /// \param line  without its line end; outlives the reader
    explicit SettingReader(std::string_view line)
        : rest_(line) {}

    /// Whether nothing but blanks is left.
    bool at_end();
    /// \throws BagTextError when no key follows
    std::string key();
    /// \throws BagTextError unless this character follows
    void expect(char character);
    /// Flags as Boolean, whole numbers as Long or, beyond it, 64 bits, others as Double.
    /// \throws BagTextError when no value follows
    platform::Value value();

private:
    void skip_blanks();
    std::string quoted();
    void append_escaped(std::string& text);
    platform::Value number(std::string_view word);

    std::string_view rest_;
};

} // namespace krv::standard
