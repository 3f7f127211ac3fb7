#pragma once

namespace krv::headless {

class HeadlessForm;

/// Held while the form or one of its parts may be running the host's code. Controls that are
/// removed meanwhile are freed no sooner than the next time such an activity begins with none under
/// way: no code of theirs can be running then.
class Activity {
public:
    explicit Activity(HeadlessForm& form);
    ~Activity();
    Activity(const Activity&) = delete;
    Activity& operator=(const Activity&) = delete;

private:
    HeadlessForm& form_;
};

} // namespace krv::headless
