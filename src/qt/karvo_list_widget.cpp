#include "krv/qt/karvo_list_widget.h"

#include "krv/qt/colors.h"
#include "qt/event_signals.h"
#include "qt/karvo_list_rooms.h"
#include "qt/keys.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>

namespace krv::qt {

namespace {

/// Qt Designer shows warnings that begin with its name in a message box, all others nowhere.
void tell_designer(const std::exception_ptr& error) {
    try {
        std::rethrow_exception(error);
    } catch (const std::exception& failure) {
        qWarning("Designer: KarvoList: %s", failure.what());
    }
}

} // namespace

KarvoListWidget::KarvoListWidget(QWidget* parent)
    : KarvoListWidget(nullptr, nullptr, parent) {}

KarvoListWidget::KarvoListWidget(InDesigner /*in_designer*/, QWidget* parent)
    : QWidget(parent)
    , event_signals_(std::make_unique<EventSignals>(*this))
    , in_designer_(true) {
    prepare(nullptr, nullptr);
    rooms_->application.keep_title();
    set_error_handler(tell_designer);
    start_new();
}

KarvoListWidget::KarvoListWidget(std::shared_ptr<platform::DataAccess> data_access,
                                 std::shared_ptr<const platform::Formatter> formatter,
                                 QWidget* parent)
    : QWidget(parent)
    , event_signals_(std::make_unique<EventSignals>(*this)) {
    prepare(std::move(data_access), std::move(formatter));
    start_new();
}

KarvoListWidget::KarvoListWidget(std::shared_ptr<platform::DataAccess> data_access,
                                 std::shared_ptr<const platform::Formatter> formatter,
                                 platform::PropertyBag& bag,
                                 QWidget* parent)
    : QWidget(parent)
    , event_signals_(std::make_unique<EventSignals>(*this)) {
    prepare(std::move(data_access), std::move(formatter));
    try {
        rooms_->list->ReadProperties(bag);
    } catch (...) {
        Rooms::end(std::move(rooms_));
        throw;
    }
    rooms_->container.resized();
}

void KarvoListWidget::prepare(std::shared_ptr<platform::DataAccess> data_access,
                              std::shared_ptr<const platform::Formatter> formatter) {
    setFocusPolicy(Qt::ClickFocus);
    rooms_ = std::make_unique<Rooms>(*this,
                                     std::make_shared<LateDataAccess>(std::move(data_access)),
                                     std::make_shared<LateFormatter>(std::move(formatter)));
    rooms_->container.set_on_property_changed([this](std::string_view name) {
        emit propertyChanged(QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())));
    });
    rooms_->list->subscribe(*event_signals_);
}

void KarvoListWidget::start_new() {
    rooms_->list->InitProperties();
    rooms_->container.resized();
}

KarvoListWidget::~KarvoListWidget() {
    // Parts notice events of their widgets while these go, and the widget those of its own: there
    // is nothing behind the pointer by then.
    Rooms::end(std::move(rooms_));
}

KarvoList& KarvoListWidget::list() noexcept {
    return *rooms_->list;
}

const KarvoList& KarvoListWidget::list() const noexcept {
    return *rooms_->list;
}

void KarvoListWidget::set_data_access(std::shared_ptr<platform::DataAccess> data_access) {
    rooms_->data_access->set(std::move(data_access));
}

void KarvoListWidget::set_formatter(std::shared_ptr<const platform::Formatter> formatter) {
    rooms_->formatter->set(std::move(formatter));
}

void KarvoListWidget::set_default_data_access(std::shared_ptr<platform::DataAccess> data_access) {
    LateDataAccess::set_default(std::move(data_access));
}

void KarvoListWidget::set_default_formatter(std::shared_ptr<const platform::Formatter> formatter) {
    LateFormatter::set_default(std::move(formatter));
}

void KarvoListWidget::set_error_handler(ErrorHandler handler) {
    rooms_->surface->set_error_handler(std::move(handler));
}

void KarvoListWidget::set_message_handler(MessageHandler handler) {
    rooms_->application.set_message_handler(std::move(handler));
}

Constituents KarvoListWidget::constituents() noexcept {
    return rooms_->constituents();
}

platform::Container& KarvoListWidget::container() noexcept {
    return rooms_->container;
}

platform::Application& KarvoListWidget::application() noexcept {
    return rooms_->application;
}

void KarvoListWidget::turn() {
    rooms_->application.Yield();
}

QSize KarvoListWidget::sizeHint() const {
    const Resolution resolution(logicalDpiX());
    return {resolution.px(QtContainer::start_width), resolution.px(QtContainer::start_height)};
}

QSize KarvoListWidget::minimumSizeHint() const {
    const Resolution resolution(logicalDpiX());
    return {resolution.px(least_width), resolution.px(least_height)};
}

bool KarvoListWidget::event(QEvent* event) {
    if (event->type() == QEvent::ScreenChangeInternal && rooms_) {
        rooms_->place_parts();
    }
    return QWidget::event(event);
}

void KarvoListWidget::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && rooms_) {
        for (QtButton* button : rooms_->buttons()) {
            button->apply_color();
        }
        update();
    }
}

void KarvoListWidget::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    // A host that gives the focus to the control means the list; a press on bare surface does not.
    if (event->reason() == Qt::OtherFocusReason && rooms_ && rooms_->grid.can_take_focus()) {
        rooms_->grid.widget()->setFocus(Qt::OtherFocusReason);
    }
}

void KarvoListWidget::keyPressEvent(QKeyEvent* event) {
    // Keys that a part left alone pass through here on their way to the form: they are not ours.
    event->ignore();
    if (!rooms_ || window()->focusWidget() != this) {
        return;
    }
    std::int16_t code = key_code(*event);
    std::int16_t shift = shift_state(event->modifiers());
    rooms_->surface->key_acts([&] {
        if (code != 0) {
            rooms_->surface->key_down(code, shift);
        }
    });
    event->setAccepted(code == 0 || event->key() != Qt::Key_Escape);
}

void KarvoListWidget::paintEvent(QPaintEvent* /*event*/) {
    if (rooms_) {
        QPainter(this).fillRect(rect(), color_from_ole(rooms_->container.BackColor(), palette()));
    }
}

void KarvoListWidget::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (rooms_) {
        rooms_->surface->guard([this] { rooms_->container.take_size(); });
    }
}

} // namespace krv::qt
