#include "krv/persistence/setting_keys.h"
#include "krv/qt/karvo_list_widget.h"

#include "support/bag_texts.h"
#include "support/form_loader.h"
#include "support/random_settings.h"
#include "support/text_of_forms.h"

#include "ui_ui_rich.h"

#include <gmock/gmock.h>

#include <QBuffer>
#include <QFile>
#include <QMetaProperty>
#include <QTranslator>
#include <QtDesigner/QFormBuilder>

#include <memory>
#include <set>

namespace krv::qt::testing {

namespace {

using krv::testing::FormLoader;
using krv::testing::RandomSettings;
using ::testing::Contains;
using Texts = std::vector<std::string>;

/// Writes a form as Designer does: stored properties alone, and no parts of the control. Their order
/// is another one each time.
class FormWriter final : public QFormBuilder {
protected:
    bool checkProperty(QObject* object, const QString& name) const override {
        const QMetaObject& meta = *object->metaObject();
        const int index = meta.indexOfProperty(name.toLatin1().constData());
        const bool is_ours = index >= KarvoListWidget::staticMetaObject.propertyOffset();
        return index >= 0 && qobject_cast<KarvoListWidget*>(object) != nullptr && is_ours &&
               meta.property(index).isStored();
    }

    DomWidget* createDom(QWidget* widget, DomWidget* parent, bool recursive) override {
        const bool has_parts = qobject_cast<KarvoListWidget*>(widget) != nullptr;
        return QFormBuilder::createDom(widget, parent, recursive && !has_parts);
    }
};

Texts settings_of(KarvoListWidget& widget) {
    standard::MemoryBag bag;
    widget.list().WriteProperties(bag);
    return krv::testing::texts_of(bag);
}

QByteArray saved(standard::MemoryBag settings) {
    QWidget form;
    KarvoListWidget widget(nullptr, nullptr, settings, &form);
    widget.setObjectName("list");
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    FormWriter().save(&file, &form);
    return file.data();
}

std::unique_ptr<QWidget> loaded(const QByteArray& ui) {
    QBuffer file;
    file.setData(ui);
    FormLoader loader;
    return std::unique_ptr<QWidget>(loader.load(&file));
}

Texts settings_loaded(const QByteArray& ui) {
    const auto form = loaded(ui);
    auto* const widget = form ? form->findChild<KarvoListWidget*>() : nullptr;
    return widget != nullptr ? settings_of(*widget) : Texts{"no control in the form"};
}

const Texts& rich_settings() {
    static const Texts settings = {"BackColor = 1193046",
                                   "Enabled = false",
                                   "MsgTitle = \"Orders\"",
                                   "Rows = 5",
                                   "Row = 3",
                                   "ButtonsHeight = 300.5",
                                   "LineNumberColumn = 1",
                                   "Connect = \"Provider=SQLite;Data Source=\\\"è.db\\\"\"",
                                   "DataBaseName = \"/tmp/è.db\"",
                                   "RecordSource = \"SELECT *\\nFROM Ordini\"",
                                   "ReadOnlyRecordset = true",
                                   "ColWidth0 = 1200",
                                   "ColAlignment0 = 7",
                                   "Caption0 = \"Quantity\"",
                                   "ColEditable0 = false",
                                   "ColIsKey0 = 1",
                                   "ColFromRecord0 = 2",
                                   "ColDataField0 = \"Quantità \\\"a\\\"\\u{1}\"",
                                   "ColFormat0 = \"0.00\\n\"",
                                   "ColIsNecessary0 = true",
                                   "ColFieldLength0 = 9",
                                   "ColFieldType0 = 5",
                                   "Caption1 = \"Nr.\"",
                                   "AddVisible = false",
                                   "InsertVisible = false",
                                   "DeleteVisible = false",
                                   "CopyVisible = false",
                                   "OkVisible = false",
                                   "AutoAdd = false",
                                   "AutoStartInputOnClick = false",
                                   "MoveWithTab = true",
                                   "KeyAdd = 120",
                                   "KeyInsert = 5",
                                   "KeyDelete = 122",
                                   "KeyCopy = 200",
                                   "KeyOK = -5",
                                   "AddCaption = \"più\"",
                                   "InsertCaption = \"fra\"",
                                   "DeleteCaption = \"via & basta\"",
                                   "CopyCaption = \"due volte\""};
    return settings;
}

/// Italian for the texts of the rich form.
class Italian final : public QTranslator {
public:
    QString translate(const char* context, const char* text, const char*, int) const override {
        if (qstrcmp(context, "RichForm") != 0) {
            return {};
        }
        asked.emplace(text);
        return qstrcmp(text, "Quantity") == 0 ? QStringLiteral("Quantità") : QString();
    }

