#pragma once

#include "krv/providers/jet.h"
#include "krv/standard/ado.h"
#include "krv/standard/data_error.h"
#include "krv/standard/provider_registry.h"
#include "providers/shown.h"
#include "sample_content.h"
#include "support/errors.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include <sys/wait.h>

namespace krv::providers {

using Texts = std::vector<std::string>;

/// The folder with databases of others; empty where there is none.
inline std::filesystem::path samples_folder() {
    const char* const named = std::getenv("KRV_JET_SAMPLES");
    return named != nullptr ? named : KRV_JET_SAMPLES;
}

inline bool has_children() {
    return waitpid(-1, nullptr, WNOHANG) != -1 || errno != ECHILD;
}

inline std::size_t open_descriptors() {
    using Iterator = std::filesystem::directory_iterator;
    return static_cast<std::size_t>(std::distance(Iterator("/proc/self/fd"), Iterator()));
}

/// Opens files with the real reader, unless told otherwise.
class JetTest : public ::testing::Test {
protected:
    std::string write(const std::string& content, const std::string& name = "dati.mdb") const {
        return folder.write(name, content);
    }

    std::string sample() const { return write(jet_sample::sample_file()); }

    std::unique_ptr<standard::ProviderConnection> open(const std::string& path,
                                                       const std::string& more = "") const {
        return make_jet_provider(options)->open(standard::ConnectionString::parse(
            "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=\"" + path + "\";" + more));
    }

    /// The error of an action as "number: text"; empty when there is none.
    template <class Action>
    static std::string error_of(Action action) {
        try {
            action();
        } catch (const platform::RuntimeError& error) {
            return std::to_string(error.number()) + ": " + error.what();
        }
        return "";
    }

    static Texts fields(const standard::ProviderCursor& cursor) {
        Texts result;
        for (const auto& column : cursor.columns()) {
            result.push_back(column.name + " " + std::to_string(column.type) + " " +
                             std::to_string(column.defined_size));
        }
        return result;
    }

    static std::vector<Texts> rows(standard::ProviderCursor& cursor) {
        std::vector<Texts> result;
        while (cursor.step()) {
            Texts& row = result.emplace_back();
            for (std::size_t i = 0; i < cursor.columns().size(); ++i) {
                row.push_back(shown(cursor.value(i)));
            }
        }
        return result;
    }

    krv::testing::TemporaryFolder folder;
    JetOptions options{KRV_JET_READER};
};

} // namespace krv::providers
