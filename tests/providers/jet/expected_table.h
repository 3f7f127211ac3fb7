#pragma once

#include "krv/standard/provider.h"

#include <filesystem>
#include <string>
#include <vector>

namespace krv::providers {

/// A table as another reader of the format read it. Cells are normalised texts, rows are sorted.
struct ExpectedTable {
    std::string name;
    std::vector<std::string> columns;
    std::vector<std::string> types;
    std::vector<std::vector<std::string>> rows;
};

std::vector<ExpectedTable> expected_tables(const std::filesystem::path& tsv);

/// The rows of a cursor, normalised and sorted in the same way.
std::vector<std::vector<std::string>> read_rows(standard::ProviderCursor& cursor,
                                                const std::vector<std::string>& types);

} // namespace krv::providers
