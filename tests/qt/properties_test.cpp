#include "krv/control/automation.h"
#include "krv/persistence/setting_keys.h"
#include "qt/widget_fixture.h"

#include "support/errors.h"

#include <QLineEdit>
#include <QMetaMethod>
#include <QMetaProperty>
#include <QPushButton>
#include <QVBoxLayout>

#include <map>
#include <set>

namespace krv::qt::testing {

namespace {

using Properties = WidgetTest;
using Slots = WidgetTest;
using GiveFocusTo = WidgetTest;
using krv::testing::error_number_of;
using Numbers = std::vector<std::int32_t>;

QMetaType::Type qt_type(automation::Type type) {
    switch (type) {
    case automation::Type::Boolean:
        return QMetaType::Bool;
    case automation::Type::Single:
        return QMetaType::Float;
    case automation::Type::String:
        return QMetaType::QString;
    case automation::Type::OLE_COLOR:
        return QMetaType::UInt;
    default:
        return QMetaType::Int;
    }
}

std::string described(const char* name, int type, bool writable) {
    return std::string(name) + " " + QMetaType(type).name() + (writable ? " read write" : " read");
}

/// What form files have beside the properties of the interface.
const std::vector<std::string> properties_of_form_files = {
    "Columns QByteArray read write",
    "Captions QStringList read write",
    "StartConnect QByteArray read write",
    "StartDataBaseName QByteArray read write",
    "StartRecordsource QByteArray read write",
    "StartTitle QString read write",
    "StartRow int read write",
    "StartButtonsHeight double read write",
    "StartKeyAdd int read write",
    "StartKeyInsert int read write",
    "StartKeyDelete int read write",
    "StartKeyCopy int read write"};

/// The properties of the interface that Qt can hold, in its order.
std::vector<std::string> expected_properties() {
    std::vector<std::string> expected;
    for (const automation::Member& member : automation::members()) {
        if (member.kind == automation::Kind::property && member.parameters.empty() &&
            member.type != automation::Type::Object && member.type != automation::Type::Recordset) {
            expected.push_back(
                described(std::string(member.name).c_str(), qt_type(member.type), member.put));
        }
    }
    return expected;
}

std::vector<std::string> properties_of_the_class() {
    const QMetaObject& meta = KarvoListWidget::staticMetaObject;
    std::vector<std::string> properties;
    for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i) {
        const QMetaProperty property = meta.property(i);
        properties.push_back(
            described(property.name(), property.metaType().id(), property.isWritable()));
    }
    return properties;
}

} // namespace

TEST_F(Properties, are_those_of_the_interface_that_qt_can_hold_and_those_of_form_files) {
    std::vector<std::string> expected = expected_properties();
    EXPECT_EQ(expected.size(), 43U);
    expected.insert(
        expected.end(), properties_of_form_files.begin(), properties_of_form_files.end());
    EXPECT_EQ(properties_of_the_class(), expected);
}

TEST_F(Properties, a_form_file_keeps_and_shows_each_setting_of_a_bag_once) {
    // By their names in a bag, "Columns" standing for all settings of the columns but the captions.
    const std::map<std::string, std::string> other_names = {{"Captions", "Caption"},
                                                            {"StartConnect", "Connect"},
                                                            {"StartDataBaseName", "DataBaseName"},
                                                            {"StartRecordsource", "RecordSource"},
                                                            {"StartTitle", "MsgTitle"},
                                                            {"StartRow", "Row"},
                                                            {"StartButtonsHeight", "ButtonsHeight"},
                                                            {"StartKeyAdd", "KeyAdd"},
                                                            {"StartKeyInsert", "KeyInsert"},
                                                            {"StartKeyDelete", "KeyDelete"},
                                                            {"StartKeyCopy", "KeyCopy"}};
    std::multiset<std::string> expected = {"Columns"};
    for (const persistence::SettingKey& key : persistence::setting_keys()) {
        if (key.name != "Cols" &&
            (key.scope == persistence::KeyScope::list || key.name == "Caption")) {
            expected.emplace(key.name);
        }
    }
    std::multiset<std::string> stored;
    const QMetaObject& meta = KarvoListWidget::staticMetaObject;
    for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i) {
        const QMetaProperty property = meta.property(i);
        EXPECT_EQ(property.isStored(), property.isDesignable()) << property.name();
        if (property.isStored()) {
            const auto other = other_names.find(property.name());
            stored.insert(other == other_names.end() ? property.name() : other->second);
        }
    }
    EXPECT_EQ(stored, expected);
}

