#pragma once

#include <QByteArray>
#include <stop_token>

#include "json/json_reading.h"
#include "platform/app_error.h"
#include "platform/cancelled.h"

namespace vantor {

/// Calls `read` with each object of the array that `bytes`, an answer of a library, holds. Fails
/// with `JSONError` when it is not JSON, with an `AppError` when it is not an array of objects,
/// with `Cancelled` soon after `stop` is requested.
template <class Read>
void forEachRow(QByteArray bytes, const std::stop_token& stop, Read read) {
  throwIfStopped(stop);
  readJSON([&] {
    JSONDocument document(std::move(bytes));
    bool onlyObjects = false;
    if (document.isObject()) {
      document.expectWhole();
    } else {
      onlyObjects = forEachObject(document.array(), [&](simdjson::ondemand::object object) {
        throwIfStopped(stop);
        read(object);
      });
      document.expectEnd();
    }
    if (!onlyObjects) throw AppError(AppError::tr("The provider returned an unreadable library."));
  });
}

}  // namespace vantor
