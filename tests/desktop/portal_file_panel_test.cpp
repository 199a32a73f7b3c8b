#include "desktop/portal_file_panel.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDBusVirtualObject>
#include <QTimer>

#include "desktop/own_bus.h"
#include "platform/worker.h"
#include "support/awaited.h"
#include "support/fake_file_panel.h"
#include "support/manual_clock.h"

namespace vantor::test {
namespace {

const QString portalName = u"org.freedesktop.portal.Desktop"_s;
const QString portalObject = u"/org/freedesktop/portal/desktop"_s;

/// Takes calls; what it answers and does then is the test's.
class FileChooser final : public QDBusVirtualObject {
 public:
  QString introspect(const QString&) const override { return {}; }
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
    calls.append(message);
    if (message.member() != "OpenFile"_L1) return true;
    const QVariantMap options = qdbus_cast<QVariantMap>(message.arguments().value(2));
    request = place.isEmpty()
                  ? portalObject + u"/request/"_s + message.service().mid(1).replace(u'.', u'_') +
                        u'/' + options[u"handle_token"_s].toString()
                  : place;
    message.setDelayedReply(true);
    if (isSilent) return true;
    return connection.send(
        refuses ? message.createErrorReply(QDBusError::AccessDenied, u"no"_s)
                : message.createReply(QVariant::fromValue(QDBusObjectPath(request))));
  }
  bool wasClosed() const {
    return !calls.isEmpty() && calls.last().member() == "Close"_L1 &&
           calls.last().path() == request;
  }

  QList<QDBusMessage> calls;
  QString request;
  QString place;  // of requests, where it is its own choice
  bool isSilent = false;
  bool refuses = false;
};

class PortalFilePanelTest : public ::testing::Test {
 protected:
  bool offer() {
    return bus.connection.registerVirtualObject(portalObject, &chooser, QDBusConnection::SubPath) &&
           bus.connection.registerService(portalName);
  }
  /// Waits for the bus, too.
  Pending<std::optional<QUrl>> choose() {
    panel.join(worker);
    settle();  // the job
    awaited<Done>(worker.run([] {}));
    settle();
    panel.setParentWindow(u"x11:1a"_s);
    return panel.chooseMediaFile();
  }
  bool isOpen() {
    return eventually([&] { return !chooser.request.isEmpty(); });
  }
  /// Whether the other panel is asked, and its answer becomes this one's.
  bool isLeftToTheOther(const Pending<std::optional<QUrl>>& choice) {
    const QUrl file(u"file:///other.mkv"_s);
    if (!eventually([&] { return other.shown > 0; })) return false;
    other.shown = 0;
    other.choice.resolve(file);
    return awaited<std::optional<QUrl>>(choice) == file;
  }
  void respond(const QVariantList& arguments) {
    QDBusMessage response = QDBusMessage::createSignal(
        chooser.request, u"org.freedesktop.portal.Request"_s, u"Response"_s);
    response.setArguments(arguments);
    bus.connection.send(response);
  }

  const Settled settled;
  FileChooser chooser;
  OwnBus bus;
  FakeFilePanel other;
  ManualClock clock;
  Worker worker;
  PortalFilePanel panel{other, clock, [] {
                          return PortalFilePanel::Wording{u"Open"_s, u"Movies"_s, {u"*.mkv"_s}};
                        }};
};

TEST_F(PortalFilePanelTest, AnswersWithTheFileThatWasChosenThere) {
  const QVariantMap files{{u"uris"_s, QStringList{u"file:///a%20b.mkv"_s}}};
  const std::pair<QVariantList, std::optional<QUrl>> rows[] = {
      {{0u, files}, QUrl(u"file:///a%20b.mkv"_s)},
      {{1u, files}, std::nullopt},  // cancelled
      {{2u, files}, std::nullopt},
      {{0u, QVariantMap{}}, std::nullopt},
      {{0u, QVariantMap{{u"uris"_s, QStringList{u"http://tv.example/1.ts"_s}}}}, std::nullopt},
      {{0u, QVariantMap{{u"uris"_s, 7}}}, std::nullopt},
      {{u"0"_s}, std::nullopt},
      {{}, std::nullopt},
  };
  ASSERT_TRUE(offer());
  for (const QString& place : {QString(), portalObject + u"/request/elsewhere"_s})
    for (const auto& [response, file] : rows) {
      chooser.place = place;
      chooser.request.clear();
      const auto choice = choose();
      ASSERT_TRUE(isOpen());
      // Again, since nobody listens at a place of its own before its answer has named it.
      QTimer again;
      again.callOnTimeout([&, &response = response] { respond(response); });
      again.start(20);
      EXPECT_EQ(awaited<std::optional<QUrl>>(choice), file);
    }
  EXPECT_EQ(other.shown, 0);
  const QVariantList asked = chooser.calls.first().arguments();
  EXPECT_EQ(asked.value(0), u"x11:1a"_s);
  EXPECT_EQ(asked.value(1), u"Open"_s);
  EXPECT_EQ(chooser.calls.first().signature(), u"ssa{sv}"_s);
}

TEST_F(PortalFilePanelTest, LeavesItToTheOtherWhereThereIsNone) {
  const auto withoutBus = panel.chooseMediaFile();
  EXPECT_TRUE(isLeftToTheOther(withoutBus));
  const auto withoutPortal = choose();
  EXPECT_TRUE(isLeftToTheOther(withoutPortal));
  chooser.refuses = true;
  ASSERT_TRUE(offer());
  const auto refused = choose();
  EXPECT_TRUE(isLeftToTheOther(refused));
  chooser.refuses = false;
  chooser.isSilent = true;
  chooser.request.clear();
  const auto unanswered = choose();
  ASSERT_TRUE(isOpen());
  clock.advance(std::chrono::seconds(6));
  EXPECT_TRUE(isLeftToTheOther(unanswered));
  EXPECT_TRUE(eventually([&] { return chooser.wasClosed(); })) << "it would open after all";
}

TEST_F(PortalFilePanelTest, AnOpenPanelEndsWithThePortalOrForTheNext) {
  ASSERT_TRUE(offer());
  const auto first = choose();
  ASSERT_TRUE(isOpen());
  chooser.request.clear();
  const auto next = panel.chooseMediaFile();
  EXPECT_EQ(awaited<std::optional<QUrl>>(first), std::nullopt);
  ASSERT_TRUE(isOpen());
  settle();
  ASSERT_TRUE(bus.connection.unregisterService(portalName));
  EXPECT_EQ(awaited<std::optional<QUrl>>(next), std::nullopt);
  EXPECT_EQ(other.shown, 0);
}

}  // namespace
}  // namespace vantor::test
