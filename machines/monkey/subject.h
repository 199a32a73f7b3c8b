#pragma once

#include <QAnimationDriver>
#include <QDBusConnection>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QVariantAnimation>
#include <memory>

#include "core/now_playing.h"
#include "desktop/application_object.h"
#include "desktop/idle_inhibitor.h"
#include "desktop/mpris_service.h"
#include "desktop/recording_service.h"
#include "desktop/screen_awake.h"
#include "platform/opener.h"
#include "playback/stream_keeper.h"
#include "support/heard_messages.h"
#include "support/model_fixture.h"
#include "ui/views.h"
#include "ui/window/window_place.h"

namespace vantor::monkey {

using namespace Qt::StringLiterals;

/// Time for what moves on the screen, which passes only when told to.
class Animations final : public QAnimationDriver {
 public:
  Animations();
  qint64 elapsed() const override { return elapsed_; }
  void pass(int milliseconds);

 private:
  qint64 elapsed_ = 0;
  // While any animation runs Qt asks no other clock.
  QVariantAnimation forever_;
};

/// What an open menu is of.
struct MenuEntry {
  int row = -1;
  QString id;
};

/// The player that the monkey plays with: everything that a program has, in its order, over a
/// transport, an engine and a clock that wait for the monkey. Nothing in it happens by itself.
class Subject : public test::ModelFixture {
 public:
  Subject();
  ~Subject();

  /// Makes the program, with what the last one has saved.
  void start(const QStringList& arguments = {});
  /// What happens at its end, at whatever moment.
  void stop();
  /// All that is under way has come as far as it can without the monkey, and is on the screen.
  /// What waits for nothing, if anything does.
  QString settleAll();
  void draw();
  /// Waits for a condition that the display brings about; goes on without it in the end.
  static void await(const std::function<bool()>& condition);

  /// Whether the window takes keys and pointers.
  bool awake() const;
  std::vector<std::shared_ptr<test::FakeTransport::Exchange>> openRequests() const;
  /// Calls the program over the bus and waits for its answer.
  void call(const QString& path, const QString& interface, const QString& method,
            const QVariantList& arguments);
  /// Items of the window, those below first; nothing that is hidden.
  QList<QQuickItem*> shownItems() const;
  int objects() const;  // in the window

  struct Running {
    explicit Running(Subject& subject);
    AppModel& model;
    StreamKeeper keeper;
    RecordingService recordingService;
    IdleInhibitor idleInhibitor;
    ScreenAwake screenAwake;
    Views views;
    NowPlaying nowPlaying;
    MprisService mpris;
    QQmlEngine qml;
    std::unique_ptr<QQuickWindow> window;
    std::unique_ptr<WindowPlace> place;
  };
  Running& on() { return *running_; }
  QQuickWindow& window() const { return *running_->window; }

  Animations animations;
  test::HeardMessages heard;                     // since the last look: warnings and worse
  bool ended = false;                            // somebody has quit the program
  int recordings = 0;                            // that the engine has yet to answer
  QHash<const QObject*, MenuEntry> menuEntries;  // of the menus that were open
  static constexpr auto applicationPath = "/tv/vantor/player";

 private:
  struct Opener final : vantor::Opener {
    void open(const QUrl&) override {}
  };
  QString waitsForNothing() const;
  void raise();

  DialogFilePanel dialog_;
  VideoFrameQueue frames_;
  ArtworkStore artwork_{transport, clock, worker};
  Opener opener_;
  ApplicationObject application_;
  QDBusConnection client_ = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"monkey"_s);
  std::unique_ptr<Running> running_;
};

}  // namespace vantor::monkey
