#include "krv/companions/record_writer.h"

#include "companions/record_store.h"
#include "companions/refusal.h"
#include "companions/removed_row.h"
#include "companions/table_columns.h"

#include "krv/platform/error.h"
#include "krv/platform/life.h"

#include <exception>
#include <optional>
#include <utility>

namespace krv::companions {

namespace {

std::string message_of(const std::exception_ptr& error) {
    try {
        std::rethrow_exception(error);
    } catch (const Refusal& refusal) {
        return refusal.text();
    } catch (const platform::RuntimeError& database_error) {
        return "Errore del database: " + database_error.description();
    } catch (const std::exception& other) {
        return other.what();
    } catch (...) {
        return "Errore sconosciuto.";
    }
}

bool lacks_necessary_value(const KarvoList& list) {
    for (std::int32_t col = 0; col < list.Cols(); ++col) {
        if (list.ColIsNecessary(col) && is_blank(list.InputArray(col))) {
            return true;
        }
    }
    return false;
}

/// The key that a copied row took along is not the user's to change; the database gives a new one.
void leave_copied_key_out(const TableColumns& columns,
                          RowTexts& row,
                          const std::optional<std::string>& copied_key) {
    const TableColumn* key = nullptr;
    for (const TableColumn& column : columns) {
        if (column.is_key && std::exchange(key, &column) != nullptr) {
            return; // a part of a key may well be the same in both rows
        }
    }
    const auto index = static_cast<std::size_t>(key - columns.data());
    if (!key->is_editable && copied_key == row[index]) {
        row[index].clear();
    }
}

/// The last resort of the events: an error that comes out of the box, from a handler of the host
/// that ran meanwhile, has nobody left to go to.
void show(platform::Application& application, const std::string& text) noexcept {
    try {
        application.MsgBox(text, platform::MessageButtons::ok);
    } catch (...) {
        return;
    }
}

} // namespace

class RecordWriter::Rooms {
public:
    Rooms(KarvoList& list,
          platform::DataAccess& data_access,
          platform::Application& application,
          const RecordWriterSettings& settings)
        : list_(&list)
        , application_(application)
        , connect_(settings.connect)
        , store_(data_access, list.formatter(), settings) {}

    /// Null once it is left.
    KarvoList* list() const noexcept { return list_; }

    void release() noexcept {
        list_ = nullptr;
        attachment_.reset();
        store_.disconnect();
    }

    void disconnect() noexcept { store_.disconnect(); }

    void write_row(std::int32_t row, bool& cancel);
    void copy_starts();
    void deletion_starts(bool& cancel);
    void row_is_removed();

private:
    struct Deletion {
        RemovedRow row;
        TableColumns columns;
        RowTexts texts;
    };

    void connect() { store_.connect(connect_.empty() ? list_->Connect() : connect_); }

    void connect_to(TableColumns& columns);
    RowTexts written(TableColumns& columns, std::int32_t row);
    void show_in_input_line(const TableColumns& columns, const RowTexts& texts);
    Deletion planned_deletion(std::int32_t row);