TEST_F(Properties, write_and_read_the_list) {
    const std::vector<std::pair<const char*, QVariant>> values = {
        {"BackColor", 0x00123456U},
        {"ButtonsHeight", 300.0F},
        {"Connect", QString("Provider=è")},
        {"KeyAdd", 120},
        {"KeyCopy", 121},
        {"KeyDelete", 122},
        {"KeyInsert", 123},
        {"KeyOK", -5},
        {"MoveWithTab", true},
        {"Enabled", false},
        {"Rows", 70},
        {"LineNumberColumn", -2},
        {"Cols", 5},
        {"Recordsource", QString("Ordini")},
        {"ReadOnlyRecordset", true},
        {"DataBaseName", QString("/tmp/x.db")},
        {"Row", 3},
        {"TopRow", 5},
        {"AddCaption", QString("più")},
        {"AddColor", 1U},
        {"InsertCaption", QString("a")},
        {"InsertColor", 2U},
        {"DeleteCaption", QString("b")},
        {"DeleteColor", 3U},
        {"CopyCaption", QString("c")},
        {"CopyColor", 4U},
        {"EvidenziaColor", 5U},
        {"OKCaption", QString("d")},
        {"OkColor", 0x8000000DU},
        {"AddVisible", false},
        {"InsertVisible", false},
        {"DeleteVisible", false},
        {"CopyVisible", false},
        {"OkVisible", false},
        {"AutoAdd", false},
        {"AutoStartInputOnClick", false},
    };
    for (const auto& [name, value] : values) {
        EXPECT_NE(widget->property(name), value) << name << " has the value already";
        EXPECT_TRUE(widget->setProperty(name, value)) << name;
        EXPECT_EQ(widget->property(name), value) << name;
    }
    EXPECT_EQ(list().BackColor(), 0x00123456U);
    EXPECT_EQ(list().ButtonsHeight(), 300.0F);
    EXPECT_EQ(list().Connect(), "Provider=è");
    EXPECT_EQ(list().KeyAdd(), 120);
    EXPECT_EQ(list().KeyOK(), -5);
    EXPECT_EQ(list().Row(), 3);
    EXPECT_EQ(list().AddCaption(), "più");
    EXPECT_EQ(list().OkColor(), 0x8000000DU);
    EXPECT_EQ(errors, Numbers{});
}

TEST_F(Properties, read_what_the_list_was_given) {
    list().SetCols(4);
    list().SetAddCaption("àèì");
    list().SetEvidenziaColor(0x80000010);
    EXPECT_EQ(widget->property("Cols"), QVariant(4));
    EXPECT_EQ(widget->property("AddCaption"), QVariant(QString("àèì")));
    EXPECT_EQ(widget->property("EvidenziaColor"), QVariant(0x80000010U));
    EXPECT_EQ(widget->property("ButtonsWidth"), QVariant(1200.0F));
    EXPECT_EQ(widget->property("Adding"), QVariant(false));
}

TEST_F(Properties, enabled_of_the_control_is_not_the_widgets) {
    EXPECT_TRUE(widget->setProperty("Enabled", false));
    EXPECT_TRUE(widget->isEnabled());
    EXPECT_FALSE(part("btnAdd").isEnabled());
    widget->SetEnabled(true);
    widget->setEnabled(false);
    EXPECT_TRUE(widget->Enabled());
}

TEST_F(Properties, a_key_outside_16_bits_is_reported_and_changes_nothing) {
    const int before = widget->KeyOK();
    for (const int code : {32768, -32769, 65549}) {
        EXPECT_TRUE(widget->setProperty("KeyOK", code));
        EXPECT_EQ(widget->KeyOK(), before);
    }
    widget->SetKeyAdd(65536 + 120);
    EXPECT_EQ(widget->KeyAdd(), 116);
    EXPECT_EQ(errors, (Numbers{6, 6, 6, 6}));
    widget->SetKeyOK(32767);
    EXPECT_EQ(widget->KeyOK(), 32767);
    widget->SetKeyOK(-32768);
    EXPECT_EQ(widget->KeyOK(), -32768);
    EXPECT_EQ(messages, std::vector<std::string>{});
}

TEST_F(Properties, what_the_list_lets_out_is_reported) {
    widget->SetCols(0);
    widget->SetRow(5);
    widget->SetRows(-1);
    EXPECT_EQ(errors, (Numbers{9, 30009, 30009}));
    EXPECT_EQ(widget->Cols(), 1);
    EXPECT_EQ(widget->Rows(), 0);
}

