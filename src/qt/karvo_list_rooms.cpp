#include "qt/karvo_list_rooms.h"

#include "krv/standard/editor_column.h"

namespace krv::qt {

namespace {

constexpr platform::TwipsSingle input_line_height = 510;
constexpr platform::TwipsSingle button_height = 255;

} // namespace

KarvoListWidget::Rooms::Rooms(KarvoListWidget& widget,
                              std::shared_ptr<LateDataAccess> data,
                              std::shared_ptr<LateFormatter> format)
    : data_access(std::move(data))
    , formatter(std::move(format))
    , surface(Surface::make(widget))
    , application(surface)
    , container(*surface)
    , grid(*surface, "Grid", standard::GridSelection::by_row, standard::GridKeys::own_listener)
    , grid_in(*surface, "GridIn", standard::GridSelection::free, standard::GridKeys::surface)
    , inp_fld(*surface, "InpFld")
    , btn_add(*surface, "btnAdd")
    , btn_insert(*surface, "btnInsert")
    , btn_copy(*surface, "btnCopy")
    , btn_delete(*surface, "btnDelete")
    , btn_ok(*surface, "btnOK")
    , line(*surface, "Line1") {
    for (QtButton* button : buttons()) {
        button->SetHeight(button_height);
    }
    grid_in.SetHeight(input_line_height);
    const std::array<platform::Part*, 9> all = parts();
    container.set_parts({all.begin(), all.end()});
    name_parts();
    keep_columns_aligned();
    inp_fld.set_on_show([this] { show_edited_column(); });
    follow_current_row();
    surface->set_on_key_down([this](std::int16_t& key_code, std::int16_t& shift) {
        if (container.events() != nullptr) {
            container.events()->KeyDown(key_code, shift);
        }
    });
    surface->set_on_exit_focus([this] {
        if (container.events() != nullptr) {
            container.events()->ExitFocus();
        }
    });
    list = std::make_unique<KarvoList>(
        constituents(), Surroundings{container, application, *data_access, *formatter});
}

KarvoListWidget::Rooms::~Rooms() {
    surface->close();
}

void KarvoListWidget::Rooms::end(std::unique_ptr<Rooms> rooms) {
    const std::shared_ptr<Surface> surface = rooms->surface;
    surface->close();
    rooms->list.reset();
    if (surface->loop()->is_active()) {
        rooms->fall_silent();
        surface->loop()->bury(std::move(rooms));
    }
}

void KarvoListWidget::Rooms::fall_silent() {
    container.SetEvents(nullptr);
    grid.SetEvents(nullptr);
    grid_in.SetEvents(nullptr);
    inp_fld.SetEvents(nullptr);
    for (QtButton* button : buttons()) {
        button->SetEvents(nullptr);
    }
    for (PartHandle* part : handles()) {
        part->widget()->hide();
        part->widget()->setParent(nullptr); // the control's widget would take it along
    }
}

std::array<platform::Part*, 9> KarvoListWidget::Rooms::parts() {
    return {
        &grid, &grid_in, &inp_fld, &btn_add, &btn_insert, &btn_copy, &btn_delete, &btn_ok, &line};
}

std::array<PartHandle*, 9> KarvoListWidget::Rooms::handles() {
    return {
        &grid, &grid_in, &inp_fld, &btn_add, &btn_insert, &btn_copy, &btn_delete, &btn_ok, &line};
}

Constituents KarvoListWidget::Rooms::constituents() noexcept {
    return {grid, grid_in, inp_fld, btn_add, btn_insert, btn_delete, btn_copy, btn_ok, line};
}

std::array<QtButton*, 5> KarvoListWidget::Rooms::buttons() {
    return {&btn_add, &btn_insert, &btn_delete, &btn_copy, &btn_ok};
}

void KarvoListWidget::Rooms::place_parts() {
    for (PartHandle* part : handles()) {
        part->place();
    }
}

void KarvoListWidget::Rooms::name_parts() {
    grid.widget()->setAccessibleName(KarvoListWidget::tr("List"));
    grid_in.widget()->setAccessibleName(KarvoListWidget::tr("Input line"));
    inp_fld.widget()->setAccessibleName(KarvoListWidget::tr("Field"));
    line.widget()->setAccessibleName(KarvoListWidget::tr("Active function"));
}

void KarvoListWidget::Rooms::keep_columns_aligned() {
    const auto test = [this](std::string_view text) { return formatter->is_number(text); };
    grid.view().set_number_test(test);
    grid_in.view().set_number_test(test);
    grid_in.view().set_scroll_bars(GridView::ScrollBars::none);
    QObject::connect(&grid.view(), &GridView::columnsScrolled, &grid_in.view(), [this] {
        grid_in.flex().set_scroll_x(grid.flex().scroll_x());
    });
    QObject::connect(&grid.view(), &GridView::viewSizeChanged, &grid_in.view(), [this] {
        grid_in.view().set_right_margin(grid.view().scroll_bar_width());
        grid_in.flex().set_scroll_x(grid.flex().scroll_x());
    });
    QObject::connect(
        &grid_in.view(), &GridView::columnsScrolled, &grid.view(), [this](qint64 twips) {
            inp_fld.SetLeft(inp_fld.Left() + static_cast<platform::TwipsSingle>(twips));
            grid.flex().set_scroll_x(grid_in.flex().scroll_x());
        });
}

void KarvoListWidget::Rooms::show_edited_column() {
    const std::int32_t col = standard::editor_column(grid_in, inp_fld);
    if (col < 0) {
        return;
    }
    const std::string_view caption = grid_in.TextArray(col);
    inp_fld.widget()->setAccessibleName(
        QString::fromUtf8(caption.data(), static_cast<qsizetype>(caption.size())));
    grid_in.flex().ensure_visible(-1, col);
}

void KarvoListWidget::Rooms::follow_current_row() {
    surface->set_key_follower([this] {
        return [this, row = grid.Row()] {
            if (grid.Row() != row) {
                grid.flex().ensure_visible(grid.Row(), -1);
            }
        };
    });
}

} // namespace krv::qt
