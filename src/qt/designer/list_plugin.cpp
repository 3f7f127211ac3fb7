#include "qt/designer/list_plugin.h"

#include "krv/persistence/setting_keys.h"
#include "krv/qt/karvo_list_widget.h"
#include "qt/designer/list_task_menu.h"

#include <QIcon>
#include <QMetaProperty>
#include <QtDesigner/QDesignerFormEditorInterface>

namespace krv::qt {

namespace {

constexpr const char* class_name = "krv::qt::KarvoListWidget";

QString text_of(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

QString tool_tip(const QString& property, const QString& text) {
    return QStringLiteral("<tooltip name=\"%1\">%2</tooltip>").arg(property, text.toHtmlEscaped());
}

/// The property that a form file has for a setting of this name.
QString start_name(const QString& key) {
    if (key == "MsgTitle") {
        return "StartTitle";
    }
    return key == "RecordSource" ? "StartRecordsource" : "Start" + key;
}

/// What each setting means, as its property has it.
QString tool_tips() {
    QString tips = tool_tip("Columns",
                            "The columns, a line each, without their captions: best written by "
                            "\"Edit list...\"") +
                   tool_tip("Captions", "Captions of the columns");
    for (const persistence::SettingKey& key : persistence::setting_keys()) {
        const QMetaObject& meta = KarvoListWidget::staticMetaObject;
        for (const QString& name : {text_of(key.name), start_name(text_of(key.name))}) {
            const int index = meta.indexOfProperty(name.toLatin1().constData());
            if (index >= 0 && meta.property(index).isStored()) {
                tips += tool_tip(name, text_of(key.meaning));
            }
        }
    }
    return tips;
}

} // namespace

QString ListPlugin::name() const {
    return class_name;
}

QString ListPlugin::group() const {
    return QStringLiteral("KarvoList");
}

QString ListPlugin::toolTip() const {
    return tr("A list of records with an input line");
}

QString ListPlugin::whatsThis() const {
    return tr(
        "Shows the records of a table or query and lets the user edit them in an input line.");
}

QString ListPlugin::includeFile() const {
    return QStringLiteral("krv/qt/karvo_list_widget.h");
}

QIcon ListPlugin::icon() const {
    return QIcon(QStringLiteral(":/krv/designer/karvo_list.png"));
}

QString ListPlugin::domXml() const {
    return QStringLiteral(R"(
<ui language="c++" displayname="KarvoList">
 <widget class="%1" name="karvoList">
  <property name="geometry">
   <rect><x>0</x><y>0</y><width>480</width><height>260</height></rect>
  </property>
 </widget>
 <customwidgets>
  <customwidget>
   <class>%1</class>
   <extends>QWidget</extends>
   <propertyspecifications>
    %2
   </propertyspecifications>
  </customwidget>
 </customwidgets>
</ui>)")
        .arg(QLatin1String(class_name), tool_tips());
}

void ListPlugin::initialize(QDesignerFormEditorInterface* designer) {
    if (!in_designer_) {
        ListTaskMenuFactory::install(*designer);
        in_designer_ = true;
    }
}

QWidget* ListPlugin::createWidget(QWidget* parent) {
    return in_designer_ ? new KarvoListWidget(KarvoListWidget::InDesigner(), parent)
                        : new KarvoListWidget(parent);
}

} // namespace krv::qt
