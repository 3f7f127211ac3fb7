#pragma once

#include "krv/control/constituents.h"
#include "krv/control/karvo_list.h"
#include "krv/platform/host.h"
#include "krv/platform/property_store.h"
#include "krv/qt/error_handler.h"
#include "krv/qt/message_handler.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
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
    // Form files keep those that are settings, and show no others to the form's developer.
    Q_PROPERTY(uint BackColor READ BackColor WRITE SetBackColor)
    Q_PROPERTY(
        float ButtonsHeight READ ButtonsHeight WRITE SetButtonsHeight DESIGNABLE false STORED false)
    Q_PROPERTY(float ButtonsWidth READ ButtonsWidth DESIGNABLE false STORED false)
    Q_PROPERTY(bool Adding READ Adding DESIGNABLE false STORED false)
    Q_PROPERTY(QString Connect READ Connect WRITE SetConnect DESIGNABLE false STORED false)
    Q_PROPERTY(bool InputModified READ InputModified DESIGNABLE false STORED false)
    Q_PROPERTY(int KeyAdd READ KeyAdd WRITE SetKeyAdd DESIGNABLE false STORED false)
    Q_PROPERTY(int KeyCopy READ KeyCopy WRITE SetKeyCopy DESIGNABLE false STORED false)
    Q_PROPERTY(int KeyDelete READ KeyDelete WRITE SetKeyDelete DESIGNABLE false STORED false)
    Q_PROPERTY(int KeyInsert READ KeyInsert WRITE SetKeyInsert DESIGNABLE false STORED false)
    Q_PROPERTY(int KeyOK READ KeyOK WRITE SetKeyOK)
    Q_PROPERTY(bool MoveWithTab READ MoveWithTab WRITE SetMoveWithTab)
    Q_PROPERTY(bool Modified READ Modified DESIGNABLE false STORED false)
    Q_PROPERTY(QString MsgTitle READ MsgTitle WRITE SetMsgTitle DESIGNABLE false STORED false)
    Q_PROPERTY(bool Editing READ Editing DESIGNABLE false STORED false)
    Q_PROPERTY(bool Inserting READ Inserting DESIGNABLE false STORED false)
    Q_PROPERTY(bool Enabled READ Enabled WRITE SetEnabled)
    Q_PROPERTY(int Rows READ Rows WRITE SetRows)
    Q_PROPERTY(int LineNumberColumn READ LineNumberColumn WRITE SetLineNumberColumn)
    Q_PROPERTY(int Cols READ Cols WRITE SetCols DESIGNABLE false STORED false)
    Q_PROPERTY(
        QString Recordsource READ Recordsource WRITE SetRecordsource DESIGNABLE false STORED false)
    Q_PROPERTY(bool ReadOnlyRecordset READ ReadOnlyRecordset WRITE SetReadOnlyRecordset)
    Q_PROPERTY(
        QString DataBaseName READ DataBaseName WRITE SetDataBaseName DESIGNABLE false STORED false)
    Q_PROPERTY(int Row READ Row WRITE SetRow DESIGNABLE false STORED false)
    Q_PROPERTY(int TopRow READ TopRow WRITE SetTopRow DESIGNABLE false STORED false)
    Q_PROPERTY(QString AddCaption READ AddCaption WRITE SetAddCaption)
    Q_PROPERTY(uint AddColor READ AddColor WRITE SetAddColor DESIGNABLE false STORED false)
    Q_PROPERTY(QString InsertCaption READ InsertCaption WRITE SetInsertCaption)
    Q_PROPERTY(uint InsertColor READ InsertColor WRITE SetInsertColor DESIGNABLE false STORED false)
    Q_PROPERTY(QString DeleteCaption READ DeleteCaption WRITE SetDeleteCaption)
    Q_PROPERTY(uint DeleteColor READ DeleteColor WRITE SetDeleteColor DESIGNABLE false STORED false)
    Q_PROPERTY(QString CopyCaption READ CopyCaption WRITE SetCopyCaption)
    Q_PROPERTY(uint CopyColor READ CopyColor WRITE SetCopyColor DESIGNABLE false STORED false)
    Q_PROPERTY(uint EvidenziaColor READ EvidenziaColor WRITE SetEvidenziaColor
                   DESIGNABLE false STORED false)
    Q_PROPERTY(QString OKCaption READ OKCaption WRITE SetOKCaption DESIGNABLE false STORED false)
    Q_PROPERTY(uint OkColor READ OkColor WRITE SetOkColor DESIGNABLE false STORED false)
    Q_PROPERTY(bool AddVisible READ AddVisible WRITE SetAddVisible)
    Q_PROPERTY(bool InsertVisible READ InsertVisible WRITE SetInsertVisible)
    Q_PROPERTY(bool DeleteVisible READ DeleteVisible WRITE SetDeleteVisible)
    Q_PROPERTY(bool CopyVisible READ CopyVisible WRITE SetCopyVisible)
    Q_PROPERTY(bool OkVisible READ OkVisible WRITE SetOkVisible)
    Q_PROPERTY(bool AutoAdd READ AutoAdd WRITE SetAutoAdd)
    Q_PROPERTY(bool AutoStartInputOnClick READ AutoStartInputOnClick WRITE SetAutoStartInputOnClick)

    // Settings that a form file hands over in a way of their own.
    Q_PROPERTY(QByteArray Columns READ Columns WRITE SetColumns)
    Q_PROPERTY(QStringList Captions READ Captions WRITE SetCaptions)
    Q_PROPERTY(QByteArray StartConnect READ StartConnect WRITE SetStartConnect)
    Q_PROPERTY(QByteArray StartDataBaseName READ StartDataBaseName WRITE SetStartDataBaseName)
    Q_PROPERTY(QByteArray StartRecordsource READ StartRecordsource WRITE SetStartRecordsource)
    Q_PROPERTY(QString StartTitle READ StartTitle WRITE SetStartTitle)
    Q_PROPERTY(int StartRow READ StartRow WRITE SetStartRow)
    Q_PROPERTY(double StartButtonsHeight READ StartButtonsHeight WRITE SetStartButtonsHeight)
    Q_PROPERTY(int StartKeyAdd READ StartKeyAdd WRITE SetStartKeyAdd)
    Q_PROPERTY(int StartKeyInsert READ StartKeyInsert WRITE SetStartKeyInsert)
    Q_PROPERTY(int StartKeyDelete READ StartKeyDelete WRITE SetStartKeyDelete)
    Q_PROPERTY(int StartKeyCopy READ StartKeyCopy WRITE SetStartKeyCopy)

