#pragma once

#include "platform/file_panel.h"

namespace vantor::test {

/// A panel that the test answers.
class FakeFilePanel final : public FilePanel {
 public:
  Pending<std::optional<QUrl>> chooseMediaFile() override {
    ++shown;
    choice = {};
    return choice;
  }

  int shown = 0;
  Pending<std::optional<QUrl>> choice;
};

}  // namespace vantor::test
