// A list whose settings stand in a file of their own: bag_form SETTINGS DATABASE [--print]
//
// With --print the rows are written to the standard output, and the program ends.

#include <krv/providers/sqlite.h>
#include <krv/qt/karvo_list_widget.h>
#include <krv/standard/ado.h>
#include <krv/standard/bag_file.h>
#include <krv/standard/regional_settings.h>
#include <krv/standard/value_formatter.h>

#include <QApplication>

#include <cstdio>
#include <exception>
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
    auto providers = std::make_shared<krv::standard::ProviderRegistry>(
        krv::standard::ProviderRegistry::Providers{krv::providers::make_sqlite_provider(), {}, {}});
    try {
        auto settings = krv::standard::BagFile::load(argc > 1 ? argv[1] : "orders.krv");
        krv::qt::KarvoListWidget widget(std::make_shared<krv::standard::AdoDataAccess>(providers),
                                        std::make_shared<krv::standard::ValueFormatter>(
                                            krv::standard::system_regional_settings()),
                                        settings.bag());
        krv::KarvoList& list = widget.list();
        list.SetConnect(std::string("Provider=SQLite;Data Source=") +
                        (argc > 2 ? argv[2] : "sample.db"));
        list.Refresh();

        if (argc > 3 && std::string(argv[3]) == "--print") {
            print(list);
            return list.Rows() > 0 ? 0 : 1;
        }
        widget.show();
        return application.exec();
    } catch (const std::exception& error) { // a setting that cannot be read, with its line
        std::fprintf(stderr, "bag_form: %s\n", error.what());
        return 1;
    }
}
