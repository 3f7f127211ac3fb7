#pragma once

#include "krv/qt/karvo_list_widget.h"
#include "qt/application.h"
#include "qt/button.h"
#include "qt/container.h"
#include "qt/grid_part.h"
#include "qt/late_surroundings.h"
#include "qt/line.h"
#include "qt/surface.h"
#include "qt/text_box.h"

#include <array>

namespace krv::qt {

/// What the widget is made of. The order of the members is that of their making: parts in tab
/// order, the control last, so that it goes first.
struct KarvoListWidget::Rooms {
    Rooms(KarvoListWidget& widget,
          std::shared_ptr<LateDataAccess> data,
          std::shared_ptr<LateFormatter> format);
    ~Rooms();

    /// Ends the control. What is left of its parts stays while code of theirs may be running.
    static void end(std::unique_ptr<Rooms> rooms);

    Constituents constituents() noexcept;
    std::array<QtButton*, 5> buttons();
    /// Places every part anew: the resolution is another one.
    void place_parts();

    std::shared_ptr<LateDataAccess> data_access;
    std::shared_ptr<LateFormatter> formatter;
    std::shared_ptr<Surface> surface;
    QtApplication application;
    QtContainer container;
    QtGrid grid;
    QtGrid grid_in;
    QtTextBox inp_fld;
    QtButton btn_add;
    QtButton btn_insert;
    QtButton btn_copy;
    QtButton btn_delete;
    QtButton btn_ok;
    QtLine line;
    std::unique_ptr<KarvoList> list;

private:
    std::array<platform::Part*, 9> parts();
    std::array<PartHandle*, 9> handles();
    void fall_silent();
    void name_parts();
    void keep_columns_aligned();
    void show_edited_column();
    void follow_current_row();
};

} // namespace krv::qt
