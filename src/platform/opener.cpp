#include "platform/opener.h"

#include <QDesktopServices>

namespace vantor {

void DesktopOpener::open(const QUrl& address) {
  QDesktopServices::openUrl(address);
}

}  // namespace vantor
