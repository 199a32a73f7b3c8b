// Jobs of the model under a scheduler: from a seed it decides what the user does and which of the
// waiting answers (of the provider, of the disk, of the credential store, of the clock) comes next.
// VANTOR_ORDERS says how many orders, VANTOR_SEED the first one's seed.
#include <gtest/gtest.h>

#include <QUrlQuery>
#include <csignal>
#include <numeric>
#include <random>

#include "core/episode_queue.h"
#include "core/zapping.h"
#include "machines/model_invariants.h"
#include "machines/stepped_worker.h"
#include "platform/app_error.h"
#include "playback/stream_keeper.h"
#include "playback/video_frame_queue.h"
#include "support/environment_number.h"
#include "support/model_fixture.h"
#include "support/model_signals.h"

namespace vantor::machine {
namespace {

using namespace test;
using namespace std::chrono_literals;

constexpr int users = 3;
constexpr int idsEach = 5;
const QString serviceDocument = u"vantor-config.json"_s;

struct Step {
  unsigned choice;
  unsigned value;
  bool settles;  // what it led to happens before the next one
};
using Steps = std::vector<Step>;

Steps stepsOf(std::uint64_t seed) {
  std::mt19937_64 random(seed);
  Steps steps(12 + random() % 50);
  for (Step& step : steps)
    step = {static_cast<unsigned>(random()), static_cast<unsigned>(random()), random() % 3 > 0};
  return steps;
}

/// Everything that the program makes around the model, without windows.
struct Around {
  Around(AppModel& model, MediaEngine& engine, HTTPTransport& transport, Clock& clock,
         ModelSignals::Hear hear)
      : keeper(model.playback(), engine, frames, transport, clock),
        zapping(model, clock),
        episodes(model),
        signals(model, std::move(hear)) {}
  VideoFrameQueue frames;
  StreamKeeper keeper;
  Zapping zapping;
  EpisodeQueue episodes;
  ModelSignals signals;
};

/// One life of the program under one order. Every password is used once and stands in whatever the
/// provider answers to it, every user has ids of their own: so whose data it is can be told.
class Order final : ModelFixture {
 public:
  explicit Order(unsigned start);
  ~Order();

  /// Whether all went well so far.
  bool take(const Step& step);
  /// Answers everything, and compares with what has to come out whatever the order was.
  void end();
  /// Leaves nothing.
  void quitForGood() {
    leave();
    for (const auto& exchange : openExchanges()) answerWell(*exchange);
    settle();
    while (readyWork() > 0) doWork(0);
    settle();
    for (const auto& exchange : transport.exchanges())
      if (exchange.use_count() > 1) blame(u"a job is left: "_s + exchange->action);
  }

  QString fault;
  QStringList log;

 private:
  using Exchange = FakeTransport::Exchange;
  void begin(bool demo);
  void leave() {
    around_.reset();
    signIns_.clear();
    quit();
    for (const auto& exchange : openExchanges())
      if (!exchange->cancelled) blame(u"a request outlives the program"_s);
  }

