#include "providers/odbc/block.h"

#include "standard/ado/field_types.h"

#include <algorithm>
#include <array>
#include <system_error>
#include <utility>

namespace krv::providers::odbc {

namespace {

namespace field_type = standard::field_type;

constexpr std::size_t rows_of_a_block = 1024;
constexpr std::size_t most_bytes = 4U << 20; // twice, for the block that is read and the next

/// Longer values are fetched by themselves.
constexpr std::size_t bound_units = 255;
constexpr std::size_t bound_bytes = 512;

Form form_of(const DescribedColumn& column, std::int16_t type, Engine engine) {
    switch (type) {
    case field_type::boolean:
        return column.sql_type == SQL_BIT && engine != Engine::sqlite ? Form::bit : Form::text;
    case field_type::tiny_int:
    case field_type::unsigned_tiny_int:
    case field_type::small_int:
    case field_type::unsigned_small_int:
    case field_type::integer:
    case field_type::unsigned_int:
    case field_type::big_int:
        // SQLite keeps anything in any column; its driver would make a 0 of a text.
        return engine == Engine::sqlite ? Form::text : Form::whole;
    case field_type::unsigned_big_int:
        return engine == Engine::sqlite ? Form::text : Form::unsigned_whole;
    case field_type::single:
        return engine == Engine::sqlite ? Form::text : Form::single;
    case field_type::double_float:
        return engine == Engine::sqlite ? Form::text : Form::double_float;
    case field_type::binary:
    case field_type::var_binary:
    case field_type::long_var_binary:
        return Form::bytes;
    default:
        return Form::text;
    }
}

SQLSMALLINT c_type_of(Form form) {
    switch (form) {
    case Form::bit:
        return SQL_C_BIT;
    case Form::whole:
        return SQL_C_SBIGINT;
    case Form::unsigned_whole:
        return SQL_C_UBIGINT;
    case Form::single:
        return SQL_C_FLOAT;
    case Form::double_float:
        return SQL_C_DOUBLE;
    case Form::bytes:
        return SQL_C_BINARY;
    case Form::text:
        break;
    }
    return SQL_C_WCHAR;
}

/// UTF-16 units that texts of a column mostly have at most.
std::size_t units_of(const standard::ColumnInfo& info) {
    switch (info.type) {
    case field_type::db_date:
    case field_type::db_time:
    case field_type::db_time_stamp:
    case field_type::guid:
    case field_type::currency:
    case field_type::numeric:
        return 47;
    default:
        return std::min(2 * static_cast<std::size_t>(info.defined_size), bound_units);
    }
}

std::size_t width_of(Form form, const standard::ColumnInfo& info) {
    switch (form) {
    case Form::bit:
        return 1;
    case Form::single:
        return sizeof(float);
    case Form::whole:
    case Form::unsigned_whole:
    case Form::double_float:
        return sizeof(std::int64_t);
    case Form::bytes:
        return std::min(static_cast<std::size_t>(info.defined_size), bound_bytes);
    case Form::text:
        break;
    }
    return (units_of(info) + 1) * sizeof(char16_t);
}

/// Whether the values of a column may be longer than the place that is bound for them.
bool may_be_longer(Form form, const standard::ColumnInfo& info) {
    const auto size = static_cast<std::size_t>(info.defined_size);
    switch (info.type) {
    case field_type::char_type:
    case field_type::var_char:
    case field_type::long_var_char:
    case field_type::w_char:
    case field_type::var_w_char:
    case field_type::long_var_w_char:
        return 2 * size > bound_units;
    default:
        return form == Form::bytes && size > bound_bytes;
    }
}

} // namespace

Block::Block(const StatementHandle& statement, const DriverTraits& traits)
    : statement_(statement)
    , mode_(traits.reads_long_in_blocks ? Mode::blocks
            : traits.reads_long_in_rows ? Mode::rows
                                        : Mode::unbound) {
    describe(traits);
    make_room(fetches_many(traits) ? rows_of_a_block : 1);
}

void Block::describe(const DriverTraits& traits) {
    SQLSMALLINT count = 0;
    statement_.check(SQLNumResultCols(statement_.get(), &count), Phase::running);
    for (SQLUSMALLINT i = 1; i <= count; ++i) {
        const DescribedColumn described = describe_column(statement_, i);
        const ColumnType type = column_type(described, traits.engine);
        infos_.push_back({described.name, type.type, type.size});
        Column& column = columns_.emplace_back();
        column.form = form_of(described, type.type, traits.engine);
        column.c_type = c_type_of(column.form);
        column.width = width_of(column.form, infos_.back());
        column.room = column.width - (column.form == Form::text ? sizeof(char16_t) : 0);
        // MariaDB's driver (3.1.15) fails on a text that is cut in the midst of a character.
        column.is_bound = mode_ == Mode::blocks ||
                          (mode_ == Mode::rows && !may_be_longer(column.form, infos_.back()));
    }
}

bool Block::fetches_many(const DriverTraits& traits) const {
    const bool all_bound = std::all_of(
        columns_.begin(), columns_.end(), [](const Column& column) { return column.is_bound; });
    // SQLite's values may be longer than their columns.
    return mode_ == Mode::blocks ||
           (mode_ == Mode::rows && all_bound && traits.engine != Engine::sqlite &&
            traits.engine != Engine::other);
}

void Block::make_room(std::size_t most_rows) {
    std::size_t row_bytes = 1;
    for (const Column& column : columns_) {
        row_bytes += column.width + sizeof(SQLLEN);
    }
    capacity_ = std::clamp<std::size_t>(most_bytes / row_bytes, 1, most_rows);
    for (Rows& rows : rows_) {
        rows.states.resize(capacity_);
        for (const Column& column : columns_) {
            rows.places.push_back({std::vector<std::byte>(capacity_ * column.width),
                                   std::vector<SQLLEN>(capacity_, SQL_NO_TOTAL)});
        }
    }
    if (capacity_ > 1) {
        statement_.check(SQLSetStmtAttrW(statement_.get(),
                                         SQL_ATTR_ROW_ARRAY_SIZE,
                                         reinterpret_cast<SQLPOINTER>(capacity_),
                                         0),
                         Phase::running);
    }
}

/// What is fetched goes to these rows from here on.
void Block::bind(Rows& rows) {
    const auto set = [&](SQLINTEGER attribute, SQLPOINTER value) {
        statement_.check(SQLSetStmtAttrW(statement_.get(), attribute, value, 0), Phase::running);
    };
    set(SQL_ATTR_ROWS_FETCHED_PTR, &rows.fetched);
    set(SQL_ATTR_ROW_STATUS_PTR, rows.states.data());
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        if (columns_[i].is_bound) {
            statement_.check(SQLBindCol(statement_.get(),
                                        static_cast<SQLUSMALLINT>(i + 1),
                                        columns_[i].c_type,
                                        rows.places[i].data.data(),
                                        static_cast<SQLLEN>(columns_[i].width),
                                        rows.places[i].lengths.data()),
                             Phase::running);
        }
    }
    bound_ = &rows;
}

