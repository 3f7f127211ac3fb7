#include "jet_fixture.h"
#include "spoiled_file.h"

#include <chrono>
#include <iostream>

namespace krv::providers {
namespace {

using Clock = std::chrono::steady_clock;
using Tables = std::vector<std::pair<std::string, std::vector<Texts>>>;

struct Original {
    std::string name;
    std::string content;
    Texts tables;
    Tables rows;
};

/// What became of all tables of a copy.
struct Outcome {
    std::size_t errors = 0;
    Tables rows;
    Clock::duration longest{}; ///< that one call took
};

class JetSpoiledTest : public JetTest {
protected:
    JetSpoiledTest() { options.silence = std::chrono::milliseconds(1500); }

    Outcome read(const std::string& path, const Texts& tables) {
        Outcome outcome;
        std::unique_ptr<standard::ProviderConnection> connection;
        try_to(outcome, [&] { connection = open(path); });
        if (!connection) {
            return outcome;
        }
        for (const std::string& table : tables) {
            std::unique_ptr<standard::ProviderCursor> cursor;
            try_to(outcome, [&] { cursor = connection->open_table({table}); });
            std::vector<Texts> rows;
            bool is_whole = cursor != nullptr;
            for (bool has_row = is_whole; has_row;) {
                is_whole = try_to(outcome, [&] { has_row = cursor->step(); });
                has_row = has_row && is_whole;
                if (has_row) {
                    rows.push_back(row_of(*cursor));
                }
            }
            if (is_whole) {
                outcome.rows.emplace_back(table, std::move(rows));
            }
        }
        return outcome;
    }

    /// \return whether there was no error; another exception than those of the data layer fails
    template <class Action>
    bool try_to(Outcome& outcome, Action action) {
        const auto start = Clock::now();
        bool succeeded = true;
        try {
            action();
        } catch (const standard::DataError&) {
            ++outcome.errors;
            succeeded = false;
        }
        outcome.longest = std::max(outcome.longest, Clock::now() - start);
        return succeeded;
    }

    static Texts row_of(standard::ProviderCursor& cursor) {
        Texts row;
        for (std::size_t i = 0; i < cursor.columns().size(); ++i) {
            row.push_back(shown(cursor.value(i)));
        }
        return row;
    }

    Original original(const std::string& name, const std::string& content, Texts tables) {
        const Outcome sound = read(write(content), tables);
        EXPECT_EQ(sound.errors, 0U) << name;
        return {name, content, tables, sound.rows};
    }

    /// The project's own sample, and those of others where they are.
    std::vector<Original> originals() {
        std::vector<Original> all;
        all.push_back(original(
            "sample.mdb", jet_sample::sample_file(), {"Articoli", "Order Lines", "Tipi", "Vuota"}));
        const std::vector<std::pair<std::string, std::string>> others = {
            {"overflowTestV2003.mdb", "Table1"},
            {"testUnicodeCompV2003.mdb", "Table"},
            {"calcFieldTestV2010.accdb", "Table1"},
            {"testV1997.mdb", "Table1"}};
        for (const auto& [name, table] : others) {
            const auto path = samples_folder() / name;
            if (std::filesystem::is_regular_file(path)) {
                all.push_back(original(name, krv::testing::read_file(path.string()), {table}));
            }
        }
        return all;
    }

    void spoil_and_read(const Original& from, const std::string& mode, std::uint64_t seed) {
        SCOPED_TRACE(from.name + " " + mode + " " + std::to_string(seed));
        const std::string copy = spoiled(from.content, mode, seed);
        const Outcome outcome = read(write(copy, "copia.mdb"), from.tables);
        EXPECT_LT(outcome.longest, std::chrono::seconds(2));
        longest_ = std::max(longest_, outcome.longest);
        ++copies_;
        refused_ += outcome.errors > 0 ? 1 : 0;
        if (copy.size() < from.content.size() && outcome.errors == 0) {
            EXPECT_EQ(outcome.rows, from.rows) << "a cut file was read short";
            ++whole_though_cut_;
        }
    }

    void report() const {
        std::cout << copies_ << " copies, " << refused_ << " with an error, " << whole_though_cut_
                  << " cut without a loss; longest wait "
                  << std::chrono::duration_cast<std::chrono::milliseconds>(longest_).count()
                  << " ms\n";
    }

    std::size_t copies_ = 0;
    std::size_t refused_ = 0;
    std::size_t whole_though_cut_ = 0;
    Clock::duration longest_{};
};

TEST_F(JetSpoiledTest, a_thousand_spoiled_copies_do_no_harm) {
    constexpr std::uint64_t wanted = 1000;
    const std::vector<std::string> modes = {
        "trunc", "page", "flip1", "flip16", "flip256", "flip1024", "meta", "noise"};
    const std::vector<Original> from = originals();
    const std::size_t before = open_descriptors();
    for (std::uint64_t i = 0; i < wanted; ++i) {
        const std::uint64_t seed = 1 + i / modes.size();
        spoil_and_read(from[seed % from.size()], modes[i % modes.size()], seed);
    }
    EXPECT_EQ(copies_, wanted);
    EXPECT_FALSE(has_children());
    EXPECT_EQ(open_descriptors(), before);
    report();
}

TEST_F(JetSpoiledTest, the_known_trouble_makers_do_no_harm) {
    if (!std::filesystem::is_directory(samples_folder())) {
        GTEST_SKIP() << "no folder of Jet databases (KRV_JET_SAMPLES)";
    }

    struct Trouble {
        const char* file;
        const char* mode;
        std::vector<std::uint64_t> seeds;
    };

    const std::vector<Trouble> troubles = {
        {"overflowTestV2003.mdb", "trunc", {5, 42, 51, 85, 93, 139}},
        {"overflowTestV2003.mdb", "flip16", {1, 3, 14}},
        {"overflowTestV2003.mdb", "flip256", {80}},
        {"overflowTestV2003.mdb", "flip1024", {92}},
        {"testUnicodeCompV2003.mdb", "trunc", {69}},
        {"testUnicodeCompV2003.mdb", "flip256", {42, 84, 91, 104, 134}},
        {"testUnicodeCompV2003.mdb", "flip1024", {130}},
        {"sample.mdb", "flip256", {104}}};
    const std::vector<Original> from = originals();
    for (const Trouble& trouble : troubles) {
        const auto found = std::find_if(from.begin(), from.end(), [&](const Original& file) {
            return file.name == trouble.file;
        });
        ASSERT_NE(found, from.end()) << trouble.file;
        for (const std::uint64_t seed : trouble.seeds) {
            spoil_and_read(*found, trouble.mode, seed);
        }
    }
    EXPECT_FALSE(has_children());
    report();
}

} // namespace
} // namespace krv::providers
