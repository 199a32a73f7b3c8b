#include "provider/error_wording.h"

#include "net/http_transport.h"
#include "platform/app_error.h"
#include "platform/cancelled.h"

namespace vantor {

QString readableError(const std::exception_ptr& error) {
  try {
    std::rethrow_exception(error);
  } catch (const AppError& failure) {
    return failure.message;
  } catch (const URLError& failure) {
    if (failure.code == URLError::Code::cancelled) return AppError::tr("Canceled.");
  } catch (const Cancelled&) {
    return AppError::tr("Canceled.");
  } catch (...) {
    // Worded below with everything else.
  }
  return AppError::tr(
      "Unable to connect. Check your internet connection and provider details, then try again.");
}

}  // namespace vantor
