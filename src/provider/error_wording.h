#pragma once

#include <QString>
#include <exception>

namespace vantor {

/// Turns any failure into one sentence for the user.
QString readableError(const std::exception_ptr& error);

}  // namespace vantor
