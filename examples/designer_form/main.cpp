// A form made in Qt Designer, compiled by uic: designer_form FILE [--print]
//
// The form has the list with its columns; the program only says where the data are. With --print the
// rows are written to the standard output, and the program ends.

#include "ui_orders.h"

#include <krv/providers/sqlite.h>
#include <krv/standard/ado.h>

#include <QApplication>

#include <cstdio>
#include <memory>
#include <string>

namespace {

void print(const krv::KarvoList& list) {
    for (std::int32_t row = -1; row < list.Rows(); ++row) { // row -1 has the captions
        std::string line;
        for (std::int32_t col = 0; col < list.Cols(); ++col) {
            line += (col > 0 ? " | " : "") + list.TextMatrix(row, col);
        }
        std::puts(line.c_str());
    }
}

} // namespace

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);

    // All lists of all forms of this program read their records through this.
    auto providers = std::make_shared<krv::standard::ProviderRegistry>(
        krv::standard::ProviderRegistry::Providers{krv::providers::make_sqlite_provider(), {}, {}});
    krv::qt::KarvoListWidget::set_default_data_access(
        std::make_shared<krv::standard::AdoDataAccess>(providers));

    QWidget window;
    Ui::OrdersForm form;
    form.setupUi(&window);

    krv::KarvoList& list = form.orders->list();
    list.SetConnect(std::string("Provider=SQLite;Data Source=") +
                    (argc > 1 ? argv[1] : "sample.db"));
    list.Refresh();

    if (argc > 2 && std::string(argv[2]) == "--print") {
        print(list);
        return list.Rows() > 0 ? 0 : 1;
    }
    window.show();
    return application.exec();
}
