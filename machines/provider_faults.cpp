// Every request of the program meets every fault of the simulator, whole and broken off at every
// moment, signed out, signed in and beside another load: the real model over real HTTP. Each ends
// in its sentence, leaves what there was, leaves nothing running, and succeeds when it is made
// again. VANTOR_FAULTS says how many of these cases, VANTOR_SEED which.
#include <gtest/gtest.h>

#include <random>

#include "artwork/artwork_store.h"
#include "machines/counted_transport.h"
#include "machines/model_invariants.h"
#include "provider/error_wording.h"
#include "sim/library.h"
#include "sim/server.h"
#include "support/awaited.h"
#include "support/environment_number.h"
#include "support/model_fixture.h"

namespace vantor::machine {
namespace {

using namespace test;

enum class Asked {
  signIn,
  configuration,
  launch,   // which asks for the configuration
  service,  // a launch that follows the service to another server
  library,
  category,
  episodes,
  guide,
  picture
};
enum class Situation { signedOut, signedIn, busy };
/// What becomes of a request.
enum class Outcome { proper, lost, tooLarge, tooLargeUnpacked, otherShape, refused };
enum class User { waits, quits };

struct Request {
  const char* name;
  Asked asked;
  const char* action;
  LibraryKind kind = LibraryKind::live;
};
constexpr std::array requests{
    Request{"sign-in", Asked::signIn, ""},
    Request{"configuration", Asked::configuration, "config"},
    Request{"launch", Asked::launch, "config"},
    Request{"service", Asked::service, ""},
    Request{"channels", Asked::library, "get_live_streams"},
    Request{"movies", Asked::library, "get_vod_streams", LibraryKind::movies},
    Request{"shows", Asked::library, "get_series", LibraryKind::shows},
    Request{"channels' categories", Asked::library, "get_live_categories"},
    Request{"movies' categories", Asked::library, "get_vod_categories", LibraryKind::movies},
    Request{"shows' categories", Asked::library, "get_series_categories", LibraryKind::shows},
    Request{"shows of a category", Asked::category, "get_series/201", LibraryKind::shows},
    Request{"episodes", Asked::episodes, "get_series_info", LibraryKind::shows},
    Request{"guide", Asked::guide, "get_short_epg"},
    Request{"picture", Asked::picture, "poster", LibraryKind::movies},
};

struct Case {
  Request request;
  sim::Fault fault;
  std::optional<sim::BreakOff> breakOff;
  Situation situation;
  User user = User::waits;
};

std::string nameOf(const Case& which) {
  static constexpr std::array moments{"before its head", "in its head", "in its body",
                                      "before its last byte"};
  static constexpr std::array situations{"signed out", "signed in", "beside another load"};
  std::string name = std::string(which.request.name) + ", " +
                     std::string(sim::faultName(which.fault)) + ", " +
                     situations.at(static_cast<std::size_t>(which.situation));
  if (which.breakOff)
    name += std::string(which.breakOff->ending == sim::Ending::silent ? ", silent " : ", closed ") +
            moments.at(static_cast<std::size_t>(which.breakOff->moment));
  return name + (which.user == User::quits ? ", quits" : "");
}

/// What becomes of an answer that comes whole.
Outcome outcomeOf(sim::Fault fault) {
  switch (fault) {
    using enum sim::Fault;
    case none:
    case slow:
    case redirectSameOrigin:
    case redirectOversize:
    case connectionLimit:
    case ignoresCategory:
      return Outcome::proper;
    case oversizeAnnounced:
      return Outcome::tooLarge;
    case oversizeUnannounced:
    case oversizeGzip:
    case oversizeDeflate:
    case oversizeBrotli:
    case oversizeZstd:
      return Outcome::tooLargeUnpacked;
    case wrongShape:
      return Outcome::otherShape;
    case expiredAccount:
      return Outcome::refused;
    default:
      return Outcome::lost;
  }
}

Outcome outcomeOf(const Case& which) {
  const Outcome whole = outcomeOf(which.fault);
  if (!which.breakOff) return whole;
  const bool headComes = which.breakOff->moment == sim::Moment::inBody ||
                         which.breakOff->moment == sim::Moment::beforeLastByte;
  // Too large is known before the end.
  const bool known = whole == Outcome::tooLarge || whole == Outcome::tooLargeUnpacked;
  return headComes && known ? whole : Outcome::lost;
}

/// What the user is told in the end; nothing when it went well.
QString expectedOf(const Case& which) {
  const Outcome outcome = outcomeOf(which);
  const Asked asked = which.request.asked;
  const bool ofAccount =
      outcome == Outcome::refused &&
      (asked == Asked::configuration || asked == Asked::launch || asked == Asked::picture);
  if (outcome == Outcome::proper || ofAccount || asked == Asked::launch) return {};
  if (asked == Asked::configuration) return u"kept"_s;
  if (asked == Asked::picture) return u"no picture"_s;
  if (asked == Asked::service)
    return u"The updated server could not be verified. Keeping your saved connection."_s;
  switch (outcome) {
    case Outcome::tooLarge:
      return u"The provider response is larger than this preview can safely load."_s;
    case Outcome::tooLargeUnpacked:
      return u"The provider response is too large."_s;
    case Outcome::otherShape:
    case Outcome::refused:
      if (asked == Asked::guide) return {};
      if (asked == Asked::episodes) return u"This show's episodes could not be read."_s;
      if (asked != Asked::signIn) return u"The provider returned an unreadable library."_s;
      return u"Your provider did not accept this account. Check the username, password and "
             "subscription status."_s;
    default:
      return u"Unable to connect. Check your internet connection and provider details, then try "
             "again."_s;
  }
}

struct Network {
  sim::Server server{{.shows = 400, .password = "secret", .streams = false}};
  CountedTransport network;
};

class Program : Network, ModelFixture {
 public:
  Program()
      : ModelFixture({.transport = &network,
                      .serviceDocument = QString::fromStdString(server.configUrl())}) {
    launch();
  }

