#include "desktop/desktop_settings.h"

#include <QDBusMetaType>
#include <cmath>

#include "desktop/own_bus.h"
#include "platform/worker.h"

namespace vantor::test {
namespace {

const QString appearanceSpace = u"org.freedesktop.appearance"_s;
const QString gnomeSpace = u"org.gnome.desktop.interface"_s;
const QString gnomeAccessSpace = u"org.gnome.desktop.a11y.interface"_s;

class DesktopSettingsTest : public ::testing::Test {
 protected:
  /// Whether it asks the portal, which gives this answer.
  bool follow(const QVariant& answer) {
    portal.onCall = [this, answer](const QDBusMessage& call) {
      answered = call.member() == "ReadAll"_L1 && bus.connection.send(call.createReply(answer));
    };
    EXPECT_TRUE(bus.offer(portalName, portalPath, portal));
    settings.follow(worker);
    return eventually([&] { return answered; });
  }
  void change(const QString& space, const QString& key, const QVariant& value) {
    QDBusMessage message = QDBusMessage::createSignal(
        portalPath, u"org.freedesktop.portal.Settings"_s, u"SettingChanged"_s);
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
  bool answered = false;
  DesktopObject portal;
  OwnBus bus;
  DesktopSettings settings;
};

TEST_F(DesktopSettingsTest, AreAskedForAndFollowed) {
  int changes = 0;
  QObject::connect(&settings, &DesktopSettings::changed, &settings, [&] { ++changes; });
  qDBusRegisterMetaType<QMap<QString, QVariantMap>>();
  ASSERT_TRUE(follow(QVariant::fromValue(QMap<QString, QVariantMap>{
      {gnomeSpace, {{u"text-scaling-factor"_s, 1.5}, {u"enable-animations"_s, false}}},
      {appearanceSpace, {{u"contrast"_s, 1u}}}})));
  EXPECT_TRUE(become({1.5, true, true}));
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
  ASSERT_TRUE(follow(u"no settings"_s));
  bus.arrive();  // after the answer
  change(appearanceSpace, u"contrast"_s, 1u);
  EXPECT_TRUE(become({1.0, false, true}));
}

}  // namespace
}  // namespace vantor::test
