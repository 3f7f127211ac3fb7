#pragma once

#include "krv/platform/dialog_controls.h"

#include <functional>
#include <utility>

namespace krv::propertypage {

/// What the page does when an editor tells something; empty for nothing.
struct Reactions {
    std::function<void()> Change = {};
    std::function<void()> Click = {};
    std::function<void()> DblClick = {};
    std::function<void()> GotFocus = {};
    std::function<void()> LostFocus = {};
};

/// Listens to one editor, which outlives it. May be destroyed inside a reaction.
class EditorListener final : public platform::EditorEvents {
public:
    EditorListener(platform::Editor& editor, Reactions reactions)
        : editor_(editor)
        , reactions_(std::move(reactions)) {
        editor_.SetEvents(this);
    }

    ~EditorListener() { editor_.SetEvents(nullptr); }

    EditorListener(const EditorListener&) = delete;
    EditorListener& operator=(const EditorListener&) = delete;

    void Change() override { react(reactions_.Change); }

    void Click() override { react(reactions_.Click); }

    void DblClick() override { react(reactions_.DblClick); }

    void GotFocus() override { react(reactions_.GotFocus); }

    void LostFocus() override { react(reactions_.LostFocus); }

private:
    /// Takes a copy, which lives on when the page goes meanwhile.
    static void react(std::function<void()> reaction) {
        if (reaction) {
            reaction();
        }
    }

    platform::Editor& editor_;
    Reactions reactions_;
};

} // namespace krv::propertypage
