#pragma once

#include "platform/app_error.h"

namespace vantor::test {

/// What the `AppError` that `call` leads to says; empty when it succeeds.
template <class Call>
QString sentence(Call call) {
  try {
    call();
  } catch (const AppError& error) {
    return error.message;
  }
  return {};
}

}  // namespace vantor::test
