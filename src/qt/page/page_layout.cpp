#include "qt/page/page_layout.h"

#include <QAction>
#include <QCheckBox>
#include <QCoreApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QStyle>
#include <QVBoxLayout>

#include <algorithm>
#include <initializer_list>

namespace krv::qt {

namespace {

struct Tip {
    std::string_view editor;
    const char* text;
};

constexpr Tip tips[] = {
    {"txtDataBaseName",
     QT_TRANSLATE_NOOP("krv::qt::PropertyPageWidget",
                       "The database file. Leaving it fills in the connection string; a double "
                       "click chooses a file.")},
    {"txRecordSource",
     QT_TRANSLATE_NOOP("krv::qt::PropertyPageWidget",
                       "Table or query whose records the list shows. Leaving it opens the "
                       "database and offers to build one column for each field.")},
    {"txConnection",
     QT_TRANSLATE_NOOP("krv::qt::PropertyPageWidget",
                       "Connection string: provider and data source, as Keyword=Value pairs "
                       "between semicolons.")},
    {"txtCols",
     QT_TRANSLATE_NOOP("krv::qt::PropertyPageWidget",
                       "Number of columns. Leaving it adds tabs or, when you agree, removes the "
                       "last ones.")},
    {"txtRows", QT_TRANSLATE_NOOP("krv::qt::PropertyPageWidget", "Number of rows at the start.")},
    {"txtLineNumberColumn",
     QT_TRANSLATE_NOOP("krv::qt::PropertyPageWidget",
                       "Column that shows the number of the row, from 0; -1 for none.")},
    {"chkOkVisible",
     QT_TRANSLATE_NOOP("krv::qt::PropertyPageWidget", "Shows the button that confirms a row.")},
    {"chkCopyVisible",
     QT_TRANSLATE_NOOP("krv::qt::PropertyPageWidget", "Shows the button that copies a row.")},
    {"chkDeleteVisible",
     QT_TRANSLATE_NOOP("krv::qt::PropertyPageWidget", "Shows the button that deletes a row.")},
    {"chkInsertVisible",
     QT_TRANSLATE_NOOP("krv::qt::PropertyPageWidget", "Shows the button that inserts a row.")},
    {"chkAddVisible",
     QT_TRANSLATE_NOOP("krv::qt::PropertyPageWidget", "Shows the button that adds a row.")},
    {"chkEnabled",
     QT_TRANSLATE_NOOP("krv::qt::PropertyPageWidget", "Lets the function buttons be used.")},
    {"chkAutoAdd",
     QT_TRANSLATE_NOOP("krv::qt::PropertyPageWidget",
                       "Opens a new row by itself behind a confirmed one and in an empty list.")},
    {"TabStrip1",
     QT_TRANSLATE_NOOP("krv::qt::PropertyPageWidget",
                       "The columns, from 0. The editors below show the selected one.")},
    {"txtCaption", QT_TRANSLATE_NOOP("krv::qt::PropertyPageWidget", "Heading of the column.")},
    {"txtColWidth",
     QT_TRANSLATE_NOOP("krv::qt::PropertyPageWidget",
                       "Width in twips, 1440 to the inch; -1 for the usual width.")},
    {"cmbAlignment",
     QT_TRANSLATE_NOOP("krv::qt::PropertyPageWidget",
                       "Alignment of the cells; automatic puts numbers to the right.")},
    {"cmbDataField",
     QT_TRANSLATE_NOOP("krv::qt::PropertyPageWidget",
                       "Field of the record source. Choosing one fills in type, length, format "
                       "and width.")},
    {"cmbDataType",
     QT_TRANSLATE_NOOP("krv::qt::PropertyPageWidget",
                       "Data type of the values. It comes from the database for a field of its "
                       "own.")},
    {"txtFieldLength",
     QT_TRANSLATE_NOOP("krv::qt::PropertyPageWidget",
                       "Characters that can be typed into the field; 0 for no limit.")},
    {"txtFormat",
     QT_TRANSLATE_NOOP("krv::qt::PropertyPageWidget",
                       "Pattern of the values, for example #,##0.00 or dd/mm/yyyy.")},
    {"chkEditable",
     QT_TRANSLATE_NOOP("krv::qt::PropertyPageWidget", "Lets the user edit the column.")},
    {"chkIsNecessary",
     QT_TRANSLATE_NOOP("krv::qt::PropertyPageWidget",
                       "A row is confirmed only with a value in this column.")},
};

QString tip_of(std::string_view editor) {
    const auto found = std::find_if(
        std::begin(tips), std::end(tips), [&](const Tip& tip) { return tip.editor == editor; });
    return found == std::end(tips) ? QString() : PropertyPageWidget::tr(found->text);
}

QString label_of(std::string_view editor) {
    for (const PageLabel& label : page_labels()) {
        if (label.editor == editor) {
            return qt_text(label.label);
        }
    }
    return {};
}

/// Puts editors into the rows of a grid, label beside editor.
class Grid {
public:
    Grid(QWidget* parent, QString& taken)
        : layout_(new QGridLayout(parent))
        , taken_(taken) {}

    /// One row; the last editor takes what room is left.
    void add_row(std::initializer_list<PageEditor*> editors) {
        int column = 0;
        for (PageEditor* editor : editors) {
            const bool is_last = editor == *std::prev(editors.end());
            const int span = is_last ? columns - column - 1 : 1;
            layout_->addWidget(label(*editor), row_, column);
            layout_->addWidget(editor->widget(), row_, column + 1, 1, span);
            column += 2;
        }
        ++row_;
    }

