#include "driver.h"

#include "steps.h"

namespace krv::designer_run {

void Driver::initialize(QDesignerFormEditorInterface* designer) {
    designer_ = designer;
    auto* const steps = new Steps(this);
    (qEnvironmentVariable("KRV_DESIGNER_RUN") == "person" ? play_person : play_files)(*steps,
                                                                                      *designer);
    steps->start();
}

} // namespace krv::designer_run
