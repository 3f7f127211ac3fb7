#pragma once

#include "propertypage/column_count.h"
#include "propertypage/field_choice.h"
#include "propertypage/page_state.h"

#include <memory>

namespace krv::propertypage {

/// The editors of the database and the record source, and the page's own opening of them. Nothing
/// here touches the control.
class DataEditors {
public:
    /// All outlive this.
    DataEditors(PageState& page, ColumnCount& count, FieldChoice& fields)
        : page_(page)
        , count_(count)
        , fields_(fields) {}

    /// `txtDataBaseName` is double-clicked: shows the file dialog. Never fails.
    void choose_database();

    /// `txtDataBaseName` is left: derives the connection string from it.
    void derive_connection();

    /// `txRecordSource` is left: opens the record source and, if wanted, builds the columns from its
    /// fields. What keeps it from opening is shown in a message box.
    /// \throws RuntimeError as `ColumnCount::synchronise` and `FieldChoice::choose` for the columns
    ///         that are built
    void open_record_source();

private:
    using Records = std::shared_ptr<platform::Recordset>;

    void refuse_record_source(const std::string& error);
    void build_columns(const Records& records);

    PageState& page_;
    ColumnCount& count_;
    FieldChoice& fields_;
};

} // namespace krv::propertypage