    /// Check boxes beside each other, in a layout of their own.
    void add_boxes(std::initializer_list<QtCheckBox*> boxes, int in_a_row) {
        auto* const grid = new QGridLayout;
        int place = 0;
        for (QtCheckBox* editor : boxes) {
            const QString text = label_of(editor->name());
            editor->box().setText(with_shortcut(text, taken_));
            editor->box().setAccessibleName(text);
            grid->addWidget(&editor->box(), place / in_a_row, place % in_a_row);
            ++place;
        }
        layout_->addLayout(grid, row_++, 0, 1, columns);
    }

    void stretch(std::initializer_list<int> by_column) {
        int column = 0;
        for (const int factor : by_column) {
            layout_->setColumnStretch(column++, factor);
        }
    }

private:
    static constexpr int columns = 6;

    QLabel* label(PageEditor& editor) {
        const QString text = label_of(editor.name());
        auto* const label = new QLabel(with_shortcut(text, taken_), layout_->parentWidget());
        label->setBuddy(editor.widget());
        label->setToolTip(tip_of(editor.name()));
        QString plain = text;
        editor.widget()->setAccessibleName(plain.remove(QLatin1Char(':')));
        return label;
    }

    QGridLayout* layout_;
    QString& taken_;
    int row_ = 0;
};

void add_file_button(QtEntryBox& box) {
    QLineEdit& edit = box.edit();
    QAction* const choose = edit.addAction(edit.style()->standardIcon(QStyle::SP_DirOpenIcon),
                                           QLineEdit::TrailingPosition);
    choose->setText(PropertyPageWidget::tr("Choose a database file"));
    choose->setToolTip(choose->text());
    choose->setShortcut(QKeySequence(Qt::Key_F4));
    choose->setShortcutContext(Qt::WidgetShortcut);
    QObject::connect(choose, &QAction::triggered, &edit, [&box] { box.double_click(); });
}

void fill_list_group(QGroupBox* group, PropertyPageWidget::Rooms& rooms, QString& taken) {
    Grid grid(group, taken);
    grid.add_row({&rooms.txtDataBaseName});
    grid.add_row({&rooms.txRecordSource});
    grid.add_row({&rooms.txConnection});
    grid.add_row({&rooms.txtCols, &rooms.txtRows, &rooms.txtLineNumberColumn});
    grid.add_boxes({&rooms.chkOkVisible,
                    &rooms.chkCopyVisible,
                    &rooms.chkDeleteVisible,
                    &rooms.chkInsertVisible,
                    &rooms.chkAddVisible,
                    &rooms.chkEnabled,
                    &rooms.chkAutoAdd},
                   4);
    grid.stretch({0, 1, 0, 1, 0, 1});
}

void fill_column_group(QGroupBox* group, PropertyPageWidget::Rooms& rooms, QString& taken) {
    Grid grid(group, taken);
    grid.add_row({&rooms.txtCaption, &rooms.txtColWidth});
    grid.add_row({&rooms.cmbAlignment, &rooms.cmbDataField});
    grid.add_row({&rooms.cmbDataType, &rooms.txtFieldLength});
    grid.add_row({&rooms.txtFormat});
    grid.add_boxes({&rooms.chkEditable, &rooms.chkIsNecessary}, 4);
    grid.stretch({0, 2, 0, 2, 0, 0});
}

void name_parts(PropertyPageWidget::Rooms& rooms) {
    for (PageEditor* editor : rooms.handles()) {
        const QString tip = tip_of(editor->name());
        editor->widget()->setToolTip(tip);
        editor->widget()->setAccessibleDescription(tip);
    }
    rooms.TabStrip1.tabs().setAccessibleName(PropertyPageWidget::tr("Columns"));
    rooms.TabStrip1.tabs().set_tip([&rooms](int index) {
        const auto& captions = rooms.page->columns().colCaptions;
        const auto place = static_cast<std::size_t>(index);
        return place < captions.size() ? qt_text(captions[place]).toHtmlEscaped() : QString();
    });
}

} // namespace

QString with_shortcut(const QString& label, QString& taken) {
    for (qsizetype i = 0; i < label.size(); ++i) {
        const QChar letter = label[i].toLower();
        if (letter.isLetter() && !taken.contains(letter)) {
            taken += letter;
            return QString(label).insert(i, QLatin1Char('&'));
        }
    }
    return label;
}

void lay_out_page(PropertyPageWidget& widget, PropertyPageWidget::Rooms& rooms) {
    auto* const list = new QGroupBox(PropertyPageWidget::tr("List"), &widget);
    auto* const column = new QGroupBox(PropertyPageWidget::tr("Column"), &widget);
    auto* const layout = new QVBoxLayout(&widget);
    layout->addWidget(list);
    layout->addWidget(&rooms.TabStrip1.tabs());
    layout->addWidget(column);
    layout->addStretch(1);
    // The buttons of a dialog have theirs already.
    QString taken = QStringLiteral("oac");
    fill_list_group(list, rooms, taken);
    fill_column_group(column, rooms, taken);
    add_file_button(rooms.txtDataBaseName);
    name_parts(rooms);
}

} // namespace krv::qt
