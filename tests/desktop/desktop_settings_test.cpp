#include "desktop/desktop_settings.h"

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusVirtualObject>
#include <cmath>

#include "desktop/own_bus.h"
#include "platform/worker.h"

namespace vantor::test {
namespace {

const QString settingsInterface = u"org.freedesktop.portal.Settings"_s;
const QString settingsPath = u"/org/freedesktop/portal/desktop"_s;
const QString appearanceSpace = u"org.freedesktop.appearance"_s;
const QString gnomeSpace = u"org.gnome.desktop.interface"_s;
const QString gnomeAccessSpace = u"org.gnome.desktop.a11y.interface"_s;

/// Answers every question with what it was given.
class Portal final : public QDBusVirtualObject {
 public:
  QString introspect(const QString&) const override { return {}; }
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
    asked = message.member();
    return connection.send(message.createReply(answer));
  }
  QVariant answer;
  QString asked;
};

class DesktopSettingsTest : public ::testing::Test {
 protected:
  void SetUp() override { qDBusRegisterMetaType<QMap<QString, QVariantMap>>(); }

  /// Whether it asks the portal, which gives this answer.
  bool follow(const QVariant& answer) {
    portal.answer = answer;
    bus.connection.registerVirtualObject(settingsPath, &portal);
    bus.connection.registerService(u"org.freedesktop.portal.Desktop"_s);
    settings.follow(worker);
    return eventually([&] { return !portal.asked.isEmpty(); });
  }
  void change(const QString& space, const QString& key, const QVariant& value) {
    QDBusMessage message =
        QDBusMessage::createSignal(settingsPath, settingsInterface, u"SettingChanged"_s);
    bus.connection.send(message << space << key << QVariant::fromValue(QDBusVariant(value)));
  }
  /// Whether text scale, motion and contrast become these.
  bool become(const QVariantList& expected) {
    return eventually([&] {
      const auto& [textScale, reducedMotion, highContrast] = settings.wishes();
      return QVariantList{textScale, reducedMotion, highContrast} == expected;
    });
  }

  const Settled settled;
  Worker worker;
  Portal portal;
  OwnBus bus;
  DesktopSettings settings;
};

TEST_F(DesktopSettingsTest, AreAskedForAndFollowed) {
  int changes = 0;
  QObject::connect(&settings, &DesktopSettings::changed, &settings, [&] { ++changes; });
  ASSERT_TRUE(follow(QVariant::fromValue(QMap<QString, QVariantMap>{
      {gnomeSpace, {{u"text-scaling-factor"_s, 1.5}, {u"enable-animations"_s, false}}},
      {appearanceSpace, {{u"contrast"_s, 1u}}}})));
  EXPECT_TRUE(become({1.5, true, true}));
  EXPECT_EQ(portal.asked, u"ReadAll"_s);
  const std::tuple<QString, QString, QVariant, QVariantList> rows[] = {
      {gnomeSpace, u"text-scaling-factor"_s, 9.0, {2.0, true, true}},
      {gnomeSpace, u"text-scaling-factor"_s, -1.0, {1.0, true, true}},
      {gnomeSpace, u"text-scaling-factor"_s, u"large"_s, {1.0, true, true}},
      {gnomeSpace, u"text-scaling-factor"_s, std::nan(""), {1.0, true, true}},
      {appearanceSpace, u"reduced-motion"_s, 1u, {1.0, true, true}},
      {gnomeSpace, u"enable-animations"_s, true, {1.0, true, true}},
      // What changes nothing is seen to by what comes next.
      {gnomeSpace, u"text-scaling-factor"_s, 1.25, {1.25, true, true}},
      {appearanceSpace, u"reduced-motion"_s, 0u, {1.25, false, true}},
      {gnomeAccessSpace, u"high-contrast"_s, true, {1.25, false, true}},
      {appearanceSpace, u"contrast"_s, 0u, {1.25, false, true}},
      {u"org.kde.kdeglobals"_s, u"contrast"_s, 1u, {1.25, false, true}},
      {gnomeAccessSpace, u"high-contrast"_s, false, {1.25, false, false}},
  };
  for (const auto& [space, key, value, wishes] : rows) {
    change(space, key, value);
    EXPECT_TRUE(become(wishes)) << key.toStdString();
  }
  EXPECT_EQ(changes, 6) << "only what differs";
}

TEST_F(DesktopSettingsTest, AnswersOfAnyFormAreBorne) {
  ASSERT_TRUE(follow(QVariant(u"no settings"_s)));
  change(appearanceSpace, u"contrast"_s, 1u);
  EXPECT_TRUE(become({1.0, false, true}));
}

}  // namespace
}  // namespace vantor::test
