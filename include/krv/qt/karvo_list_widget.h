#pragma once

#include "krv/control/constituents.h"
#include "krv/control/karvo_list.h"
#include "krv/platform/host.h"
#include "krv/platform/property_store.h"
#include "krv/qt/error_handler.h"
#include "krv/qt/message_handler.h"

#include <QString>
#include <QWidget>

#include <cstdint>
#include <functional>
#include <memory>

namespace krv::qt {

class EventSignals;

/// The control as a widget: list, input line, function buttons, over a `KarvoList`.
///
/// Properties, methods and events are those of `list()`: those that Qt can hold are also properties,
/// slots and signals of the widget, under their own names. The host may destroy the widget inside any
/// event. Errors that handlers let out while Qt's event loop calls the control go to the error
/// handler; those that a call of `list()` causes come out of that call.
class KarvoListWidget : public QWidget {
    Q_OBJECT

    // In the order of the interface; those with an index and those that hold objects are not here.
    Q_PROPERTY(uint BackColor READ BackColor WRITE SetBackColor)
    Q_PROPERTY(float ButtonsHeight READ ButtonsHeight WRITE SetButtonsHeight)
    Q_PROPERTY(float ButtonsWidth READ ButtonsWidth)
    Q_PROPERTY(bool Adding READ Adding)
    Q_PROPERTY(QString Connect READ Connect WRITE SetConnect)
    Q_PROPERTY(bool InputModified READ InputModified)
    Q_PROPERTY(int KeyAdd READ KeyAdd WRITE SetKeyAdd)
    Q_PROPERTY(int KeyCopy READ KeyCopy WRITE SetKeyCopy)
    Q_PROPERTY(int KeyDelete READ KeyDelete WRITE SetKeyDelete)
    Q_PROPERTY(int KeyInsert READ KeyInsert WRITE SetKeyInsert)
    Q_PROPERTY(int KeyOK READ KeyOK WRITE SetKeyOK)
    Q_PROPERTY(bool MoveWithTab READ MoveWithTab WRITE SetMoveWithTab)
    Q_PROPERTY(bool Modified READ Modified)
    Q_PROPERTY(QString MsgTitle READ MsgTitle WRITE SetMsgTitle)
    Q_PROPERTY(bool Editing READ Editing)
    Q_PROPERTY(bool Inserting READ Inserting)
    Q_PROPERTY(bool Enabled READ Enabled WRITE SetEnabled)
    Q_PROPERTY(int Rows READ Rows WRITE SetRows)
    Q_PROPERTY(int LineNumberColumn READ LineNumberColumn WRITE SetLineNumberColumn)
    Q_PROPERTY(int Cols READ Cols WRITE SetCols)
    Q_PROPERTY(QString Recordsource READ Recordsource WRITE SetRecordsource)
    Q_PROPERTY(bool ReadOnlyRecordset READ ReadOnlyRecordset WRITE SetReadOnlyRecordset)
    Q_PROPERTY(QString DataBaseName READ DataBaseName WRITE SetDataBaseName)
    Q_PROPERTY(int Row READ Row WRITE SetRow)
    Q_PROPERTY(int TopRow READ TopRow WRITE SetTopRow)
    Q_PROPERTY(QString AddCaption READ AddCaption WRITE SetAddCaption)
    Q_PROPERTY(uint AddColor READ AddColor WRITE SetAddColor)
    Q_PROPERTY(QString InsertCaption READ InsertCaption WRITE SetInsertCaption)
    Q_PROPERTY(uint InsertColor READ InsertColor WRITE SetInsertColor)
    Q_PROPERTY(QString DeleteCaption READ DeleteCaption WRITE SetDeleteCaption)
    Q_PROPERTY(uint DeleteColor READ DeleteColor WRITE SetDeleteColor)
    Q_PROPERTY(QString CopyCaption READ CopyCaption WRITE SetCopyCaption)
    Q_PROPERTY(uint CopyColor READ CopyColor WRITE SetCopyColor)
    Q_PROPERTY(uint EvidenziaColor READ EvidenziaColor WRITE SetEvidenziaColor)
    Q_PROPERTY(QString OKCaption READ OKCaption WRITE SetOKCaption)
    Q_PROPERTY(uint OkColor READ OkColor WRITE SetOkColor)
    Q_PROPERTY(bool AddVisible READ AddVisible WRITE SetAddVisible)
    Q_PROPERTY(bool InsertVisible READ InsertVisible WRITE SetInsertVisible)
    Q_PROPERTY(bool DeleteVisible READ DeleteVisible WRITE SetDeleteVisible)
    Q_PROPERTY(bool CopyVisible READ CopyVisible WRITE SetCopyVisible)
    Q_PROPERTY(bool OkVisible READ OkVisible WRITE SetOkVisible)
    Q_PROPERTY(bool AutoAdd READ AutoAdd WRITE SetAutoAdd)
    Q_PROPERTY(bool AutoStartInputOnClick READ AutoStartInputOnClick WRITE SetAutoStartInputOnClick)

public:
    /// A new control in its start-up state, 6000 by 3000 twips.
    /// \param data_access, formatter  kept as long as the widget; not null
    KarvoListWidget(std::shared_ptr<platform::DataAccess> data_access,
                    std::shared_ptr<const platform::Formatter> formatter,
                    QWidget* parent = nullptr);
    /// A stored control: its settings are read from the bag. Else as a new one.
    /// \throws what `KarvoList::ReadProperties` raises; there is no widget then
    KarvoListWidget(std::shared_ptr<platform::DataAccess> data_access,
                    std::shared_ptr<const platform::Formatter> formatter,
                    platform::PropertyBag& bag,
                    QWidget* parent = nullptr);
    ~KarvoListWidget() override;

