// Frames, wheel steps, first frames and row changes of the grid view on a million rows, beside a
// table view and a table widget of Qt on rows of the same texts.

#include "krv/qt/grid_view.h"
#include "krv/standard/flex_grid.h"

#include <benchmark/benchmark.h>

#include <QAbstractTableModel>
#include <QApplication>
#include <QHeaderView>
#include <QScrollBar>
#include <QTableView>
#include <QTableWidget>
#include <QWheelEvent>

#include <array>
#include <cstdio>
#include <map>
#include <memory>
#include <string>

namespace {

constexpr int row_count = 1'000'000;
constexpr int col_count = 10;
constexpr int row_height_px = 16;
constexpr int col_width_px = 96;
constexpr int rows_seen = 50;

/// Numbers, dates, names and amounts that repeat about as often as those of a shop's orders.
std::string cell_text(int row, int col) {
    static const std::array<const char*, 8> names = {"Rossi Maria",
                                                     "Bianchi S.r.l.",
                                                     "Ferramenta Colombo",
                                                     "Esposito Antonio & figli",
                                                     "Libreria Ricci",
                                                     "Marino Giulia",
                                                     "Officine Greco S.p.A.",
                                                     "Costa Alessandro"};
    std::array<char, 40> text{};
    switch (col % 5) {
    case 0:
        std::snprintf(text.data(), text.size(), "%d", row * (col + 1));
        break;
    case 1:
        return names[static_cast<std::size_t>(row + col) % names.size()];
    case 2:
        std::snprintf(
            text.data(), text.size(), "%02d/%02d/20%02d", row % 28 + 1, row % 12 + 1, row % 25);
        break;
    case 3:
        std::snprintf(text.data(), text.size(), "%d.%03d,%02d", row % 90, row % 1000, row % 100);
        break;
    default:
        std::snprintf(text.data(), text.size(), "art. %d-%c", row % 5000, 'A' + row % 26);
        break;
    }
    return text.data();
}

std::string row_text(int row) {
    std::string text;
    for (int col = 0; col < col_count; ++col) {
        text += (col > 0 ? "\t" : "") + cell_text(row, col);
    }
    return text;
}

void fill(krv::standard::FlexGrid& grid, int rows) {
    grid.SetCols(col_count);
    grid.SetRows(1);
    for (int col = 0; col < col_count; ++col) {
        grid.SetTextMatrix(0, col, "Colonna " + std::to_string(col));
        grid.SetColWidth(col, col_width_px * 15);
    }
    for (int row = 0; row < rows; ++row) {
        grid.AddItem(row_text(row));
    }
}

/// A grid of the data, made once a size.
krv::standard::FlexGrid& shared_grid(int rows) {
    static krv::standard::MessageQueue queue;
    static std::map<int, std::unique_ptr<krv::standard::FlexGrid>> grids;
    std::unique_ptr<krv::standard::FlexGrid>& grid = grids[rows];
    if (!grid) {
        grid = std::make_unique<krv::standard::FlexGrid>("Grid", queue);
        fill(*grid, rows);
    }
    return *grid;
}

/// The same texts for Qt's own views, ready as strings.
class Model : public QAbstractTableModel {
public:
    explicit Model(const krv::standard::FlexGrid& grid)
        : grid_(grid) {}

    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : grid_.Rows() - 1;
    }

    int columnCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : grid_.Cols();
    }

    QVariant data(const QModelIndex& index, int role) const override {
        if (role != Qt::DisplayRole) {
            return {};
        }
        const std::string_view text = grid_.TextMatrix(index.row() + 1, index.column());
        return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    }

private:
    const krv::standard::FlexGrid& grid_;
};

const QSize view_size(col_count* col_width_px + 20, (rows_seen + 1) * row_height_px + 20);

QFont small_font() {
    QFont font = QApplication::font();
    font.setPointSizeF(8.25);
    return font;
}

void set_up(QTableView& view) {
    view.setFont(small_font());
    view.horizontalHeader()->setDefaultSectionSize(col_width_px);
    view.verticalHeader()->setMinimumSectionSize(row_height_px);
    view.verticalHeader()->setDefaultSectionSize(row_height_px);
    view.verticalHeader()->hide();
    view.setSelectionBehavior(QAbstractItemView::SelectRows);
    view.setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    view.resize(view_size);
    view.show();
    QApplication::processEvents();
}

void set_up(krv::qt::GridView& view) {
    view.setFont(small_font());
    view.resize(view_size);
    view.show();
    QApplication::processEvents();
}

