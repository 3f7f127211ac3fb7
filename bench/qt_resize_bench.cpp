// A new size and its repaint with a million rows loaded: the whole control beside a table view and a
// table widget of Qt with the same rows. The other two only have the list, neither input line nor
// buttons.

#include "krv/qt/karvo_list_widget.h"
#include "krv/standard/ado.h"
#include "krv/standard/provider_registry.h"
#include "krv/standard/regional_settings.h"
#include "krv/standard/value_formatter.h"

#include <benchmark/benchmark.h>

#include <QAbstractTableModel>
#include <QApplication>
#include <QHeaderView>
#include <QTableWidget>

#include <array>
#include <memory>
#include <string>

namespace {

constexpr int row_count = 1'000'000;
constexpr int col_count = 10;
constexpr int row_height_px = 16;
constexpr int col_width_px = 96;
constexpr int rows_seen = 50;
constexpr int repetitions = 9;

// Each step shows some columns and rows that the step before did not.
const std::array<QSize, 4> sizes = {
    QSize(980, 836), QSize(700, 500), QSize(1200, 900), QSize(500, 700)};

std::string cell_text(int row, int col) {
    static const std::array<const char*, 5> names = {
        "Rossi Maria", "Bianchi S.r.l.", "Ferramenta Colombo", "Marino Giulia", "Libreria Ricci"};
    return col % 2 == 0 ? std::to_string(row * (col + 1))
                        : names[static_cast<std::size_t>(row + col) % names.size()];
}

std::shared_ptr<krv::platform::DataAccess> no_data() {
    return std::make_shared<krv::standard::AdoDataAccess>(
        std::make_shared<krv::standard::ProviderRegistry>(
            krv::standard::ProviderRegistry::Providers{}));
}

std::unique_ptr<krv::qt::KarvoListWidget> loaded_widget;

/// Made once: loading takes longer than everything that is measured.
krv::qt::KarvoListWidget& shared_widget() {
    std::unique_ptr<krv::qt::KarvoListWidget>& widget = loaded_widget;
    if (widget) {
        return *widget;
    }
    widget = std::make_unique<krv::qt::KarvoListWidget>(
        no_data(),
        std::make_shared<krv::standard::ValueFormatter>(krv::standard::regional_settings("it-IT")));
    krv::KarvoList& list = widget->list();
    list.SetCols(col_count);
    list.SetRows(row_count);
    for (int col = 0; col < col_count; ++col) {
        list.SetCaption(col, "Colonna " + std::to_string(col));
        list.SetColWidth(col, col_width_px * 15);
        for (int row = 0; row < row_count; ++row) {
            list.SetTextMatrix(row, col, cell_text(row, col));
        }
    }
    for (krv::platform::Part* const part : widget->container().Controls()) {
        part->SetVisible(part->Name() != "InpFld");
    }
    return *widget;
}

class Model : public QAbstractTableModel {
public:
    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : row_count;
    }

    int columnCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : col_count;
    }

    QVariant data(const QModelIndex& index, int role) const override {
        if (role != Qt::DisplayRole) {
            return {};
        }
        const std::string_view text =
            shared_widget().constituents().Grid.TextMatrix(index.row() + 1, index.column());
        return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    }
};

void set_up(QTableView& view) {
    QFont font = QApplication::font();
    font.setPointSizeF(8.25);
    view.setFont(font);
    view.horizontalHeader()->setDefaultSectionSize(col_width_px);
    view.verticalHeader()->setMinimumSectionSize(row_height_px);
    view.verticalHeader()->setDefaultSectionSize(row_height_px);
    view.verticalHeader()->hide();
}

void resize_and_repaint(benchmark::State& state, QWidget& widget) {
    widget.resize(sizes.back());
    widget.show();
    QApplication::processEvents();
    std::size_t step = 0;
    for (auto run : state) {
        widget.resize(sizes[step++ % sizes.size()]);
        QApplication::processEvents();
    }
    widget.hide();
    state.SetItemsProcessed(state.iterations());
}

void resize_karvo_list(benchmark::State& state) {
    resize_and_repaint(state, shared_widget());
}

void resize_table_view(benchmark::State& state) {
    Model model;
    QTableView view;
    view.setModel(&model);
    set_up(view);
    resize_and_repaint(state, view);
}

/// Items for the rows that are seen only: with all of them it would be memory that is measured.
void resize_table_widget(benchmark::State& state) {
    QTableWidget view(row_count, col_count);
    for (int row = 0; row < rows_seen; ++row) {
        for (int col = 0; col < col_count; ++col) {
            view.setItem(
                row, col, new QTableWidgetItem(QString::fromStdString(cell_text(row, col))));
        }
    }
    set_up(view);
    resize_and_repaint(state, view);
}

BENCHMARK(resize_karvo_list)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(repetitions)
    ->ReportAggregatesOnly();
BENCHMARK(resize_table_view)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(repetitions)
    ->ReportAggregatesOnly();
BENCHMARK(resize_table_widget)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(repetitions)
    ->ReportAggregatesOnly();

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
    loaded_widget.reset(); // before the application
    return 0;
}
