#pragma once

#include <QCoreApplication>
#include <QStringList>
#include <optional>

#include "library/catalog.h"

namespace vantor {

/// The groups that channels are chosen by, each known by its place: all channels, then every
/// category of the catalogue.
class ChannelGroups {
  Q_DECLARE_TR_FUNCTIONS(vantor::ChannelGroups)

 public:
  explicit ChannelGroups(Catalog catalog) : catalog_(std::move(catalog)) {}

  QStringList names() const;
  int count() const { return 1 + static_cast<int>(catalog_.categories().size()); }
  /// The place of the category with that id, empty for all; -1 when it is none of the groups.
  int place(const QString& category) const;
  /// The category at a place, absent where there is none.
  std::optional<QString> category(int place) const;

 private:
  Catalog catalog_;
};

}  // namespace vantor
