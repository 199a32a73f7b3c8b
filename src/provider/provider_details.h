#pragma once

#include <QString>
#include <QStringList>
#include <optional>

#include "library/provider_time.h"

namespace vantor {

/// The subscription as the provider reports it at sign-in.
struct ProviderDetails {
  std::optional<ProviderTime> expires;
  QString maximumConnections;  // as the provider wrote it, may be empty
  QString activeConnections;   // likewise
  QStringList formats;         // output formats the provider allows

  bool operator==(const ProviderDetails&) const = default;
};

}  // namespace vantor
