#include "companions/record_statements.h"

#include "companions/cell_values.h"

namespace krv::companions {

namespace {

void add(std::string& list, std::string_view separator, std::string_view item) {
    if (!list.empty()) {
        list += separator;
    }
    list += item;
}

} // namespace

RecordStatements::RecordStatements(const RecordWriterSettings& settings)
    : quotes_(settings.quotes)
    , lock_clause_(settings.lock_clause) {
    if (!settings.schema.empty()) {
        table_ = name(settings.schema) + '.';
    }
    table_ += name(settings.table);
}

Statement RecordStatements::select(const TableColumns& columns, const FieldValues& key) const {
    Statement statement{"SELECT " + fields(columns) + " FROM " + table_, {}};
    add_where(statement, key);
    if (!lock_clause_.empty()) {
        statement.sql += ' ' + lock_clause_;
    }
    return statement;
}

Statement RecordStatements::select_nothing(const TableColumns& columns) const {
    return {"SELECT " + fields(columns) + " FROM " + table_ + " WHERE 1 = 0", {}};
}

Statement RecordStatements::insert(const FieldValues& values,
                                   const std::vector<const TableColumn*>& given) const {
    Statement statement;
    std::string names;
    std::string marks;
    for (const FieldValue& field : values) {
        add(names, ", ", name(field.column->field));
        add(marks, ", ", "?");
        statement.parameters.push_back(field.value);
    }
    statement.sql = "INSERT INTO " + table_;
    // Engines with backticks do not know DEFAULT VALUES, all others no empty lists.
    const bool is_plain = values.empty() && quotes_ != NameQuotes::backticks;
    statement.sql += is_plain ? " DEFAULT VALUES" : " (" + names + ") VALUES (" + marks + ")";
    std::string yielded;
    for (const TableColumn* column : given) {
        add(yielded, ", ", name(column->field));
    }
    if (!yielded.empty()) {
        statement.sql += " RETURNING " + yielded;
    }
    return statement;
}

Statement RecordStatements::update(const FieldValues& values, const FieldValues& key) const {
    Statement statement;
    std::string assignments;
    for (const FieldValue& field : values) {
        add(assignments, ", ", name(field.column->field) + " = ?");
        statement.parameters.push_back(field.value);
    }
    statement.sql = "UPDATE " + table_ + " SET " + assignments;
    add_where(statement, key);
    return statement;
}

Statement RecordStatements::remove(const FieldValues& key) const {
    Statement statement{"DELETE FROM " + table_, {}};
    add_where(statement, key);
    return statement;
}

std::string RecordStatements::name(std::string_view plain) const {
    const char open = quotes_ == NameQuotes::brackets    ? '['
                      : quotes_ == NameQuotes::backticks ? '`'
                                                         : '"';
    const char close = open == '[' ? ']' : open;
    std::string quoted(1, open);
    for (const char c : plain) {
        quoted.append(c == close ? 2 : 1, c);
    }
    return quoted + close;
}

std::string RecordStatements::fields(const TableColumns& columns) const {
    std::string list;
    for (const TableColumn& column : columns) {
        add(list, ", ", name(column.field));
    }
    return list;
}

void RecordStatements::add_where(Statement& statement, const FieldValues& key) const {
    std::string conditions;
    for (const FieldValue& field : key) {
        const std::string field_name = name(field.column->field);
        if (!field.value.view().is_null()) {
            add(conditions, " AND ", field_name + " = ?");
            statement.parameters.push_back(field.value);
        } else if (kind_of(field.column->type) == CellKind::text) {
            // Null and the empty text look alike in a list.
            add(conditions, " AND ", '(' + field_name + " IS NULL OR " + field_name + " = '')");
        } else {
            add(conditions, " AND ", field_name + " IS NULL");
        }
    }
    statement.sql += " WHERE " + conditions;
}

} // namespace krv::companions
