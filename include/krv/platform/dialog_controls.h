#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace krv::platform {

// The editors of a property page. They have no place of their own here: the page that shows them
// lays them out. What they tell their owner is raised inside the call that causes it; getting and
// losing the focus is queued.

class EditorEvents {
public:
    /// The text became different.
    virtual void Change() {}

    /// A check box's value became different, a list position was assigned, a tab was selected.
    virtual void Click() {}

    virtual void DblClick() {}

    virtual void GotFocus() {}

    virtual void LostFocus() {}

protected:
    ~EditorEvents() = default;
};

class Editor {
public:
    virtual ~Editor() = default;

    virtual std::string_view Name() const = 0;
    virtual bool Enabled() const = 0;
    virtual void SetEnabled(bool enabled) = 0;
    /// \throws RuntimeError 5 when it cannot take the focus
    virtual void SetFocus() = 0;
    /// The one listener, not owned; null for none.
    virtual void SetEvents(EditorEvents* events) = 0;
};

class EntryBox : public Editor {
public:
    virtual std::string Text() const = 0;
    /// Raises `Change` when the text becomes different.
    virtual void SetText(std::string_view text) = 0;
};

class CheckBox : public Editor {
public:
    /// 0 unchecked, 1 checked.
    virtual std::int16_t Value() const = 0;
    /// Raises `Click` when the value becomes different.
    virtual void SetValue(std::int16_t value) = 0;
};

/// A list of texts with a number each, with or without a field to type in.
class ComboBox : public Editor {
public:
    virtual std::string Text() const = 0;
    /// Raises `Change` when different. A text that equals an entry (letter case counts) selects it
    /// without `Click`; any other leaves `ListIndex` at -1.
    virtual void SetText(std::string_view text) = 0;

    virtual std::int16_t ListCount() const = 0;
    /// \throws RuntimeError 381 outside 0 to ListCount() - 1
    virtual std::string List(std::int16_t index) const = 0;
    /// \throws RuntimeError 381 outside 0 to ListCount() - 1
    virtual std::int32_t ItemData(std::int16_t index) const = 0;
    /// \throws RuntimeError 381 outside 0 to ListCount() - 1
    virtual void SetItemData(std::int16_t index, std::int32_t data) = 0;

    /// Selected position, -1 for none.
    virtual std::int16_t ListIndex() const = 0;
    /// Raises `Click` for every position, the selected one included; -1 selects nothing and raises
    /// nothing. Selecting sets `Text` without `Change`.
    /// \throws RuntimeError 380 for a position outside the list
    virtual void SetListIndex(std::int16_t index) = 0;

    /// Inserts before `index`, 0 to ListCount(). A box to type in selects an entry that comes to
    /// equal its text, without `Click`.
    /// \throws RuntimeError 5 for another index, and for more than 32,767 entries
    virtual void AddItem(std::string_view text, std::int16_t index) = 0;
    /// Empties list and selection; a box to type in keeps its text.
    virtual void Clear() = 0;
};

/// A row of tabs, one selected. Tabs are numbered from 1.
class TabStrip : public Editor {
public:
    virtual std::int32_t Count() const = 0;
    /// Appends a tab; the first one becomes the selected one without `Click`.
    virtual void Add(std::string_view caption) = 0;
    /// Removing the selected tab selects the new last one without `Click`.
    /// \throws RuntimeError 35600 outside 1 to Count()
    virtual void Remove(std::int32_t index) = 0;
    virtual void Clear() = 0;
    /// \throws RuntimeError 35600 outside 1 to Count()
    virtual std::string Caption(std::int32_t index) const = 0;
    /// The selected tab, 0 when there is none.
    virtual std::int32_t SelectedIndex() const = 0;
    /// Raises `Click`, the selected tab included.
    /// \throws RuntimeError 35600 outside 1 to Count()
    virtual void SetSelectedIndex(std::int32_t index) = 0;
};

class FileDialog {
public:
    virtual ~FileDialog() = default;

    virtual void SetDialogTitle(std::string_view title) = 0;
    virtual void SetFilter(std::string_view filter) = 0;
    virtual void SetInitDir(std::string_view folder) = 0;
    /// Shows the dialog and waits.
    /// \throws RuntimeError 32755 when it is cancelled
    virtual void ShowOpen() = 0;
    /// The chosen file, empty before the first choice.
    virtual std::string FileName() const = 0;
};

} // namespace krv::platform
