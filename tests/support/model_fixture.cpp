#include "support/model_fixture.h"

#include <stdexcept>

namespace vantor::test {
namespace {

/// Waits for what only a fault keeps away.
void require(const std::function<bool()>& condition, const char* otherwise) {
  if (!eventually(condition)) throw std::runtime_error(otherwise);
}

QCoro::Task<> watch(std::stop_token token, QPointer<AppModel> model, ProviderAccount account,
                    bool* over, std::exception_ptr* failure) {
  try {
    const QCoro::Task<> signIn = model->connectAccount(account, token);
    co_await signIn;
  } catch (...) {
    *failure = std::current_exception();
  }
  *over = true;
}

}  // namespace

ModelFixture::ModelFixture(Parts given)
    : parts(std::move(given)),
      secureStore(parts.credentials ? *parts.credentials : credentials, u"tv.vantor.player"_s) {
  const QString root = parts.home.isEmpty() ? home.path() : parts.home;
  folders = {root + u"/data"_s, root + u"/config"_s, root, root + u"/state"_s};
}

ModelFixture::~ModelFixture() {
  quit();
}

AppModel& ModelFixture::launch(const QStringList& arguments) {
  begin(arguments);
  require([&] { return !model->session().startingUp(); }, "the start-up did not end");
  settle();
  return *model;
}

AppModel& ModelFixture::begin(const QStringList& arguments) {
  quit();
  HTTPTransport& network = parts.transport ? *parts.transport : transport;
  preferences = std::make_unique<Preferences>(folders.temporary + u"/preferences.ini"_s);
  configuration = std::make_unique<VantorConfiguration>(
      network, *preferences, QUrl(parts.serviceDocument), u"http://fallback.example:25461"_s);
  const AppServices services{
      clock,
      worker,
      secretsWorker,
      secureStore,
      *preferences,
      network,
      *configuration,
      *panel,
      folders,
      LaunchArguments::read(QStringList{u"vantor"_s} + arguments, u"tv.vantor.player"_s)};
  model = std::make_unique<AppModel>(
      services, std::make_unique<Playback>(engine, clock, worker, folders, output));
  return *model;
}

void ModelFixture::quit() {
  signInJob.cancel();
  signOutJob.cancel();
  model.reset();
  settle();
  configuration.reset();
  preferences.reset();
}

void ModelFixture::connectAccount(const ProviderAccount& wanted) {
  signInOver = false;
  signInFailure = nullptr;
  signInJob = Job::start([this, wanted](std::stop_token token) {
    return watch(token, QPointer(model.get()), wanted, &signInOver, &signInFailure);
  });
  settle();
}

void ModelFixture::disconnectAccount() {
  signOutJob = Job::start([this](auto token) { return model->disconnectAccount(token); });
  settle();
}

void ModelFixture::acceptSignIn() {
  transport.answer(QString(), acceptedSignIn());
  require([&] { return signInOver; }, "the sign-in did not end");
}

void ModelFixture::signIn(const QByteArray& liveBody) {
  connectAccount(account);
  acceptSignIn();
  answer(LibraryKind::live, liveBody);
}

void ModelFixture::signOut() {
  disconnectAccount();
  require([&] { return !model->session().account() && !model->session().signingInOrOut(); },
          "the sign-out did not end");
}

void ModelFixture::answer(LibraryKind kind, const QByteArray& entries,
                          const QByteArray& categories) {
  require([&] { return isAskedFor(kind); }, "the library was not asked for");
  transport.answer(action(kind), entries);
  transport.answer(categoryAction(kind), categories);
  require([&] { return !model->libraries().loading().contains(kind); }, "the load did not end");
  settle();
}

void ModelFixture::always(LibraryKind kind, const QByteArray& entries,
                          const QByteArray& categories) {
  transport.always(action(kind), entries);
  transport.always(categoryAction(kind), categories);
}

void ModelFixture::answerEpisodes(const QByteArray& seasons) {
  require([&] { return transport.open(episodesRequest) == 1; }, "no episodes were asked for");
  transport.answer(episodesRequest, R"({"episodes":)" + seasons + "}");
  require([&] { return !model->details().detailsLoading(); }, "the episodes did not come");
}

void ModelFixture::nameServer(const QByteArray& server) {
  transport.answer(serviceDocument, R"({"schemaVersion":1,"serverUrl":")" + server + "\"}");
}

bool ModelFixture::isAskedFor(LibraryKind kind) {
  return eventually([&] { return transport.open(action(kind)) == 1; });
}

bool ModelFixture::idle() {
  return eventually(
      [&] { return model->libraries().loading().empty() && !model->session().signingInOrOut(); });
}

QString ModelFixture::selectedID() const {
  return model->browsing().selected() ? model->browsing().selected()->id : QString();
}

QString ModelFixture::listed(QString MediaItem::*field) const {
  QStringList texts;
  for (std::size_t row = 0; row < model->browsing().items().size(); ++row)
    texts.append(item(row).*field);
  return texts.join(u", "_s);
}

void ModelFixture::play(const MediaItem& item) {
  model->play(item);
  settle();
}

MediaItem ModelFixture::entry(LibraryKind kind, int number) {
  const QString id = QString::number(number);
  return {.id = entryID(kind, id),
          .providerID = id,
          .kind = kind,
          .name = u"Title "_s + id,
          .fileExtension = u"mkv"_s};
}

void ModelFixture::playMovie(std::int64_t time) {
  play(entry(LibraryKind::movies, 2));
  engine.now = filmAt(time, 500'000, 0);
  clock.advance(std::chrono::milliseconds(500));
}

Preferences ModelFixture::leavePreferences() {
  quit();
  return Preferences(folders.temporary + u"/preferences.ini"_s);
}

QByteArray ModelFixture::acceptedSignIn() {
  return R"({"user_info":{"auth":1,"status":"Active","allowed_output_formats":["m3u8","ts"]}})";
}

QByteArray ModelFixture::rows(LibraryKind kind, int first, int count) {
  QByteArrayList rows;
  for (int i = first; i < first + count; ++i)
    rows.append(QByteArray("{\"") + (kind == LibraryKind::shows ? "series_id" : "stream_id") +
                "\":" + QByteArray::number(i) + ",\"name\":\"Title " + QByteArray::number(i) +
                "\",\"category_id\":" + QByteArray::number(i % 3) + '}');
  return '[' + rows.join(',') + ']';
}

QByteArray ModelFixture::guide(const QList<Programme>& programmes) const {
  const auto now = std::chrono::floor<std::chrono::seconds>(clock.now().time_since_epoch());
  QByteArrayList listings;
  for (const auto& [title, begin, end, description] : programmes)
    listings.append(R"({"title":")" + title.toBase64() + R"(","description":")" +
                    description.toBase64() + R"(","start_timestamp":)" +
                    QByteArray::number(qint64{(now + begin).count()}) + R"(,"stop_timestamp":)" +
                    QByteArray::number(qint64{(now + end).count()}) + '}');
  return R"({"epg_listings":[)" + listings.join(',') + "]}";
}

}  // namespace vantor::test
