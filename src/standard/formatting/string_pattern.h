#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace krv::standard {

/// A string pattern: places for the characters of a text, and text around them.
class StringPattern {
public:
    explicit StringPattern(std::string_view pattern);

    /// \param value  the value's text, not empty
    void write(std::string_view value, std::string& text) const;

    /// What stands for Null, Empty and the empty text: the second section, or nothing.
    void write_null(std::string& text) const;

private:
    enum class PartKind : std::uint8_t { literal, blank_place, empty_place };

    struct Part {
        PartKind kind;
        std::string literal;
    };

    class Section {
    public:
        explicit Section(std::string_view text);

        void write(std::string_view value, std::string& text) const;

    private:
        void see(char character);
        void add_literal(std::string_view text);
        char* write_parts(std::string_view value, char* out) const;
        char* write_character(std::string_view character, char* out) const;
        char* write_rest(std::string_view rest, char* out) const;

        std::vector<Part> parts_;
        std::size_t places_ = 0;
        std::size_t literal_bytes_ = 0;
        bool from_left_ = false;
        bool lower_ = false;
        bool upper_ = false;
    };

    std::vector<Section> sections_;
};

} // namespace krv::standard
