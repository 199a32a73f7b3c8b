#include "machines/monkey/subject.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusPendingReply>
#include <QElapsedTimer>
#include <QQmlComponent>
#include <future>

namespace vantor::monkey {
namespace {

using namespace Qt::StringLiterals;

const QString application = u"tv.vantor.player"_s;

bool isFault(QtMsgType type, const QMessageLogContext&, const QString& text) {
  if (type == QtDebugMsg || type == QtInfoMsg || test::isHarmless(text)) return false;
  // A window without a display cannot be raised, and the toolkit's file dialog does not fit into a
  // small window.
  return !text.startsWith("This plugin does not support"_L1) &&
         !text.contains("Dialogs/quickimpl/qml/FileDialog.qml"_L1);
}

/// Waits for the work that a worker of one thread has got so far.
void finish(Worker& worker) {
  std::promise<void> done;
  worker.post([&done] { done.set_value(); });
  done.get_future().wait();
}

}  // namespace

Animations::Animations() {
  install();
  forever_.setStartValue(0);
  forever_.setEndValue(1);
  forever_.setDuration(1000);
  forever_.setLoopCount(-1);
  forever_.start();
}

void Animations::pass(int milliseconds) {
  elapsed_ += milliseconds;
  advanceAnimation();
}

Subject::Running::Running(Subject& on)
    : model(*on.model),
      keeper(model.playback(), on.engine, on.frames_, on.transport, on.clock),
      recordingService(model.playback()),
      idleInhibitor(on.clock),
      screenAwake(model.playback(), keeper, on.engine, idleInhibitor),
      views(model, keeper, on.clock, on.dialog_, on.frames_, on.artwork_, on.opener_,
            SettingsLinks{QUrl(u"https://support.example/"_s), {}}),
      nowPlaying(model, views.zapping(), views.episodeQueue(), on.clock),
      mpris({model, nowPlaying, keeper, on.artwork_, on.worker, on.clock, on.folders.temporary,
             application},
            {[&on] { on.raise(); }, [&on] { on.ended = true; }}) {
  QObject::connect(views.commands(), &Commands::quitRequested, &views, [&on] { on.ended = true; });
  const ApplicationObject& object = on.application_;
  QObject::connect(&object, &ApplicationObject::fileOpened, &model, &AppModel::playFile);
  QObject::connect(&object, &ApplicationObject::activated, &views, [&on] { on.raise(); });
  QObject::connect(&object, &ApplicationObject::sectionChosen, &views, [this](Section section) {
    views.remote()->leavePicture();
    model.playback().setExpanded(false);
    model.navigate(section);
  });
  qml.addImportPath(u"qrc:/qt/qml"_s);
  QQmlComponent component(&qml, QUrl(u"qrc:/qt/qml/Vantor/Ui/VantorWindow.qml"_s));
  window.reset(qobject_cast<QQuickWindow*>(component.createWithInitialProperties(
      {{u"views"_s, QVariant::fromValue(&views)}, {u"visible"_s, false}})));
  if (!window) qFatal("%s", qPrintable(component.errorString()));
  place = std::make_unique<WindowPlace>(*window, *on.preferences);
  PlayerRemote& remote = *views.remote();
  QObject::connect(&remote, &PlayerRemote::smallChanged, place.get(),
                   [this, &remote] { place->setSmall(remote.small()); });
  recordingService.offer(on.worker, application);
  mpris.offer(on.worker);
  idleInhibitor.join(on.worker, application);
}

Subject::Subject() : heard(isFault) {
  panel = &dialog_;
  output = Output::shown;
  QDBusConnection::sessionBus().registerObject(QLatin1String(applicationPath), &application_,
                                               QDBusConnection::ExportScriptableSlots);
}

Subject::~Subject() {
  stop();
}

void Subject::start(const QStringList& arguments) {
  begin(arguments);
  running_ = std::make_unique<Running>(*this);
  ended = false;
  window().show();
  settleAll();
  const Session& session = model->session();
  if (!session.account() && !session.demo()) model->setShowingConnect(true);
  raise();
  await([this] { return window().isActive(); });
}

void Subject::stop() {
  running_.reset();
  quit();
}

void Subject::raise() {
  window().setWindowStates(window().windowStates() & ~Qt::WindowMinimized);
  window().raise();
  window().requestActivate();
}

bool Subject::awake() const {
  return window().isExposed() && !(window().windowStates() & Qt::WindowMinimized);
}

std::vector<std::shared_ptr<test::FakeTransport::Exchange>> Subject::openRequests() const {
  std::vector<std::shared_ptr<test::FakeTransport::Exchange>> open;
  for (const auto& exchange : transport.exchanges())
    if (!exchange->over) open.push_back(exchange);
  return open;
}

QString Subject::waitsForNothing() const {
  const Session& session = model->session();
  if (session.startingUp()) return u"the start-up"_s;
  const bool asks = transport.open(QString()) > 0 || transport.open(u"vantor-config.json"_s) > 0;
  if (session.signingInOrOut() && !asks) return u"signing in or out"_s;
  for (const LibraryKind kind : model->libraries().loading())
    if (transport.open(action(kind)) + transport.open(categoryAction(kind)) == 0)
      return u"a library"_s;
  const bool comes = transport.open(u"get_series_info"_s) + transport.open(u"get_short_epg"_s) > 0;
  // A guide may wait its turn.
  const auto& selected = model->browsing().selected();
  const bool may = selected && selected->kind == LibraryKind::live && clock.waiting() > 0;
  return model->details().detailsLoading() && !comes && !may ? u"details"_s : QString();
}

QString Subject::settleAll() {
  const auto still = [this] {
    finish(worker);
    finish(secretsWorker);
    test::settle();
    return waitsForNothing().isEmpty();
  };
  if (!still() && !test::eventually(still)) return waitsForNothing();
  QCoreApplication::processEvents();
  animations.pass(16);
  test::settle();
  draw();
  for (const QString& call : engine.takeCalls())
    if (call.startsWith("startRecording"_L1) && engine.now.recordable) ++recordings;
  return {};
}

void Subject::draw() {
  if (!window().isExposed()) return;
  QEvent request(QEvent::UpdateRequest);
  QCoreApplication::sendEvent(&window(), &request);
}

void Subject::await(const std::function<bool()>& condition) {
  QElapsedTimer timer;
  timer.start();
  while (!condition() && !timer.hasExpired(500))
    QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
}

void Subject::call(const QString& path, const QString& interface, const QString& method,
                   const QVariantList& arguments) {
  QDBusMessage message = QDBusMessage::createMethodCall(QDBusConnection::sessionBus().baseService(),
                                                        path, interface, method);
  message.setArguments(arguments);
  const QDBusPendingCall call = client_.asyncCall(message);
  if (!test::eventually([&] { return call.isFinished(); }))
    qWarning("no answer to %s", qPrintable(method));
}

QList<QQuickItem*> Subject::shownItems() const {
  QQuickItem* root = window().contentItem();
  if (root->parentItem()) root = root->parentItem();
  QList<QQuickItem*> items{root};
  for (qsizetype i = 0; i < items.size(); ++i)
    for (QQuickItem* child : items[i]->childItems())
      if (child->isVisible() && child->opacity() > 0) items.append(child);
  return items;
}

int Subject::objects() const {
  return static_cast<int>(window().findChildren<QObject*>().size());
}

}  // namespace vantor::monkey
