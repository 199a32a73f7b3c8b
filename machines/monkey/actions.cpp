#include "machines/monkey/actions.h"

#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QFile>
#include <QTest>
#include <QWheelEvent>
#include <array>

#include "machines/monkey/answers.h"
#include "machines/monkey/subject.h"
#include "playback/playback.h"

namespace vantor::monkey {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// The one of them that a number means.
template <class List>
const auto& chosen(const List& list, std::uint32_t number) {
  return *(std::begin(list) + number % std::size(list));
}

constexpr std::array keys{
    Qt::Key_Up,        Qt::Key_Down,     Qt::Key_Left,      Qt::Key_Right,
    Qt::Key_Up,        Qt::Key_Down,     Qt::Key_Left,      Qt::Key_Right,
    Qt::Key_Return,    Qt::Key_Return,   Qt::Key_Escape,    Qt::Key_Escape,
    Qt::Key_Space,     Qt::Key_Tab,      Qt::Key_Backtab,   Qt::Key_PageUp,
    Qt::Key_PageDown,  Qt::Key_Home,     Qt::Key_End,       Qt::Key_Backspace,
    Qt::Key_Delete,    Qt::Key_Menu,     Qt::Key_F10,       Qt::Key_F11,
    Qt::Key_Enter,     Qt::Key_1,        Qt::Key_2,         Qt::Key_3,
    Qt::Key_0,         Qt::Key_F,        Qt::Key_P,         Qt::Key_N,
    Qt::Key_Z,         Qt::Key_A,        Qt::Key_S,         Qt::Key_M,
    Qt::Key_I,         Qt::Key_K,        Qt::Key_O,         Qt::Key_Q,
    Qt::Key_Plus,      Qt::Key_Minus,    Qt::Key_Equal,     Qt::Key_Question,
    Qt::Key_Comma,     Qt::Key_Period,   Qt::Key_MediaNext, Qt::Key_MediaPrevious,
    Qt::Key_ChannelUp, Qt::Key_VolumeUp, Qt::Key_VolumeMute};
constexpr std::array modifiers{
    Qt::NoModifier, Qt::NoModifier,    Qt::NoModifier,      Qt::NoModifier,      Qt::NoModifier,
    Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier, Qt::ControlModifier, Qt::AltModifier};
constexpr std::array texts{"t", "title 1", "2", "zzz", "title", " ", "wide", "bold"};
// Below these the toolkit's own file dialog goes round in a circle (Qt 6.4).
constexpr std::array sizes{QSize(1320, 820),  QSize(1100, 720), QSize(1600, 1000),
                           QSize(1920, 1080), QSize(800, 600),  QSize(480, 270),
                           QSize(240, 135),   QSize(90, 700),   QSize(100, 60),
                           QSize(3840, 2160), QSize(2500, 200), QSize(1320, 820)};
constexpr std::array times{10ms,   100ms,  250ms,  250ms,    300ms,   500ms,
                           1000ms, 1500ms, 3000ms, 15'000ms, 61'000ms};
constexpr std::array jumps{24h, -24h, 10h, -10h, 1h, -1h, 24h * 365};

/// Whether something may happen where the item is pressed.
bool isTarget(const QQuickItem* item) {
  return item->isEnabled() && item->width() > 0 && item->height() > 0 &&
         (item->acceptedMouseButtons() != Qt::NoButton || item->activeFocusOnTab() ||
          item->property("itemID").isValid() || item->property("isSelected").isValid());
}

QPoint inside(const Subject& on, const QPointF& place) {
  const QSize size = on.window().size();
  return {std::clamp(static_cast<int>(place.x()), 0, std::max(0, size.width() - 1)),
          std::clamp(static_cast<int>(place.y()), 0, std::max(0, size.height() - 1))};
}

QPoint middle(const Subject& on, const QQuickItem* item) {
  return inside(on, item->mapToScene(item->boundingRect().center()));
}

QPoint somewhere(const Subject& on, std::uint32_t a, std::uint32_t b) {
  return inside(on, {a / 10'000.0 * on.window().width(), b / 10'000.0 * on.window().height()});
}

/// A place on one of the items that are there.
QPoint onItem(const Subject& on, const Step& step) {
  QList<QQuickItem*> targets = on.shownItems();
  targets.removeIf([](const QQuickItem* item) { return !isTarget(item); });
  if (targets.isEmpty()) return somewhere(on, step.a, step.b);
  const QQuickItem* item = chosen(targets, step.a);
  const double part = 0.1 + step.b % 9 / 10.0;
  return inside(on, item->mapToScene({item->width() * part, item->height() * part}));
}

/// What the key writes.
QString textOf(Qt::Key key, Qt::KeyboardModifiers held) {
  if (held & ~Qt::ShiftModifier || key > Qt::Key_AsciiTilde) return {};
  const QString letter = QChar(key);
  return held ? letter : letter.toLower();
}

void hold(Subject& on, Qt::Key key, Qt::KeyboardModifiers held) {
  const QString text = textOf(key, held);
  for (int i = 0; i < 4; ++i) {
    QTest::simulateEvent(&on.window(), true, key, held, text, i > 0);
    on.settleAll();
  }
  QTest::simulateEvent(&on.window(), false, key, held, text, false);
}

void press(Subject& on, Qt::Key key, Qt::KeyboardModifiers held) {
  QTest::sendKeyEvent(QTest::Click, &on.window(), key, textOf(key, held), held);
}

void type(Subject& on, const Step& step) {
  for (const QQuickItem* item : on.shownItems())
    if (step.b % 2 == 0 && item->objectName() == "library-search"_L1)
      QTest::mouseClick(&on.window(), Qt::LeftButton, {}, middle(on, item));
  for (const char* letter = chosen(texts, step.a); *letter; ++letter)
    QTest::keyClick(&on.window(), *letter);
}

void wheel(Subject& on, const Step& step) {
  const QPointF place = onItem(on, step);
  const QPoint angle = step.b % 5 == 0 ? QPoint(240, 0) : QPoint(0, step.b % 2 ? 120 : -360);
  QWheelEvent event(place, on.window().mapToGlobal(place), {}, angle, Qt::NoButton,
                    chosen(modifiers, step.b / 7), Qt::NoScrollPhase, false);
  event.setTimestamp(static_cast<quint64>(on.animations.elapsed()));
  QCoreApplication::sendEvent(&on.window(), &event);
}

void drag(Subject& on, const Step& step) {
  const QPoint from = onItem(on, step);
  const QPoint to = somewhere(on, step.b, step.a);
  QTest::mousePress(&on.window(), Qt::LeftButton, {}, from);
  for (int i = 1; i <= 4 && on.awake(); ++i) {
    QTest::mouseMove(&on.window(), inside(on, from + (to - from) * i / 4.0));
    on.settleAll();
  }
  QTest::mouseRelease(&on.window(), Qt::LeftButton, {}, inside(on, to));
}

void resize(Subject& on, const QSize& size) {
  // Some desktops do not ask for the smallest size.
  on.window().setMinimumSize({1, 1});
  on.window().resize(size);
  Subject::await([&] { return on.window().size() == size; });
}

void leaveAndComeBack(Subject& on) {
  QWindow other;
  other.resize(50, 50);
  other.show();
  other.requestActivate();
  Subject::await([&] { return other.isActive(); });
  on.settleAll();
}

void changeState(Subject& on, std::uint32_t choice) {
  QQuickWindow& window = on.window();
  if (!on.awake()) choice = 1;
  switch (choice % 6) {
    case 0:
      return window.showMinimized();
    case 1:
      window.showNormal();
      break;
    case 2:
      window.showMaximized();
      break;
    case 3:
      window.showFullScreen();
      break;
    case 4:
      window.hide();
      on.settleAll();
      window.show();
      break;
    default:
      leaveAndComeBack(on);
  }
  Subject::await([&] { return window.isExposed(); });
  window.requestActivate();
  Subject::await([&] { return window.isActive(); });
}

void signIn(Subject& on, const Step& step) {
  constexpr std::array lengths{40, 3, 60, 300, 1, 3000};
  on.connectAccount(on.account);
  for (int round = 0; round < 10; ++round) {
    on.settleAll();
    for (const auto& request : on.openRequests()) endWell(*request, chosen(lengths, step.a));
  }
}

void recordingEnds(Subject& on, std::uint32_t b) {
  if (on.recordings == 0) return;
  --on.recordings;
  const QString file = on.home.filePath(u"recorded.ts"_s);
  if (QFile recorded(file); b % 2 && recorded.open(QFile::WriteOnly)) recorded.write("TS");
  on.engine.onRecordingStopped(b % 2 ? file : QString());
}

void setTracks(EngineStatus& now, std::uint32_t b) {
  now.audioTracks.clear();
  now.subtitleTracks.clear();
  for (std::int32_t i = 0; i < static_cast<std::int32_t>(b % 4); ++i) {
    now.audioTracks.append({i, u"Sound %1"_s.arg(i), i % 2 ? u"deu"_s : u"eng"_s, {}});
    now.subtitleTracks.append({10 + i, u"Text %1"_s.arg(i), {}, {}});
  }
  now.audioTrack = b % 4 > 0 ? 0 : -1;
  now.subtitleTrack = b % 3 == 0 ? 10 : -1;
}

/// What a source does by itself.
void changeSource(EngineStatus& now, const Step& step) {
  if (!now.hasMedia) return;
  switch (step.a % 11) {
    case 6:
      now.state = EngineState::ended;
      break;
    case 5:
    case 7:
      now.state = EngineState::error;
      break;
    case 8:
      now.length = step.b % 3 ? 500'000 : 0;
      now.seekable = step.b % 2;
      break;
    case 9:
      setTracks(now, step.b);
      break;
    case 10:
      now.recordable = !now.recordable;
      break;
    default:
      now.state = EngineState::playing;
      now.decodedVideo += step.a % 3;
      now.decodedAudio += 2;
      now.decoded += 2;
      now.time += step.b * 5;
      now.picture.size = QSize(1280, 720);
  }
}

void actOnEngine(Subject& on, const Step& step) {
  test::FakeEngine& engine = on.engine;
  switch (step.a % 16) {
    case 11:
      return recordingEnds(on, step.b);
    case 12:
      engine.releasesLate = !engine.releasesLate;
      break;
    case 13:
      engine.now.releasing = false;
      break;
    case 14:
      engine.devices = {{{u"one"_s, u"One"_s}, {u"two"_s, u"Two"_s}}, u"one"_s};
      if (step.b % 2) engine.devices = {};
      break;
    case 15:
      engine.picture = engine.picture.isNull() ? QImage(64, 36, QImage::Format_RGB32) : QImage();
      engine.picture.fill(Qt::blue);
      break;
    default:
      changeSource(engine.now, {step.act, step.a % 16, step.b});
  }
  if (step.b % 2) engine.announce();
}

/// Opens a row, and its first picture comes.
void watch(Subject& on, const Step& step) {
  const int rows = on.on().views.items()->rowCount();
  // Episodes lie over the rows.
  if (rows == 0 || on.model->browsing().showingEpisodes()) return;
  on.on().views.shell()->openRow(static_cast<int>(step.a) % rows);
  on.settleAll();
  changeSource(on.engine.now, {step.act, 1, step.b});
  on.clock.advance(250ms);
}

void callOverBus(Subject& on, const Step& step) {
  const QString mpris = u"/org/mpris/MediaPlayer2"_s;
  const QString player = u"org.mpris.MediaPlayer2.Player"_s;
  const QString root = u"org.mpris.MediaPlayer2"_s;
  const QString properties = u"org.freedesktop.DBus.Properties"_s;
  const QString desktop = u"org.freedesktop.Application"_s;
  const QString recording = u"tv.vantor.player.Recording"_s;
  const QString own = QLatin1String(Subject::applicationPath);
  const QString file = QUrl::fromLocalFile(on.home.filePath(u"preferences.ini"_s)).toString();
  const qlonglong time = (static_cast<qlonglong>(step.b) - 5000) * 100'000;
  const auto value = [](const QVariant& of) { return QVariant::fromValue(QDBusVariant(of)); };
  struct Call {
    QString path, interface, method;
    QVariantList arguments = {};
  };
  const std::array calls{
      Call{mpris, player, u"Next"_s},
      Call{mpris, player, u"Previous"_s},
      Call{mpris, player, u"Pause"_s},
      Call{mpris, player, u"PlayPause"_s},
      Call{mpris, player, u"Stop"_s},
      Call{mpris, player, u"Play"_s},
      Call{mpris, player, u"Seek"_s, {time}},
      Call{mpris,
           player,
           u"SetPosition"_s,
           {QVariant::fromValue(QDBusObjectPath(u"/tv/vantor/player/track/1"_s)), time}},
      Call{mpris, player, u"OpenUri"_s, {step.b % 2 ? file : u"http://x.example/y"_s}},
      Call{mpris, root, u"Raise"_s},
      Call{mpris, properties, u"GetAll"_s, {player}},
      Call{mpris, properties, u"Set"_s, {player, u"Volume"_s, value(step.b / 5000.0)}},
      Call{mpris, properties, u"Set"_s, {player, u"Rate"_s, value(step.b / 3000.0)}},
      Call{mpris, properties, u"Set"_s, {root, u"Fullscreen"_s, value(step.b % 2 == 0)}},
      Call{own, desktop, u"Activate"_s, {QVariantMap()}},
      Call{own, desktop, u"Open"_s, {QStringList{file}, QVariantMap()}},
      Call{own,
           desktop,
           u"ActivateAction"_s,
           {chosen(std::array{u"search"_s, u"live"_s, u"movies"_s, u"shows"_s, u"list"_s, u"no"_s},
                   step.b),
            QVariantList(), QVariantMap()}},
      Call{own, recording, u"Start"_s},
      Call{own, recording, u"Stop"_s},
      Call{own, recording, u"ListRecordings"_s},
      Call{mpris, root, step.b % 20 ? u"Raise"_s : u"Quit"_s}};
  const Call& made = chosen(calls, step.a);
  on.call(made.path, made.interface, made.method, made.arguments);
}

void launchAgain(Subject& on, std::uint32_t choice) {
  on.stop();
  on.start(choice % 4 == 0 ? QStringList{u"--demo"_s} : QStringList());
}

/// Keys and pointers, which only a window takes that can be seen.
void handle(Subject& on, const Step& step) {
  if (!on.awake()) return;
  QQuickWindow& window = on.window();
  switch (step.act) {
    case Act::key:
      return press(on, chosen(keys, step.a), chosen(modifiers, step.b));
    case Act::hold:
      return hold(on, chosen(keys, step.a), chosen(modifiers, step.b));
    case Act::type:
      return type(on, step);
    case Act::clickItem:
      return QTest::mouseClick(&window, Qt::LeftButton, {}, onItem(on, step));
    case Act::doubleClickItem:
      return QTest::mouseDClick(&window, Qt::LeftButton, {}, onItem(on, step));
    case Act::openMenu:
      return QTest::mouseClick(&window, Qt::RightButton, {}, onItem(on, step));
    case Act::point:
      return QTest::mouseMove(&window, somewhere(on, step.a, step.b));
    case Act::wheel:
      return wheel(on, step);
    case Act::drag:
      return drag(on, step);
    default:
      break;
  }
}

void actOnRequests(Subject& on, const Step& step) {
  const auto open = on.openRequests();
  if (open.empty()) return;
  if (step.act == Act::answer) return end(*chosen(open, step.a), step.b);
  for (const auto& request : open) endWell(*request, chosen(std::array{40, 0, 1, 60}, step.b));
}

void changeAccount(Subject& on, const Step& step) {
  if (step.act == Act::signOut) return on.disconnectAccount();
  const QString user = step.b % 3 ? u"user"_s : u"another"_s;
  on.connectAccount(
      ProviderAccount::validated(u"Vantor TV"_s, u"http://tv.example"_s, user, u"secret"_s));
}

void changeCredentials(Subject& on, const Step& step) {
  using Operation = test::FakeCredentialStore::Operation;
  const auto operation = static_cast<Operation>(step.a % 4);
  if (step.b % 3 == 0)
    on.credentials.fail(operation);
  else
    for (int i = 0; i < 4; ++i) on.credentials.work(static_cast<Operation>(i));
}

}  // namespace

void perform(Subject& on, const Step& step) {
  switch (step.act) {
    case Act::signIn:
      return signIn(on, step);
    case Act::resize:
      return resize(on, chosen(sizes, step.a));
    case Act::state:
      return changeState(on, step.a);
    case Act::navigate:
      return on.on().views.shell()->navigate(static_cast<int>(step.a % allSections.size()));
    case Act::answer:
    case Act::answerAll:
      return actOnRequests(on, step);
    case Act::watch:
      return watch(on, step);
    case Act::engine:
      return actOnEngine(on, step);
    case Act::pass:
      return on.clock.advance(chosen(times, step.a));
    case Act::setClock:
      return on.clock.set(chosen(jumps, step.a));
    case Act::animate:
      for (std::uint32_t i = 0; i < step.a % 10; ++i) on.animations.pass(50);
      return;
    case Act::bus:
      return callOverBus(on, step);
    case Act::signOut:
    case Act::connect:
      return changeAccount(on, step);
    case Act::launch:
      return launchAgain(on, step.a);
    case Act::credentials:
      return changeCredentials(on, step);
    case Act::network:
      return on.on().keeper.hurry();
    default:
      return handle(on, step);
  }
}

}  // namespace vantor::monkey
