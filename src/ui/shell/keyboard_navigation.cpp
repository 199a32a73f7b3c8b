// Moving the highlight through the entries and acting on it.
#include <algorithm>

#include "core/app_model.h"
#include "ui/shell/tv_shell.h"

namespace vantor {
namespace {

std::int64_t step(TVShell::Direction direction, int columns) {
  switch (direction) {
    case TVShell::Direction::Up:
      return -columns;
    case TVShell::Direction::Down:
      return columns;
    case TVShell::Direction::Left:
      return -1;
    case TVShell::Direction::Right:
      return 1;
  }
  return 0;
}

}  // namespace

void TVShell::moveSelection(Direction direction, int columns) {
  const ItemList& items = model_.browsing().items();
  if (items.empty()) return;
  std::int64_t current = 0;
  if (model_.browsing().selected())
    current =
        static_cast<std::int64_t>(items.indexOf(model_.browsing().selected()->id).value_or(0));
  const auto last = static_cast<std::int64_t>(items.size()) - 1;
  const std::int64_t target = std::clamp<std::int64_t>(current + step(direction, columns), 0, last);
  model_.select(items.item(static_cast<std::size_t>(target)));
}

void TVShell::activateSelection() {
  if (model_.browsing().selected())
    open(*model_.browsing().selected());
  else if (!model_.browsing().items().empty())
    open(model_.browsing().items().item(0));
}

void TVShell::open(MediaItem item) {
  if (!model_.browsing().selected() || model_.browsing().selected()->id != item.id)
    model_.select(item);
  if (item.kind == LibraryKind::shows)
    model_.browsing().setShowingEpisodes(true);
  else
    model_.play(item);
}

bool TVShell::hasRow(int row) const {
  return row >= 0 && static_cast<std::size_t>(row) < model_.browsing().items().size();
}

void TVShell::selectRow(int row) {
  if (hasRow(row)) model_.select(model_.browsing().items().item(static_cast<std::size_t>(row)));
}

void TVShell::openRow(int row) {
  if (hasRow(row)) open(model_.browsing().items().item(static_cast<std::size_t>(row)));
}

void TVShell::playRow(int row) {
  if (!hasRow(row)) return;
  selectRow(row);
  model_.play(model_.browsing().items().item(static_cast<std::size_t>(row)));
}

void TVShell::favoriteRow(int row) {
  if (hasRow(row)) model_.favorite(model_.browsing().items().item(static_cast<std::size_t>(row)));
}

bool TVShell::isFavoriteRow(int row) const {
  return hasRow(row) && model_.record().favorites().contains(
                            model_.browsing().items().id(static_cast<std::size_t>(row)));
}

bool TVShell::isBegunRow(int row) const {
  return hasRow(row) && model_.record().begun().contains(
                            model_.browsing().items().id(static_cast<std::size_t>(row)));
}

void TVShell::stopContinuingRow(int row) {
  if (hasRow(row))
    model_.stopContinuing(model_.browsing().items().id(static_cast<std::size_t>(row)));
}

}  // namespace vantor
