#pragma once

#include <QString>
#include <QValidator>

namespace krv::qt {

/// Bounds what a person types, pastes or drops into a line edit and drops the surplus of it. Text
/// that code assigns may be of any length; the line edit's own limit would cut that as well.
class LengthLimit : public QValidator {
public:
    using QValidator::QValidator;

    int limit() const noexcept { return limit_; }

    /// UTF-16 code units; 0 and less: none.
    void set_limit(int limit) noexcept { limit_ = limit; }

    /// The text that the next edit starts from.
    void set_text(const QString& text) { before_ = text; }

    State validate(QString& input, int& caret) const override;

private:
    int limit_ = 0;
    QString before_;
};

} // namespace krv::qt
