#pragma once

#include <QUrl>
#include <optional>

#include "platform/pending.h"

namespace vantor {

/// Lets the user choose one movie or audio file. Main thread only.
class FilePanel {
 public:
  virtual ~FilePanel() = default;
  /// Absent when the user cancels.
  virtual Pending<std::optional<QUrl>> chooseMediaFile() = 0;
};

}  // namespace vantor
