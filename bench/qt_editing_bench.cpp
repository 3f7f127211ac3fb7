// Row editing with a million rows in the control: a row chosen, a row added, confirmed, deleted and
// inserted, each to the repainted window. A table widget of Qt does the costly ones beside it.

#include "krv/qt/karvo_list_widget.h"
#include "krv/standard/ado.h"
#include "krv/standard/provider_registry.h"
#include "krv/standard/regional_settings.h"
#include "krv/standard/value_formatter.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QKeyEvent>
#include <QTableWidget>

#include <memory>
#include <string>

namespace {

constexpr int row_count = 1'000'000;
constexpr int col_count = 4;
constexpr int repetitions = 9;

std::shared_ptr<krv::platform::DataAccess> no_data() {
    return std::make_shared<krv::standard::AdoDataAccess>(
        std::make_shared<krv::standard::ProviderRegistry>(
            krv::standard::ProviderRegistry::Providers{}));
}

std::unique_ptr<krv::qt::KarvoListWidget> loaded_widget;

/// Made once: loading takes longer than everything that is measured. Column 0 carries the line
/// numbers; every question is answered Yes.
krv::qt::KarvoListWidget& shared_widget() {
    std::unique_ptr<krv::qt::KarvoListWidget>& widget = loaded_widget;
    if (widget) {
        return *widget;
    }
    widget = std::make_unique<krv::qt::KarvoListWidget>(
        no_data(),
        std::make_shared<krv::standard::ValueFormatter>(krv::standard::regional_settings("it-IT")));
    widget->set_message_handler([](std::string_view, krv::platform::MessageButtons buttons) {
        return buttons == krv::platform::MessageButtons::ok ? krv::platform::MessageAnswer::ok
                                                            : krv::platform::MessageAnswer::yes;
    });
    krv::KarvoList& list = widget->list();
    list.SetAutoAdd(false);
    list.SetCols(col_count);
    list.SetRows(row_count);
    list.SetLineNumberColumn(0);
    for (int col = 0; col < col_count; ++col) {
        list.SetColEditable(col, col > 0);
    }
    for (int row = 0; row < row_count; ++row) {
        list.SetTextMatrix(row, 0, std::to_string(row + 1));
        list.SetTextMatrix(row, 1, "art. " + std::to_string(row % 5000));
    }
    widget->resize(900, 700);
    widget->show();
    QApplication::processEvents();
    return *widget;
}

/// Everything that the program does before it waits for the person again, the painting included.
void settle() {
    QApplication::processEvents();
}

void arrow_down(krv::qt::KarvoListWidget& widget) {
    auto* const grid = widget.findChild<QWidget*>(QStringLiteral("Grid"));
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
    QApplication::sendEvent(grid, &press);
}

void row_chosen(benchmark::State& state) {
    krv::qt::KarvoListWidget& widget = shared_widget();
    widget.findChild<QWidget*>(QStringLiteral("Grid"))->setFocus();
    widget.list().SetAutoStartInputOnClick(false);
    widget.list().SetRow(row_count / 2);
    settle();
    for (auto step : state) {
        arrow_down(widget);
        settle();
    }
    if (widget.list().InputArray(0) != std::to_string(widget.list().Row() + 1)) {
        state.SkipWithError("the row is not in the input line");
    }
}

void row_added_and_confirmed(benchmark::State& state, bool measure_add) {
    krv::KarvoList& list = shared_widget().list();
    for (auto step : state) {
        if (!measure_add) {
            state.PauseTiming();
        }
        list.Add();
        settle();
        measure_add ? state.PauseTiming() : state.ResumeTiming();
        list.SetInputArray(1, "nuovo");
        list.OK();
        settle();
        if (!measure_add) {
            state.PauseTiming();
        }
        list.SetRows(row_count);
        settle();
        state.ResumeTiming();
    }
}

void row_added(benchmark::State& state) {
    row_added_and_confirmed(state, true);
}

void row_confirmed(benchmark::State& state) {
    row_added_and_confirmed(state, false);
}

void first_row_deleted(benchmark::State& state) {
    krv::KarvoList& list = shared_widget().list();
    for (auto step : state) {
        state.PauseTiming();
        list.SetRows(row_count);
        list.SetRow(-1);
        list.SetRow(0);
        settle();
        state.ResumeTiming();
        list.Delete();
        settle();
    }
    if (list.TextMatrix(0, 0) != "1") {
        state.SkipWithError("the rows are not renumbered");
    }
}

void first_row_inserted(benchmark::State& state) {
    krv::KarvoList& list = shared_widget().list();
    for (auto step : state) {
        state.PauseTiming();
        list.SetRows(row_count);
        list.SetRow(-1);
        list.SetRow(0);
        list.Insert();
        list.SetInputArray(1, "nuovo");
        settle();
        state.ResumeTiming();
        list.OK();
        settle();
    }
    if (list.TextMatrix(1, 0) != "2") {
        state.SkipWithError("the rows are not renumbered");
    }
}

std::unique_ptr<QTableWidget> loaded_table;

QTableWidget& shared_table() {
    if (!loaded_table) {
        loaded_table = std::make_unique<QTableWidget>(row_count, col_count);
        for (int row = 0; row < row_count; ++row) {
            loaded_table->setItem(row, 0, new QTableWidgetItem(QString::number(row + 1)));
            loaded_table->setItem(
                row, 1, new QTableWidgetItem(QStringLiteral("art. %1").arg(row % 5000)));
        }
        loaded_table->resize(900, 700);
        loaded_table->show();
        settle();
    }
    return *loaded_table;
}

/// With new items: one whose row has moved is looked for through the whole table when it is written.
void renumber(QTableWidget& table) {
    const int rows = table.rowCount();
    for (int row = 0; row < rows; ++row) {
        table.setItem(row, 0, new QTableWidgetItem(QString::number(row + 1)));
    }
}

void first_row_deleted_table_widget(benchmark::State& state) {
    QTableWidget& table = shared_table();
    for (auto step : state) {
        table.removeRow(0);
        renumber(table);
        settle();
    }
}

void first_row_inserted_table_widget(benchmark::State& state) {
    QTableWidget& table = shared_table();
    for (auto step : state) {
        table.insertRow(0);
        renumber(table);
        settle();
    }
}

BENCHMARK(row_chosen)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(repetitions)
    ->ReportAggregatesOnly();
BENCHMARK(row_added)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(50)
    ->Repetitions(repetitions)
    ->ReportAggregatesOnly();
BENCHMARK(row_confirmed)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(50)
    ->Repetitions(repetitions)
    ->ReportAggregatesOnly();
BENCHMARK(first_row_deleted)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(10)
    ->Repetitions(repetitions)
    ->ReportAggregatesOnly();
BENCHMARK(first_row_deleted_table_widget)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
    ->Repetitions(3)
    ->ReportAggregatesOnly();
BENCHMARK(first_row_inserted)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(10)
    ->Repetitions(repetitions)
    ->ReportAggregatesOnly();
BENCHMARK(first_row_inserted_table_widget)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
    ->Repetitions(3)
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
    loaded_widget.reset();
    loaded_table.reset();
    return 0;
}
