#pragma once

#include "krv/companions/record_writer.h"
#include "krv/providers/sqlite.h"
#include "krv/standard/ado.h"

#include "support/list_test.h"
#include "support/sqlite_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace krv::companions {

/// A list over the table "articoli" of a database file, with a record writer, Italian settings.
class WriterTest : public testing::ListTest {
protected:
    enum Column { number, id, code, name, price, notes };

    void SetUp() override {
        path = folder.file("dati.db");
        testing::OtherProcess(path).run(
            "CREATE TABLE articoli (id INTEGER PRIMARY KEY, codice VARCHAR(12) NOT NULL UNIQUE,"
            " nome VARCHAR(60), prezzo CURRENCY CHECK (prezzo >= 0), note TEXT DEFAULT 'nuovo');"
            "INSERT INTO articoli VALUES (1,'A','Aratro',1234.5,NULL),(2,'B','Botte',20,'vecchia'),"
            " (3,'C','Carro',300,'')");
        place(data_access);
        dynamic_cast<headless::HeadlessApplication&>(application())
            .set_ask([this](const headless::ShownMessage& message) {
                if (on_message) {
                    on_message(message.text);
                }
                return message.buttons == platform::MessageButtons::ok
                           ? platform::MessageAnswer::ok
                           : platform::MessageAnswer::yes;
            });
        list().SetAutoAdd(false);
        list().SetDataBaseName(path);
        list().SetReadOnlyRecordset(true);
        list().SetRecordsource("articoli");
        set_up_columns();
        list().Refresh();
        for (std::int32_t row = 0; row < list().Rows(); ++row) {
            list().SetTextMatrix(row, number, std::to_string(row + 1));
        }
        write_to("articoli");
    }

    void set_up_columns() {
        list().SetCols(6);
        list().SetLineNumberColumn(number);
        bind(id, "id", 3);
        bind(code, "codice", 202);
        bind(name, "nome", 202);
        bind(price, "prezzo", 6, "#,##0.00");
        bind(notes, "note", 203);
        list().SetColIsKey(id, krvRec1);
        list().SetColEditable(number, false);
        list().SetColEditable(id, false);
    }

    void bind(std::int32_t col, const char* field, std::int16_t type, const char* pattern = "") {
        list().SetCaption(col, field);
        list().SetColDataField(col, field);
        list().SetColFieldType(col, type);
        list().SetColFormat(col, pattern);
        list().SetColEditable(col, true);
    }

    void write_to(const std::string& table) { write_with({.table = table}); }

    void write_with(RecordWriterSettings settings) {
        writer =
            std::make_unique<RecordWriter>(list(), data_access, application(), std::move(settings));
    }

    void TearDown() override { writer.reset(); }

    void open(std::int32_t row) {
        std::int16_t button = 1;
        std::int16_t shift = 0;
        list().RowClick(row, button, shift);
    }

    /// Opens a row, puts texts into the input line and confirms it.
    void edit(std::int32_t row, const std::vector<std::pair<std::int32_t, std::string>>& texts) {
        open(row);
        confirm(texts);
    }

    void add(const std::vector<std::pair<std::int32_t, std::string>>& texts) {
        list().Add();
        confirm(texts);
    }

    void confirm(const std::vector<std::pair<std::int32_t, std::string>>& texts) {
        for (const auto& [col, text] : texts) {
            list().SetInputArray(col, text);
        }
        list().OK();
    }

    /// Whether a row is still being edited, its changes pending.
    bool is_open() { return parts().GridIn.Visible() && list().InputModified(); }

    std::vector<std::string> row(std::int32_t row) {
        std::vector<std::string> texts;
        for (std::int32_t col = 0; col < list().Cols(); ++col) {
            texts.push_back(list().TextMatrix(row, col));
        }
        return texts;
    }

    /// Codes of all rows, in order.
    std::vector<std::string> column(std::int32_t col) {
        std::vector<std::string> texts;
        for (std::int32_t r = 0; r < list().Rows(); ++r) {
            texts.push_back(list().TextMatrix(r, col));
        }
        return texts;
    }

    /// Rows of a query as "a|b|c", Null as "NULL", asked on a connection of somebody else.
    std::vector<std::string> query(const std::string& sql) const {
        sqlite3* db = nullptr;
        sqlite3_open(path.c_str(), &db);
        std::vector<std::string> rows;
        const auto collect = [](void* out, int count, char** texts, char**) {
            std::string line;
            for (int i = 0; i < count; ++i) {
                line += i > 0 ? "|" : "";
                line += texts[i] == nullptr ? "NULL" : texts[i];
            }
            static_cast<std::vector<std::string>*>(out)->push_back(line);
            return 0;
        };
        const int result = sqlite3_exec(db, sql.c_str(), collect, &rows, nullptr);
        EXPECT_EQ(result, SQLITE_OK) << sqlite3_errmsg(db);
        sqlite3_close(db);
        return rows;
    }

    std::vector<std::string> articles() const {
        return query("SELECT * FROM articoli ORDER BY id");
    }

    void run_elsewhere(const std::string& sql) const { testing::OtherProcess(path).run(sql); }

    testing::TemporaryFolder folder;
    std::string path;
    standard::AdoDataAccess data_access{
        std::make_shared<standard::ProviderRegistry>(standard::ProviderRegistry::Providers{
            providers::make_sqlite_provider(), nullptr, nullptr})};
    std::unique_ptr<RecordWriter> writer;
};

inline const std::vector<std::string> articles_at_start = {
    "1|A|Aratro|1234.5|NULL", "2|B|Botte|20|vecchia", "3|C|Carro|300|"};

} // namespace krv::companions
