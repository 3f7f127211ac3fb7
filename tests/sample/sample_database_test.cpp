#include "sample_database.h"

#include "krv/providers/sqlite.h"
#include "krv/standard/ado.h"

#include <gmock/gmock.h>

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace {

namespace ado = krv::platform::ado;
namespace fs = std::filesystem;
using krv::platform::RuntimeError;
using krv::platform::ValueKind;
using krv::platform::ValueView;
using krv::standard::AdoDataAccess;
using krv::standard::ProviderRegistry;
using testing::AllOf;
using testing::Each;
using testing::ElementsAre;
using testing::Ge;
using testing::IsEmpty;
using testing::Le;
using testing::UnorderedElementsAre;

std::string text_of(ValueView value) {
    switch (value.kind()) {
    case ValueKind::text:
        return std::string(value.as_text());
    case ValueKind::null:
        return "Null";
    default:
        return value.is_whole() ? std::to_string(value.as_whole()) : "?";
    }
}

class SampleDatabase : public testing::Test {
protected:
    SampleDatabase()
        : folder_(fs::temp_directory_path() /
                  ("krv-sample-" +
                   std::string(testing::UnitTest::GetInstance()->current_test_info()->name()))) {
        fs::remove_all(folder_);
        fs::create_directory(folder_);
        connection_ = fill(folder_ / "sample.db");
    }

    ~SampleDatabase() override {
        connection_.reset();
        fs::remove_all(folder_);
    }

    std::shared_ptr<krv::platform::Connection> fill(const fs::path& file) {
        const std::ofstream created(file, std::ios::binary);
        auto connection = data_access_.CreateConnection();
        connection->Open("Provider=SQLite;Data Source=" + file.string(), "", "", ado::unspecified);
        krv::demo::write_sample(*connection);
        return connection;
    }

    std::shared_ptr<krv::platform::Recordset> open(std::string_view source) {
        auto recordset = data_access_.CreateRecordset();
        recordset->Open(
            source, connection_, ado::cursor_forward_only, ado::lock_read_only, ado::unspecified);
        return recordset;
    }

    /// The first column of a source as texts.
    std::vector<std::string> column(std::string_view source) {
        std::vector<std::string> texts;
        const auto recordset = open(source);
        for (; !recordset->Eof(); recordset->MoveNext()) {
            texts.push_back(text_of(recordset->Fields().Item(0).Value()));
        }
        return texts;
    }

    AdoDataAccess data_access_{std::make_shared<ProviderRegistry>(
        ProviderRegistry::Providers{krv::providers::make_sqlite_provider(), {}, {}})};
    fs::path folder_;
    std::shared_ptr<krv::platform::Connection> connection_;
};

TEST_F(SampleDatabase, the_columns_show_every_kind_of_value) {
    const auto recordset = open("Ordini");
    std::vector<std::string> columns;
    for (std::int32_t i = 0; i < recordset->Fields().Count(); ++i) {
        const auto& field = recordset->Fields().Item(i);
        columns.push_back(std::string(field.Name()) + ' ' + std::to_string(field.Type()));
    }
    EXPECT_THAT(columns,
                ElementsAre("Numero 3",
                            "Data 133",
                            "IdCliente 3",
                            "Cliente 202",
                            "Codice 202",
                            "Articolo 202",
                            "Quantità 3",
                            "Prezzo 6",
                            "Sconto 131",
                            "Totale 6",
                            "Peso 5",
                            "Spedito 11",
                            "Spedizione 133",
                            "Registrato 135",
                            "Note 203"));
}

TEST_F(SampleDatabase, the_orders_are_numbered_without_a_gap) {
    EXPECT_THAT(column("SELECT count(*) FROM Ordini"), ElementsAre("2400"));
    EXPECT_THAT(column("SELECT min(Numero) FROM Ordini"), ElementsAre("1001"));
    EXPECT_THAT(column("SELECT max(Numero) FROM Ordini"), ElementsAre("3400"));
}

TEST_F(SampleDatabase, the_dates_run_from_2019_to_2026_and_follow_the_numbers) {
    EXPECT_THAT(column("SELECT min(Data) FROM Ordini"), ElementsAre("2019-01-02"));
    EXPECT_THAT(column("SELECT max(Data) FROM Ordini"), ElementsAre("2026-06-30"));
    EXPECT_THAT(column("SELECT a.Numero FROM Ordini AS a JOIN Ordini AS b "
                       "ON b.Numero = a.Numero + 1 WHERE b.Data < a.Data"),
                IsEmpty());
    EXPECT_THAT(column("SELECT Numero FROM Ordini WHERE date(Registrato) <> Data"), IsEmpty());
}

TEST_F(SampleDatabase, what_is_not_shipped_has_no_shipping_date) {
    EXPECT_THAT(column("SELECT Numero FROM Ordini WHERE Spedito = (Spedizione IS NULL)"),
                IsEmpty());
    EXPECT_THAT(column("SELECT Numero FROM Ordini WHERE Spedizione < Data"), IsEmpty());
    const auto open_orders = column("OrdiniAperti");
    EXPECT_THAT(open_orders, testing::SizeIs(AllOf(Ge(20U), Le(200U))));
}

TEST_F(SampleDatabase, the_total_is_price_by_quantity_less_the_discount) {
    EXPECT_THAT(column("SELECT Numero FROM Ordini WHERE abs(Totale - Prezzo * \"Quantità\" * "
                       "(1 - ifnull(Sconto, 0) / 100.0)) > 0.0051"),
                IsEmpty());
    EXPECT_THAT(column("SELECT Sconto IS NULL FROM Ordini GROUP BY 1"), ElementsAre("0", "1"));
}

TEST_F(SampleDatabase, every_order_has_its_customer_and_its_article) {
    EXPECT_THAT(column("SELECT o.Numero FROM Ordini AS o LEFT JOIN Clienti AS c "
                       "ON c.IdCliente = o.IdCliente AND c.RagioneSociale = o.Cliente "
                       "LEFT JOIN Articoli AS a ON a.Codice = o.Codice AND "
                       "a.Descrizione = o.Articolo AND a.Prezzo = o.Prezzo "
                       "WHERE c.IdCliente IS NULL OR a.Codice IS NULL"),
                IsEmpty());
}

TEST_F(SampleDatabase, names_are_written_in_many_scripts) {
    EXPECT_THAT(column("SELECT RagioneSociale FROM Clienti WHERE \"Città\" IN "
                       "('Αθήνα', 'Казань', '東京', '서울', 'Łódź', 'Forlì')"),
                UnorderedElementsAre("Αθηναϊκό Βιβλιοπωλείο",
                                     "Книжный дом «Восход»",
                                     "東京文具店",
                                     "서울문구",
                                     "Meble Łódź",
                                     "Caffè Libreria Giosuè"));
}

TEST_F(SampleDatabase, names_fit_their_columns) {
    EXPECT_THAT(column("SELECT RagioneSociale FROM Clienti WHERE length(RagioneSociale) > 60 OR "
                       "length(\"Città\") > 40 OR length(Paese) > 30 OR length(Posta) > 80"),
                IsEmpty());
    EXPECT_THAT(column("SELECT Codice FROM Articoli WHERE length(Codice) > 12 OR "
                       "length(Descrizione) > 60 OR length(Categoria) > 20"),
                IsEmpty());
}

TEST_F(SampleDatabase, it_is_the_same_every_time) {
    fill(folder_ / "second.db")->Close();
    connection_->Close();
    const auto bytes = [&](const char* name) {
        std::ifstream stream(folder_ / name, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(stream), {});
    };
    EXPECT_GT(bytes("sample.db").size(), 100'000U);
    EXPECT_TRUE(bytes("sample.db") == bytes("second.db"));
}

TEST_F(SampleDatabase, nothing_is_stored_when_a_table_is_there_already) {
    EXPECT_THROW(krv::demo::write_sample(*connection_), RuntimeError);
    EXPECT_THAT(column("SELECT count(*) FROM Clienti"), ElementsAre("44"));
}

} // namespace
