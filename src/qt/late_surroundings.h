#pragma once

#include "krv/platform/data_access.h"
#include "krv/platform/formatter.h"

#include <memory>

namespace krv::qt {

/// The data layer of a control that may be given it after its making. Until then it is the
/// program's default.
class LateDataAccess final : public platform::DataAccess {
public:
    explicit LateDataAccess(std::shared_ptr<platform::DataAccess> own)
        : own_(std::move(own)) {}

    /// Null: the program's default from here on.
    void set(std::shared_ptr<platform::DataAccess> own) { own_ = std::move(own); }

    static void set_default(std::shared_ptr<platform::DataAccess> data_access);

    /// \throws RuntimeError 3706 when neither is there
    std::shared_ptr<platform::Connection> CreateConnection() override;
    std::shared_ptr<platform::Recordset> CreateRecordset() override;

private:
    std::shared_ptr<platform::DataAccess> own_;
};

/// The same for the formatter. The program's default, when nobody sets one, is that of the system's
/// region.
class LateFormatter final : public platform::Formatter {
public:
    explicit LateFormatter(std::shared_ptr<const platform::Formatter> own)
        : own_(std::move(own)) {}

    /// Null: the program's default from here on.
    void set(std::shared_ptr<const platform::Formatter> own) { own_ = std::move(own); }

    static void set_default(std::shared_ptr<const platform::Formatter> formatter);

    void
    Format(platform::ValueView value, std::string_view pattern, std::string& text) const override {
        current().Format(value, pattern, text);
    }

    void CStr(platform::ValueView value, std::string& text) const override {
        current().CStr(value, text);
    }

    void Str(platform::ValueView value, std::string& text) const override {
        current().Str(value, text);
    }

    double Val(std::string_view text) const override { return current().Val(text); }

    bool is_number(std::string_view text) const override { return current().is_number(text); }

    std::int16_t CInt(platform::ValueView value) const override { return current().CInt(value); }

    std::int32_t CLng(platform::ValueView value) const override { return current().CLng(value); }

    double CDbl(platform::ValueView value) const override { return current().CDbl(value); }

    std::int64_t CLngLng(platform::ValueView value) const override {
        return current().CLngLng(value);
    }

    platform::Currency CCur(platform::ValueView value) const override {
        return current().CCur(value);
    }

    platform::Decimal CDec(platform::ValueView value) const override {
        return current().CDec(value);
    }

    platform::Date CDate(platform::ValueView value, std::string_view pattern) const override {
        return current().CDate(value, pattern);
    }

private:
    const platform::Formatter& current() const;

    std::shared_ptr<const platform::Formatter> own_;
};

} // namespace krv::qt
