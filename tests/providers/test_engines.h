#pragma once

#include "krv/platform/data_access.h"
#include "krv/standard/ado.h"

#include <functional>
#include <map>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace krv::testing {

/// A database that the suite of all providers runs on.
struct TestEngine {
    std::string name; ///< letters and digits
    std::function<std::string()> why_missing;
    /// Of a database that is there, for everybody.
    std::function<std::string()> connection_string;
    /// Declared types in the order of `suite_columns`.
    std::vector<std::string> types;
    /// Data-type codes of these columns.
    std::vector<int> codes;
    /// What the list shows otherwise than the others: "row column" and the text.
    std::map<std::string, std::string> differences;
    char quote = '"';
};

inline const std::vector<std::string> suite_columns = {
    "id", "b", "si", "i", "bi", "r", "f", "m", "n", "d", "ts", "tm", "v", "c", "tx", "g", "bl"};

const std::vector<TestEngine>& test_engines();

/// For the names of parameterised cases.
inline void PrintTo(const TestEngine& engine, std::ostream* out) {
    *out << engine.name;
}

/// A data layer with every provider that is built.
std::shared_ptr<platform::DataAccess> full_data_access();

std::shared_ptr<platform::Connection> connected(platform::DataAccess& access,
                                                const std::string& connection_string);

/// Runs one statement on a connection of its own.
void run(const std::string& connection_string, const std::string& sql);

/// The first column of what a statement reads, as texts.
std::vector<std::string> texts(const std::string& connection_string, const std::string& sql);

} // namespace krv::testing
