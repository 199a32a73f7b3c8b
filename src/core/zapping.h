#pragma once

#include <QObject>
#include <memory>
#include <optional>

#include "core/item_list.h"
#include "platform/clock.h"

namespace vantor {

class AppModel;

/// Going from channel to channel of the list that the playing one was started from, as it was then,
/// whatever is browsed meanwhile. Opens a channel only where the choice rests. Main thread only.
class Zapping final : public QObject {
  Q_OBJECT

 public:
  /// What is passed outlives it.
  Zapping(AppModel& model, Clock& clock);

  /// The chosen channel, which plays or will in a moment; absent while no channel plays.
  const std::optional<MediaItem>& channel() const { return channel_; }
  /// Its place in the list, from 1; 0 without a channel.
  std::size_t number() const { return channel_ ? chosen_.place + 1 : 0; }
  /// Whether there are other channels in the list.
  bool canStep() const { return channel_ && count() > 1; }
  /// The digits of a number that is being typed.
  const QString& typed() const { return typed_; }
  /// The channel of that number; absent when the list does not have it.
  std::optional<MediaItem> typedChannel() const;

  /// So many channels further, negative: back; after the last comes the first. False when no
  /// channel plays, as for all of these.
  bool step(int channels);
  bool type(int digit);
  /// Goes to the typed number at once; a number that the list does not have is forgotten. False
  /// when none was typed.
  bool enter();
  /// Forgets the typed number, or the chosen channel that is not opened yet. False when there is
  /// nothing of that.
  bool takeBack();
  /// Back to the channel before this one, and again to this one.
  bool goBack();
  /// Opens a channel of another list, by its index, and goes on in that list.
  bool open(std::shared_ptr<const ItemList> list, std::size_t index);

 Q_SIGNALS:
  /// The chosen channel or the typed number differ.
  void changed();

 private:
  struct Station {
    std::shared_ptr<const ItemList> list;
    std::size_t place = 0;
  };

  std::size_t count() const;  // of channels in the list
  std::optional<std::size_t> typedPlace() const;
  /// Which the channel that was opened just now comes from.
  std::shared_ptr<const ItemList> list() const;
  void onSourceChanged();
  void onHandedOver();
  void take(Station station);
  void choose(Station station);
  /// Chooses and opens it at once.
  void go(Station station);
  void open();
  void forget();

  AppModel& model_;
  Clock& clock_;
  std::optional<MediaItem> channel_;
  Station chosen_{};  // of the channel, while there is one
  std::optional<Station> playing_;
  std::optional<Station> before_;
  QString typed_;
  bool opening_ = false;  // the change of source is ours
  std::unique_ptr<Clock::Timer> rest_;
};

}  // namespace vantor
