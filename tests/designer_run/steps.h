#pragma once

#include <QObject>
#include <QString>
#include <QTimer>

#include <functional>
#include <vector>

namespace krv::designer_run {

/// A script for a program that is running: each step waits until something is so and then acts. Acts
/// may open dialogs that have an event loop of their own; the script goes on inside it.
class Steps : public QObject {
public:
    using QObject::QObject;

    struct Step {
        QString name;
        std::function<bool()> until;
        std::function<void()> act;
    };

    void add(QString name, std::function<bool()> until, std::function<void()> act) {
        steps_.push_back({std::move(name), std::move(until), std::move(act)});
    }

    /// Begins; ends the process behind the last step, or when one cannot be taken.
    void start();

    /// Writes down whether something is as it should be. A script with a failure ends with 1.
    void check(bool is_so, const QString& what);
    void check_equal(const QString& found, const QString& expected, const QString& what);

private:
    void tick();
    [[noreturn]] void end(int code);

    static constexpr int interval_ms = 40;
    static constexpr int patience_ms = 20000;

    std::vector<Step> steps_;
    std::size_t next_ = 0;
    int waited_ms_ = 0;
    bool has_failed_ = false;
};

} // namespace krv::designer_run