  // What may come next.
  void answer(unsigned value);
  void work(unsigned value) {
    if (readyWork() > 0) doWork(value % readyWork());
  }
  void pass(unsigned value) {
    const std::array<std::chrono::milliseconds, 4> times = {100ms, 250ms, 31s, 301s};
    clock.advance(times.at(value % times.size()));
  }
  void signIn(unsigned value);
  void giveUpSignIn(unsigned) { signIns_.clear(); }
  void signOut(unsigned) {
    Job::start([app = QPointer(model.get())](std::stop_token stop) {
      return forget(stop, app);
    }).detach();
  }
  void browse(unsigned value);
  void load(unsigned value) {
    model->load(allLibraryKinds.at(value % 3),
                value / 3 % 3 > 0 ? LoadMode::refresh : LoadMode::copyFirst);
  }
  void fetch(unsigned value) {
    const std::optional<MediaItem> item = listed(value / 4);
    if (value % 4 == 0)
      model->refreshGuide();
    else if (item && item->kind == LibraryKind::live)
      model->guide().prefetchGuide(*item);
  }
  void mark(unsigned value) {
    const std::optional<MediaItem> item = listed(value / 2);
    if (!item) return;
    if (value % 2 == 0)
      model->favorite(*item);
    else
      model->stopContinuing(item->id);
  }
  void play(unsigned value) {
    const QList<MediaItem>& episodes = model->details().episodes();
    const std::optional<MediaItem> item = listed(value / 4);
    if (value % 4 == 0)
      model->playback().stop();
    else if (!episodes.isEmpty())
      model->play(episodes.at(static_cast<qsizetype>(value / 4) % episodes.size()));
    else if (item && item->kind != LibraryKind::shows)
      model->play(*item);
  }
  void zap(unsigned value) {
    if (value % 3 == 0)
      around_->zapping.type(static_cast<int>(value / 3 % 3));
    else if (value % 3 == 1)
      around_->zapping.goBack();
    else if (!around_->zapping.step(value / 3 % 2 == 0 ? 1 : -1))
      around_->episodes.playNext();
  }
  void stream(unsigned value);
  void file(unsigned value) {
    if (value % 2 == 0) return model->openFile();
    filePanel.choice.resolve(value / 2 % 2 == 0
                                 ? std::nullopt
                                 : std::optional(QUrl::fromLocalFile(home.filePath(u"film"_s))));
  }
  void credentialsFail(unsigned value) {
    using enum FakeCredentialStore::Operation;
    const std::array operations = {copyMatching, update, add, remove};
    for (const auto operation : operations) credentials.work(operation);
    const auto failing = operations.at(value / 2 % 4);
    if (value % 2 == 1) credentials.fail(failing);
    cannotRead_ = value % 2 == 1 && failing == copyMatching;
    unread_ = unread_ || (cannotRead_ && model->session().startingUp());
  }
  void startAnew(unsigned value) {
    leave();
    begin(value % 4 == 0);
  }

  static QCoro::Task<> follow(std::stop_token stop, Order* order, QPointer<AppModel> app,
                              ProviderAccount wanted) {
    if (!app) co_return;
    // Then it is to do nothing.
    const bool isSecond = app->session().signingInOrOut();
    const QCoro::Task<> signingIn = app->connectAccount(wanted, stop);
    try {
      co_await signingIn;
    } catch (...) {
      co_return;
    }
    if (!isSecond) order->expected_ = wanted.id;
  }
  static QCoro::Task<> forget(std::stop_token stop, QPointer<AppModel> app) {
    if (!app) co_return;
    const QCoro::Task<> signingOut = app->disconnectAccount(stop);
    co_await signingOut;
  }
  std::vector<std::shared_ptr<Exchange>> openExchanges() const {
    std::vector<std::shared_ptr<Exchange>> open;
    for (const auto& exchange : transport.exchanges())
      if (!exchange->over) open.push_back(exchange);
    return open;
  }
  void answerWell(Exchange& exchange) {
    exchange.over = true;
    exchange.answer.resolve(body(exchange));
  }
  QByteArray body(const Exchange& exchange);
  void rest();

  void note(const QString& text) { log.append(text); }
  void blame(const QString& what) {
    if (fault.isEmpty()) fault = what;
  }
  void look(const QByteArray& signal);
  void lookAtRest();
  void lookAtConnections();
  QString stranger() const;
  QString libraries() const {
    QStringList names;
    for (const auto& [kind, catalog] : model->libraries().catalogs())
      for (std::size_t row = 0; row < catalog.size(); ++row)
        names.append(rawValue(kind) + u' ' + catalog.name(row));
    return names.join(u'\n');
  }
  std::optional<MediaItem> listed(unsigned value) const {
    const ItemList& items = model->browsing().items();
    return items.empty() ? std::nullopt : std::optional(items.item(value % items.size()));
  }

