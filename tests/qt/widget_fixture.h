#pragma once

#include "krv/platform/error.h"
#include "krv/qt/karvo_list_widget.h"
#include "krv/standard/regional_settings.h"
#include "krv/standard/value_formatter.h"

#include "support/scripted_data.h"

#include <gtest/gtest.h>

#include <QApplication>

#include <memory>
#include <string>
#include <vector>

namespace krv::qt::testing {

/// A new widget over a scripted data layer, Italian settings. Errors that reach its handler are kept
/// by number, messages by text.
class WidgetTest : public ::testing::Test {
protected:
    WidgetTest()
        : data(std::make_shared<krv::testing::ScriptedData>())
        , widget(std::make_unique<KarvoListWidget>(
              data,
              std::make_shared<standard::ValueFormatter>(standard::regional_settings("it-IT")))) {
        widget->set_message_handler([this](std::string_view text, platform::MessageButtons) {
            messages.emplace_back(text);
            return platform::MessageAnswer::ok;
        });
        widget->set_error_handler([this](const std::exception_ptr& error) {
            try {
                std::rethrow_exception(error);
            } catch (const platform::RuntimeError& failure) {
                errors.push_back(failure.number());
            }
        });
    }

    KarvoList& list() { return widget->list(); }

    template <class Widget = QWidget>
    Widget& part(const char* name) {
        auto* const found = widget->findChild<Widget*>(name);
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }

    /// Rows of two columns: "riga 0" and so on, and a number.
    void fill(int rows) {
        list().SetCols(2);
        list().SetCaption(0, "Descrizione");
        list().SetCaption(1, "Importo");
        list().SetRows(rows);
        for (int row = 0; row < rows; ++row) {
            list().SetTextMatrix(row, 0, "riga " + std::to_string(row));
            list().SetTextMatrix(row, 1, std::to_string(row * 100));
        }
    }

    static void turn() {
        for (int i = 0; i < 5; ++i) {
            QApplication::processEvents();
        }
    }

    std::shared_ptr<krv::testing::ScriptedData> data;
    std::unique_ptr<KarvoListWidget> widget;
    std::vector<std::string> messages;
    std::vector<std::int32_t> errors;
};

} // namespace krv::qt::testing
