// A list that its host fills row by row, without a screen and without a database.

#include <krv/control/karvo_list.h>
#include <krv/headless/headless_control.h>
#include <krv/headless/headless_form.h>
#include <krv/standard/ado.h>
#include <krv/standard/regional_settings.h>
#include <krv/standard/value_formatter.h>

#include <cstdlib>
#include <iostream>
#include <memory>

int main() {
    const krv::standard::ValueFormatter formatter(krv::standard::regional_settings("it-IT"));
    krv::standard::AdoDataAccess data_access(std::make_shared<krv::standard::ProviderRegistry>());

    krv::headless::HeadlessForm form;
    auto& surface = form.add_control();
    krv::KarvoList list(surface.constituents(),
                        {surface, form.application(), data_access, formatter});
    list.InitProperties();

    list.SetCols(2);
    list.SetCaption(1, "Totale");
    list.SetRows(1);
    list.SetTextMatrix(
        0, 1, formatter.Format(krv::platform::ValueView::double_float(1234.5), "#,##0.00"));

    const std::string shown = list.TextMatrix(-1, 1) + ' ' + list.TextMatrix(0, 1);
    std::cout << shown << '\n';
    return shown == "Totale 1.234,50" ? EXIT_SUCCESS : EXIT_FAILURE;
}
