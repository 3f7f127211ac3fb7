// A window with a list of two columns over a SQLite file: list_window FILE TABLE_OR_QUERY
//
// The table or query has the fields "customer" and "total".

#include <krv/providers/sqlite.h>
#include <krv/qt/karvo_list_widget.h>
#include <krv/standard/ado.h>
#include <krv/standard/regional_settings.h>
#include <krv/standard/value_formatter.h>

#include <QApplication>

#include <memory>

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);

    auto providers = std::make_shared<krv::standard::ProviderRegistry>(
        krv::standard::ProviderRegistry::Providers{krv::providers::make_sqlite_provider(), {}, {}});
    krv::qt::KarvoListWidget widget(
        std::make_shared<krv::standard::AdoDataAccess>(providers),
        std::make_shared<krv::standard::ValueFormatter>(krv::standard::regional_settings("it-IT")));

    krv::KarvoList& list = widget.list();
    list.SetDataBaseName(argc > 1 ? argv[1] : "shop.db");
    list.SetRecordsource(argc > 2 ? argv[2] : "orders");
    list.SetCols(2);
    list.SetCaption(0, "Cliente");
    list.SetColDataField(0, "customer");
    list.SetCaption(1, "Totale");
    list.SetColDataField(1, "total");
    list.SetColFormat(1, "#,##0.00");
    list.Refresh();

    widget.show();
    return application.exec();
}
