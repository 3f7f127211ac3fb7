#include "companions/writer_fixture.h"

namespace krv::companions {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class Deletion : public WriterTest {
protected:
    static constexpr const char* question = "confermi eliminazione riga selezionata?|yesno|Rolda";

    void remove(std::int32_t row) {
        open(row);
        list().Delete();
    }

    void keep_everything() {
        run_elsewhere("CREATE TRIGGER tieni BEFORE DELETE ON articoli BEGIN"
                      " SELECT RAISE(ABORT, 'si tiene tutto'); END");
    }

    void expect_put_back(std::int32_t deleted_row) {
        std::vector<std::vector<std::string>> before;
        for (std::int32_t r = 0; r < list().Rows(); ++r) {
            before.push_back(row(r));
        }
        remove(deleted_row);
        EXPECT_THAT(messages(),
                    ElementsAre(question, "Errore del database: si tiene tutto|ok|Rolda"));
        std::vector<std::vector<std::string>> after;
        for (std::int32_t r = 0; r < list().Rows(); ++r) {
            after.push_back(row(r));
        }
        EXPECT_EQ(after, before);
        EXPECT_EQ(list().Row(), deleted_row);
        EXPECT_THAT(articles(), ElementsAreArray(articles_at_start));
    }
};

TEST_F(Deletion, a_deleted_row_leaves_the_database) {
    remove(1);
    EXPECT_THAT(messages(), ElementsAre(question));
    EXPECT_THAT(column(code), ElementsAre("A", "C"));
    EXPECT_THAT(column(number), ElementsAre("1", "2"));
    EXPECT_THAT(articles(), ElementsAre(articles_at_start[0], articles_at_start[2]));
}

TEST_F(Deletion, the_last_and_the_only_row_leave_the_database_too) {
    remove(2);
    remove(0);
    remove(0);
    EXPECT_EQ(list().Rows(), 0);
    EXPECT_THAT(articles(), IsEmpty());
    EXPECT_EQ(messages().size(), 3U);
}

TEST_F(Deletion, the_record_goes_by_the_key_in_the_list_whatever_was_typed) {
    open(1);
    list().SetInputArray(id, "3");
    list().Delete();
    EXPECT_THAT(articles(), ElementsAre(articles_at_start[0], articles_at_start[2]));
}

TEST_F(Deletion, a_first_row_that_cannot_be_deleted_is_put_back) {
    keep_everything();
    expect_put_back(0);
}

TEST_F(Deletion, a_middle_row_that_cannot_be_deleted_is_put_back) {
    keep_everything();
    expect_put_back(1);
}

TEST_F(Deletion, a_last_row_that_cannot_be_deleted_is_put_back) {
    keep_everything();
    expect_put_back(2);
}

TEST_F(Deletion, an_only_row_that_cannot_be_deleted_is_put_back) {
    list().SetRecordsource("SELECT * FROM articoli WHERE id = 2");
    list().Refresh();
    list().SetTextMatrix(0, number, "1");
    keep_everything();
    expect_put_back(0);
}

TEST_F(Deletion, a_row_that_was_put_back_can_be_edited) {
    keep_everything();
    remove(1);
    edit(1, {{name, "Barile"}});
    EXPECT_EQ(articles()[1], "2|B|Barile|20|vecchia");
    EXPECT_THAT(column(name), ElementsAre("Aratro", "Barile", "Carro"));
}

TEST_F(Deletion, a_record_that_others_have_changed_is_kept) {
    open(1);
    run_elsewhere("UPDATE articoli SET nome = 'Bidone' WHERE id = 2");
    list().Delete();
    EXPECT_THAT(messages().back(),
                HasSubstr("modificato da altri (colonna \"nome\": ora \"Bidone\")"));
    EXPECT_THAT(column(code), ElementsAre("A", "B", "C"));
    EXPECT_EQ(articles().size(), 3U);
}

TEST_F(Deletion, a_record_that_others_have_deleted_stays_deleted_and_that_is_said) {
    open(1);
    run_elsewhere("DELETE FROM articoli WHERE id = 2");
    list().Delete();
    EXPECT_EQ(messages().back(), "Il record era già stato eliminato da altri.|ok|Rolda");
    EXPECT_THAT(column(code), ElementsAre("A", "C"));
}

TEST_F(Deletion, a_host_that_moves_on_in_the_question_deletes_no_other_record) {
    open(0);
    on_message = [&](const std::string& text) {
        if (text.starts_with("confermi")) {
            list().SetRow(2);
        }
    };
    list().Delete();
    EXPECT_THAT(messages().back(), HasSubstr("nel database non è stato eliminato nulla"));
    EXPECT_THAT(articles(), ElementsAreArray(articles_at_start));
}

TEST_F(Deletion, a_database_that_cannot_be_reached_keeps_the_row) {
    list().SetConnect("Provider=SQLite;Data Source=" + folder.file("manca.db"));
    remove(1);
    EXPECT_THAT(messages(), ElementsAre(HasSubstr("Errore del database: ")));
    EXPECT_EQ(list().Rows(), 3);
}

TEST_F(Deletion, the_host_may_end_everything_while_the_row_is_put_back) {
    keep_everything();
    on_changed = [&](const std::string& property) {
        if (property == "Rows") {
            writer.reset();
            destroy();
        }
    };
    remove(0);
    EXPECT_FALSE(alive());
    EXPECT_THAT(articles(), ElementsAreArray(articles_at_start));
}

} // namespace
} // namespace krv::companions
