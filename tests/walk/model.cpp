#include "walk/model.h"

#include <algorithm>

namespace krv::walk {

namespace {

bool begins(const std::string& text, const char* prefix) {
    return text.rfind(prefix, 0) == 0;
}

/// Column 0 carries the line numbers, which the control writes by itself.
constexpr std::size_t first_own_column = 1;

} // namespace

Model::Model(Player& player)
    : player_(player) {
    for (std::int32_t row = 0; row < player.list().Rows(); ++row) {
        rows_.push_back(list_row(row));
    }
    player.on_told = [this](const std::string& what) { told(what); };
}

Model::Row Model::input_line() const {
    Row texts;
    for (std::int32_t col = 0; col < player_.list().Cols(); ++col) {
        texts.push_back(player_.list().InputArray(col));
    }
    return texts;
}

Model::Row Model::list_row(std::int32_t row) const {
    Row texts;
    for (std::int32_t col = 0; col < player_.list().Cols(); ++col) {
        texts.push_back(player_.list().TextMatrix(row, col));
    }
    return texts;
}

void Model::before(const Act& act) {
    empties_ = act.kind == Act::Kind::call && (act.name == "Refresh" || act.name == "Svuota");
    was_modified_ = player_.list().InputModified() && player_.is_part_visible("GridIn");
    if (act.kind == Act::Kind::call && act.name == "Svuota") {
        rows_.clear();
        editor_may_stay_ = true;
        row_is_open_ = false;
        flags_are_stale_ = false;
    }
    if (act.kind == Act::Kind::call && act.name == "Refresh") {
        row_is_open_ = false;
        flags_are_stale_ = true;
    }
}

void Model::told(const std::string& what) {
    if (begins(what, "event RowSelect") || begins(what, "event LineEditStart")) {
        row_is_open_ = true;
        flags_are_stale_ = false;
    } else if (begins(what, "event CopyClick 0") || begins(what, "event InsertClick 0")) {
        flags_are_stale_ = false;
    } else if (begins(what, "event BeforeRowUpdate")) {
        external_ = what.back() != '0';
    } else if (begins(what, "event AfterRowUpdated")) {
        confirmed(std::stoi(what.substr(what.rfind(' '))));
    } else if (what == "message confermi annullamento modifiche? = yes") {
        row_is_open_ = false;
    } else if (what == "message confermi eliminazione riga selezionata? = yes") {
        row_to_delete_ = player_.list().Row();
    } else if (begins(what, "event AfterRowDelete")) {
        rows_.erase(rows_.begin() + row_to_delete_);
        row_is_open_ = false;
    }
}

void Model::confirmed(std::int32_t at) {
    row_is_open_ = false;
    if (external_) {
        return;
    }
    const KarvoList& list = player_.list();
    Row row = input_line();
    if (list.Adding() || list.Inserting()) {
        for (std::string& text : row) {
            std::replace(text.begin(), text.end(), '\t', ' ');
        }
    }
    if (list.Adding()) {
        rows_.push_back(row);
    } else if (list.Inserting()) {
        const bool is_there = at >= 0 && at <= static_cast<std::int32_t>(rows_.size());
        rows_.insert(is_there ? rows_.begin() + at : rows_.end(), row);
    } else if (at >= 0) {
        rows_[static_cast<std::size_t>(at)] = row;
    }
}

std::vector<std::string> Model::broken_after(const std::vector<std::string>& trace) {
    std::vector<std::string> broken;
    check_rows(broken);
    check_input_line(broken);
    check_editor(broken);
    check_nothing_lost(trace, broken);
    return broken;
}

void Model::check_rows(std::vector<std::string>& broken) const {
    const KarvoList& list = player_.list();
    if (list.Rows() != static_cast<std::int32_t>(rows_.size())) {
        broken.push_back("the list has " + std::to_string(list.Rows()) + " rows, not " +
                         std::to_string(rows_.size()));
        return;
    }
    for (std::int32_t row = 0; row < list.Rows(); ++row) {
        const Row now = list_row(row);
        const Row& expected = rows_[static_cast<std::size_t>(row)];
        if (!std::equal(now.begin() + first_own_column,
                        now.end(),
                        expected.begin() + first_own_column,
                        expected.end())) {
            broken.push_back("row " + std::to_string(row) + " is not what was confirmed");
        }
        if (now[0] != std::to_string(row + 1)) {
            broken.push_back("row " + std::to_string(row) + " has the line number " + now[0]);
        }
    }
}

void Model::check_input_line(std::vector<std::string>& broken) {
    const KarvoList& list = player_.list();
    const bool new_row = list.Adding() || list.Inserting();
    const bool expected = row_is_open_ || (new_row && !flags_are_stale_);
    if (player_.is_part_visible("GridIn") != expected) {
        broken.push_back(expected ? "a row is open, the input line hidden"
                                  : "the input line is shown without an open row");
    }
}

void Model::check_editor(std::vector<std::string>& broken) {
    const platform::TextBox& editor = player_.editor();
    if (!editor.Visible()) {
        editor_may_stay_ = false;
        return;
    }
    const platform::Grid& line = player_.grid("GridIn");
    if (!line.Visible() && !editor_may_stay_) {
        broken.push_back("the editor is shown without the input line");
    }
    for (std::int32_t col = 0; col < line.Cols(); ++col) {
        const bool is_usable = line.ColWidth(col) > 0 && player_.list().ColEditable(col);
        if (is_usable && editor.Left() == static_cast<float>(line.ColPos(col)) + 35) {
            return;
        }
    }
    broken.push_back("the editor stands over no usable column");
}

void Model::check_nothing_lost(const std::vector<std::string>& trace,
                               std::vector<std::string>& broken) const {
    if (!was_modified_ || empties_ || player_.list().InputModified()) {
        return;
    }
    const bool was_let_go = std::any_of(trace.begin(), trace.end(), [](const std::string& what) {
        return begins(what, "event AfterRow") || begins(what, "message confermi") ||
               begins(what, "event AddClick 0") || begins(what, "event CopyClick 0");
    });
    if (!was_let_go) {
        broken.push_back("a modified row is no longer modified, and nobody was asked");
    }
}

} // namespace krv::walk
