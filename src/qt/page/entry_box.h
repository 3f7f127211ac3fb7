#pragma once

#include "qt/page/editor.h"

class QLineEdit;

namespace krv::qt {

/// A text of the page over a line edit.
class QtEntryBox final : public QtEditor<platform::EntryBox> {
public:
    QtEntryBox(Surface& surface, std::string name);

    std::string Text() const override;
    void SetText(std::string_view text) override;

    void type(const QString& text) override;

    QLineEdit& edit() const noexcept { return *edit_; }

private:
    void notice_text();

    QLineEdit* edit_;
    QString told_; ///< the text that was told last
    bool assigning_ = false;
};

} // namespace krv::qt
