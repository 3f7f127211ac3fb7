#include "qt/length_limit.h"

#include <algorithm>

namespace krv::qt {

namespace {

/// Characters that both texts begin with, `most` at the most.
qsizetype common_start(const QString& one, const QString& other, qsizetype most) {
    qsizetype length = 0;
    while (length < most && one[length] == other[length]) {
        ++length;
    }
    return length;
}

} // namespace

QValidator::State LengthLimit::validate(QString& input, int& caret) const {
    if (limit_ <= 0 || input.size() <= limit_ || input.size() <= before_.size()) {
        return Acceptable;
    }
    // What was inserted ends at the caret: what lies behind it was there before.
    const qsizetype behind = input.size() - caret;
    const qsizetype kept =
        common_start(input, before_, std::min<qsizetype>(caret, before_.size() - behind));
    const qsizetype room = std::max<qsizetype>(0, limit_ - behind - kept);
    qsizetype surplus = std::max<qsizetype>(0, caret - kept - room);
    qsizetype cut = caret - surplus;
    if (surplus > 0 && cut > kept && input[cut - 1].isHighSurrogate()) {
        --cut;
        ++surplus;
    }
    input.remove(cut, surplus);
    caret = static_cast<int>(cut);
    return Acceptable;
}

} // namespace krv::qt
