#include "ui/dialog_file_panel.h"

namespace vantor {

Pending<std::optional<QUrl>> DialogFilePanel::chooseMediaFile() {
  cancel();
  choice_.emplace();
  Q_EMIT requested();
  return *choice_;
}

void DialogFilePanel::choose(const QUrl& file) {
  if (choice_) choice_->resolve(file);
  choice_.reset();
}

void DialogFilePanel::cancel() {
  if (choice_) choice_->resolve(std::nullopt);
  choice_.reset();
}

}  // namespace vantor
