#include "krv/control/automation.h"
#include "krv/platform/data_access.h"

#include "support/errors.h"
#include "support/list_test.h"

#include <cmath>
#include <limits>

namespace krv {
namespace {

using automation::Access;
using automation::Type;
using platform::Value;
using platform::ValueKind;
using platform::ValueView;
using testing::error_number_of;
using testing::ListTest;
using testing::null;
using testing::real;
using testing::text;
using testing::whole;

Value boolean(bool value) {
    return Value(ValueView::boolean(value));
}

Value object(std::shared_ptr<platform::Object> value) {
    return Value(std::move(value));
}

struct AutomationTest : ListTest {
    Value get(std::string_view name, std::vector<Value> arguments = {}) {
        return automation::get(list(), name, arguments);
    }

    void put(std::string_view name, Value value, std::vector<Value> arguments = {}) {
        automation::put(list(), name, arguments, value);
    }

    Value call(std::string_view name, std::vector<Value> arguments = {}) {
        return automation::call(list(), name, arguments);
    }

    void SetUp() override {
        ListTest::SetUp();
        changed.clear();
    }
};

// --- Members -------------------------------------------------------------------------------------

TEST_F(AutomationTest, a_property_is_read_and_put_by_its_name) {
    put("Cols", whole(3));
    put("ColFormat", text("0.00"), {whole(2)});
    put("TextMatrix", text("caption"), {whole(-1), whole(1)});
    EXPECT_EQ(get("Cols").view().as_whole(), 3);
    EXPECT_EQ(get("ColFormat", {whole(2)}).view().as_text(), "0.00");
    EXPECT_EQ(get("TextMatrix", {whole(-1), whole(1)}).view().as_text(), "caption");
    EXPECT_EQ(changed, (std::vector<std::string>{"Cols", "ColFormat"}));
}

TEST_F(AutomationTest, every_type_comes_back_in_its_own_kind) {
    EXPECT_EQ(get("AutoAdd").kind(), ValueKind::boolean);
    EXPECT_EQ(get("KeyAdd").kind(), ValueKind::integer);
    EXPECT_EQ(get("Rows").kind(), ValueKind::long_integer);
    EXPECT_EQ(get("ButtonsHeight").kind(), ValueKind::single);
    EXPECT_EQ(get("AddCaption").kind(), ValueKind::text);
    EXPECT_EQ(get("AddColor").view().as_whole(), 0x8000000F);
    EXPECT_EQ(get("GiveFocusTo").kind(), ValueKind::object);
    EXPECT_EQ(get("GiveFocusTo").shared_object(), nullptr);
}

TEST_F(AutomationTest, objects_are_put_by_reference) {
    const auto host_object = std::make_shared<platform::Object>();
    automation::putref(list(), "GiveFocusTo", {}, object(host_object));
    EXPECT_EQ(list().GiveFocusTo(), host_object);
    EXPECT_EQ(get("GiveFocusTo").shared_object(), host_object);
    automation::putref(list(), "GiveFocusTo", {}, null());
    EXPECT_EQ(list().GiveFocusTo(), nullptr);
}

TEST_F(AutomationTest, a_recordset_is_wanted_where_a_recordset_is_put) {
    const std::shared_ptr<platform::Recordset> recordset = data.CreateRecordset();
    automation::putref(list(), "Recordset", {}, object(recordset));
    EXPECT_EQ(list().Recordset(), recordset);
    const auto other = object(std::make_shared<platform::Object>());
    EXPECT_EQ(error_number_of([&] { automation::putref(list(), "Recordset", {}, other); }), 13);
    EXPECT_EQ(list().Recordset(), recordset);
    automation::putref(list(), "GiveFocusTo", {}, object(recordset));
    EXPECT_EQ(list().GiveFocusTo(), recordset);
}

TEST_F(AutomationTest, a_method_is_called_with_converted_arguments) {
    list().SetRows(4);
    EXPECT_EQ(call("Svuota", {boolean(true)}).kind(), ValueKind::empty);
    EXPECT_EQ(list().Rows(), 0);
    call("SetFont", {text("12,0")});
    EXPECT_EQ(container().FontSize(), 12);
}

TEST_F(AutomationTest, an_optional_argument_may_be_left_out) {
    list().SetAutoAdd(false);
    list().SetRows(2);
    call("Svuota");
    EXPECT_EQ(list().Rows(), 0);
}

TEST_F(AutomationTest, arguments_by_reference_come_back_as_the_method_saw_them) {
    std::vector<Value> arguments = {text("14,5")};
    automation::call(list(), "SetFont", arguments);
    EXPECT_EQ(arguments[0].kind(), ValueKind::single);
    EXPECT_EQ(arguments[0].view().as_single(), 14.5f);
    arguments = {text("65"), whole(0)};
    automation::call(list(), "SendKeys", arguments);
    EXPECT_EQ(arguments[0].view().as_text(), "65");
}

TEST_F(AutomationTest, errors_of_a_member_come_out_unchanged) {
    EXPECT_EQ(error_number_of([this] { get("Caption", {whole(9)}); }), 381);
    EXPECT_EQ(error_number_of([this] { put("ColEditable", boolean(true), {whole(1)}); }), 9);
    EXPECT_EQ(error_number_of([this] { put("ColIsKey", whole(70000), {whole(0)}); }), 6);
    EXPECT_EQ(changed, std::vector<std::string>{});
}

// --- Wrong requests ------------------------------------------------------------------------------

struct WrongRequest {
    std::string_view name;
    Access access;
    std::size_t arguments;
    std::int32_t number;
};

TEST_F(AutomationTest, wrong_requests_have_their_numbers) {
    const std::vector<WrongRequest> requests = {
        {"Nonesiste", Access::get, 0, 438},
        {"Nonesiste", Access::put, 0, 438},
        {"Nonesiste", Access::putref, 0, 438},
        {"Nonesiste", Access::call, 0, 438},
        {"", Access::get, 0, 438},
        {"cols", Access::get, 0, 438},
        {"Refresh", Access::get, 0, 438},
        {"Refresh", Access::put, 0, 438},
        {"Refresh", Access::putref, 0, 438},
        {"Rows", Access::call, 0, 438},
        {"Rows", Access::putref, 0, 438},
        {"Adding", Access::put, 0, 383},
        {"Adding", Access::putref, 0, 438},
        {"GiveFocusTo", Access::put, 0, 383},
        {"Recordset", Access::put, 0, 383},
        {"Caption", Access::get, 0, 450},
        {"Caption", Access::put, 0, 450},
        {"Caption", Access::get, 2, 450},
        {"TextMatrix", Access::get, 1, 450},
        {"TextMatrix", Access::put, 3, 450},
        {"Rows", Access::get, 1, 450},
        {"Refresh", Access::call, 1, 450},
        {"SendKeys", Access::call, 1, 450},
        {"Svuota", Access::call, 2, 450},
        {"ColPos", Access::put, 0, 383},
        {"RowClick", Access::call, 4, 450},
    };
    for (const WrongRequest& request : requests) {
        EXPECT_EQ(error_number_of([&] {
                      automation::require(request.name, request.access, request.arguments);
                  }),
                  request.number)
            << request.name << ' ' << static_cast<int>(request.access) << ' ' << request.arguments;
    }
}

TEST_F(AutomationTest, a_wrong_argument_leaves_the_control_alone) {
    list().SetRows(2);
    changed.clear();
    EXPECT_EQ(error_number_of([this] {
                  put("TextMatrix", text("x"), {whole(0), text("abc")});
              }),
              13);
    EXPECT_EQ(error_number_of([this] { put("TextMatrix", null(), {whole(0), whole(0)}); }), 13);
    EXPECT_EQ(error_number_of([this] { call("Svuota", {null()}); }), 13);
    EXPECT_EQ(error_number_of([this] { call("SendKeys", {whole(65), whole(40000)}); }), 6);
    EXPECT_EQ(list().TextMatrix(0, 0), "");
    EXPECT_EQ(list().Rows(), 2);
}

// --- Conversions ---------------------------------------------------------------------------------

struct Conversion {
    Value from;
    Type type;
    std::int32_t error;
    Value to;
};

std::string shown(const Value& value) {
    const ValueView view = value.view();
    switch (value.kind()) {
    case ValueKind::boolean:
        return view.as_boolean() ? "True" : "False";
    case ValueKind::text:
        return "\"" + std::string(view.as_text()) + "\"";
    case ValueKind::single:
        return std::to_string(view.as_single());
    default:
        return view.is_whole() ? std::to_string(view.as_whole()) : "other";
    }
}

TEST_F(AutomationTest, values_convert_by_the_regional_settings) {
    const Value none;
    const double huge = std::numeric_limits<double>::infinity();
    const auto single = [](float value) { return Value(ValueView::single(value)); };
    const auto color = [](std::int64_t value) { return Value(ValueView::long_long(value)); };
    const std::vector<Conversion> conversions = {
        {whole(0), Type::Boolean, 0, boolean(false)},
        {whole(7), Type::Boolean, 0, boolean(true)},
        {real(0.25), Type::Boolean, 0, boolean(true)},
        {text("TRUE"), Type::Boolean, 0, boolean(true)},
        {text("false"), Type::Boolean, 0, boolean(false)},
        {text("-1"), Type::Boolean, 0, boolean(true)},
        {text("0,0"), Type::Boolean, 0, boolean(false)},
        {text(""), Type::Boolean, 13, none},
        {text("Vero"), Type::Boolean, 13, none},
        {null(), Type::Boolean, 13, none},
        {boolean(true), Type::Integer, 0, whole(-1)},
        {boolean(false), Type::Long, 0, whole(0)},
        {text("12,6"), Type::Long, 0, whole(13)},
        {text("12,5"), Type::Long, 0, whole(12)},
        {real(13.5), Type::Long, 0, whole(14)},
        {real(-0.5), Type::Long, 0, whole(0)},
        {text("12.6"), Type::Long, 0, whole(126)},
        {text("abc"), Type::Long, 13, none},
        {text("99999999999"), Type::Long, 6, none},
        {whole(32767), Type::Integer, 0, whole(32767)},
        {real(32767.4), Type::Integer, 0, whole(32767)},
        {real(32767.5), Type::Integer, 6, none},
        {whole(-32769), Type::Integer, 6, none},
        {real(2147483647.0), Type::Long, 0, whole(2147483647)},
        {real(2147483647.5), Type::Long, 6, none},
        {real(-2147483648.5), Type::Long, 0, whole(std::numeric_limits<std::int32_t>::min())},
        {real(huge), Type::Long, 6, none},
        {real(std::nan("")), Type::Long, 6, none},
        {none, Type::Long, 13, none},
        {object(nullptr), Type::Long, 13, none},
        {real(2.5), Type::Single, 0, single(2.5f)},
        {text("2,5"), Type::Single, 0, single(2.5f)},
        {real(1e39), Type::Single, 6, none},
        {real(0x8000000F), Type::OLE_COLOR, 0, color(0x8000000F)},
        {whole(-2147483633), Type::OLE_COLOR, 0, color(0x8000000F)},
        {real(4294967296.0), Type::OLE_COLOR, 6, none},
        {real(-2147483649.0), Type::OLE_COLOR, 6, none},
        {whole(1234), Type::String, 0, text("1234")},
        {real(1.5), Type::String, 0, text("1,5")},
        {boolean(true), Type::String, 0, text("True")},
        {null(), Type::String, 13, none},
        {object(nullptr), Type::String, 13, none},
        {whole(2), Type::krvListRecords, 0, whole(2)},
        {whole(5), Type::Object, 13, none},
        {text(""), Type::Recordset, 13, none},
    };
    for (const Conversion& conversion : conversions) {
        Value result;
        const std::int32_t number = error_number_of([&] {
            result = automation::convert(conversion.from, conversion.type, list().formatter());
        });
        EXPECT_EQ(number, conversion.error)
            << shown(conversion.from) << " as " << automation::name_of(conversion.type);
        EXPECT_EQ(shown(result), shown(conversion.to))
            << shown(conversion.from) << " as " << automation::name_of(conversion.type);
    }
}

// --- Events --------------------------------------------------------------------------------------

struct Sink final : automation::EventSink {
    void raise(const automation::Event& event, std::span<Value> arguments) override {
        std::string line = std::to_string(event.id) + " " + std::string(event.name);
        for (const Value& argument : arguments) {
            line += " " + shown(argument);
        }
        told.push_back(line);
        if (act) {
            act(arguments);
        }
    }