public:
    /// A new control for a form that is made from a file. It opens nothing; it has the program's
    /// default data layer and formatter until it is given its own.
    explicit KarvoListWidget(QWidget* parent = nullptr);

    /// Says that a form designer shows the control.
    struct InDesigner {};

    /// A new control on a form that is being designed: settings act on nothing there, the program's
    /// title is not touched, and what is wrong with a setting is a warning that Qt Designer shows.
    explicit KarvoListWidget(InDesigner in_designer, QWidget* parent = nullptr);

    /// A new control in its start-up state, 6000 by 3000 twips.
    /// \param data_access, formatter  kept as long as the widget or until others are set; null: the
    ///                                program's defaults
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

    /// The data layer from the next `Refresh` on; null: the program's default.
    void set_data_access(std::shared_ptr<platform::DataAccess> data_access);

    /// The formatter from the next value on; null: the program's default.
    void set_formatter(std::shared_ptr<const platform::Formatter> formatter);

    /// The data layer of all controls that have none of their own, those that are there included;
    /// null: none. A `Refresh` fails with 3706 then.
    static void set_default_data_access(std::shared_ptr<platform::DataAccess> data_access);

    /// The formatter of all controls that have none of their own; null: by the system's region.
    static void set_default_formatter(std::shared_ptr<const platform::Formatter> formatter);

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

    // --- Form files ----------------------------------------------------------------------------

    // A form file (.ui) keeps every setting that a property bag keeps: those that a host may put
    // without acting under their own names, the others here. Each put of these is taken as a stored
    // setting is: nothing is notified, no row is opened, no message shown; the control is laid out
    // afterwards. Errors go to the error handler. They are for a control that is being made: but for
    // `Captions` and `StartTitle` they read all settings anew, which ends the editing of a row.

    /// The settings of the columns but their captions: a line a column, in it `ColWidth=1200` and
    /// so on, as bag files write them, between blanks; a setting that is not there has the bag's
    /// default. UTF-8, never empty, not for translators. An empty text is one new column.
    QByteArray Columns() const;
    /// A text with a fault: the columns before it are taken, the others are as those of a new
    /// control, and error 321 names the line.
    void SetColumns(const QByteArray& text);

    /// The captions of the columns; for translators.
    QStringList Captions() const;
    /// A list that is too short leaves the other captions empty; what is too much is kept for
    /// columns to come.
    void SetCaptions(const QStringList& captions);

    /// The record source, in UTF-8: form files give texts of this type to no translator, and do not
    /// put them again when the language changes.
    QByteArray StartConnect() const;
    void SetStartConnect(const QByteArray& text);
    QByteArray StartDataBaseName() const;
    void SetStartDataBaseName(const QByteArray& path);
    QByteArray StartRecordsource() const;
    void SetStartRecordsource(const QByteArray& text);

    /// The program's title, which a put of `MsgTitle` leaves as it is.
    QString StartTitle() const;
    void SetStartTitle(const QString& title);

    /// The current public row, -1 for none; the input line stays closed. A row that is not there yet
    /// becomes current when `Rows` is put and it is.
    int StartRow() const;
    void SetStartRow(int row);

    /// Height of the buttons in twips. A height of 0 comes back as 255, as from a bag.
    double StartButtonsHeight() const;
    void SetStartButtonsHeight(double twips);

    /// Function keys, any code of 16 bits.
    int StartKeyAdd() const;
    void SetStartKeyAdd(int code);
    int StartKeyInsert() const;
    void SetStartKeyInsert(int code);
    int StartKeyDelete() const;
    void SetStartKeyDelete(int code);
    int StartKeyCopy() const;
    void SetStartKeyCopy(int code);

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
    void start_new();
    /// Takes a setting as a form file has it, by its key in a property bag.
    void restore_setting(const char* key, const platform::Value& value) noexcept;
    /// `guard`, then the parts are placed by what has changed.
    void guard_and_lay_out(const std::function<void(KarvoList&)>& act) noexcept;
    QStringList captions_now() const;
    void go_to_awaited_row();

    /// Runs something on the list; errors go to the error handler.
    void guard(const std::function<void(KarvoList&)>& act) noexcept;
    template <class Parameter, class Value>
    void put(void (KarvoList::*setter)(Parameter), const Value& value) noexcept;

    std::unique_ptr<EventSignals> event_signals_;
    std::unique_ptr<Rooms> rooms_;
    QStringList kept_captions_;  ///< of columns that are not there
    QByteArray refused_columns_; ///< in Designer: the last text of columns, when it has a fault
    int awaited_row_ = -1;       ///< to become current once there are so many rows; -1 for none
    bool in_designer_ = false;
};

} // namespace krv::qt
