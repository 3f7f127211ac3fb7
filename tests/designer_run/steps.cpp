#include "steps.h"

#include "designer.h"

#include <QRect>

#include <cstdio>
#include <cstdlib>

namespace krv::designer_run {

void Steps::start() {
    QTimer::singleShot(interval_ms, this, [this] { tick(); });
}

void Steps::tick() {
    if (next_ == steps_.size()) {
        end(has_failed_ ? 1 : 0);
    }
    // A timer of its own each time: an act may not return before its dialog is closed.
    QTimer::singleShot(interval_ms, this, [this] { tick(); });
    const Step& step = steps_[next_];
    if (step.until()) {
        std::fprintf(stderr, "step %s\n", qPrintable(step.name));
        ++next_;
        waited_ms_ = 0;
        step.act();
        return;
    }
    waited_ms_ += interval_ms;
    if (waited_ms_ > patience_ms) {
        std::fprintf(stderr, "FAILED waiting in vain: %s\n", qPrintable(step.name));
        take_picture(qEnvironmentVariable("KRV_PICTURES") + "/in-vain.png", QRect(0, 0, -1, -1));
        end(1);
    }
}

void Steps::check(bool is_so, const QString& what) {
    if (!is_so) {
        std::fprintf(stderr, "FAILED %s\n", qPrintable(what));
        has_failed_ = true;
    }
}

void Steps::check_equal(const QString& found, const QString& expected, const QString& what) {
    check(found == expected, what + "\n  expected: " + expected + "\n  found:    " + found);
}

void Steps::end(int code) {
    std::fflush(nullptr);
    std::_Exit(code); // the designer would ask whether forms are to be saved
}

} // namespace krv::designer_run
