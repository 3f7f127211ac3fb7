#include "krv/providers/jet.h"

#include "krv/standard/data_error.h"
#include "providers/jet/connection.h"
#include "providers/jet/reader_path.h"
#include "standard/ado/file_kind.h"

#include <cerrno>
#include <charconv>
#include <cstring>
#include <string>

#include <fcntl.h>
#include <sys/stat.h>

namespace krv::providers {

namespace {

using standard::ConnectionString;
using standard::DataError;
namespace data_error_number = standard::data_error_number;

std::chrono::milliseconds answer_limit(const ConnectionString& settings,
                                       std::chrono::milliseconds otherwise) {
    const std::string_view text = settings.value("General Timeout");
    if (text.empty()) {
        return otherwise;
    }
    std::uint32_t seconds = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), seconds);
    if (error != std::errc{} || end != text.data() + text.size()) {
        throw DataError(data_error_number::malformed_connection_string,
                        "General Timeout is no number of seconds.",
                        jet::layer);
    }
    return std::chrono::seconds(seconds);
}

[[noreturn]] void refuse(std::string_view path, const std::string& why) {
    throw DataError(data_error_number::unspecified,
                    "The file \"" + std::string(path) + "\" " + why,
                    jet::layer);
}

/// The reader gets the open file, so that it needs no way to open one.
jet::Descriptor opened(std::string_view path) {
    if (standard::file_kind(path, jet::layer) != standard::FileKind::jet) {
        refuse(path, "is no Jet database.");
    }
    // Without waiting: a pipe may have taken the file's place since it was looked at.
    jet::Descriptor file(
        open(standard::absolute_path(path).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));

    struct stat status {};

    if (file.number() < 0 || fstat(file.number(), &status) != 0) {
        refuse(path, std::string("cannot be read: ") + std::strerror(errno) + ".");
    }
    if (!S_ISREG(status.st_mode)) {
        refuse(path, "is no ordinary file.");
    }
    return file;
}

class JetProvider final : public standard::Provider {
public:
    explicit JetProvider(JetOptions options)
        : options_(std::move(options)) {}

    std::unique_ptr<standard::ProviderConnection> open(const ConnectionString& settings) override {
        const jet::Patience patience{options_.silence, answer_limit(settings, options_.answer)};
        const jet::Descriptor file = opened(settings.value("Data Source"));
        auto session =
            std::make_shared<jet::ReaderSession>(jet::reader_path(options_.reader), file, patience);
        return std::make_unique<jet::Connection>(std::move(session),
                                                 settings.value("Jet OLEDB:Database Password"));
    }

private:
    JetOptions options_;
};

} // namespace

std::shared_ptr<standard::Provider> make_jet_provider(JetOptions options) {
    return std::make_shared<JetProvider>(std::move(options));
}

} // namespace krv::providers
