#include "options.h"

#include "krv/platform/error.h"

#include <cstddef>
#include <optional>

namespace krv::server {

namespace {

Backend backend_named(const std::string& name) {
    if (name == "headless") {
        return Backend::headless;
    }
    if (name == "qt") {
        return Backend::qt;
    }
    throw UsageError("no backend \"" + name + "\"");
}

standard::RegionalSettings region_named(const std::string& name) {
    try {
        return standard::regional_settings(name);
    } catch (const platform::RuntimeError&) {
        throw UsageError("no region \"" + name + "\"");
    }
}

/// Walks through the arguments; a value stands behind its option or, after "=", in it.
class Arguments {
public:
    explicit Arguments(const std::vector<std::string>& arguments)
        : arguments_(arguments) {}

    /// Goes to the next option; false when there is none.
    bool next() {
        if (at_ == arguments_.size()) {
            return false;
        }
        const std::string& argument = arguments_[at_++];
        const std::size_t equals = argument.find('=');
        option_ = argument.substr(0, equals);
        value_.reset();
        if (equals != std::string::npos) {
            value_ = argument.substr(equals + 1);
        }
        return true;
    }

    const std::string& option() const { return option_; }

    bool is(std::string_view name) const { return option_ == name && !value_; }

    std::string value() {
        if (value_) {
            return *value_;
        }
        if (at_ == arguments_.size()) {
            throw UsageError(option_ + " wants a value");
        }
        return arguments_[at_++];
    }

private:
    const std::vector<std::string>& arguments_;
    std::size_t at_ = 0;
    std::string option_;
    std::optional<std::string> value_;
};

} // namespace

Options parse_options(const std::vector<std::string>& arguments) {
    Options options;
    std::optional<standard::RegionalSettings> region;
    Arguments walk(arguments);
    while (walk.next()) {
        if (walk.option() == "--backend") {
            options.backend = backend_named(walk.value());
        } else if (walk.option() == "--region") {
            region = region_named(walk.value());
        } else if (walk.is("--help") || walk.is("-h")) {
            options.task = Task::print_help;
        } else if (walk.is("--version")) {
            options.task = Task::print_version;
        } else {
            throw UsageError("unknown option \"" + walk.option() + "\"");
        }
    }
    options.region = region ? *region : standard::system_regional_settings();
    return options;
}

std::string_view usage() {
    return "Usage: krvlist-server [--backend headless|qt] [--region NAME]\n"
           "\n"
           "Makes KarvoList reachable by JSON-RPC 2.0: one message a line, requests on standard\n"
           "input, answers on standard output. Ends with its input.\n"
           "\n"
           "  --backend NAME  headless (without a screen, the default) or qt (a window)\n"
           "  --region NAME   it-IT, en-US, en-GB, de-DE, fr-FR, C or a locale of the system;\n"
           "                  by default what the environment asks for\n"
           "  --version       prints the version\n"
           "  --help          prints this\n";
}

} // namespace krv::server
