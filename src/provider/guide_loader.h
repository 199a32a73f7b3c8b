#pragma once

#include <memory>

#include "library/media_item.h"
#include "platform/clock.h"
#include "provider/provider_client.h"

namespace vantor {

/// Fetches channels' short guides, few at a time, and keeps each answer for a while. Callers who
/// ask for the same channel at the same time share one request. Main thread only.
class GuideLoader {
 public:
  static constexpr std::chrono::seconds freshness{300};
  static constexpr std::size_t savedCapacity = 128;   // channels
  static constexpr std::size_t runningCapacity = 32;  // loads, those waiting for a slot included
  static constexpr int requestSlots = 2;
  static constexpr std::chrono::milliseconds waitStep{100};

  /// `clock` and what the client refers to outlive the loader's requests.
  GuideLoader(ProviderClient client, Clock& clock);
  /// Clears.
  ~GuideLoader();
  GuideLoader(const GuideLoader&) = delete;
  GuideLoader& operator=(const GuideLoader&) = delete;

  /// Fails with what the request fails with, or with `Cancelled` when too many loads run, the
  /// loader is cleared or `token` is stopped. A stopped token ends the caller's wait only: the
  /// load goes on, for others and for the next time.
  QCoro::Task<GuideEntries> load(const MediaItem& channel, std::stop_token token);

  /// Cancels what runs and forgets what was saved.
  void clear();

 private:
  struct Load;
  struct State;
  static QCoro::Task<GuideEntries> join(std::shared_ptr<State> state, MediaItem channel,
                                        std::stop_token token);
  static QCoro::Task<> run(std::shared_ptr<State> state, std::shared_ptr<Load> load,
                           MediaItem channel, std::stop_token stop);

  // Shared with the loads: a cancelled one still gives its slot back when it ends.
  const std::shared_ptr<State> state_;
};

}  // namespace vantor
