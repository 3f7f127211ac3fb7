#pragma once

#include "krv/platform/grid.h"
#include "krv/standard/flex_grid.h"
#include "krv/standard/measures.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace krv::standard {

/// Who handles the keys that go down on a grid: its own listener, or the control's surface.
enum class GridKeys { own_listener, surface };

/// A backend's grid: the standard grid under the names of `platform::Grid`.
///
/// `PartBase` derives from `platform::Grid` and implements the members of `platform::Part`; they
/// may not call members of the grid from its constructor. Size and font size that are set through
/// the part reach the standard grid; a backend that shows less of it (scroll bars) corrects that
/// with `flex().set_view_size` after them.
template <class PartBase>
class GridFace : public PartBase {
public:
    /// \param queue      outlives the grid
    /// \param part_args  for the constructor of `PartBase`, whose `Name` becomes the source of
    /// errors
    template <class... PartArgs>
    GridFace(MessageQueue& queue, GridSelection selection, PartArgs&&... part_args)
        : PartBase(std::forward<PartArgs>(part_args)...)
        , flex_(std::string(PartBase::Name()), queue, selection) {
        flex_.set_on_row_col_change([this] { raise_row_col_change(); });
        flex_.SetFontSize(PartBase::FontSize());
        take_size();
    }

    FlexGrid& flex() noexcept { return flex_; }

    const FlexGrid& flex() const noexcept { return flex_; }

    std::int32_t Rows() const override { return flex_.Rows(); }

    void SetRows(std::int32_t rows) override { flex_.SetRows(rows); }

    std::int32_t Cols() const override { return flex_.Cols(); }

    void SetCols(std::int32_t cols) override { flex_.SetCols(cols); }

    void Clear() override { flex_.Clear(); }

    std::string_view TextMatrix(std::int32_t row, std::int32_t col) const override {
        return flex_.TextMatrix(row, col);
    }

    void SetTextMatrix(std::int32_t row, std::int32_t col, std::string_view text) override {
        flex_.SetTextMatrix(row, col, text);
    }

    std::string_view TextArray(std::int32_t index) const override { return flex_.TextArray(index); }

    void SetTextArray(std::int32_t index, std::string_view text) override {
        flex_.SetTextArray(index, text);
    }

    void AddItem(std::string_view item) override { flex_.AddItem(item); }

    void AddItem(std::string_view item, std::int32_t index) override { flex_.AddItem(item, index); }

    void RemoveItem(std::int32_t index) override { flex_.RemoveItem(index); }

    std::int32_t Row() const override { return flex_.Row(); }

    void SetRow(std::int32_t row) override { flex_.SetRow(row); }

    std::int32_t Col() const override { return flex_.Col(); }

    void SetCol(std::int32_t col) override { flex_.SetCol(col); }

    std::int32_t RowSel() const override { return flex_.RowSel(); }

    void SetRowSel(std::int32_t row) override { flex_.SetRowSel(row); }

    std::int32_t ColSel() const override { return flex_.ColSel(); }

    void SetColSel(std::int32_t col) override { flex_.SetColSel(col); }

    std::int32_t TopRow() const override { return flex_.TopRow(); }

    void SetTopRow(std::int32_t row) override { flex_.SetTopRow(row); }

    bool RowIsVisible(std::int32_t row) const override { return flex_.RowIsVisible(row); }

    platform::Twips ColPos(std::int32_t col) const override { return flex_.ColPos(col); }

    platform::Twips RowPos(std::int32_t row) const override { return flex_.RowPos(row); }

    platform::Twips ColWidth(std::int32_t col) const override { return flex_.ColWidth(col); }

    void SetColWidth(std::int32_t col, platform::Twips width) override {
        flex_.SetColWidth(col, width);
    }

    platform::Twips RowHeight(std::int32_t row) const override { return flex_.RowHeight(row); }

    void SetRowHeight(std::int32_t row, platform::Twips height) override {
        flex_.SetRowHeight(row, height);
    }

    std::int16_t ColAlignment(std::int32_t col) const override { return flex_.ColAlignment(col); }

    void SetColAlignment(std::int32_t col, std::int16_t alignment) override {
        flex_.SetColAlignment(col, alignment);
    }

    void SetEvents(platform::GridEvents* events) override { events_ = events; }

    void SetWidth(platform::TwipsSingle width) override {
        PartBase::SetWidth(width);
        take_size();
    }

    void SetHeight(platform::TwipsSingle height) override {
        PartBase::SetHeight(height);
        take_size();
    }

    void Move(platform::TwipsSingle left,
              platform::TwipsSingle top,
              platform::TwipsSingle width,
              platform::TwipsSingle height) override {
        PartBase::Move(left, top, width, height);
        take_size();
    }

    /// \throws RuntimeError 380 for a size that is no font size; nothing has changed then
    void SetFontSize(float points) override {
        flex_.SetFontSize(points);
        PartBase::SetFontSize(points);
    }

protected:
    /// The listener, for the events that the backend raises itself; null for none.
    platform::GridEvents* events() const noexcept { return events_; }

    /// Tells the listener; a backend may put its own guard around that.
    virtual void raise_row_col_change() {
        if (events_ != nullptr) {
            events_->RowColChange();
        }
    }

private:
    void take_size() {
        flex_.set_view_size(whole_twips(PartBase::Width()), whole_twips(PartBase::Height()));
    }

    FlexGrid flex_;
    platform::GridEvents* events_ = nullptr;
};

} // namespace krv::standard
