#include "ui/shell/empty_state.h"

#include "core/app_model.h"

namespace vantor {

using namespace Qt::StringLiterals;

EmptyState::EmptyState(AppModel& model, QObject* parent) : QObject(parent), model_(model) {
  for (const auto signal : {&AppModel::itemsChanged, &AppModel::searchChanged,
                            &AppModel::accountChanged, &AppModel::sectionChanged,
                            &AppModel::startingUpChanged, &AppModel::restoringLibraryChanged})
    connect(&model, signal, this, &EmptyState::changed);
}

bool EmptyState::shown() const {
  // Whether there is an account, and whether it has channels, is not known before they were read.
  if (model_.startingUp()) return false;
  if (model_.kind() == LibraryKind::live && model_.restoringLibrary()) return false;
  return model_.items().empty();
}

QString EmptyState::headline() const {
  return model_.search().isEmpty() ? u"Your library starts here"_s : u"No matching titles"_s;
}

QString EmptyState::explanation() const {
  return model_.account() ? u"Choose another category or refresh your library."_s
                          : u"Connect your provider or explore the preview library."_s;
}

bool EmptyState::connectOffered() const {
  return !model_.account();
}

}  // namespace vantor