    std::vector<std::string> told;
    std::function<void(std::span<Value>)> act;
};

struct ForwardedEvents : ListTest {
    Sink sink;
};

TEST_F(ForwardedEvents, every_event_arrives_with_its_number_and_arguments) {
    automation::EventForwarder forwarder(sink, list().formatter());
    std::int16_t a = 1;
    std::int16_t b = 2;
    float x = 3.5f;
    float y = 4;
    std::int32_t row = 6;
    std::string value = "v";
    bool cancel = false;
    bool external = true;
    forwarder.KeyDown(a, b, -1);
    forwarder.KeyPress(a);
    forwarder.ListClick(a, b, x, y, 5, 7);
    forwarder.LineEditStart(true);
    forwarder.InputLineClick(a, b, x, y, 7);
    forwarder.InputLineDblClick(7, value);
    forwarder.InputFieldClick(a, b, x, y, 7);
    forwarder.InputFieldChange(7, value);
    forwarder.AfterRowDelete(5);
    forwarder.AfterRowUpdated(5);
    forwarder.AddClick(cancel);
    forwarder.InsertClick(cancel);
    forwarder.DeleteClick(cancel);
    forwarder.BeforeFieldUpdate(7, value, cancel);
    forwarder.BeforeRowUpdate(5, 7, cancel, external);
    forwarder.CopyClick(cancel);
    forwarder.OKClick(cancel);
    forwarder.RowSelect(row);
    EXPECT_EQ(sink.told,
              (std::vector<std::string>{"1 KeyDown 1 2 -1",
                                        "2 KeyPress 1",
                                        "3 ListClick 1 2 3.500000 4.000000 5 7",
                                        "4 LineEditStart True",
                                        "5 InputLineClick 1 2 3.500000 4.000000 7",
                                        "6 InputLineDblClick 7 \"v\"",
                                        "7 InputFieldClick 1 2 3.500000 4.000000 7",
                                        "8 InputFieldChange 7 \"v\"",
                                        "9 AfterRowDelete 5",
                                        "10 AfterRowUpdated 5",
                                        "11 AddClick False",
                                        "12 InsertClick False",
                                        "13 DeleteClick False",
                                        "14 BeforeFieldUpdate 7 \"v\" False",
                                        "15 BeforeRowUpdate 5 7 False True",
                                        "16 CopyClick False",
                                        "17 OKClick False",
                                        "18 RowSelect 6"}));
}

TEST_F(ForwardedEvents, what_the_sink_changes_comes_back_converted) {
    automation::EventForwarder forwarder(sink, list().formatter());
    sink.act = [](std::span<Value> arguments) {
        arguments[0] = whole(99); // by value: nobody reads it back
        arguments[1] = whole(42);
        arguments[2] = text("True");
    };
    std::string value = "v";
    bool cancel = false;
    forwarder.BeforeFieldUpdate(7, value, cancel);
    EXPECT_EQ(value, "42");
    EXPECT_TRUE(cancel);
}

TEST_F(ForwardedEvents, a_change_that_does_not_convert_is_error_13_and_changes_nothing) {
    automation::EventForwarder forwarder(sink, list().formatter());
    sink.act = [](std::span<Value> arguments) {
        arguments[1] = text("other");
        arguments[2] = text("perhaps");
    };
    std::string value = "v";
    bool cancel = false;
    EXPECT_EQ(error_number_of([&] { forwarder.BeforeFieldUpdate(7, value, cancel); }), 13);
    EXPECT_EQ(value, "v");
    EXPECT_FALSE(cancel);
}

TEST_F(ForwardedEvents, a_control_raises_through_the_forwarder_and_heeds_the_answer) {
    automation::EventForwarder forwarder(sink, list().formatter());
    list().subscribe(forwarder);
    list().SendKeys(65, 1);
    sink.act = [this](std::span<Value>) { destroy(); };
    list().SendKeys(66, 0);
    EXPECT_EQ(sink.told, (std::vector<std::string>{"1 KeyDown 65 1 -1", "1 KeyDown 66 0 -1"}));
    EXPECT_FALSE(alive());
}

} // namespace
} // namespace krv
