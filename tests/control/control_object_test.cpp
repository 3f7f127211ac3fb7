#include "krv/control/control_object.h"

#include "support/errors.h"
#include "support/list_test.h"

namespace krv {

namespace {

using automation::ControlObject;
using platform::Value;
using testing::error_number_of;
using testing::text;
using testing::whole;

class ControlObjectTest : public testing::ListTest {
protected:
    const std::vector<Value> second{whole(1)};
};

TEST_F(ControlObjectTest, properties_are_read_and_written_by_name) {
    ControlObject object(list());
    object.Put("Cols", {}, text("3"));
    object.Put("Caption", second, text("Nome"));
    EXPECT_EQ(object.Get("Cols", {}).view().as_whole(), 3);
    EXPECT_EQ(object.Get("Caption", second).view().as_text(), "Nome");
    EXPECT_EQ(list().Caption(1), "Nome");
}

TEST_F(ControlObjectTest, faults_are_those_of_late_binding) {
    ControlObject object(list());
    EXPECT_EQ(error_number_of([&] { object.Get("Columns", {}); }), 438);
    EXPECT_EQ(error_number_of([&] { object.Get("Caption", {}); }), 450);
    EXPECT_EQ(error_number_of([&] { object.Put("Cols", {}, text("many")); }), 13);
    EXPECT_EQ(error_number_of([&] { object.Put("ColFormat", second, text("0")); }), 9);
    EXPECT_EQ(error_number_of([&] { object.Put("ColPos", second, whole(1)); }), 383);
}

TEST_F(ControlObjectTest, a_control_that_is_gone_is_error_91) {
    ControlObject object(list());
    destroy();
    EXPECT_EQ(error_number_of([&] { object.Get("Cols", {}); }), 91);
    EXPECT_EQ(error_number_of([&] { object.Put("Cols", {}, whole(2)); }), 91);
    EXPECT_EQ(error_number_of([&] { object.Get("Columns", {}); }), 91);
}

TEST_F(ControlObjectTest, a_control_that_a_put_destroys_is_gone_for_the_next) {
    ControlObject object(list());
    on_changed = [&](const std::string& name) {
        if (name == "Cols") {
            on_changed = nullptr;
            destroy();
        }
    };
    object.Put("Cols", {}, whole(2));
    EXPECT_FALSE(alive());
    EXPECT_EQ(error_number_of([&] { object.Put("Rows", {}, whole(2)); }), 91);
}

} // namespace

} // namespace krv
