#pragma once

#include <exception>
#include <string>
#include <utility>

namespace krv::companions {

/// Ends a writing that must not be done. The text is for the user.
class Refusal : public std::exception {
public:
    explicit Refusal(std::string text)
        : text_(std::move(text)) {}

    const std::string& text() const noexcept { return text_; }

    const char* what() const noexcept override { return text_.c_str(); }

private:
    std::string text_;
};

} // namespace krv::companions
