#pragma once

#include <QCoroTask>
#include <QImage>
#include <QObject>
#include <QUrl>
#include <memory>
#include <stop_token>

#include "platform/clock.h"

namespace vantor {

class HTTPTransport;
class Worker;

/// Pictures of entries as thumbnails, the last ones kept in memory; one store serves the whole
/// program. Main thread only; pictures are decoded on `worker`.
class ArtworkStore final : public QObject {
  Q_OBJECT

 public:
  static constexpr qsizetype capacity = 80;  // thumbnails
  static constexpr int downloadSlots = 3;
  static constexpr std::chrono::milliseconds waitStep{80};
  static constexpr std::int64_t bodyLimit = 4'194'304;  // bytes

  /// The references outlive the store's downloads.
  ArtworkStore(HTTPTransport& transport, Clock& clock, Worker& worker);
  ~ArtworkStore() override;

  /// Null when it is not in memory.
  QImage cached(const QUrl& address) const;

  /// From memory or the network; null on any failure, and when `token` is stopped.
  QCoro::Task<QImage> image(const QUrl& address, std::stop_token token);

 private:
  struct State;
  static QCoro::Task<QImage> load(std::shared_ptr<State> state, QUrl address,
                                  std::stop_token token);

  const std::shared_ptr<State> state_;  // shared with the downloads
};

}  // namespace vantor
