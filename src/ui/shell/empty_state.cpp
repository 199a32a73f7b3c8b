#include "ui/shell/empty_state.h"

#include "core/browsing.h"

namespace vantor {

EmptyState::EmptyState(const Session& session, const Browsing& browsing, QObject* parent)
    : QObject(parent), session_(session), browsing_(browsing) {
  for (const auto signal :
       {&Browsing::itemsChanged, &Browsing::searchChanged, &Browsing::sectionChanged})
    connect(&browsing, signal, this, &EmptyState::changed);
  for (const auto signal :
       {&Session::accountChanged, &Session::startingUpChanged, &Session::restoringLibraryChanged})
    connect(&session, signal, this, &EmptyState::changed);
}

bool EmptyState::shown() const {
  // Whether there is an account, and whether it has channels, is not known before they were read.
  if (session_.startingUp()) return false;
  if (browsing_.kind() == LibraryKind::live && session_.restoringLibrary()) return false;
  return browsing_.items().empty();
}

QString EmptyState::headline() const {
  return browsing_.search().isEmpty() ? tr("Your library starts here") : tr("No matching titles");
}

QString EmptyState::explanation() const {
  return session_.account() ? tr("Choose another category or refresh your library.")
                            : tr("Connect your provider or explore the preview library.");
}

bool EmptyState::connectOffered() const {
  return !session_.account();
}

}  // namespace vantor
