#pragma once

#include "qt/widget_fixture.h"

#include "krv/control/control_object.h"
#include "krv/qt/property_page.h"
#include "qt/page/property_page_rooms.h"

#include "support/errors.h"

#include <QLineEdit>

#include <QTest>

#include <memory>

namespace krv::qt::testing {

/// A designer with one control selected.
class OneControl final : public platform::PropertyPageSite {
public:
    explicit OneControl(KarvoList& list)
        : control_(std::make_shared<automation::ControlObject>(list)) {}

    std::int32_t SelectedControlsCount() const override { return 1; }

    std::shared_ptr<platform::AutomationObject> SelectedControls(std::int32_t index) override {
        if (index != 0) {
            throw platform::RuntimeError(9, "Subscript out of range", "site");
        }
        return control_;
    }

    bool Changed() const override { return changed_; }

    void SetChanged(bool changed) override { changed_ = changed; }

private:
    std::shared_ptr<automation::ControlObject> control_;
    bool changed_ = false;
};

/// A control of three columns, and what a page on it needs.
class PageTest : public WidgetTest {
protected:
    PageTest()
        : site(list()) {
        list().SetCols(3);
        std::int32_t col = 0;
        for (const char* caption : {"Codice", "Nome", "Nato il"}) {
            list().SetCaption(col, caption);
            list().SetColWidth(col, 1000 + 100 * col);
            list().SetColDataField(col, caption);
            ++col;
        }
    }

    PropertyPageSupplies supplies() { return {site, data, formatter}; }

    static QWidget& editor(PropertyPageWidget& page, const char* name) {
        auto* const found = page.findChild<QWidget*>(name);
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }

    static void fill(PropertyPageWidget& page, const char* name, const char* text) {
        auto& edit = dynamic_cast<QLineEdit&>(editor(page, name));
        edit.setFocus();
        turn();
        edit.selectAll();
        QTest::keyClicks(&edit, text);
        turn();
    }

    OneControl site;
    std::shared_ptr<standard::ValueFormatter> formatter =
        std::make_shared<standard::ValueFormatter>(standard::regional_settings("it-IT"));
};

} // namespace krv::qt::testing
