#include "krv/qt/grid_view.h"
#include "qt/picture.h"
#include "qt/widget_fixture.h"

#include <QEvent>
#include <QVBoxLayout>

#include <map>

namespace krv::qt::testing {

namespace {

/// Counts what the widgets of a control draw, and whether one is moved after something was drawn.
class PaintWatch : public QObject {
public:
    explicit PaintWatch(QWidget& root) {
        watch(root);
        for (QWidget* const child : root.findChildren<QWidget*>()) {
            watch(*child);
        }
    }

    std::map<std::string, int> paints() const { return paints_; }

    int places_after_a_paint() const { return late_; }

protected:
    bool eventFilter(QObject* object, QEvent* event) override {
        const bool places = event->type() == QEvent::Resize || event->type() == QEvent::Move;
        if (event->type() == QEvent::Paint) {
            ++paints_[names_.at(object)];
        } else if (places && !paints_.empty()) {
            ++late_;
        }
        return false;
    }

private:
    void watch(QWidget& widget) {
        auto* const view = qobject_cast<GridView*>(widget.parentWidget());
        const bool cells = view != nullptr && view->viewport() == &widget;
        const QString name = cells ? view->objectName() + " cells" : widget.objectName();
        names_[&widget] = name.toStdString();
        widget.installEventFilter(this);
    }

    std::map<QObject*, std::string> names_;
    std::map<std::string, int> paints_;
    int late_ = 0;
};

class Resizing : public WidgetTest {
protected:
    Resizing() {
        fill(200);
        for (platform::Part* const each : widget->container().Controls()) {
            each->SetVisible(true);
        }
        widget->constituents().InpFld.Move(15, 2400, 960, 240);
        list().EvidenziaFunzione(2);
        widget->show();
        turn();
    }

    /// How often each part is drawn when the widget gets the size.
    std::map<std::string, int> paints_of(QSize size) {
        PaintWatch watch(*widget);
        widget->resize(size);
        turn();
        EXPECT_EQ(watch.places_after_a_paint(), 0);
        std::map<std::string, int> paints;
        for (const auto& [name, count] : watch.paints()) {
            if (parts_.contains(QString::fromStdString(name))) {
                paints[name] = count;
            }
        }
        return paints;
    }

private:
    const QStringList parts_ = {"Grid cells",
                                "GridIn cells",
                                "InpFld",
                                "btnAdd",
                                "btnInsert",
                                "btnCopy",
                                "btnDelete",
                                "btnOK",
                                "Line1"};
};

const std::map<std::string, int> each_once = {{"Grid cells", 1},
                                              {"GridIn cells", 1},
                                              {"InpFld", 1},
                                              {"btnAdd", 1},
                                              {"btnInsert", 1},
                                              {"btnCopy", 1},
                                              {"btnDelete", 1},
                                              {"btnOK", 1},
                                              {"Line1", 1}};

} // namespace

TEST_F(Resizing, lays_out_first_and_then_draws_each_part_once) {
    EXPECT_EQ(paints_of({700, 400}), each_once);
    EXPECT_EQ(paints_of({500, 250}), each_once);
}

TEST_F(Resizing, draws_each_part_once_when_it_is_made_too_small) {
    EXPECT_EQ(paints_of({100, 50}), each_once);
    EXPECT_EQ(widget->size(), QSize(337, 120));
}

TEST_F(Resizing, leaves_the_picture_of_a_control_made_in_that_size) {
    widget->resize(700, 400);
    turn();
    EXPECT_EQ(on_screen(*widget), drawn(*widget));
    widget->resize(450, 300);
    turn();
    EXPECT_EQ(on_screen(*widget), drawn(*widget));
}

TEST_F(Resizing, has_laid_out_when_the_resize_returns) {
    widget->resize(800, 300);
    EXPECT_EQ(part("Grid").width(), 800);
    EXPECT_EQ(part("btnOK").geometry().right(), 799);
    EXPECT_EQ(part("Line1").geometry().bottom(), 299);
}

} // namespace krv::qt::testing
