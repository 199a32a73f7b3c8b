#pragma once

#include <QCoreApplication>
#include <QString>
#include <exception>

namespace vantor {

/// The program's own failure: a complete sentence for the user, in their language, which `tr` turns
/// it into.
class AppError : public std::exception {
  Q_DECLARE_TR_FUNCTIONS(vantor::AppError)

 public:
  explicit AppError(QString sentence) : message(std::move(sentence)) {}
  const char* what() const noexcept override { return "application error"; }
  QString message;
};

}  // namespace vantor