bool Block::go_on() {
    const bool is_first = serial_ == 1 && row_count_ == 0;
    serial_ += row_count_;
    row_ = 0;
    row_count_ = 0;
    if (ahead_.valid()) {
        ahead_.get();
        current_ = 1 - current_;
    } else {
        fetch(rows_[current_]);
    }
    row_count_ = rows_[current_].count;
    if (row_count_ > 0 && mode_ == Mode::unbound) {
        read_unbound_row();
    }
    // Who reads one block only, to learn the columns, has the driver do no more.
    if (!is_first) {
        fetch_ahead();
    }
    return row_count_ > 0;
}

void Block::fetch(Rows& rows) {
    if (bound_ != &rows) {
        bind(rows);
    }
    rows.fetched = 1; // for a driver that counts rows of blocks only
    rows.count = 0;
    const SQLRETURN code = SQLFetch(statement_.get());
    statement_.check(code, Phase::running);
    if (code == SQL_NO_DATA) {
        return;
    }
    rows.count = std::min<std::size_t>(rows.fetched, capacity_);
    if (code == SQL_SUCCESS_WITH_INFO) {
        require_no_failed_row(rows);
    }
    rows.has_long = has_long_values(rows);
}

/// Long values are read out of the block that the driver stands on.
void Block::fetch_ahead() {
    constexpr std::size_t worth_a_thread = 64;
    const Rows& rows = rows_[current_];
    if (rows.count < capacity_ || capacity_ < worth_a_thread || rows.has_long) {
        return;
    }
    try {
        ahead_ =
            std::async(std::launch::async, [this, other = 1 - current_] { fetch(rows_[other]); });
    } catch (const std::system_error&) {
        return; // no thread to be had: it is fetched when it is wanted
    }
}

