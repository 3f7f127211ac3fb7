#pragma once

#include "standard/formatting/date_pattern.h"

namespace krv::standard {

/// Reads the text of a date pattern into its parts.
class DatePatternCompiler {
public:
    DatePatternCompiler(DatePattern& pattern,
                        const RegionalSettings& region,
                        DatePattern::Level level)
        : pattern_(pattern)
        , region_(region)
        , level_(level) {}

    void compile(std::string_view text);

private:
    void compile_next(class PatternScanner& scanner);
    void add_token(DateField field, std::string_view text);
    void add_half_day(std::string_view text);
    void add_literal(std::string_view text);
    void use_half_days();

    DatePattern& pattern_;
    const RegionalSettings& region_;
    DatePattern::Level level_;
    DateField last_token_ = DateField::literal;
    bool half_days_ = false;
};

} // namespace krv::standard
