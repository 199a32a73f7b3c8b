#include "provider/error_wording.h"

#include "platform/cancelled.h"
#include "provider/http_transport.h"

namespace vantor {

QString readableError(const std::exception_ptr& error) {
  const QString cancelled = QStringLiteral("Canceled.");
  try {
    std::rethrow_exception(error);
  } catch (const AppError& failure) {
    return failure.message;
  } catch (const URLError& failure) {
    if (failure.code == URLError::Code::cancelled) return cancelled;
  } catch (const Cancelled&) {
    return cancelled;
  } catch (...) {
    // Worded below with everything else.
  }
  return QStringLiteral(
      "Unable to connect. Check your internet connection and provider details, then try again.");
}

}  // namespace vantor
