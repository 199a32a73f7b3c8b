#pragma once

#include <QString>
#include <exception>

namespace vantor {

/// The program's own failure: a complete sentence for the user.
struct AppError : std::exception {
  explicit AppError(QString sentence) : message(std::move(sentence)) {}
  const char* what() const noexcept override { return "application error"; }
  QString message;
};

}  // namespace vantor
