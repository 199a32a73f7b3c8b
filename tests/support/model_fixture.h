#pragma once

#include <gmock/gmock.h>

#include <QTemporaryDir>
#include <memory>

#include "core/app_model.h"
#include "platform/worker.h"
#include "playback/playback.h"
#include "provider/api_actions.h"
#include "provider/vantor_configuration.h"
#include "storage/secure_store.h"
#include "support/fake_credential_store.h"
#include "support/fake_engine.h"
#include "support/fake_file_panel.h"
#include "support/fake_transport.h"
#include "support/manual_clock.h"
#include "support/waiting.h"

namespace vantor::test {

inline const QString guideRequest = u"get_short_epg"_s;
inline const QString episodesRequest = u"get_series_info"_s;
inline const QString serviceDocument = u"vantor-config.json"_s;

/// A programme of a channel, whose times count from now.
struct Programme {
  QByteArray title;
  std::chrono::seconds begin, end;
  QByteArray description = {};
};

/// A whole model over fakes; destroying the model and making another is the next launch.
struct ModelFixture {
  /// What is to be used in place of the fakes and the temporary folder.
  struct Parts {
    QString home;
    CredentialStore* credentials = nullptr;
    HTTPTransport* transport = nullptr;
    QString serviceDocument = u"https://support.example/vantor-config.json"_s;
  };
  ModelFixture() : ModelFixture(Parts()) {}
  explicit ModelFixture(Parts parts);
  ~ModelFixture();

  /// Starts the program with these arguments. The saved account, if any, has been read when it
  /// returns; what the start-up asks of the network waits for its answers.
  AppModel& launch(const QStringList& arguments = {});
  /// The same, with the saved account still to be read.
  AppModel& begin(const QStringList& arguments = {});
  /// Destroys the model, and what it wrote to the preferences is on disk.
  void quit();
  /// Starts a sign-in whose result ends up in `signInFailure`.
  void connectAccount(const ProviderAccount& account);
  /// The provider accepts the sign-in that runs.
  void acceptSignIn();
  /// Signs in with `account` and loads the live library from `body`.
  void signIn(const QByteArray& liveBody = "[]");
  void disconnectAccount();
  /// The same, to its end.
  void signOut();

  /// Answers the request for a library once it is there, and waits until nothing loads.
  void answer(LibraryKind kind, const QByteArray& entries, const QByteArray& categories = "[]");
  /// Every later request for the library is answered at once.
  void always(LibraryKind kind, const QByteArray& entries, const QByteArray& categories = "[]");
  /// Answers the request for a show's episodes, of which it is given the seasons, and waits until
  /// they are there.
  void answerEpisodes(const QByteArray& seasons);
  /// The service's document names this server.
  void nameServer(const QByteArray& server = "http://tv.example");
  bool isAskedFor(LibraryKind kind);
  /// Nothing loads, and nobody signs in or out.
  bool idle();

  /// An entry of the list.
  MediaItem item(std::size_t row) const { return model->browsing().items().item(row); }
  QString selectedID() const;
  /// What the entries of the list have there, apart by commas.
  QString listed(QString MediaItem::*field = &MediaItem::id) const;
  /// Plays an entry, whose opening has begun when it returns.
  void play(const MediaItem& item);
  /// An entry of the provider, whether or not it is in a library.
  static MediaItem entry(LibraryKind kind, int number);
  /// Plays the movie 2 of 500 seconds, which then stands at `time` in milliseconds.
  void playMovie(std::int64_t time = 0);
  /// Quits. What is set is what another run of the program, or somebody's hand, left for the next.
  Preferences leavePreferences();
  static QByteArray acceptedSignIn();
  /// Rows with the ids first, first + 1, …, and names "Title <id>".
  static QByteArray rows(LibraryKind kind, int first, int count);
  /// The answer with a channel's guide.
  QByteArray guide(const QList<Programme>& programmes) const;

  ProviderAccount account =
      ProviderAccount::validated(u"Vantor TV"_s, u"http://tv.example"_s, u"user"_s, u"secret"_s);
  const Parts parts;
  QTemporaryDir home;
  ManualClock clock;
  FakeEngine engine;
  FakeTransport transport;
  FakeCredentialStore credentials;
  FakeFilePanel filePanel;
  // What the next launch is to have instead.
  FilePanel* panel = &filePanel;
  Output output = Output::discarded;
  Worker worker;
  Worker secretsWorker;
  Folders folders;
  SecureStore secureStore;
  std::unique_ptr<Preferences> preferences;
  std::unique_ptr<VantorConfiguration> configuration;
  std::unique_ptr<AppModel> model;

  Job signInJob;
  Job signOutJob;
  std::exception_ptr signInFailure;
  bool signInOver = false;
};

class ModelTest : public ::testing::Test, protected ModelFixture {};

}  // namespace vantor::test