  std::unique_ptr<Around> around_;
  std::optional<QUuid> expected_;  // who is signed in once everything was answered
  bool cannotRead_ = false;        // the credential store fails at reading
  bool unread_ = false;            // the saved account could not be read in this run
  std::vector<Job> signIns_;
  unsigned theme_ = 0;
  int serial_ = 0;
  bool connected_ = false;
  std::map<QString, int> newest_;  // number of the last answer shown of a library and world
};

namespace about {
enum Theme : unsigned { session, libraries, guide, playing, all };
}

struct Choice {
  unsigned weight;
  unsigned theme;
  const char* name;
  void (Order::*take)(unsigned value);
};

Order::Order(unsigned start) {
  transport.cancelsAtOnce = false;
  theme_ = start / 16 % 4;
  if (start % 4 > 0) {
    account.password = u"secret0"_s;
    account.username = u"user0"_s;
    account.server = QUrl(u"http://tv0.example"_s);
    credentials.put(providerItem, account.toJSON());
  }
  begin(start % 7 == 0);
  // Some have used the program before, and have copies of their libraries.
  if (start % 4 > 1) end();
}

Order::~Order() {
  leave();
}

void Order::begin(bool demo) {
  note(demo ? u"starts with the samples"_s : u"starts"_s);
  newest_.clear();
  unread_ = demo || cannotRead_;
  const std::optional<QByteArray> saved = credentials.value(providerItem);
  expected_ = saved && !demo ? std::optional(ProviderAccount::fromJSON(*saved).id) : std::nullopt;
  ModelFixture::begin(demo ? QStringList{u"--demo"_s} : QStringList());
  around_ = std::make_unique<Around>(*model, engine, transport, clock,
                                     [this](const QByteArray& name) { look(name); });
}

QByteArray Order::body(const Exchange& exchange) {
  const QUrlQuery query(exchange.request.address);
  const int user = query.queryItemValue(u"username"_s).right(1).toInt();
  const QByteArray tag =
      query.queryItemValue(u"password"_s).toUtf8() + ' ' + QByteArray::number(++serial_);
  const auto rows = [&](const char* id, const QByteArray& more) {
    QByteArrayList all;
    for (int i = 0; i < 1 + serial_ % idsEach; ++i)
      all.append(R"({")" + QByteArray(id) + R"(":)" + QByteArray::number(user * idsEach + i) +
                 R"(,"name":")" + tag + " no. " + QByteArray::number(i) + R"(","title":")" + tag +
                 R"(","category_id":)" + QByteArray::number(i % 2 + 1) + more + '}');
    return '[' + all.join(',') + ']';
  };
  if (exchange.action.isEmpty()) return acceptedSignIn();
  if (exchange.action == serviceDocument)
    return R"({"schemaVersion":1,"serverUrl":"http://tv)" + QByteArray::number(serial_ % 3) +
           R"(.example"})";
  if (exchange.action.endsWith(u"categories"_s))
    return R"([{"category_id":1,"category_name":"one"},{"category_id":2,"category_name":"two"}])";
  if (exchange.action == u"get_series_info"_s)
    return R"({"episodes":{"1":)" + rows("id", {}) + "}}";
  if (exchange.action == u"get_short_epg"_s)
    return R"({"epg_listings":)" + rows("id", R"(,"start_timestamp":1,"stop_timestamp":2)") + '}';
  return rows(exchange.action == u"get_series"_s ? "series_id" : "stream_id", {});
}

void Order::answer(unsigned value) {
  const auto open = openExchanges();
  if (open.empty()) return;
  Exchange& exchange = *open[value % open.size()];
  const unsigned how = value / 64 % 10;
  note(u"    %1 of %2 (%3), %4"_s.arg(exchange.action, exchange.request.address.host())
           .arg(open.size())
           .arg(how));
  if (how < 7) return answerWell(exchange);
  exchange.over = true;
  if (how == 7) return exchange.answer.resolve("{}");
  if (how == 8) return exchange.answer.fail(std::make_exception_ptr(HTTPFailure(403)));
  exchange.answer.fail(std::make_exception_ptr(OversizedBody()));
}

