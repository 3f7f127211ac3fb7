#pragma once

#include "krv/standard/regional_settings.h"

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace krv::server {

enum class Backend : std::uint8_t { headless, qt };
enum class Task : std::uint8_t { serve, print_help, print_version };

struct Options {
    Task task = Task::serve;
    Backend backend = Backend::headless;
    standard::RegionalSettings region;
};

/// What the program was called with makes no sense; says why.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// \param arguments  without the program's name
/// \throws UsageError
Options parse_options(const std::vector<std::string>& arguments);

std::string_view usage();

} // namespace krv::server
