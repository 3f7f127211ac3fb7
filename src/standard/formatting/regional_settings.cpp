#include "krv/standard/regional_settings.h"

#include "krv/platform/error.h"
#include "standard/formatting/built_in_regions.h"
#include "standard/formatting/locale_settings.h"
#include "standard/letter_case.h"

#include <cstdlib>
#include <locale>
#include <stdexcept>
#include <utility>

namespace krv::standard {

namespace {

constexpr std::pair<std::string_view, std::string_view> language_regions[] = {
    {"it", "it-IT"}, {"en", "en-US"}, {"de", "de-DE"}, {"fr", "fr-FR"}, {"posix", "C"}};

/// "it_IT.UTF-8@euro" as "it-IT".
std::string region_of(std::string_view locale_name) {
    std::string region(locale_name.substr(0, locale_name.find_first_of(".@")));
    for (char& letter : region) {
        letter = letter == '_' ? '-' : letter;
    }
    for (const auto& [language, name] : language_regions) {
        if (equal_in_any_case(region, language)) {
            return std::string(name);
        }
    }
    return region;
}

const RegionalSettings* find_built_in(std::string_view name) {
    const std::string region = region_of(name);
    for (const RegionalSettings& settings : built_in_regions()) {
        if (equal_in_any_case(settings.name, region)) {
            return &settings;
        }
    }
    return nullptr;
}

std::string_view environment_locale() {
    for (const char* variable : {"LC_ALL", "LC_NUMERIC", "LC_TIME", "LANG"}) {
        const char* value = std::getenv(variable);
        if (value != nullptr && *value != '\0') {
            return value;
        }
    }
    return "C";
}

} // namespace

RegionalSettings regional_settings(std::string_view name) {
    if (const RegionalSettings* settings = find_built_in(name)) {
        return *settings;
    }
    const std::string locale_name(name);
    // An empty name would mean the environment's locale, one with a NUL would be cut there.
    if (!name.empty() && name.find('\0') == std::string_view::npos) {
        try {
            return settings_of_locale(std::locale(locale_name.c_str()), name);
        } catch (const std::runtime_error&) {
            // The library does not know it either.
        }
    }
    throw platform::RuntimeError(platform::error_number::invalid_call,
                                 "Unknown regional settings: '" + locale_name + "'",
                                 "krvList3");
}

RegionalSettings system_regional_settings() {
    try {
        return regional_settings(environment_locale());
    } catch (const platform::RuntimeError&) {
        return regional_settings("C");
    }
}

} // namespace krv::standard
