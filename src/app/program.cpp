#include "app/program.h"

#include <QCoreApplication>
#include <QDir>
#include <QGuiApplication>
#include <QQuickGraphicsConfiguration>
#include <QQuickWindow>
#include <QTimer>
#include <utility>

#include "app/quit_limit.h"
#include "app/writing_systems.h"
#include "desktop/application_object.h"
#include "platform/memory.h"
#include "playback/playback.h"
#include "ui/style/style.h"

namespace vantor {

using namespace Qt::StringLiterals;

namespace {

using namespace std::chrono_literals;

// The window comes up with the first library in it, unless that takes long enough to be noticed.
constexpr auto longestWaitForLibrary = 150ms;
// A recording that is being saved gets five seconds, and then playback has to stop.
constexpr auto longestQuitting = 9s;

/// Where the program's own files are, installed as in its build; empty when it has none.
QString resourceFolder() {
  const QDir folder(QCoreApplication::applicationDirPath() + u"/../share/vantor"_s);
  return folder.exists() ? folder.canonicalPath() : QString();
}

}  // namespace

Program::Program(const LaunchArguments& launch)
    : launch_(launch),
      log_(launch.isolated ? std::nullopt : std::optional<RunLog>(std::in_place, folders_.notes())),
      preferences_(folders_.preferencesFile()),
      configuration_(transport_, preferences_, values_.endpoint, values_.fallback),
      secureStore_(credentials_, values_.bundleIdentifier),
      artwork_(transport_, clock_, artworkWorker_),
      filePanel_(ownFilePanel_, clock_,
                 [] {
                   return PortalFilePanel::Wording{
                       QCoreApplication::translate("MediaFileDialog", "Open a media file"),
                       DialogFilePanel::kinds(), DialogFilePanel::patterns()};
                 }),
      frames_(std::make_shared<VideoFrameQueue>()),
      engine_(frames_, Output::shown),
      model_(AppServices{clock_, worker_, secretsWorker_, secureStore_, preferences_, transport_,
                         configuration_, filePanel_, folders_, launch_},
             std::make_unique<Playback>(engine_, clock_, worker_, folders_, Output::shown)),
      keeper_(model_.playback(), engine_, *frames_, transport_, clock_),
      recordingService_(model_.playback()),
      views_(model_, keeper_, clock_, ownFilePanel_, *frames_, artwork_, opener_,
             SettingsLinks{values_.supportSite, resourceFolder()}),
      screenAwake_(model_.playback(), keeper_, engine_, idleInhibitor_),
      nowPlaying_(model_, views_.zapping(), views_.episodeQueue(), clock_),
      mpris_({model_, nowPlaying_, keeper_, artwork_, worker_, clock_, folders_.temporary,
              values_.bundleIdentifier},
             {[this] { raiseWindow(); }, [this] { quit(); }}) {
  connect(&networkWatch_, &NetworkWatch::changed, &keeper_, &StreamKeeper::hurry);
  connect(views_.nextEpisode(), &NextEpisode::changed, &screenAwake_,
          [this] { screenAwake_.setContinues(views_.nextEpisode()->countsDown()); });
  connect(&signals_, &TerminationSignals::received, this, &Program::quit);
  connect(views_.commands(), &Commands::quitRequested, this, &Program::quit);
  connect(qGuiApp, &QGuiApplication::lastWindowClosed, this, &Program::quit);
  // When what has been loaded is on the screen: whoever wants memory meanwhile would have to wait.
  memoryReturn_.setSingleShot(true);
  connect(&model_.libraries(), &Libraries::loadingChanged, this, [this] {
    if (model_.libraries().loading().empty())
      memoryReturn_.start(1s);
    else
      memoryReturn_.stop();
  });
  connect(&memoryReturn_, &QTimer::timeout, this, [this] { worker_.post(returnFreeMemory); });
  connect(&delegate_, &AppDelegate::terminate, this, [] { QCoreApplication::exit(0); });
}

Program::~Program() = default;

void Program::quit() {
  if (!std::exchange(quitting_, true)) {
    limitQuitting(0, longestQuitting);
    Q_EMIT quitting();
  }
  delegate_.applicationShouldTerminate();
}

void Program::open() {
  qml_.addImportPath(u"qrc:/qt/qml"_s);
  connect(&component_, &QQmlComponent::statusChanged, this, &Program::makeWindow);
  desktopSettings_.follow(busWorker_);
  component_.loadUrl(QUrl(u"qrc:/qt/qml/Vantor/Ui/VantorWindow.qml"_s),
                     QQmlComponent::Asynchronous);
  // The first window of a process looks for a graphics driver, which takes as long as QML takes to
  // read its files on the other thread.
  const QQuickWindow first;
}

void Program::obey(const ApplicationObject& object) {
  connect(&object, &ApplicationObject::fileOpened, &model_, &AppModel::playFile);
  connect(&object, &ApplicationObject::sectionChosen, this, &Program::show);
  connect(&object, &ApplicationObject::activated, this, [this](const QByteArray& token) {
    // Where Qt looks for it.
    if (!token.isEmpty()) qputenv("XDG_ACTIVATION_TOKEN", token);
    raiseWindow();
    qunsetenv("XDG_ACTIVATION_TOKEN");
  });
}

void Program::makeWindow() {
  if (component_.isLoading()) return;
  window_.reset(qobject_cast<QQuickWindow*>(component_.createWithInitialProperties(
      {{u"views"_s, QVariant::fromValue(&views_)}, {u"visible"_s, false}})));
  if (!window_) {
    qCritical().noquote() << component_.errorString();
    QCoreApplication::exit(1);
    return;
  }
  QQuickGraphicsConfiguration graphics = window_->graphicsConfiguration();
  // Little lies over anything else, and without a graphics card a depth test costs a tenth.
  graphics.setDepthBufferFor2D(false);
  window_->setGraphicsConfiguration(graphics);
  windowPlace_ = std::make_unique<WindowPlace>(*window_, launch_.isolated ? unkept_ : preferences_);
  PlayerRemote& remote = *views_.remote();
  connect(&remote, &PlayerRemote::smallChanged, windowPlace_.get(),
          [this, &remote] { windowPlace_->setSmall(remote.small()); });
  connect(&desktopSettings_, &DesktopSettings::changed, this, &Program::followWishes);
  // Which may have come already.
  if (desktopSettings_.wishes() != DesktopSettings::Wishes()) followWishes();
  startUp();
}

void Program::followWishes() {
  const auto& [textScale, reducedMotion, highContrast] = desktopSettings_.wishes();
  const int type = qmlTypeId("Vantor.Style", 1, 0, "Style");
  auto* const style = qml_.singletonInstance<Style*>(type);
  const bool grows = textScale > style->textScale();
  style->setWishes(textScale, reducedMotion, highContrast);
  // Once: the window is the user's again afterwards.
  if (grows) windowPlace_->makeRoom(textScale);
}

void Program::startUp() {
  delegate_.setPlayback(&model_.playback());
  if (model_.session().startingUp())
    connect(&model_.session(), &Session::startingUpChanged, this, &Program::offerSignIn);
  else
    offerSignIn();
  // After the sheet, which it waits for.
  if (!launch_.isolated) crashNotice_.emplace(model_, worker_, folders_.notes());
  connect(&model_.session(), &Session::startingUpChanged, this, &Program::showWindowWhenReady);
  connect(&model_.browsing(), &Browsing::itemsChanged, this, &Program::showWindowWhenReady);
  QTimer::singleShot(longestWaitForLibrary, this, &Program::showWindow);
  showWindowWhenReady();
  if (const std::optional<Section> section = sectionNamed(launch_.show)) show(*section);
  if (!launch_.file.isEmpty()) model_.playFile(launch_.file);
  if (!launch_.smokeTest) return;
  PlayRequest request;
  request.url = QUrl::fromLocalFile(QDir::current().absoluteFilePath(*launch_.smokeTest));
  request.title = tr("Local playback test");
  request.id = u"smoke"_s;
  request.agent = defaultUserAgent;
  request.kind = SourceKind::file;
  model_.playback().play(request);
}

void Program::showWindowWhenReady() {
  if (model_.session().startingUp()) return;
  if (!model_.session().account() || model_.browsing().items().size() > 0) showWindow();
}

void Program::showWindow() {
  if (std::exchange(windowShown_, true)) return;
  window_->show();
  raiseWindow();
  // libVLC looks through its plugins, which would hold up the first picture of the window.
  connect(
      window_.get(), &QQuickWindow::frameSwapped, this,
      [this] {
        engine_.warmUp();
        recordingService_.offer(busWorker_, values_.bundleIdentifier);
        mpris_.offer(busWorker_);
        idleInhibitor_.join(busWorker_, values_.bundleIdentifier);
        networkWatch_.listen(busWorker_);
        filePanel_.join(busWorker_);
        if (QGuiApplication::platformName() == "xcb"_L1)
          filePanel_.setParentWindow(u"x11:"_s + QString::number(window_->winId(), 16));
        if (const QStringList missing = writingSystemsWithoutFont(); !missing.isEmpty())
          qWarning().noquote() << "No font for" << missing.join(u", "_s)
                               << "here; Debian has fonts-noto-core, fonts-noto-cjk and "
                                  "fonts-materialdesignicons-webfont";
      },
      static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
}

void Program::raiseWindow() {
  // It comes up by itself.
  if (!windowShown_) return;
  window_->setWindowStates(window_->windowStates() & ~Qt::WindowMinimized);
  window_->raise();
  window_->requestActivate();
}

void Program::show(Section section) {
  if (model_.session().startingUp()) {
    // Which ends in a section of its own.
    connect(
        &model_.session(), &Session::startingUpChanged, this, [this, section] { show(section); },
        Qt::SingleShotConnection);
    return;
  }
  views_.remote()->leavePicture();
  model_.playback().setExpanded(false);
  model_.navigate(section);
}

void Program::offerSignIn() {
  if (!model_.session().account() && !model_.session().demo()) model_.setShowingConnect(true);
}

}  // namespace vantor