  void meet(const Case& which);

 private:
  ProviderAccount freshAccount() const {
    return ProviderAccount::validated(u"Vantor TV"_s, serverText(), u"demo"_s, u"secret"_s);
  }
  QString serverText() const { return QString::fromStdString(server.url()); }
  /// Another name of the same server.
  QString otherServerText() const { return serverText().replace(u"127.0.0.1"_s, u"localhost"_s); }
  void require(const char* what, const std::function<bool()>& condition) {
    ASSERT_TRUE(eventually(condition)) << what;
  }
  bool signedIn() const { return model->session().account().has_value(); }

  void goTo(Situation situation);
  void loadAll();
  void trouble(const Case& which);
  /// Makes the request without waiting for its end.
  void begin(const Request& request);
  void await(const Request& request);
  /// What the user was told of it.
  QString told(const Request& request) const;
  /// All that must still be there.
  QString kept() const;
  void lookAtRest();
  static QCoro::Task<> fetchPicture(std::stop_token stop, Program* program, QUrl address);
  static QCoro::Task<> fetchConfiguration(std::stop_token stop, Program* program);

  MediaItem show_;
  int shows_ = 0;
  std::unique_ptr<ArtworkStore> pictures_;
  Job job_;
  bool over_ = true;
  QString told_;
};

void Program::loadAll() {
  for (const LibraryKind kind : allLibraryKinds) model->load(kind, LoadMode::copyFirst);
  require("all libraries", [this] { return model->libraries().loading().empty(); });
  EXPECT_EQ(model->libraries().catalogs().size(), 3);
}

void Program::goTo(Situation situation) {
  if (situation == Situation::signedOut) {
    if (signedIn()) signOut();
    return;
  }
  if (!signedIn()) {
    account = freshAccount();
    connectAccount(account);
    require("signing in", [this] { return signInOver && idle(); });
    model->favorite(model->libraries().catalog(LibraryKind::live).item(1));
  }
  loadAll();
}

void Program::trouble(const Case& which) {
  const bool ofCategory = which.request.asked == Asked::category;
  if (ofCategory) server.setFault("get_series/", sim::Fault::oversizeAnnounced);
  server.resetCounters();
  server.setFault(which.request.action, which.fault);
  if (which.breakOff) server.breakOff(which.request.action, *which.breakOff);
  network.impatient = which.user == User::waits &&
                      (which.fault == sim::Fault::silent ||
                       (which.breakOff && which.breakOff->ending == sim::Ending::silent));
}

QCoro::Task<> Program::fetchPicture(std::stop_token stop, Program* program, QUrl address) {
  const QCoro::Task<QImage> fetched = program->pictures_->image(address, stop);
  const QImage image = co_await fetched;
  if (stop.stop_requested()) co_return;
  program->told_ = image.isNull() ? u"no picture"_s : QString();
  program->over_ = true;
}

QCoro::Task<> Program::fetchConfiguration(std::stop_token stop, Program* program) {
  const QCoro::Task<QString> resolved = program->configuration->resolve(stop);
  const QString server = co_await resolved;
  if (stop.stop_requested()) co_return;
  program->told_ = server == program->serverText() ? QString() : u"kept"_s;
  program->over_ = true;
}

void Program::begin(const Request& request) {
  over_ = false;
  const Catalog catalog = model->libraries().catalog(request.kind);
  switch (request.asked) {
    case Asked::signIn:
      return connectAccount(freshAccount());
    case Asked::configuration:
      configuration->accept(otherServerText());
      job_ = Job::start([this](std::stop_token stop) { return fetchConfiguration(stop, this); });
      return;
    case Asked::launch:
    case Asked::service: {
      ProviderAccount saved = *model->session().account();
      if (request.asked == Asked::service) saved.server = QUrl(otherServerText());
      quit();
      credentials.put(providerItem, saved.toJSON());
      ModelFixture::begin();
      return;
    }
    case Asked::library:
    case Asked::category:
      return model->load(request.kind, LoadMode::refresh);
    case Asked::episodes:
      model->navigate(Section::shows);
      return model->select(show_);
    case Asked::guide:
      model->navigate(Section::live);
      model->select(catalog.item(0));
      model->refreshGuide();
      return model->guide().prefetchGuide(catalog.item(1));
    case Asked::picture:
      pictures_ = std::make_unique<ArtworkStore>(network, clock, worker);
      job_ = Job::start([this, address = catalog.item(0).artwork.value()](std::stop_token stop) {
        return fetchPicture(stop, this, address);
      });
  }
}

void Program::await(const Request& request) {
  const Session& session = model->session();
  require("the end of the request", [&] {
    switch (request.asked) {
      case Asked::signIn:
        return signInOver;
      case Asked::launch:
      case Asked::service:
        return !session.startingUp() && !session.restoringLibrary() && idle();
      case Asked::library:
      case Asked::category:
        return !model->libraries().loading().contains(request.kind);
      case Asked::episodes:
        return !model->details().detailsLoading();
      case Asked::guide: {
        const QString row = model->libraries().catalog(LibraryKind::live).id(1);
        return !model->details().detailsLoading() &&
               (model->guide().guideOf(row) || model->guide().guideFailed(row));
      }
      default:
        return over_;
    }
  });
}

QString Program::told(const Request& request) const {
  const auto& errors = model->libraries().errors();
  const auto& details = model->details();
  const auto& guide = model->guide();
  switch (request.asked) {
    case Asked::signIn:
      return signInFailure ? readableError(signInFailure) : QString();
    case Asked::launch:
    case Asked::service:
      return model->notice().value_or(QString());
    case Asked::library:
    case Asked::category:
      return errors.contains(request.kind) ? errors.at(request.kind) : QString();
    case Asked::episodes:
      return details.detailsError().value_or(details.episodes().empty() ? u"none"_s : QString());
    case Asked::guide:
      EXPECT_EQ(guide.guideFailed(model->libraries().catalog(LibraryKind::live).id(1)),
                details.detailsError().has_value());
      return details.detailsError().value_or(QString());
    default:
      return told_;
  }
}

QString Program::kept() const {
  QStringList all{QString::fromUtf8(credentials.value(providerItem).value_or(QByteArray()))};
  QStringList favorites(model->record().favorites().values());
  favorites.sort();
  all += favorites;
  for (const auto& [kind, catalog] : model->libraries().catalogs())
    for (std::size_t row = 0; row < catalog.size(); ++row)
      all.append(catalog.id(row) + u' ' + catalog.name(row));
  return all.join(u'\n');
}

void Program::lookAtRest() {
  require("no request left",
          [this] { return network.open == 0 && server.counters().connectionsOpen == 0; });
  EXPECT_EQ(clock.waiting(), 0) << "a job waits for its time";
  EXPECT_TRUE(idle());
  EXPECT_EQ(faultIn(*model).toStdString(), "");
}

void Program::meet(const Case& which) {
  const Request& request = which.request;
  goTo(which.situation);
  // A twelfth of the shows has none.
  if (signedIn()) do {
      show_ = model->libraries().catalog(LibraryKind::shows).item(shows_++ % 400);
    } while (*sim::entryIndex(sim::Kind::series, show_.providerID.toStdString(), 400) % 12 == 9);
  const QString before = kept();
  const bool isBusy = which.situation == Situation::busy;
  const bool fromMovies = request.kind == LibraryKind::movies;
  const LibraryKind other = fromMovies ? LibraryKind::shows : LibraryKind::movies;
  const char* const held = fromMovies ? "get_series" : "get_vod_streams";
  if (isBusy) {
    server.hold(held);
    model->load(other, LoadMode::refresh);
    require("the other load", [&] { return network.open > 0; });
  }
  trouble(which);
  begin(request);
  if (which.user == User::quits) {
    // A category's is the second of its kind.
    const std::string action =
        QString::fromLatin1(request.action).section(u'/', 0, 0).toStdString();
    const int number = request.asked == Asked::category ? 2 : 1;
    require("the request", [&] { return server.counters().requests[action] >= number; });
    job_.cancel();
    quit();
    server.release(held);
    server.reset();
    require("no request left", [this] { return network.open == 0; });
    launch();
    require("the launch", [this] { return !model->session().restoringLibrary() && idle(); });
    if (signedIn()) loadAll();
    if (request.asked != Asked::service) {
      EXPECT_EQ(kept(), before);
    }
    return lookAtRest();
  }
  await(request);
  EXPECT_EQ(told(request).toStdString(), expectedOf(which).toStdString());
  server.release(held);
  server.reset();
  network.impatient = false;
  require("the other load's end", [this] { return idle(); });
  lookAtRest();
  const bool newWorld = request.asked == Asked::signIn && !signInFailure;
  const bool newLife = request.asked == Asked::launch || request.asked == Asked::service;
  if (!newWorld && !newLife) {
    EXPECT_EQ(kept(), before);
  }
  if (signedIn()) loadAll();
  if (request.asked == Asked::launch) {
    EXPECT_EQ(kept(), before);
  }
  begin(request);
  await(request);
  EXPECT_EQ(told(request).toStdString(), "") << "when asked again";
  require("its end", [this] { return idle(); });
  configuration->accept(serverText());
  model->clearNotice();
  lookAtRest();
}

void add(std::vector<Case>& cases, const Request& request, Situation situation) {
  using enum sim::Moment;
  constexpr std::array moments{beforeHead, inHead, inBody, beforeLastByte};
  for (const std::string_view name : sim::faultNames()) {
    const sim::Fault fault = *sim::faultNamed(name);
    // What it does others do.
    if (fault == sim::Fault::unsteady) continue;
    cases.push_back({request, fault, std::nullopt, situation});
    if (fault == sim::Fault::silent || fault == sim::Fault::slow) continue;
    for (const sim::Moment moment : moments)
      cases.push_back({request, fault, sim::BreakOff{moment, sim::Ending::closed}, situation});
  }
  for (const sim::Moment moment : moments)
    for (const User user : {User::waits, User::quits})
      cases.push_back(
          {request, sim::Fault::none, sim::BreakOff{moment, sim::Ending::silent}, situation, user});
}

std::vector<Case> allCases() {
  std::vector<Case> cases;
  for (const Request& request : requests) {
    const Asked asked = request.asked;
    if (asked == Asked::signIn || asked == Asked::configuration)
      add(cases, request, Situation::signedOut);
    add(cases, request, Situation::signedIn);
    if (asked != Asked::launch && asked != Asked::service) add(cases, request, Situation::busy);
  }
  return cases;
}

TEST(ProviderFaults, EachEndsInItsSentenceAndLeavesWhatThereWas) {
  const int seed = environmentNumber("VANTOR_SEED", 1);
  std::vector<Case> cases = allCases();
  std::shuffle(cases.begin(), cases.end(), std::mt19937(static_cast<unsigned>(seed)));
  // Each takes seconds.
  std::stable_partition(cases.begin(), cases.end(),
                        [](const Case& one) { return one.fault != sim::Fault::slow; });
  const auto count =
      std::min(cases.size(), static_cast<std::size_t>(environmentNumber("VANTOR_FAULTS", 200)));
  std::printf("%zu of %zu cases, VANTOR_SEED=%d\n", count, cases.size(), seed);
  Program program;
  for (std::size_t number = 0; number < count && !testing::Test::HasFailure(); ++number) {
    SCOPED_TRACE(nameOf(cases[number]));
    program.meet(cases[number]);
  }
}

}  // namespace
}  // namespace vantor::machine