bool Block::has_long_values(const Rows& rows) const {
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        const auto& lengths = rows.places[i].lengths;
        const auto end = lengths.begin() + static_cast<std::ptrdiff_t>(rows.count);
        const Column& column = columns_[i];
        if (std::any_of(lengths.begin(), end, [&](SQLLEN length) {
                return length != SQL_NULL_DATA && !column.holds(length);
            })) {
            return true;
        }
    }
    return false;
}

void Block::require_no_failed_row(const Rows& rows) const {
    const auto end = rows.states.begin() + static_cast<std::ptrdiff_t>(rows.count);
    if (std::find(rows.states.begin(), end, SQL_ROW_ERROR) != end) {
        raise(SQL_HANDLE_STMT, statement_.get(), Phase::running);
    }
}

void Block::read_unbound_row() {
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        const Column& column = columns_[i];
        Place& place = rows_[current_].places[i];
        if (column.form == Form::text || column.form == Form::bytes) {
            read_whole(i);
        } else {
            statement_.check(SQLGetData(statement_.get(),
                                        static_cast<SQLUSMALLINT>(i + 1),
                                        column.c_type,
                                        place.data.data(),
                                        static_cast<SQLLEN>(column.width),
                                        place.lengths.data()),
                             Phase::running);
        }
    }
}

/// Piece after piece, until the driver says that it was the last one.
void Block::read_whole(std::size_t index) {
    Column& column = columns_[index];
    const std::size_t terminator = column.form == Form::text ? sizeof(char16_t) : 0;
    std::array<char16_t, 16384> piece;
    column.whole.clear();
    column.is_null = false;
    for (SQLRETURN code = SQL_SUCCESS_WITH_INFO; code == SQL_SUCCESS_WITH_INFO;) {
        SQLLEN length = 0;
        code = SQLGetData(statement_.get(),
                          static_cast<SQLUSMALLINT>(index + 1),
                          column.c_type,
                          piece.data(),
                          static_cast<SQLLEN>(sizeof piece),
                          &length);
        statement_.check(code, Phase::running);
        if (code == SQL_NO_DATA) {
            break;
        }
        if (length == SQL_NULL_DATA) {
            column.is_null = true;
            break;
        }
        const std::size_t most = sizeof piece - terminator;
        const std::size_t size =
            length < 0 ? most : std::min(static_cast<std::size_t>(length), most);
        const auto* data = reinterpret_cast<const std::byte*>(piece.data());
        column.whole.insert(column.whole.end(), data, data + size);
        if (code == SQL_SUCCESS_WITH_INFO && length >= 0 &&
            static_cast<std::size_t>(length) <= most) {
            break; // a warning about something else
        }
    }
    column.whole_row = serial_ + row_;
}

RawCell Block::long_cell(std::size_t column) {
    if (capacity_ > 1) {
        statement_.check(SQLSetPos(statement_.get(), row_ + 1, SQL_POSITION, SQL_LOCK_NO_CHANGE),
                         Phase::running);
    }
    read_whole(column);
    return columns_[column].whole_cell();
}

} // namespace krv::providers::odbc
