#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QObject>
#include <memory>
#include <optional>
#include <vector>

#include "desktop/mpris_player.h"
#include "desktop/mpris_root.h"
#include "desktop/picture_file.h"

namespace vantor {

class Worker;

/// The program as the desktop's own controls and media keys know players: an object of the session
/// bus with the interfaces of MPRIS 2.2. Main thread only.
class MprisService final : public QObject, protected QDBusContext {
  Q_OBJECT

 public:
  struct Parts {
    AppModel& model;
    NowPlaying& nowPlaying;
    const StreamKeeper& keeper;
    ArtworkStore& artwork;
    Worker& worker;  // writes a picture
    Clock& clock;
    QString temporary;    // the folder for it
    QString application;  // name of the desktop entry
  };

  /// What is passed outlives the object.
  MprisService(const Parts& parts, MprisRoot::Actions actions);

  /// Appears on the session bus, from some time later on; without one nothing happens. `worker`
  /// waits for the bus.
  void offer(Worker& worker);

 private:
  /// An interface, with the values of its properties that others know.
  struct Interface {
    std::unique_ptr<QDBusAbstractAdaptor> adaptor;
    QVariantMap told;
  };

  void appear(const QDBusConnection& bus);
  void askForNames();
  void keepUp();
  /// Tells what differs once all that is going on is over.
  void tellSoon();
  void tell();

  const Parts parts_;
  const MprisRoot::Actions actions_;
  PictureFile picture_;
  std::optional<QDBusConnection> bus_;
  std::vector<Interface> interfaces_;
  bool telling_ = false;
  std::unique_ptr<Clock::Timer> minute_;
  Job offering_;
};

}  // namespace vantor
