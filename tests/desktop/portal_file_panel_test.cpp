#include "desktop/portal_file_panel.h"

#include <QDBusObjectPath>
#include <QTimer>
#include <algorithm>

#include "desktop/own_bus.h"
#include "platform/worker.h"
#include "support/awaited.h"
#include "support/fake_file_panel.h"
#include "support/manual_clock.h"

namespace vantor::test {
namespace {

class PortalFilePanelTest : public ::testing::Test {
 protected:
  using File = std::optional<QUrl>;
  enum class Answer { place, refusal, none };

  void SetUp() override {
    portal.onCall = [this](const QDBusMessage& call) { take(call); };
  }

  void take(const QDBusMessage& call) {
    calls.append(call);
    if (call.member() != "OpenFile"_L1) return;
    const QVariantMap options = qdbus_cast<QVariantMap>(call.arguments().value(2));
    request = place.isEmpty()
                  ? portalPath + u"/request/"_s + call.service().mid(1).replace(u'.', u'_') + u'/' +
                        options[u"handle_token"_s].toString()
                  : place;
    if (answer == Answer::place)
      bus.connection.send(call.createReply(QVariant::fromValue(QDBusObjectPath(request))));
    else if (answer == Answer::refusal)
      bus.connection.send(call.createErrorReply(QDBusError::AccessDenied, u"no"_s));
  }
  bool offer() { return bus.offer(portalName, portalPath, portal); }
  /// Waits for the bus, too.
  Pending<File> choose() {
    panel.join(worker);
    settle();  // the job
    awaited<Done>(worker.run([] {}));
    settle();
    panel.setParentWindow(u"x11:1a"_s);
    request.clear();
    return panel.chooseMediaFile();
  }
  bool isOpen() {
    return eventually([&] { return !request.isEmpty(); });
  }
  /// Whether the other panel is asked, and its answer becomes this one's.
  bool isLeftToTheOther(const Pending<File>& choice) {
    const QUrl file(u"file:///other.mkv"_s);
    if (!eventually([&] { return other.shown > 0; })) return false;
    other.shown = 0;
    other.choice.resolve(file);
    return awaited<File>(choice) == file;
  }

  const Settled settled;
  Answer answer = Answer::place;  // to a call to open
  QString place;                  // of requests, where it is the portal's own choice
  QList<QDBusMessage> calls;
  QString request;  // the last one's place
  DesktopObject portal;
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
  const std::pair<QVariantList, File> rows[] = {
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
  for (const QString& own : {QString(), portalPath + u"/request/elsewhere"_s})
    for (const auto& [arguments, file] : rows) {
      place = own;
      const auto choice = choose();
      ASSERT_TRUE(isOpen());
      QDBusMessage response =
          QDBusMessage::createSignal(request, u"org.freedesktop.portal.Request"_s, u"Response"_s);
      response.setArguments(arguments);
      // Again, since nobody listens at a place of its own before its answer has named it.
      QTimer again;
      again.callOnTimeout([&] { bus.connection.send(response); });
      again.start(20);
      EXPECT_EQ(awaited<File>(choice), file);
    }
  EXPECT_EQ(other.shown, 0);
  EXPECT_EQ(calls.first().signature(), u"ssa{sv}"_s);
  EXPECT_EQ(calls.first().arguments().mid(0, 2), (QVariantList{u"x11:1a"_s, u"Open"_s}));
}

TEST_F(PortalFilePanelTest, LeavesItToTheOtherWhereThereIsNone) {
  const auto withoutBus = panel.chooseMediaFile();
  EXPECT_TRUE(isLeftToTheOther(withoutBus));
  const auto withoutPortal = choose();
  EXPECT_TRUE(isLeftToTheOther(withoutPortal));
  ASSERT_TRUE(offer());
  answer = Answer::refusal;
  const auto refused = choose();
  EXPECT_TRUE(isLeftToTheOther(refused));
  answer = Answer::none;
  const auto unanswered = choose();
  ASSERT_TRUE(isOpen());
  clock.advance(6s);
  EXPECT_TRUE(isLeftToTheOther(unanswered));
  const auto closed = [&](int times) {
    return eventually([&] {
      return std::ranges::count_if(calls, [&](const QDBusMessage& call) {
               return call.member() == "Close"_L1 && call.path() == request;
             }) == times;
    });
  };
  EXPECT_TRUE(closed(1)) << "it would open after all";
  const auto asked =
      std::ranges::find(calls.crbegin(), calls.crend(), u"OpenFile"_s, &QDBusMessage::member);
  bus.connection.send(asked->createReply(QVariant::fromValue(QDBusObjectPath(request))));
  EXPECT_TRUE(closed(2)) << "it has opened after all";
}

TEST_F(PortalFilePanelTest, AnOpenPanelEndsWithThePortalOrForTheNext) {
  ASSERT_TRUE(offer());
  const auto first = choose();
  ASSERT_TRUE(isOpen());
  EXPECT_TRUE(eventually([&] { return clock.waiting() == 0; })) << "it would close by itself";
  const auto next = choose();
  EXPECT_EQ(awaited<File>(first), std::nullopt);
  ASSERT_TRUE(isOpen());
  settle();
  ASSERT_TRUE(bus.connection.unregisterService(portalName));
  EXPECT_EQ(awaited<File>(next), std::nullopt);
  EXPECT_EQ(other.shown, 0);
}

}  // namespace
}  // namespace vantor::test
