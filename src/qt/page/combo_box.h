#pragma once

#include "qt/page/editor.h"

#include <QComboBox>

namespace krv::qt {

class QtComboBox;

/// The combo box of an editor: the wheel, which scrolls pages, never changes it by accident.
class ComboWidget final : public Gated<QComboBox> {
public:
    using Gated::Gated;

protected:
    void wheelEvent(QWheelEvent* event) override;
};

/// A list of texts with a number each, over a combo box. Qt keeps its own current entry, which stays
/// behind when other text is typed; the selection that counts is kept here.
class QtComboBox final : public QtEditor<platform::ComboBox> {
public:
    enum class Typing { allowed, none };

    QtComboBox(Surface& surface, std::string name, Typing typing);

    std::string Text() const override;
    void SetText(std::string_view text) override;

    std::int16_t ListCount() const override;
    std::string List(std::int16_t index) const override;
    std::int32_t ItemData(std::int16_t index) const override;
    void SetItemData(std::int16_t index, std::int32_t data) override;

    std::int16_t ListIndex() const override { return list_index_; }

    void SetListIndex(std::int16_t index) override;

    /// A box to type in selects an entry that comes to equal its text, without `Click`.
    void AddItem(std::string_view text, std::int16_t index) override;
    /// A box to type in keeps its text.
    void Clear() override;

    void type(const QString& text) override;
    void click(std::int32_t index) override;

private:
    bool has_field() const { return combo_->lineEdit() != nullptr; }

    bool is_in_list(std::int32_t index) const { return index >= 0 && index < combo_->count(); }

    void require_in_list(std::int32_t index) const;
    /// Selects without telling; -1 leaves the text of a box to type in to `text`.
    void select(std::int16_t index, const QString& text);
    /// The selection that follows from a text.
    std::int16_t index_of(const QString& text) const;
    QString shown_text() const;
    void notice_typing();
    void notice_text();
    void notice_choice(int index);

    ComboWidget* combo_;
    QString told_; ///< the text that was told last, or came with a selection
    std::int16_t list_index_ = -1;
    bool assigning_ = false;
};

} // namespace krv::qt