void Order::signIn(unsigned value) {
  ProviderAccount wanted =
      ProviderAccount::validated(u"Vantor TV"_s, u"http://tv%1.example"_s.arg(value / users % 2),
                                 u"user%1"_s.arg(value % users), u"secret%1"_s.arg(++serial_));
  note(u"    as %1 with %2"_s.arg(wanted.username, wanted.password));
  signIns_.push_back(Job::start([this, app = QPointer(model.get()), wanted](std::stop_token stop) {
    return follow(stop, this, app, wanted);
  }));
}

void Order::browse(unsigned value) {
  const std::optional<MediaItem> item = listed(value / 8);
  const std::array<QString, 4> categories = {QString(), u"1"_s, u"2"_s, Browsing::continueWatching};
  const std::array<QString, 4> texts = {QString(), u"SECRET"_s, u"no. 1"_s, u"no. 2"_s};
  switch (value % 8) {
    case 0:
      return model->setCategory(categories.at(value / 8 % 4));
    case 1:
      return model->browsing().setSearch(texts.at(value / 8 % 4));
    case 2:
    case 3:
    case 4:
      if (item) model->select(*item);
      return;
    default:
      return model->navigate(allSections.at(value / 8 % allSections.size()));
  }
}

void Order::stream(unsigned value) {
  engine.releasesLate = value / 4 % 4 == 0;
  if (engine.now.hasMedia) {
    const std::array states = {EngineState::playing, EngineState::error, EngineState::ended,
                               EngineState::error};
    engine.now.state = engine.now.decoded == 0 && value / 16 % 2 == 0 ? EngineState::playing
                                                                      : states.at(value % 4);
    engine.now.length = 500'000;
    engine.now.time += 60'000;
    engine.now.seekable = true;
    ++engine.now.decoded;
    if (engine.now.state == EngineState::playing) ++engine.now.decodedVideo;
    engine.announce();
  } else {
    engine.now.releasing = false;
  }
  // Long enough for the next attempt.
  if (value / 64 % 3 > 0) clock.advance(2s);
}

bool Order::take(const Step& step) {
  // Each order is mostly about one thing: the session, the libraries, the guide or what plays.
  static constexpr std::array choices = {
      Choice{30, about::all, "an answer comes", &Order::answer},
      Choice{30, about::all, "work is done", &Order::work},
      Choice{5, about::all, "time passes", &Order::pass},
      Choice{5, about::session, "signs in", &Order::signIn},
      Choice{2, about::session, "gives the sign-in up", &Order::giveUpSignIn},
      Choice{3, about::session, "signs out", &Order::signOut},
      Choice{12, about::libraries, "browses", &Order::browse},
      Choice{5, about::libraries, "loads", &Order::load},
      Choice{5, about::guide, "asks for a guide", &Order::fetch},
      Choice{3, about::libraries, "marks", &Order::mark},
      Choice{6, about::playing, "plays", &Order::play},
      Choice{3, about::playing, "zaps", &Order::zap},
      Choice{9, about::playing, "the stream differs", &Order::stream},
      Choice{2, about::playing, "opens a file", &Order::file},
      Choice{2, about::session, "the credential store differs", &Order::credentialsFail},
      Choice{2, about::session, "quits and starts", &Order::startAnew},
  };
  const auto weightOf = [this](const Choice& choice) {
    return choice.theme == theme_ ? choice.weight * 8 : choice.weight;
  };
  const unsigned weights =
      std::accumulate(choices.begin(), choices.end(), 0u,
                      [&](unsigned sum, const Choice& choice) { return sum + weightOf(choice); });
  unsigned place = step.choice % weights;
  const Choice* choice = choices.begin();
  for (; place >= weightOf(*choice); ++choice) place -= weightOf(*choice);
  note(QLatin1String(choice->name) + (step.settles ? u""_s : u", at once"_s));
  (this->*choice->take)(step.value);
  look("after the step");
  if (!step.settles) return fault.isEmpty();
  settle();
  lookAtRest();
  return fault.isEmpty();
}

