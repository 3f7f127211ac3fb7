// Writes the sample Jet database: krvlist-make-jet-sample FILE.mdb

#include "sample_content.h"

#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>

namespace {

namespace fs = std::filesystem;

/// Whole or not at all: a sample that was cut short is not to be taken for a finished one.
void write_sample(const fs::path& target) {
    fs::path part = target;
    part += ".part";
    std::ofstream file(part, std::ios::binary);
    file << krv::jet_sample::sample_file();
    file.close();
    if (!file) {
        throw std::runtime_error("cannot write " + part.string());
    }
    fs::rename(part, target);
}

} // namespace

int main(int argc, char* argv[]) {
    if (argc != 2) {
        std::cerr << "usage: krvlist-make-jet-sample FILE.mdb\n";
        return EXIT_FAILURE;
    }
    try {
        write_sample(argv[1]);
    } catch (const std::exception& error) {
        std::cerr << "krvlist-make-jet-sample: " << error.what() << '\n';
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