void wheel(QWidget& viewport, int notches) {
    const QPointF middle = viewport.rect().center();
    QWheelEvent event(middle,
                      viewport.mapToGlobal(middle),
                      {},
                      QPoint(0, notches * 120),
                      Qt::NoButton,
                      Qt::NoModifier,
                      Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(&viewport, &event);
    QApplication::processEvents();
}

/// Frame after frame of the same place.
template <class View>
void same_frame(benchmark::State& state, View& view) {
    for (auto step : state) {
        view.viewport()->repaint();
    }
    state.SetItemsProcessed(state.iterations());
}

/// Frame after frame, each of rows that were never drawn before.
template <class View>
void new_frame(benchmark::State& state, View& view) {
    QScrollBar& bar = *view.verticalScrollBar();
    const int page = rows_seen * row_height_px;
    int place = 0;
    for (auto step : state) {
        state.PauseTiming();
        place = place + page < bar.maximum() ? place + page : 0;
        state.ResumeTiming();
        bar.setValue(place);
        view.viewport()->repaint();
        QApplication::processEvents();
    }
    state.SetItemsProcessed(state.iterations());
}

void frame_again_grid_view(benchmark::State& state) {
    krv::qt::GridView view(shared_grid(row_count));
    set_up(view);
    same_frame(state, view);
}

void frame_again_table_view(benchmark::State& state) {
    Model model(shared_grid(row_count));
    QTableView view;
    view.setModel(&model);
    set_up(view);
    same_frame(state, view);
}

void frame_of_new_rows_grid_view(benchmark::State& state) {
    krv::qt::GridView view(shared_grid(row_count));
    set_up(view);
    new_frame(state, view);
}

void frame_of_new_rows_table_view(benchmark::State& state) {
    Model model(shared_grid(row_count));
    QTableView view;
    view.setModel(&model);
    set_up(view);
    new_frame(state, view);
}

template <class View>
void wheel_steps(benchmark::State& state, View& view) {
    for (auto step : state) {
        if (view.verticalScrollBar()->value() == view.verticalScrollBar()->maximum()) {
            view.verticalScrollBar()->setValue(0);
        }
        wheel(*view.viewport(), -1);
    }
    state.SetItemsProcessed(state.iterations());
}

void wheel_step_grid_view(benchmark::State& state) {
    krv::qt::GridView view(shared_grid(row_count));
    set_up(view);
    wheel_steps(state, view);
}

void wheel_step_table_view(benchmark::State& state) {
    Model model(shared_grid(row_count));
    QTableView view;
    view.setModel(&model);
    set_up(view);
    wheel_steps(state, view);
}

void first_frame_grid_view(benchmark::State& state) {
    krv::standard::FlexGrid& grid = shared_grid(static_cast<int>(state.range(0)));
    for (auto step : state) {
        krv::qt::GridView view(grid);
        set_up(view);
        view.viewport()->repaint();
    }
}

void first_frame_table_view(benchmark::State& state) {
    Model model(shared_grid(static_cast<int>(state.range(0))));
    for (auto step : state) {
        QTableView view;
        view.setModel(&model);
        set_up(view);
        view.viewport()->repaint();
    }
}

void row_in_and_out_grid_view(benchmark::State& state) {
    krv::standard::FlexGrid& grid = shared_grid(row_count);
    krv::qt::GridView view(grid);
    set_up(view);
    const std::string text = row_text(row_count);
    bool in = false;
    for (auto step : state) {
        in ? grid.RemoveItem(10) : grid.AddItem(text, 10);
        in = !in;
        QApplication::processEvents();
    }
    if (in) {
        grid.RemoveItem(10);
    }
    state.SetItemsProcessed(state.iterations());
}

void row_in_and_out_table_widget(benchmark::State& state) {
    QTableWidget view(row_count, col_count);
    for (int row = 0; row < rows_seen; ++row) {
        for (int col = 0; col < col_count; ++col) {
            view.setItem(
                row, col, new QTableWidgetItem(QString::fromStdString(cell_text(row, col))));
        }
    }
    set_up(view);
    bool in = false;
    for (auto step : state) {
        if (in) {
            view.removeRow(9);
        } else {
            view.insertRow(9);
            for (int col = 0; col < col_count; ++col) {
                view.setItem(
                    9,
                    col,
                    new QTableWidgetItem(QString::fromStdString(cell_text(row_count, col))));
            }
        }
        in = !in;
        QApplication::processEvents();
    }
    state.SetItemsProcessed(state.iterations());
}

/// A change during a load, with a view that is shown: only marked, drawn later.
void cell_written_under_a_view(benchmark::State& state) {
    krv::standard::FlexGrid& grid = shared_grid(1000);
    krv::qt::GridView view(grid);
    set_up(view);
    int row = 1;
    for (auto step : state) {
        grid.SetTextMatrix(row, 1, "Rossi Maria");
        row = row % 1000 + 1;
    }
    state.SetItemsProcessed(state.iterations());
}

BENCHMARK(frame_again_grid_view)->Unit(benchmark::kMillisecond);
BENCHMARK(frame_again_table_view)->Unit(benchmark::kMillisecond);
BENCHMARK(frame_of_new_rows_grid_view)->Unit(benchmark::kMillisecond);
BENCHMARK(frame_of_new_rows_table_view)->Unit(benchmark::kMillisecond);
BENCHMARK(wheel_step_grid_view)->Unit(benchmark::kMillisecond);
BENCHMARK(wheel_step_table_view)->Unit(benchmark::kMillisecond);
BENCHMARK(first_frame_grid_view)->Arg(1000)->Arg(row_count)->Unit(benchmark::kMillisecond);
BENCHMARK(first_frame_table_view)->Arg(1000)->Arg(row_count)->Unit(benchmark::kMillisecond);
BENCHMARK(row_in_and_out_grid_view)->Unit(benchmark::kMillisecond);
BENCHMARK(row_in_and_out_table_widget)->Unit(benchmark::kMillisecond);
BENCHMARK(cell_written_under_a_view)->Unit(benchmark::kNanosecond);

} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
