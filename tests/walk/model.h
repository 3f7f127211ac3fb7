#pragma once

#include "walk/player.h"

#include <string>
#include <vector>

namespace krv::walk {

/// What a polite host may rely on, kept beside the control and compared with it after every act:
/// the rows of the list, whether a row is open, where the editor may stand.
class Model {
public:
    explicit Model(Player& player);

    void before(const Act& act);
    /// The invariants that do not hold, one line each.
    std::vector<std::string> broken_after(const std::vector<std::string>& trace);

private:
    using Row = std::vector<std::string>;

    void told(const std::string& what);
    void confirmed(std::int32_t at);
    Row input_line() const;
    Row list_row(std::int32_t row) const;

    void check_rows(std::vector<std::string>& broken) const;
    void check_input_line(std::vector<std::string>& broken);
    void check_editor(std::vector<std::string>& broken);
    void check_nothing_lost(const std::vector<std::string>& trace,
                            std::vector<std::string>& broken) const;

    Player& player_;
    std::vector<Row> rows_;
    bool row_is_open_ = false;
    bool flags_are_stale_ = false; ///< a reload closed a row and left `Adding` or `Inserting` set
    bool external_ = false;
    bool empties_ = false;         ///< the act is one that drops everything by its nature
    bool editor_may_stay_ = false; ///< emptying the list leaves an editor that is shown alone
    bool was_modified_ = false;
    std::int32_t row_to_delete_ = -1;
};

} // namespace krv::walk