    /// The typed face. Valid as long as the widget.
    KarvoList& list() noexcept;
    const KarvoList& list() const noexcept;

    /// Empty: errors are written to Qt's log as warnings.
    void set_error_handler(ErrorHandler handler);

    /// Empty: messages are shown in modal boxes.
    void set_message_handler(MessageHandler handler);

    // For tests and tools, which look at the parts and act on them as a person does.

    /// The parts. Valid as long as the widget.
    Constituents constituents() noexcept;
    /// The control's own surface. Valid as long as the widget.
    platform::Container& container() noexcept;
    /// Title, message boxes and message loop as the control uses them. Valid as long as the widget.
    platform::Application& application() noexcept;
    /// Delivers what is queued for the controls of this thread, in order, until nothing is.
    /// \throws the first error out of a handler; what was still queued stays queued
    void turn();

    // --- Properties ----------------------------------------------------------------------------

    // Each reads and writes the property of `list()` with the same name. Colours are `OLE_COLOR`s,
    // so that system colours stay what they are. A write that fails changes what the property of
    // `list()` has changed by then, and its error goes to the error handler; keys outside 16 bits
    // change nothing (6). `Enabled` is the function buttons'; Qt's `enabled` is the whole widget's.

    uint BackColor() const;
    void SetBackColor(uint color);
    float ButtonsHeight() const;
    void SetButtonsHeight(float twips);
    float ButtonsWidth() const;
    bool Adding() const;
    QString Connect() const;
    void SetConnect(const QString& text);
    bool InputModified() const;
    int KeyAdd() const;
    void SetKeyAdd(int value);
    int KeyCopy() const;
    void SetKeyCopy(int value);
    int KeyDelete() const;
    void SetKeyDelete(int value);
    int KeyInsert() const;
    void SetKeyInsert(int value);
    int KeyOK() const;
    void SetKeyOK(int value);
    bool MoveWithTab() const;
    void SetMoveWithTab(bool value);
    bool Modified() const;
    QString MsgTitle() const;
    void SetMsgTitle(const QString& text);
    bool Editing() const;
    bool Inserting() const;
    bool Enabled() const;
    void SetEnabled(bool value);
    int Rows() const;
    void SetRows(int value);
    int LineNumberColumn() const;
    void SetLineNumberColumn(int value);
    int Cols() const;
    void SetCols(int value);
    QString Recordsource() const;
    void SetRecordsource(const QString& text);
    bool ReadOnlyRecordset() const;
    void SetReadOnlyRecordset(bool value);
    QString DataBaseName() const;
    void SetDataBaseName(const QString& text);
    int Row() const;
    void SetRow(int value);
    int TopRow() const;
    void SetTopRow(int value);
    QString AddCaption() const;
    void SetAddCaption(const QString& text);
    uint AddColor() const;
    void SetAddColor(uint color);
    QString InsertCaption() const;
    void SetInsertCaption(const QString& text);
    uint InsertColor() const;
    void SetInsertColor(uint color);
    QString DeleteCaption() const;
    void SetDeleteCaption(const QString& text);
    uint DeleteColor() const;
    void SetDeleteColor(uint color);
    QString CopyCaption() const;
    void SetCopyCaption(const QString& text);
    uint CopyColor() const;
    void SetCopyColor(uint color);
    uint EvidenziaColor() const;
    void SetEvidenziaColor(uint color);
    QString OKCaption() const;
    void SetOKCaption(const QString& text);
    uint OkColor() const;
    void SetOkColor(uint color);
    bool AddVisible() const;
    void SetAddVisible(bool value);
    bool InsertVisible() const;
    void SetInsertVisible(bool value);
    bool DeleteVisible() const;
    void SetDeleteVisible(bool value);
    bool CopyVisible() const;
    void SetCopyVisible(bool value);
    bool OkVisible() const;
    void SetOkVisible(bool value);
    bool AutoAdd() const;
    void SetAutoAdd(bool value);
    bool AutoStartInputOnClick() const;
    void SetAutoStartInputOnClick(bool value);