TEST_F(Properties, a_write_tells_the_changed_property_once) {
    QStringList changed;
    QObject::connect(widget.get(), &KarvoListWidget::propertyChanged, [&](const QString& name) {
        changed.append(name);
    });
    widget->setProperty("Cols", 3);
    widget->setProperty("KeyOK", 99999);
    widget->setProperty("InsertColor", 7U);
    EXPECT_EQ(changed, (QStringList{"Cols", "InserColor"}));
}

TEST_F(Properties, the_widget_may_be_destroyed_by_a_write) {
    QObject::connect(widget.get(), &KarvoListWidget::propertyChanged, [this](const QString&) {
        widget.reset();
    });
    widget->setProperty("Cols", 3);
    EXPECT_EQ(widget, nullptr);
}

TEST_F(Slots, are_the_methods_without_arguments) {
    const QMetaObject& meta = KarvoListWidget::staticMetaObject;
    QByteArrayList slots_there;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        if (meta.method(i).methodType() == QMetaMethod::Slot) {
            slots_there.append(meta.method(i).methodSignature());
        }
    }
    EXPECT_EQ(slots_there,
              (QByteArrayList{"Refresh()",
                              "Clear()",
                              "CloseAll()",
                              "Add()",
                              "Insert()",
                              "Delete()",
                              "Copy()",
                              "OK()",
                              "CloseRecordset()",
                              "Svuota()"}));
}

TEST_F(Slots, a_button_of_the_form_empties_the_list) {
    QPushButton button;
    QObject::connect(&button, &QPushButton::clicked, widget.get(), &KarvoListWidget::Svuota);
    fill(3);
    button.click();
    EXPECT_EQ(list().Rows(), 0);
    EXPECT_EQ(list().Caption(0), "Descrizione");
}

TEST_F(Slots, a_refresh_loads_the_records) {
    data->field_names = {"Numero"};
    data->records = {{platform::Value(platform::ValueView::long_integer(7))}};
    list().SetConnect("Provider=script");
    list().SetColDataField(0, "Numero");
    list().SetRecordsource("Ordini");
    widget->Refresh();
    EXPECT_EQ(list().TextMatrix(0, 0), "7");
    widget->CloseRecordset();
    EXPECT_EQ(list().Recordset(), nullptr);
}

TEST_F(Slots, an_error_goes_to_the_handler) {
    data->field_names = {"Numero"};
    data->records = {{platform::Value(platform::ValueView::long_integer(7))}};
    list().SetConnect("Provider=script");
    list().SetColDataField(0, "not there");
    list().SetRecordsource("Ordini");
    widget->Refresh();
    EXPECT_EQ(errors, (Numbers{3265}));
}

TEST_F(GiveFocusTo, gives_a_widget_of_the_form_the_focus) {
    QWidget form;
    auto* const layout = new QVBoxLayout(&form);
    auto* const field = new QLineEdit;
    widget->setParent(&form);
    layout->addWidget(widget.get());
    layout->addWidget(field);
    form.show();
    part("Grid").setFocus();
    widget->SetGiveFocusTo(field);
    list().GiveFocusTo()->SetFocus();
    EXPECT_EQ(form.focusWidget(), field);
    widget->SetGiveFocusTo(nullptr);
    EXPECT_EQ(list().GiveFocusTo(), nullptr);
    widget.reset();
}

TEST_F(GiveFocusTo, error_5_from_a_widget_that_cannot_take_the_focus) {
    QWidget form;
    QLineEdit field(&form);
    const auto give = [&] {
        widget->SetGiveFocusTo(&field);
        list().GiveFocusTo()->SetFocus();
    };
    field.setEnabled(false);
    EXPECT_EQ(error_number_of([&] { give(); }), 5);
    field.setEnabled(true);
    field.hide();
    EXPECT_EQ(error_number_of([&] { give(); }), 5);
    field.show();
    field.setFocusPolicy(Qt::NoFocus);
    EXPECT_EQ(error_number_of([&] { give(); }), 5);
    field.setFocusPolicy(Qt::StrongFocus);
    give();
    EXPECT_EQ(form.focusWidget(), &field);
}

TEST_F(GiveFocusTo, error_91_from_a_widget_that_is_gone) {
    auto field = std::make_unique<QLineEdit>();
    widget->SetGiveFocusTo(field.get());
    field.reset();
    EXPECT_EQ(error_number_of([&] { list().GiveFocusTo()->SetFocus(); }), 91);
}

TEST_F(GiveFocusTo, outlives_the_control) {
    QLineEdit field;
    field.show();
    widget->SetGiveFocusTo(&field);
    const std::shared_ptr<platform::Object> object = list().GiveFocusTo();
    widget.reset();
    object->SetFocus();
    EXPECT_EQ(field.focusWidget(), &field);
}

} // namespace krv::qt::testing