    KarvoList* list_;
    platform::Application& application_;
    const std::string connect_;
    RecordStore store_;
    std::optional<std::string> copied_key_;
    std::optional<Deletion> deletion_;
    std::optional<platform::LifeToken> attachment_{std::in_place}; ///< to the list
};

// --- Rows that are confirmed ---------------------------------------------------------------------

void RecordWriter::Rooms::write_row(std::int32_t row, bool& cancel) {
    platform::Application& application = application_; // a box may end this
    TableColumns table;
    RowTexts shown;
    try {
        if (lacks_necessary_value(*list_)) {
            return;
        }
        table = table_columns(*list_);
        shown = written(table, row);
    } catch (...) {
        cancel = true;
        show(application, message_of(std::current_exception()));
        return;
    }
    try {
        show_in_input_line(table, shown);
    } catch (...) { // the record is written: the row is not held back
        show(application, message_of(std::current_exception()));
    }
}

void RecordWriter::Rooms::connect_to(TableColumns& columns) {
    connect();
    store_.learn_types(columns);
}

/// \return the record's texts afterwards
RowTexts RecordWriter::Rooms::written(TableColumns& columns, std::int32_t row) {
    RowTexts texts = input_texts(*list_, columns);
    if (list_->Adding() || list_->Inserting()) {
        leave_copied_key_out(columns, texts, copied_key_);
        connect_to(columns);
        return store_.insert(columns, texts);
    }
    if (row < 0 || row >= list_->Rows()) {
        throw Refusal("La riga non è più nell'elenco.");
    }
    const RowTexts before = list_texts(*list_, columns, row);
    if (before == texts) {
        return texts;
    }
    connect_to(columns);
    return store_.update(columns, before, texts);
}

void RecordWriter::Rooms::show_in_input_line(const TableColumns& columns, const RowTexts& texts) {
    const platform::LifeWatch watch(*attachment_);
    for (std::size_t i = 0; i < columns.size(); ++i) {
        // The record is written: a value that the database took away holds the row back no more.
        if (list_->ColIsNecessary(columns[i].col) && is_blank(texts[i])) {
            continue;
        }
        if (list_->InputArray(columns[i].col) != texts[i]) {
            list_->SetInputArray(columns[i].col, texts[i]);
            if (watch.ended()) {
                return; // the host is told of the put, and may end everything
            }
        }
    }
}

void RecordWriter::Rooms::copy_starts() {
    copied_key_.reset();
    for (std::int32_t col = 0; col < list_->Cols(); ++col) {
        if (list_->ColIsKey(col) != krvListRecord && list_->ColFromRecord(col) == krvListRecord) {
            copied_key_ = list_->TextMatrix(list_->Row(), col);
        }
    }
}

// --- Rows that are deleted -----------------------------------------------------------------------

void RecordWriter::Rooms::deletion_starts(bool& cancel) {
    platform::Application& application = application_;
    deletion_.reset();
    const std::int32_t row = list_->Row();
    if (cancel || row < 0) {
        return;
    }
    try {
        deletion_ = planned_deletion(row);
    } catch (...) {
        cancel = true;
        show(application, message_of(std::current_exception()));
    }
}

/// Throws what would keep the record from being found once the row is gone.
RecordWriter::Rooms::Deletion RecordWriter::Rooms::planned_deletion(std::int32_t row) {
    Deletion deletion{RemovedRow(*list_, row), table_columns(*list_), {}};
    connect_to(deletion.columns);
    deletion.texts = list_texts(*list_, deletion.columns, row);
    store_.key_of(deletion.columns, deletion.texts);
    return deletion;
}

void RecordWriter::Rooms::row_is_removed() {
    const auto deletion = std::exchange(deletion_, std::nullopt);
    if (!deletion) {
        return;
    }
    platform::Application& application = application_;
    if (!deletion->row.is_gone_from(*list_)) {
        show(application,
             "La riga eliminata non è quella scelta: nel database non è stato eliminato nulla.");
        return;
    }
    const platform::LifeWatch watch(*attachment_);
    std::string message;
    try {
        connect();
        if (store_.remove(deletion->columns, deletion->texts)) {
            return;
        }
        message = "Il record era già stato eliminato da altri.";
    } catch (...) {
        message = message_of(std::current_exception());
        try {
            deletion->row.put_back(*list_, watch);
        } catch (...) {
            message += ' ' + message_of(std::current_exception());
        }
    }
    show(application, message);
}

// --- The face ------------------------------------------------------------------------------------

RecordWriter::RecordWriter(KarvoList& list,
                           platform::DataAccess& data_access,
                           platform::Application& application,
                           RecordWriterSettings settings)
    : rooms_(std::make_unique<Rooms>(list, data_access, application, settings)) {
    list.subscribe(*this);
}

RecordWriter::~RecordWriter() {
    release();
}

void RecordWriter::release() noexcept {
    KarvoList* const list = rooms_->list();
    rooms_->release();
    if (list != nullptr) {
        list->unsubscribe(*this);
    }
}

void RecordWriter::disconnect() noexcept {
    rooms_->disconnect();
}

void RecordWriter::BeforeRowUpdate(std::int32_t RowInEdit,
                                   std::int32_t /*ColInEdit*/,
                                   bool& Cancel,
                                   bool& ExternalHandling) {
    if (!Cancel && !ExternalHandling && rooms_->list() != nullptr) {
        rooms_->write_row(RowInEdit, Cancel);
    }
}

void RecordWriter::CopyClick(bool& Cancel) {
    if (!Cancel && rooms_->list() != nullptr) {
        rooms_->copy_starts();
    }
}

void RecordWriter::DeleteClick(bool& Cancel) {
    if (rooms_->list() != nullptr) {
        rooms_->deletion_starts(Cancel);
    }
}

void RecordWriter::AfterRowDelete(std::int32_t /*DeletedRow*/) {
    if (rooms_->list() != nullptr) {
        rooms_->row_is_removed();
    }
}

} // namespace krv::companions
