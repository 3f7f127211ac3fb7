#pragma once

#include "krv/qt/grid_view.h"
#include "krv/standard/flex_grid.h"
#include "qt/picture.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>

#include <string>
#include <vector>

namespace krv::qt::testing {

inline void turn() {
    for (int i = 0; i < 5; ++i) {
        QApplication::processEvents();
    }
}

/// A grid of three columns of 1200 twips (80 pixels) in a view of 300 by 160 pixels: captions and
/// nine rows of 16 pixels.
class GridTest : public ::testing::Test, public GridViewOwner {
protected:
    GridTest()
        : grid("Grid", queue)
        , view(grid) {
        QFont font("DejaVu Sans");
        font.setPointSizeF(8.25);
        view.setFont(font);
        grid.SetCols(3);
        for (int col = 0; col < 3; ++col) {
            grid.SetColWidth(col, 1200);
            grid.SetTextMatrix(0, col, std::string("col") + std::to_string(col));
        }
        grid.SetRows(1);
        view.resize(300, 160);
    }

    void add_rows(int count) {
        for (int i = 0; i < count; ++i) {
            const std::string number = std::to_string(grid.Rows());
            grid.AddItem("a" + number + "\tb" + number + "\tc" + number);
        }
    }

    void show() {
        view.show();
        view.activateWindow();
        turn();
    }

    QImage picture() {
        turn();
        return drawn(*view.viewport());
    }

    QRect cell(int row, int col) { return inside(view.cell_rect(row, col)); }

    void press(int row, int col) {
        QTest::mousePress(
            view.viewport(), Qt::LeftButton, Qt::NoModifier, view.cell_rect(row, col).center());
    }

    void release(int row, int col) {
        QTest::mouseRelease(
            view.viewport(), Qt::LeftButton, Qt::NoModifier, view.cell_rect(row, col).center());
    }

    // The owner's side: what the view tells.

    void mouse_down(std::int16_t button, std::int16_t shift, float x, float y) override {
        tell("down", button, shift, x, y);
    }

    void mouse_up(std::int16_t button, std::int16_t shift, float x, float y) override {
        tell("up", button, shift, x, y);
    }

    void click(std::int16_t button, std::int16_t shift, float x, float y) override {
        tell("click", button, shift, x, y);
    }

    void double_click() override { told.emplace_back("double"); }

    bool press_arrives() override { return arrives; }

    bool key_down(const QKeyEvent& event,
                  const std::function<void(std::int16_t)>& scroll) override {
        told.push_back("key " + std::to_string(event.key() == Qt::Key_Down ? 40 : 0));
        return keys_go_on && GridViewOwner::key_down(event, scroll);
    }

    void tell(const char* what, int button, int shift, float x, float y) {
        told.push_back(std::string(what) + " " + std::to_string(button) + " " +
                       std::to_string(shift) + " " + std::to_string(static_cast<int>(x)) + " " +
                       std::to_string(static_cast<int>(y)) + " row " + std::to_string(grid.Row()));
    }

    standard::MessageQueue queue;
    standard::FlexGrid grid;
    GridView view;
    std::vector<std::string> told;
    bool arrives = true;
    bool keys_go_on = true;
};

} // namespace krv::qt::testing
