#include "stage.h"

#include <QAccessible>
#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>
#include <cstdio>
#include <stdexcept>
#include <string>

#include "app/program.h"
#include "platform/secret_service_store.h"
#include "provider/service_values.h"
#include "shown_texts.h"
#include "storage/secure_store.h"

namespace vantor::screens {

using namespace Qt::StringLiterals;

namespace {

constexpr int patience = 20'000;  // ms
constexpr int settling = 450;     // ms

sim::Options withMedia(sim::Options options) {
  options.mediaFolder = qEnvironmentVariable("VANTOR_SIM_MEDIA").toStdString();
  return options;
}

QQuickWindow* openWindow() {
  for (QWindow* window : QGuiApplication::topLevelWindows())
    if (window->isVisible()) return qobject_cast<QQuickWindow*>(window);
  return nullptr;
}

void forgetAccount() {
  SecretServiceStore desktop;
  const SecureStore secrets(desktop, ServiceValues::ofBuild().bundleIdentifier);
  secrets.remove(providerItem, {});
}

}  // namespace

void Album::add(const QString& picture, const TextContrast& text) {
  if (!text.suffices()) {
    ++faintTexts;
    std::printf("    contrast %.2f, not %.1f: %s\n", text.ratio, text.least, qPrintable(text.text));
  }
  if (!worstPicture.isEmpty() && text.ratio / text.least >= worst.ratio / worst.least) return;
  worst = text;
  worstPicture = picture;
}

Stage::Stage(Album& album, sim::Options options, const LaunchArguments& launch)
    : album_(album), options_(withMedia(std::move(options))), server_(options_) {
  forgetAccount();
  qputenv("XDG_DATA_HOME", QFile::encodeName(home_.filePath(u"data"_s)));
  qputenv("XDG_CONFIG_HOME", QFile::encodeName(home_.filePath(u"config"_s)));
  qputenv("VANTOR_CONFIG_URL", QByteArray::fromStdString(server_.configUrl()));
  program_ = std::make_unique<Program>(launch);
  program_->open();
  until("the window", [&] { return (window_ = openWindow()) != nullptr; });
  views_ = window_->property("views").value<Views*>();
  if (!QTest::qWaitForWindowExposed(window_, patience))
    throw std::runtime_error("the window does not appear");
}

Stage::~Stage() {
  program_.reset();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void Stage::submitSignIn() {
  until("the sign-in sheet", [&] { return views().connectView()->shown(); });
  ConnectView& sheet = *views().connectView();
  sheet.setUsername(QString::fromStdString(options_.username));
  sheet.setPassword(QString::fromStdString(options_.password));
  sheet.connectAccount();
}

void Stage::signIn() {
  submitSignIn();
  until("the signed-in program", [&] { return !views().connectView()->shown(); });
  until("the library", [&] { return !views().statusView()->loading(); });
}

void Stage::show(Section section) {
  views().shell()->navigate(static_cast<int>(section));
  until("the entries", [&] { return !views().statusView()->loading(); });
  settle();
}

void Stage::until(const char* what, const std::function<bool()>& condition) {
  if (!QTest::qWaitFor(condition, patience))
    throw std::runtime_error(std::string("waited in vain for ") + what);
}

void Stage::untilAsked(const char* action, int count) {
  until(action, [&] {
    const std::map<std::string, int> requests = server_.counters().requests;
    const auto found = requests.find(action);
    return found != requests.end() && found->second >= count;
  });
}

void Stage::press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
  QTest::keyClick(window_, key, modifiers);
  settle();
}

QQuickItem* Stage::named(const QString& accessibleName) {
  const auto search = [&](auto& self, QQuickItem* item) -> QQuickItem* {
    if (!item->isVisible()) return nullptr;
    if (QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(item);
        interface && interface->role() != QAccessible::StaticText &&
        interface->text(QAccessible::Name) == accessibleName)
      return item;
    for (QQuickItem* child : item->childItems())
      if (QQuickItem* found = self(self, child)) return found;
    return nullptr;
  };
  return search(search, window_->contentItem());
}

void Stage::click(const QString& accessibleName) {
  QQuickItem* item = nullptr;
  until(qPrintable(accessibleName), [&] { return (item = named(accessibleName)) != nullptr; });
  const QPointF middle = item->mapToScene({item->width() / 2, item->height() / 2});
  QTest::mouseClick(window_, Qt::LeftButton, Qt::NoModifier, middle.toPoint());
  settle();
}

void Stage::settle() {
  QTest::qWait(settling);
}

void Stage::shot(const QString& name, const QString& what) {
  ++album_.taken;
  if (!album_.filter.isEmpty() && !name.contains(album_.filter)) return;
  const QString file = u"%1-%2.png"_s.arg(album_.taken, 2, 10, QChar(u'0')).arg(name);
  if (!window_->grabWindow().save(album_.folder + u'/' + file))
    throw std::runtime_error("cannot write " + file.toStdString());
  std::printf("%s  %s\n", qPrintable(file), qPrintable(what));
  for (const QString& text : cutTexts(*window_)) std::printf("    cut: %s\n", qPrintable(text));
  for (const TextContrast& text : textContrasts(*window_)) album_.add(file, text);
  std::fflush(stdout);
}

}  // namespace vantor::screens
