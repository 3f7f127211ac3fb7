// A list over a database file, without a screen.

#include <krv/control/karvo_list.h>
#include <krv/headless/headless_control.h>
#include <krv/headless/headless_form.h>
#include <krv/providers/sqlite.h>
#include <krv/standard/ado.h>
#include <krv/standard/regional_settings.h>
#include <krv/standard/value_formatter.h>

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <memory>
#include <string>

namespace {

const std::string file = "shop.db";

std::shared_ptr<krv::platform::DataAccess> sqlite_data_access() {
    return std::make_shared<krv::standard::AdoDataAccess>(
        std::make_shared<krv::standard::ProviderRegistry>(
            krv::standard::ProviderRegistry::Providers{
                krv::providers::make_sqlite_provider(), nullptr, nullptr}));
}

void make_shop(krv::platform::DataAccess& data_access) {
    const std::ofstream created(file, std::ios::trunc);
    const auto connection = data_access.CreateConnection();
    connection->Open(
        "Provider=SQLite;Data Source=" + file, "", "", krv::platform::ado::unspecified);
    connection->Execute("CREATE TABLE orders (customer VARCHAR(40), total CURRENCY, sent DATE)",
                        {});
    connection->Execute("INSERT INTO orders VALUES ('Caffè Perù', 1234.5, '2024-03-05')", {});
    connection->Execute("INSERT INTO orders VALUES ('東京文具店', 0.75, NULL)", {});
}

void set_up_columns(krv::KarvoList& list) {
    list.SetCols(3);
    list.SetColDataField(0, "customer");
    list.SetColDataField(1, "total");
    list.SetColFormat(1, "#,##0.00");
    list.SetColDataField(2, "sent");
    list.SetColFormat(2, "dd/mm/yyyy");
}

std::string text_of(const krv::KarvoList& list) {
    std::string text;
    for (std::int32_t row = 0; row < list.Rows(); ++row) {
        for (std::int32_t col = 0; col < list.Cols(); ++col) {
            text += list.TextMatrix(row, col) + (col + 1 < list.Cols() ? "|" : "\n");
        }
    }
    return text;
}

} // namespace

int main() {
    const krv::standard::ValueFormatter formatter(krv::standard::regional_settings("it-IT"));
    const auto data_access = sqlite_data_access();
    make_shop(*data_access);

    krv::headless::HeadlessForm form;
    auto& surface = form.add_control();
    krv::KarvoList list(surface.constituents(),
                        {surface, form.application(), *data_access, formatter});
    list.InitProperties();
    set_up_columns(list);
    list.SetDataBaseName(file);
    list.SetRecordsource("orders");
    list.Refresh();

    const std::string text = text_of(list);
    std::cout << text;
    return text == "Caffè Perù|1.234,50|05/03/2024\n東京文具店|0,75|\n" ? EXIT_SUCCESS
                                                                        : EXIT_FAILURE;
}
