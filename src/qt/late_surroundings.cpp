#include "qt/late_surroundings.h"

#include "krv/platform/error.h"
#include "krv/standard/regional_settings.h"
#include "krv/standard/value_formatter.h"

namespace krv::qt {

namespace {

constexpr std::int32_t provider_not_found = 3706;

// What a form file cannot name and a control that is made from it needs.

std::shared_ptr<platform::DataAccess>& default_data_access() {
    static std::shared_ptr<platform::DataAccess> data_access;
    return data_access;
}

std::shared_ptr<const platform::Formatter>& default_formatter() {
    static std::shared_ptr<const platform::Formatter> formatter;
    return formatter;
}

platform::DataAccess& chosen(const std::shared_ptr<platform::DataAccess>& own) {
    const std::shared_ptr<platform::DataAccess>& data_access = own ? own : default_data_access();
    if (!data_access) {
        throw platform::RuntimeError(provider_not_found,
                                     "There is no data provider in this program: give the control "
                                     "one with set_data_access or set_default_data_access",
                                     "krvList3");
    }
    return *data_access;
}

} // namespace

void LateDataAccess::set_default(std::shared_ptr<platform::DataAccess> data_access) {
    default_data_access() = std::move(data_access);
}

std::shared_ptr<platform::Connection> LateDataAccess::CreateConnection() {
    return chosen(own_).CreateConnection();
}

std::shared_ptr<platform::Recordset> LateDataAccess::CreateRecordset() {
    return chosen(own_).CreateRecordset();
}

void LateFormatter::set_default(std::shared_ptr<const platform::Formatter> formatter) {
    default_formatter() = std::move(formatter);
}

const platform::Formatter& LateFormatter::current() const {
    if (own_) {
        return *own_;
    }
    if (default_formatter()) {
        return *default_formatter();
    }
    static const standard::ValueFormatter of_the_system(standard::system_regional_settings());
    return of_the_system;
}

} // namespace krv::qt
