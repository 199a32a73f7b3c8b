#include "support/model_fixture.h"

namespace vantor::test {
namespace {

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

QCoro::Task<> signOut(std::stop_token token, QPointer<AppModel> model) {
  const QCoro::Task<> task = model->disconnectAccount(token);
  co_await task;
}

}  // namespace

ModelFixture::ModelFixture()
    : folders{home.filePath(QStringLiteral("data")), home.filePath(QStringLiteral("config")),
              home.path()} {}

ModelFixture::~ModelFixture() {
  quit();
}

AppModel& ModelFixture::launch(const QStringList& arguments) {
  begin(arguments);
  if (!eventually([&] { return !model->session().startingUp(); }))
    qFatal("the start-up did not end");
  settle();
  return *model;
}

AppModel& ModelFixture::begin(const QStringList& arguments) {
  quit();
  preferences = std::make_unique<Preferences>(home.filePath(QStringLiteral("preferences.ini")));
  configuration = std::make_unique<VantorConfiguration>(
      transport, *preferences, QUrl(QStringLiteral("https://support.example/vantor-config.json")),
      QStringLiteral("http://fallback.example:25461"));
  const AppServices services{
      clock,
      worker,
      secretsWorker,
      secureStore,
      *preferences,
      transport,
      *configuration,
      filePanel,
      folders,
      LaunchArguments::read(QStringList{QStringLiteral("vantor")} + arguments,
                            QStringLiteral("tv.vantor.player"))};
  model = std::make_unique<AppModel>(
      services, std::make_unique<Playback>(engine, clock, worker, folders, Output::discarded));
  return *model;
}

void ModelFixture::quit() {
  signInJob.cancel();
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
  Job::start([this](std::stop_token token) {
    return signOut(token, QPointer(model.get()));
  }).detach();
  settle();
}

void ModelFixture::signIn(const QByteArray& liveBody) {
  connectAccount(account);
  transport.answer(QString(), acceptedSignIn());
  if (!eventually([&] { return signInOver; })) qFatal("the sign-in did not end");
  const bool asked = eventually([&] { return transport.open(action(LibraryKind::live)) == 1; });
  if (!asked) qFatal("the live library was not asked for");
  transport.answer(action(LibraryKind::live), liveBody);
  transport.answer(categoryAction(LibraryKind::live), "[]");
  if (!eventually([&] { return model->libraries().loading().empty(); }))
    qFatal("the load did not end");
}

void ModelFixture::playMovie(std::int64_t time) {
  MediaItem movie;
  movie.id = QStringLiteral("movies:2");
  movie.providerID = QStringLiteral("2");
  movie.kind = LibraryKind::movies;
  movie.fileExtension = QStringLiteral("mkv");
  model->play(movie);
  settle();
  engine.now.state = EngineState::playing;
  engine.now.hasMedia = true;
  engine.now.seekable = true;
  engine.now.length = 500'000;
  engine.now.time = time;
  clock.advance(std::chrono::milliseconds(500));
}

QByteArray ModelFixture::acceptedSignIn() {
  return R"({"user_info":{"auth":1,"status":"Active","allowed_output_formats":["m3u8","ts"]}})";
}

QByteArray ModelFixture::rows(LibraryKind kind, int first, int count) {
  QByteArray json = "[";
  for (int i = first; i < first + count; ++i) {
    if (i > first) json += ',';
    json += QByteArray("{\"") + (kind == LibraryKind::shows ? "series_id" : "stream_id") +
            "\":" + QByteArray::number(i) + ",\"name\":\"Title " + QByteArray::number(i) +
            "\",\"category_id\":" + QByteArray::number(i % 3) + "}";
  }
  return json + ']';
}

}  // namespace vantor::test
