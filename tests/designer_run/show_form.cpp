// Loads a form with a list of the sample database's customers and checks what it shows: show_form FILE
//
// The records are counted by a list of its own over the same source, column by column.

#include "krv/providers/sqlite.h"
#include "krv/standard/ado.h"
#include "support/form_loader.h"

#include <QApplication>
#include <QFile>

#include <cstdio>
#include <memory>

namespace {

using namespace krv;

/// The records as the database has them, a text each.
std::vector<std::string> records(platform::DataAccess& data, const std::string& connect) {
    const auto connection = data.CreateConnection();
    connection->Open(connect, "", "", platform::ado::unspecified);
    const auto result = connection->Execute("SELECT \"RagioneSociale\" FROM \"Clienti\"", {});
    std::vector<std::string> names;
    for (; !result.records->Eof(); result.records->MoveNext()) {
        names.emplace_back(result.records->Fields().Item(0).Value().as_text());
    }
    return names;
}

std::vector<std::string> rows(const KarvoList& list, std::int32_t col) {
    std::vector<std::string> texts;
    for (std::int32_t row = 0; row < list.Rows(); ++row) {
        texts.push_back(list.TextMatrix(row, col));
    }
    return texts;
}

} // namespace

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    const auto data =
        std::make_shared<standard::AdoDataAccess>(std::make_shared<standard::ProviderRegistry>(
            standard::ProviderRegistry::Providers{providers::make_sqlite_provider(), {}, {}}));
    qt::KarvoListWidget::set_default_data_access(data);

    QFile file(argc > 1 ? argv[1] : "");
    file.open(QIODevice::ReadOnly);
    krv::testing::FormLoader loader;
    const std::unique_ptr<QWidget> form(loader.load(&file));
    auto* const widget = form ? form->findChild<qt::KarvoListWidget*>() : nullptr;
    if (widget == nullptr) {
        std::puts("FAILED no list in the form");
        return 1;
    }
    form->show();
    widget->list().Refresh();
    const auto expected = records(*data, widget->list().Connect());
    const auto shown = rows(widget->list(), 1);
    std::printf("%s: %zu rows\n", widget->list().Caption(1).c_str(), shown.size());
    if (widget->list().Caption(1) != "RagioneSociale" || expected.empty() || shown != expected) {
        std::printf("FAILED the database has %zu\n", expected.size());
        return 1;
    }
    return 0;
}
