#pragma once

#include "krv/control/events.h"
#include "krv/control/karvo_list.h"
#include "krv/platform/data_access.h"
#include "krv/platform/host.h"

#include <cstdint>
#include <memory>
#include <string>

namespace krv::companions {

/// What an engine writes around names, the closing character doubled inside.
enum class NameQuotes {
    double_quotes, ///< "name", standard SQL
    brackets,      ///< [name]
    backticks      ///< `name`
};

/// Where and how a `RecordWriter` writes.
struct RecordWriterSettings {
    /// Table that the rows belong to, spelled as in the database.
    std::string table;
    /// Schema or database that the table lies in; empty for none.
    std::string schema = {};
    /// Connection string; empty: `Connect` of the list at the time of the writing.
    std::string connect = {};
    NameQuotes quotes = NameQuotes::double_quotes;
    /// Query that yields the key that the engine gave to the last insert of its connection, for
    /// engines that do not know `RETURNING`; empty: `RETURNING` is used.
    std::string identity_query = {};
    /// Ends the query that looks at a record before it is written, `FOR UPDATE` for example; empty
    /// where an engine has no such clause or needs none, as SQLite.
    std::string lock_clause = {};
};

/// Writes what the user confirms and deletes in a list into its table.
///
/// It listens to the list: a confirmed row is written before the list takes it (`BeforeRowUpdate`),
/// a deleted one after the list let go of it (`AfterRowDelete`), each in a transaction of its own
/// with bound values. A row that cannot be written stays open, with everything that was typed, and
/// a message says why; one that cannot be deleted is put back where it stood.
///
/// The columns with a `ColDataField` and the tag `krvListRecord` belong to the table; those of them
/// whose `ColIsKey` is not 0 find the record, by the values that the list's row had before the edit.
/// Without any, rows are refused. Texts become values by `ColFieldType`, or by the type that the
/// database tells where that is 0; what the user sees is what is stored. A text whose pattern
/// cannot be read back is refused. Blank texts are Null, and left to the database in a new record.
/// Afterwards the input line shows the record as the database has it now, given keys included.
///
/// A record that differs from the list's row, as far as the texts show it, was changed by somebody
/// else meanwhile: it is neither overwritten nor deleted.
///
/// Listeners that may refuse a row are subscribed before the writer is made: it does nothing for a
/// step that is cancelled, or handled elsewhere (`ExternalHandling`), by the time it is told. Rows
/// that lack a necessary value are left to the control. Nothing is let out of the events.
class RecordWriter final : public KarvoListEvents {
public:
    /// Subscribes to the list. The connection is opened by the first writing.
    /// \param list         outlives this, or `release` is called before it goes
    /// \param data_access  makes the connection; outlives this
    /// \param application  shows the messages, which are Italian; outlives this
    RecordWriter(KarvoList& list,
                 platform::DataAccess& data_access,
                 platform::Application& application,
                 RecordWriterSettings settings);
    ~RecordWriter();
    RecordWriter(const RecordWriter&) = delete;
    RecordWriter& operator=(const RecordWriter&) = delete;

    /// Leaves the list: from here on nothing is written. Never fails.
    void release() noexcept;

    /// Closes the connection; the next writing opens it again. Never fails.
    void disconnect() noexcept;

    void BeforeRowUpdate(std::int32_t RowInEdit,
                         std::int32_t ColInEdit,
                         bool& Cancel,
                         bool& ExternalHandling) override;
    void CopyClick(bool& Cancel) override;
    void DeleteClick(bool& Cancel) override;
    void AfterRowDelete(std::int32_t DeletedRow) override;

private:
    class Rooms;

    std::unique_ptr<Rooms> rooms_;
};

} // namespace krv::companions