    /// The widget that gets the focus when the user leaves the input line; null for none. Not owned.
    /// Giving it the focus raises 91 once it is destroyed, 5 when it cannot take the focus: hidden,
    /// disabled, or without a focus policy.
    void SetGiveFocusTo(QWidget* widget);

    QSize sizeHint() const override;
    /// 5055 by 1800 twips: below that the control grows by itself.
    QSize minimumSizeHint() const override;

public slots:
    // The methods of `list()` that need no arguments, for buttons and actions. Errors go to the error
    // handler.

    void Refresh();
    void Clear();
    void CloseAll();
    void Add();
    void Insert();
    void Delete();
    void Copy();
    void OK();
    void CloseRecordset();
    void Svuota();

signals:
    /// A persisted property was put; `name` is its name in the property bag.
    void propertyChanged(const QString& name);

    // The events of `KarvoListEvents`, each under its own name and with its own arguments. What a
    // pointer leads to may be changed, for the next slot and for the control; it is valid until the
    // slot returns, so connect directly. Listeners of `list()` are told after the slots. A slot may
    // destroy the widget; it must not throw: derive from `KarvoListEvents` where that is needed.

    void KeyDown(std::int16_t* KeyCode, std::int16_t* Shift, int Col);
    void KeyPress(std::int16_t* KeyAscii);
    void ListClick(std::int16_t* Button, std::int16_t* Shift, float* x, float* y, int Row, int Col);
    void LineEditStart(bool Adding);
    void InputLineClick(std::int16_t* Button, std::int16_t* Shift, float* x, float* y, int Col);
    void InputLineDblClick(int Col, QString* Value);
    void InputFieldClick(std::int16_t* Button, std::int16_t* Shift, float* x, float* y, int Col);
    void InputFieldChange(int Col, QString* Value);
    void AfterRowDelete(int DeletedRow);
    void AfterRowUpdated(int UpdatedRow);
    void AddClick(bool* Cancel);
    void InsertClick(bool* Cancel);
    void DeleteClick(bool* Cancel);
    void BeforeFieldUpdate(int ColInEdit, QString* Value, bool* Cancel);
    void BeforeRowUpdate(int RowInEdit, int ColInEdit, bool* Cancel, bool* ExternalHandling);
    void CopyClick(bool* Cancel);
    void OKClick(bool* Cancel);
    void RowSelect(std::int32_t* Row);

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Rooms;

    void prepare(std::shared_ptr<platform::DataAccess> data_access,
                 std::shared_ptr<const platform::Formatter> formatter);

    /// Runs something on the list; errors go to the error handler.
    void guard(const std::function<void(KarvoList&)>& act) noexcept;
    template <class Parameter, class Value>
    void put(void (KarvoList::*setter)(Parameter), const Value& value) noexcept;

    std::unique_ptr<EventSignals> event_signals_;
    std::unique_ptr<Rooms> rooms_;
};

} // namespace krv::qt
