// Others at work on the same file: real processes, also ones that die.

#include "companions/processes.h"
#include "companions/writer_fixture.h"

namespace krv::companions {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::HasSubstr;
using testing::HoldingProcess;
using testing::in_another_process;
using ::testing::IsEmpty;
using testing::OtherProcess;

class TwoProcesses : public WriterTest {
protected:
    void other(const std::string& sql) {
        in_another_process([&] { OtherProcess(path).run(sql); });
    }

    /// The list keeps no file open that a process made from this one would share.
    void let_go_of_the_file() {
        writer.reset();
        list().CloseAll();
    }
};

TEST_F(TwoProcesses, a_record_that_another_process_changed_is_not_overwritten) {
    open(1);
    other("UPDATE articoli SET prezzo = 21 WHERE id = 2");
    confirm({{name, "Barile"}});
    EXPECT_THAT(messages(),
                ElementsAre("Il record è stato modificato da altri (colonna \"prezzo\": ora"
                            " \"21,00\"). Ricaricare l'elenco.|ok|Rolda"));
    EXPECT_EQ(articles()[1], "2|B|Botte|21|vecchia");
    EXPECT_EQ(list().InputArray(name), "Barile");
    EXPECT_TRUE(is_open());
}

TEST_F(TwoProcesses, a_record_that_another_process_deleted_is_not_made_again) {
    open(1);
    other("DELETE FROM articoli WHERE id = 2");
    confirm({{name, "Barile"}});
    EXPECT_THAT(messages(), ElementsAre(HasSubstr("è stato eliminato da altri")));
    EXPECT_EQ(articles().size(), 2U);
    EXPECT_EQ(list().InputArray(name), "Barile");
    EXPECT_TRUE(is_open());
}

TEST_F(TwoProcesses, a_change_of_another_record_is_no_conflict) {
    open(1);
    other("UPDATE articoli SET prezzo = 21 WHERE id = 1");
    confirm({{name, "Barile"}});
    EXPECT_THAT(messages(), IsEmpty());
    EXPECT_EQ(articles()[0], "1|A|Aratro|21|NULL");
    EXPECT_EQ(articles()[1], "2|B|Barile|20|vecchia");
}

TEST_F(TwoProcesses, a_locked_database_keeps_the_row_open_until_it_is_free) {
    let_go_of_the_file();
    open(1);
    write_with({.table = "articoli",
                .connect = "Provider=SQLite;Data Source=" + path + ";Busy Timeout=20"});
    {
        const HoldingProcess holder([&](const std::function<void()>& hold) {
            OtherProcess process(path);
            process.run("BEGIN IMMEDIATE; UPDATE articoli SET note = 'tenuto' WHERE id = 1");
            hold();
        });
        confirm({{name, "Barile"}});
        EXPECT_THAT(messages(), ElementsAre("Errore del database: database is locked|ok|Rolda"));
        EXPECT_EQ(list().InputArray(name), "Barile");
        EXPECT_TRUE(is_open());
    }
    EXPECT_THAT(articles(), ElementsAreArray(articles_at_start));
    list().OK();
    EXPECT_EQ(articles()[1], "2|B|Barile|20|vecchia");
    EXPECT_FALSE(is_open());
}

// --- A process that is killed --------------------------------------------------------------------

/// Forwards to a real connection and kills its own process at a certain point.
class DeadlyConnection final : public platform::Connection {
public:
    DeadlyConnection(std::shared_ptr<platform::Connection> inner, std::string deadly)
        : inner_(std::move(inner))
        , deadly_(std::move(deadly)) {}

    void Open(std::string_view connect,
              std::string_view user,
              std::string_view password,
              std::int32_t options) override {
        inner_->Open(connect, user, password, options);
    }

    void Close() override { inner_->Close(); }

    std::int32_t State() const override { return inner_->State(); }

    platform::ExecuteResult Execute(std::string_view sql,
                                    std::span<const platform::Value> parameters) override {
        auto result = inner_->Execute(sql, parameters);
        if (sql.starts_with(deadly_)) {
            die();
        }
        return result;
    }

    void BeginTrans() override { inner_->BeginTrans(); }

    void CommitTrans() override {
        if (deadly_ == "COMMIT") {
            die();
        }
        inner_->CommitTrans();
    }

    void RollbackTrans() override { inner_->RollbackTrans(); }

private:
    static void die() { kill(getpid(), SIGKILL); }

    std::shared_ptr<platform::Connection> inner_;
    std::string deadly_;
};

class DeadlyData final : public platform::DataAccess {
public:
    DeadlyData(platform::DataAccess& inner, std::string deadly)
        : inner_(inner)
        , deadly_(std::move(deadly)) {}

    std::shared_ptr<platform::Connection> CreateConnection() override {
        return std::make_shared<DeadlyConnection>(inner_.CreateConnection(), deadly_);
    }

    std::shared_ptr<platform::Recordset> CreateRecordset() override {
        return inner_.CreateRecordset();
    }

private:
    platform::DataAccess& inner_;
    std::string deadly_;
};

class Killed : public TwoProcesses {
protected:
    /// Edits in a process that is killed behind the statement.
    void die_while(const std::string& statement, const std::function<void()>& work) {
        let_go_of_the_file();
        const int status = testing::status_in_another_process([&] {
            DeadlyData deadly(data_access, statement);
            const RecordWriter dying(list(), deadly, application(), {.table = "articoli"});
            work();
        });
        EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) << statement;
    }
};

TEST_F(Killed, in_a_change_leaves_the_record_as_it_was) {
    for (const char* statement : {"SELECT", "UPDATE", "COMMIT"}) {
        die_while(statement, [&] { edit(1, {{name, "Barile"}, {price, "9,00"}}); });
        EXPECT_THAT(articles(), ElementsAreArray(articles_at_start)) << statement;
    }
}

TEST_F(Killed, in_an_addition_leaves_nothing_half_written) {
    for (const char* statement : {"INSERT", "COMMIT"}) {
        die_while(statement, [&] { add({{code, "D"}, {name, "Dado"}}); });
        EXPECT_THAT(articles(), ElementsAreArray(articles_at_start)) << statement;
    }
}

TEST_F(Killed, in_a_deletion_leaves_the_record) {
    for (const char* statement : {"DELETE", "COMMIT"}) {
        die_while(statement, [&] {
            open(1);
            list().Delete();
        });
        EXPECT_THAT(articles(), ElementsAreArray(articles_at_start)) << statement;
    }
}

TEST_F(Killed, and_the_next_process_writes_as_if_nothing_had_been) {
    die_while("COMMIT", [&] { edit(1, {{name, "Barile"}}); });
    write_to("articoli");
    edit(1, {{name, "Bidone"}});
    EXPECT_THAT(messages(), IsEmpty());
    EXPECT_EQ(articles()[1], "2|B|Bidone|20|vecchia");
    EXPECT_EQ(query("PRAGMA integrity_check")[0], "ok");
}

} // namespace
} // namespace krv::companions
