// Walks through the control by chance: keys, mouse, calls and the answers of a host. Every backend
// has to hear and show the same, and a polite host to find what it was promised.

#include "walk/act.h"
#include "walk/model.h"
#include "walk/player.h"

#include "server/headless_form.h"
#ifdef KRV_HAS_QT
#include "server/qt_form.h"

#include <QApplication>
#endif

#include <gtest/gtest.h>

#include <deque>
#include <optional>
#include <set>

namespace krv::walk {
namespace {

constexpr int steps_of_a_walk = 2000;
constexpr int walks_of_a_group = 5;
constexpr int groups_of_each_manner = 5; // 50 seeds, 100,000 steps in all

/// The last acts before a failure, for whoever has to understand it.
class Road {
public:
    void add(const Act& act, const std::vector<std::string>& trace) {
        std::string line = act.describe();
        for (const std::string& what : trace) {
            line += "\n        " + what;
        }
        acts_.push_back(std::move(line));
        if (acts_.size() > 12) {
            acts_.pop_front();
        }
    }

    std::string text() const {
        std::string text;
        for (const std::string& act : acts_) {
            text += "\n    " + act;
        }
        return text;
    }

private:
    std::deque<std::string> acts_;
};

class RandomWalk : public ::testing::TestWithParam<std::tuple<Manners, int>> {
protected:
    Manners manners() const { return std::get<0>(GetParam()); }

    std::uint64_t first_seed() const {
        const auto group = static_cast<std::uint64_t>(std::get<1>(GetParam()));
        return group * walks_of_a_group + (manners() == Manners::wild ? 1000 : 0);
    }

    /// A walk that hardly meets the control would prove little: every event but the one that is
    /// never raised, and every message, has to be heard on the way.
    void expect_all_was_met() const {
        std::vector<std::string> missing;
        for (const automation::Event& event : automation::events()) {
            if (event.name != "KeyPress" && !heard_.contains("event " + std::string(event.name))) {
                missing.emplace_back(event.name);
            }
        }
        for (const char* message : {"message confermi annullamento",
                                    "message confermi eliminazione",
                                    "message deve essere selezionata"}) {
            if (heard_.lower_bound(message) == heard_.end() ||
                heard_.lower_bound(message)->rfind(message, 0) != 0) {
                missing.emplace_back(message);
            }
        }
        EXPECT_EQ(missing, std::vector<std::string>{});
    }

    void note(const std::vector<std::string>& trace) {
        for (const std::string& what : trace) {
            const bool is_event = what.rfind("event ", 0) == 0;
            heard_.insert(is_event ? what.substr(0, what.find(' ', 6)) : what);
        }
    }

    std::set<std::string> heard_;

    void walk(std::uint64_t seed) {
        Player first(server::make_headless_form(), seed, manners());
#ifdef KRV_HAS_QT
        Player second(server::make_qt_form(), seed, manners());
        ASSERT_EQ(first.state(), second.state());
#endif
        std::optional<Model> model;
        if (manners() == Manners::polite) {
            model.emplace(first);
        }
        Dice dice(seed * 7919 + 1);
        Road road;
        for (int step = 0; step < steps_of_a_walk; ++step) {
            const Act act = next_act(dice, manners(), first.list().Rows(), first.list().Cols());
            if (model) {
                model->before(act);
            }
            first.perform(act);
            const std::vector<std::string> trace = first.take_trace();
            road.add(act, trace);
            note(trace);
            const std::string where =
                "seed " + std::to_string(seed) + ", step " + std::to_string(step) + road.text();
#ifdef KRV_HAS_QT
            second.perform(act);
            ASSERT_EQ(trace, second.take_trace()) << where;
            ASSERT_EQ(first.state(), second.state()) << where;
#endif
            if (model) {
                ASSERT_EQ(model->broken_after(trace), std::vector<std::string>{}) << where;
            }
        }
    }
};

TEST_P(RandomWalk, is_alike_on_every_backend_and_keeps_its_promises) {
    for (std::uint64_t seed = first_seed(); seed < first_seed() + walks_of_a_group; ++seed) {
        walk(seed);
        if (HasFatalFailure()) {
            return;
        }
    }
    expect_all_was_met();
}

std::string name_of(const ::testing::TestParamInfo<RandomWalk::ParamType>& test) {
    const bool polite = std::get<0>(test.param) == Manners::polite;
    return (polite ? "polite_" : "wild_") + std::to_string(std::get<1>(test.param));
}

INSTANTIATE_TEST_SUITE_P(Seeds,
                         RandomWalk,
                         ::testing::Combine(::testing::Values(Manners::polite, Manners::wild),
                                            ::testing::Range(0, groups_of_each_manner)),
                         name_of);

} // namespace
} // namespace krv::walk

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
#ifdef KRV_HAS_QT
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
#endif
    return RUN_ALL_TESTS();
}