/// Whose data is shown that is not of the account.
QString Order::stranger() const {
  const std::optional<ProviderAccount>& signedIn = model->session().account();
  if (!signedIn) return {};
  const QString tag = signedIn->password + u' ';
  const int user = signedIn->username.right(1).toInt();
  for (const auto& [kind, catalog] : model->libraries().catalogs())
    for (std::size_t row = 0; row < catalog.size(); ++row)
      if (!catalog.name(row).startsWith(tag)) return u"a library of another account"_s;
  for (const MediaItem& episode : model->details().episodes())
    if (!episode.name.startsWith(tag)) return u"episodes of another account"_s;
  for (const GuideEntry& programme : model->guide().guide())
    if (!programme.title.startsWith(tag)) return u"programmes of another account"_s;
  for (int id = 0; id < users * idsEach; ++id)
    for (const GuideEntry& programme :
         model->guide().guideOf(entry(LibraryKind::live, id).id).value_or(GuideEntries()))
      if (!programme.title.startsWith(tag)) return u"kept programmes of another account"_s;
  const auto& selected = model->browsing().selected();
  if (selected && !selected->name.startsWith(tag)) return u"a selection of another account"_s;
  const auto isOthers = [user](const QString& id) {
    return !id.startsWith(u"episode"_s) && id.section(u':', 1).toInt() / idsEach != user;
  };
  if (std::ranges::any_of(model->record().favorites(), isOthers)) return u"another user's list"_s;
  if (std::ranges::any_of(model->record().begun(), isOthers)) return u"another user's films"_s;
  const auto& source = model->playback().source();
  if (source && source->kind != SourceKind::file &&
      !source->url.path().contains(u'/' + signedIn->password + u'/'))
    return u"a source of another account"_s;
  return {};
}

/// In signals too.
void Order::look(const QByteArray& signal) {
  QString found = faultIn(*model);
  if (found.isEmpty()) found = stranger();
  const auto& selected = model->browsing().selected();
  if (signal == "selectedChanged" && selected && !model->browsing().items().indexOf(selected->id))
    found = u"what is selected is not in the list"_s;
  const QString world = model->session().generation().toString();
  for (const auto& [kind, catalog] : model->libraries().catalogs()) {
    int number = 0;
    for (std::size_t row = 0; row < catalog.size(); ++row)
      number = std::max(number, catalog.name(row).section(u' ', 1, 1).toInt());
    int& before = newest_[world + rawValue(kind)];
    if (number < before) found = u"an older answer replaced a newer one"_s;
    before = number;
  }
  if (!found.isEmpty()) blame(found + u", "_s + QString::fromLatin1(signal));
  lookAtConnections();
}

void Order::lookAtConnections() {
  for (const QString& call : engine.takeCalls()) {
    if (call == u"unload"_s) connected_ = false;
    if (!call.startsWith(u"load "_s)) continue;
    if (std::exchange(connected_, true)) blame(u"a source is opened beside another"_s);
  }
  const auto open = openExchanges();
  const auto questions = std::ranges::count_if(open, [](const auto& exchange) {
    return exchange->request.address.path().startsWith(u"/live/"_s) ||
           exchange->request.address.path().startsWith(u"/movie/"_s) ||
           exchange->request.address.path().startsWith(u"/series/"_s);
  });
  if (questions + (connected_ || engine.now.releasing ? 1 : 0) > 1)
    blame(u"more than one connection for streams"_s);
}

void Order::lookAtRest() {
  const Session& session = model->session();
  if (session.startingUp() || session.signingInOrOut()) return;
  for (const auto& exchange : openExchanges()) {
    const QString password = QUrlQuery(exchange->request.address).queryItemValue(u"password"_s);
    if (!exchange->cancelled && exchange->action.startsWith(u"get_"_s) &&
        (!session.account() || session.account()->password != password))
      blame(u"a request of another account goes on"_s);
  }
  const std::optional<QByteArray> saved = credentials.value(providerItem);
  if (!saved) expected_.reset();
  if (session.account() || !saved) unread_ = false;
  if (unread_) return;
  const auto id = session.account() ? std::optional(session.account()->id) : std::nullopt;
  const auto savedID = saved ? std::optional(ProviderAccount::fromJSON(*saved).id) : std::nullopt;
  if (id != savedID) blame(u"another account is saved than is signed in"_s);
  if (id != expected_) blame(u"another account is signed in than came last"_s);
}