    bool isEmpty() const override { return false; }

    mutable std::set<std::string> asked;
};

} // namespace

TEST(UiRoundTrip, any_settings_come_back_from_a_form_file) {
    for (std::uint32_t seed = 1; seed <= 2000; ++seed) {
        standard::MemoryBag wanted = krv::testing::as_forms_hold(RandomSettings(seed).bag());
        KarvoListWidget widget(nullptr, nullptr, wanted);
        const Texts expected = settings_of(widget);
        ASSERT_EQ(settings_loaded(saved(wanted)), expected) << "seed " << seed;
    }
}

TEST(UiRoundTrip, a_height_of_0_comes_back_as_255_as_from_a_bag) {
    QWidget form;
    KarvoListWidget widget(&form);
    widget.list().SetButtonsHeight(0);
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    FormWriter().save(&file, &form);
    const auto again = loaded(file.data());
    EXPECT_EQ(again->findChild<KarvoListWidget*>()->ButtonsHeight(), 255.0F);
}

TEST(UiRoundTrip, the_rich_form_has_every_setting_of_its_own) {
    Texts keys;
    for (const std::string& setting : rich_settings()) {
        keys.push_back(setting.substr(0, setting.find(' ')));
    }
    for (const persistence::SettingKey& key : persistence::setting_keys()) {
        if (key.name != "Cols") { // two, as a bag has without the key
            const bool is_of_a_column = key.scope == persistence::KeyScope::column;
            EXPECT_THAT(keys, Contains(std::string(key.name) + (is_of_a_column ? "0" : "")));
        }
    }
}

TEST(UiRoundTrip, the_rich_form_is_loaded) {
    QFile file(KRV_RICH_FORM);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(settings_loaded(file.readAll()), rich_settings());
}

TEST(UiRoundTrip, the_rich_form_is_compiled) {
    QWidget form;
    Ui::RichForm ui;
    ui.setupUi(&form);
    EXPECT_EQ(settings_of(*ui.list), rich_settings());
    EXPECT_FALSE(ui.list->constituents().GridIn.Visible());
}

TEST(UiRoundTrip, another_language_gives_captions_and_leaves_the_data) {
    QWidget form;
    Ui::RichForm ui;
    ui.setupUi(&form);
    ui.list->list().SetConnect("Provider=other");
    ui.list->list().SetTextMatrix(0, 0, "text");
    ui.list->list().SetColWidth(0, 500);
    Italian italian;
    QCoreApplication::installTranslator(&italian);
    ui.retranslateUi(&form);
    QCoreApplication::removeTranslator(&italian);
    EXPECT_EQ(ui.list->Captions(), (QStringList{"Quantità", "Nr."}));
    EXPECT_EQ(ui.list->constituents().GridIn.TextMatrix(0, 0), "Quantità");
    EXPECT_EQ(ui.list->list().Connect(), "Provider=other");
    EXPECT_EQ(ui.list->list().TextMatrix(0, 0), "text");
    EXPECT_EQ(ui.list->list().ColWidth(0), 500);
    EXPECT_EQ(italian.asked,
              (std::set<std::string>{
                  "Quantity", "Nr.", "Orders", "più", "fra", "via & basta", "due volte"}));
}

TEST(UiRoundTrip, a_broken_text_leaves_a_control_and_a_message) {
    static Texts warnings;
    warnings.clear();
    const QtMessageHandler old =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& text) {
            warnings.push_back(text.toStdString());
        });
    QFile file(KRV_RICH_FORM);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const auto form = loaded(file.readAll().replace("ColWidth=0<", "ColWidth=<"));
    qInstallMessageHandler(old);
    EXPECT_THAT(warnings,
                Contains("krvList3: error 321: Invalid Columns, line 2: a value is missing"));
    auto* const widget = form->findChild<KarvoListWidget*>();
    ASSERT_NE(widget, nullptr);
    EXPECT_EQ(widget->list().ColWidth(0), 1200);
    EXPECT_EQ(widget->list().ColWidth(1), 960);
    EXPECT_EQ(widget->list().Caption(1), "Nr.");
    EXPECT_EQ(widget->list().KeyCopy(), 200);
}

} // namespace krv::qt::testing
