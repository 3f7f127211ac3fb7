#include "control/event_list.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace krv {
namespace {

using Told = std::vector<std::string>;

/// Notes what it hears, then does what the test wants.
struct Listener final : KarvoListEvents {
    Listener(Told& log, std::string its_name)
        : told(log)
        , name(std::move(its_name)) {}

    void BeforeFieldUpdate(std::int32_t col, std::string& value, bool& cancel) override {
        told.push_back(name + " " + std::to_string(col) + " " + value + (cancel ? " cancel" : ""));
        if (act) {
            act(value, cancel);
        }
    }

    Told& told;
    std::string name;
    std::function<void(std::string&, bool&)> act;
};

struct EventListTest : ::testing::Test {
    void raise() { events->raise(&KarvoListEvents::BeforeFieldUpdate, col, value, cancel); }

    Told told;
    Listener first{told, "first"};
    Listener second{told, "second"};
    Listener third{told, "third"};
    std::unique_ptr<EventList> events = std::make_unique<EventList>();
    std::int32_t col = 4;
    std::string value = "a";
    bool cancel = false;
};

TEST_F(EventListTest, nobody_is_told_without_a_listener) {
    raise();
    EXPECT_EQ(told, Told{});
}

TEST_F(EventListTest, listeners_are_told_in_the_order_of_their_subscription) {
    events->subscribe(second);
    events->subscribe(first);
    raise();
    EXPECT_EQ(told, (Told{"second 4 a", "first 4 a"}));
}

TEST_F(EventListTest, a_second_subscription_changes_nothing) {
    events->subscribe(first);
    events->subscribe(second);
    events->subscribe(first);
    raise();
    EXPECT_EQ(told, (Told{"first 4 a", "second 4 a"}));
}

TEST_F(EventListTest, changed_arguments_go_from_one_listener_to_the_next_and_back) {
    first.act = [](std::string& text, bool& stop) {
        text += "b";
        stop = true;
    };
    second.act = [](std::string& text, bool&) { text += "c"; };
    events->subscribe(first);
    events->subscribe(second);
    raise();
    EXPECT_EQ(told, (Told{"first 4 a", "second 4 ab cancel"}));
    EXPECT_EQ(value, "abc");
    EXPECT_TRUE(cancel);
}

TEST_F(EventListTest, a_listener_that_leaves_inside_its_event_hears_no_further_one) {
    first.act = [this](std::string&, bool&) { events->unsubscribe(first); };
    events->subscribe(first);
    events->subscribe(second);
    raise();
    raise();
    EXPECT_EQ(told, (Told{"first 4 a", "second 4 a", "second 4 a"}));
}

TEST_F(EventListTest, a_listener_that_another_one_takes_out_does_not_hear_the_event_under_way) {
    first.act = [this](std::string&, bool&) { events->unsubscribe(second); };
    events->subscribe(first);
    events->subscribe(second);
    events->subscribe(third);
    raise();
    EXPECT_EQ(told, (Told{"first 4 a", "third 4 a"}));
}

TEST_F(EventListTest, a_listener_that_comes_inside_an_event_hears_the_next) {
    first.act = [this](std::string&, bool&) { events->subscribe(second); };
    events->subscribe(first);
    raise();
    EXPECT_EQ(told, Told{"first 4 a"});
    raise();
    EXPECT_EQ(told, (Told{"first 4 a", "first 4 a", "second 4 a"}));
}

TEST_F(EventListTest, a_listener_that_leaves_and_comes_back_stands_last_and_hears_the_next) {
    first.act = [this](std::string&, bool&) {
        events->unsubscribe(first);
        events->subscribe(first);
    };
    events->subscribe(first);
    events->subscribe(second);
    raise();
    first.act = nullptr;
    raise();
    EXPECT_EQ(told, (Told{"first 4 a", "second 4 a", "second 4 a", "first 4 a"}));
}

TEST_F(EventListTest, an_error_of_a_listener_comes_out_and_later_ones_are_not_told) {
    first.act = [](std::string&, bool&) { throw std::runtime_error("no"); };
    events->subscribe(first);
    events->subscribe(second);
    EXPECT_THROW(raise(), std::runtime_error);
    EXPECT_EQ(told, Told{"first 4 a"});
}

TEST_F(EventListTest, an_event_inside_an_event_is_told_whole) {
    bool again = true;
    first.act = [&](std::string&, bool&) {
        if (std::exchange(again, false)) {
            raise();
        }
    };
    events->subscribe(first);
    events->subscribe(second);
    raise();
    EXPECT_EQ(told, (Told{"first 4 a", "first 4 a", "second 4 a", "second 4 a"}));
}

TEST_F(EventListTest, a_list_that_goes_inside_an_event_tells_nobody_more) {
    first.act = [this](std::string& text, bool&) {
        events.reset();
        text = "z";
    };
    events->subscribe(first);
    events->subscribe(second);
    raise();
    EXPECT_EQ(told, Told{"first 4 a"});
    EXPECT_EQ(value, "z");
}

} // namespace
} // namespace krv
