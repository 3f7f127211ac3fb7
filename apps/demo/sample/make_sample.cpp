#include "sample_database.h"

#include "krv/providers/sqlite.h"
#include "krv/standard/ado.h"

#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>

namespace {

namespace fs = std::filesystem;
namespace standard = krv::standard;

/// Leaves an empty file, which is an empty database: the data layer opens only what is there.
void create(const fs::path& file) {
    const std::ofstream stream(file, std::ios::binary | std::ios::trunc);
    if (!stream) {
        throw std::runtime_error("cannot write " + file.string());
    }
}

std::shared_ptr<krv::platform::Connection> open(const fs::path& file) {
    const auto registry = std::make_shared<standard::ProviderRegistry>(
        standard::ProviderRegistry::Providers{krv::providers::make_sqlite_provider(), {}, {}});
    auto connection = standard::AdoDataAccess(registry).CreateConnection();
    connection->Open("Provider=SQLite;Data Source=\"" + file.string() + '"',
                     "",
                     "",
                     krv::platform::ado::unspecified);
    return connection;
}

/// Writes beside the target first, so that a failed run leaves no half-filled database.
void make_sample(const fs::path& target) {
    fs::path part = target;
    part += ".part";
    create(part);
    const auto connection = open(part);
    krv::demo::write_sample(*connection);
    connection->Close();
    fs::rename(part, target);
}

} // namespace

int main(int argc, char* argv[]) {
    if (argc != 2 || *argv[1] == '-' || *argv[1] == '\0') {
        std::cerr << "usage: krvlist-make-sample FILE.db\n";
        return EXIT_FAILURE;
    }
    try {
        make_sample(argv[1]);
    } catch (const std::exception& error) {
        std::cerr << "krvlist-make-sample: " << error.what() << '\n';
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
