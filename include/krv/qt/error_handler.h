#pragma once

#include <exception>
#include <functional>

namespace krv::qt {

/// Gets what a handler let out while Qt's event loop had called it; may rethrow it to look at it,
/// and must let nothing out itself.
using ErrorHandler = std::function<void(const std::exception_ptr& error)>;

} // namespace krv::qt