void Order::rest() {
  model->playback().stop();
  filePanel.choice.resolve(std::nullopt);
  for (int round = 0; round < 2000; ++round) {
    settle();
    const auto open = openExchanges();
    if (!open.empty())
      answerWell(*open.front());
    else if (readyWork() > 0)
      doWork(0);
    else if (clock.waiting() > 0)
      clock.advance(100ms);
    else
      break;
  }
  settle();
  const Session& session = model->session();
  if (clock.waiting() > 0) blame(u"something waits for the clock for ever"_s);
  if (session.startingUp() || session.signingInOrOut() || session.restoringLibrary())
    blame(u"the session does not come to rest"_s);
  if (!model->libraries().loading().empty() || model->details().detailsLoading())
    blame(u"something loads for ever"_s);
  look("at rest");
  lookAtRest();
}

void Order::end() {
  note(u"everything is answered"_s);
  credentialsFail(0);
  rest();
  const bool signedIn = model->session().account().has_value();
  const int before = serial_;
  for (const LibraryKind kind : allLibraryKinds) model->load(kind, LoadMode::refresh);
  rest();
  const QString loaded = libraries();
  const bool copied = model->session().disk() != nullptr;
  if (signedIn && (model->libraries().catalogs().size() != 3 || serial_ < before + 3))
    blame(u"not all libraries came"_s);
  startAnew(1);
  rest();
  for (const LibraryKind kind : allLibraryKinds) model->load(kind, LoadMode::copyFirst);
  rest();
  if (signedIn && copied && libraries() != loaded)
    blame(u"the copies are not what was loaded last"_s);
  startAnew(1);
}

std::optional<QString> faultOf(const Steps& steps, QStringList& log) {
  Order order(steps.empty() ? 0 : steps.front().value);
  const bool well = order.fault.isEmpty() &&
                    std::ranges::all_of(steps, [&](const Step& step) { return order.take(step); });
  if (well) order.end();
  order.quitForGood();
  log = order.log;
  return order.fault.isEmpty() ? std::nullopt : std::optional(order.fault);
}

/// Leaves out what the fault does not need.
Steps shortened(Steps steps) {
  QStringList log;
  for (std::size_t place = steps.size(); place-- > 1;) {
    Steps fewer = steps;
    fewer.erase(fewer.begin() + static_cast<std::ptrdiff_t>(place));
    if (faultOf(fewer, log)) steps = fewer;
  }
  return steps;
}

volatile std::sig_atomic_t running = 0;

TEST(JobOrders, NoOrderOfAnswersHarmsTheModel) {
  const int count = environmentNumber("VANTOR_ORDERS", 300);
  const int first = environmentNumber("VANTOR_SEED", 1);
  // A crash says which order it was.
  for (const int signal : {SIGSEGV, SIGABRT})
    std::signal(signal, [](int number) {
      std::fprintf(stderr, "VANTOR_SEED=%d\n", static_cast<int>(running));
      std::signal(number, SIG_DFL);
      std::raise(number);
    });
  for (int seed = first; seed < first + count; ++seed) {
    running = seed;
    QStringList log;
    const Steps steps = stepsOf(static_cast<std::uint64_t>(seed));
    if (!faultOf(steps, log)) continue;
    const auto fault = faultOf(shortened(steps), log);
    FAIL() << "VANTOR_SEED=" << seed << ": " << fault.value_or(u"once only"_s).toStdString() << "\n"
           << log.join(u'\n').toStdString();
  }
  std::printf("%d orders from VANTOR_SEED=%d on\n", count, first);
}

}  // namespace
}  // namespace vantor::machine
