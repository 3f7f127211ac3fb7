// A list in a window of Qt.

#include <krv/qt/karvo_list_widget.h>
#include <krv/standard/ado.h>
#include <krv/standard/regional_settings.h>
#include <krv/standard/value_formatter.h>

#include <QApplication>

#include <cstdlib>
#include <iostream>
#include <memory>

int main(int argc, char* argv[]) {
    const QApplication application(argc, argv);
    krv::qt::KarvoListWidget widget(
        std::make_shared<krv::standard::AdoDataAccess>(
            std::make_shared<krv::standard::ProviderRegistry>()),
        std::make_shared<krv::standard::ValueFormatter>(krv::standard::regional_settings("it-IT")));
    widget.list().SetCols(3);
    widget.list().SetRows(7);
    widget.show();
    QApplication::processEvents();

    std::cout << widget.list().Cols() << ' ' << widget.list().Rows() << '\n';
    return widget.isVisible() && widget.list().Rows() == 7 ? EXIT_SUCCESS : EXIT_FAILURE;
}
