// A week with the guide on screen, by the manual clock, against the simulator: at midnight the
// program starts anew, summer time begins or ends, the machine sleeps, the clock is set.
// VANTOR_DAYS says how many days.
#include <gtest/gtest.h>

#include <QDateTime>
#include <QLocale>
#include <QTimeZone>
#include <atomic>
#include <ctime>

#include "machines/counted_transport.h"
#include "machines/model_invariants.h"
#include "provider/guide_parsing.h"
#include "sim/guide.h"
#include "sim/library.h"
#include "sim/server.h"
#include "support/awaited.h"
#include "support/environment_number.h"
#include "support/model_fixture.h"
#include "ui/channels/channel_view.h"
#include "ui/entries/item_list_model.h"

namespace vantor::machine {
namespace {

using namespace test;
using namespace std::chrono_literals;

// The fifth channel has no programmes, and one that asks has all rows asked.
constexpr int fewRows = 4;
constexpr int manyRows = 9;

struct Network {
  std::atomic<long long> time = 0;  // of the provider's clock
  sim::Server server{{.streams = false, .now = [this] { return time.load(); }}};
  CountedTransport network;
};

class Week : Network, ModelFixture {
 public:
  explicit Week(const QDateTime& begin)
      : ModelFixture({.transport = &network,
                      .serviceDocument = QString::fromStdString(server.configUrl())}) {
    clock.set(std::chrono::seconds(begin.toSecsSinceEpoch()) -
              std::chrono::floor<std::chrono::seconds>(clock.now().time_since_epoch()));
    account = ProviderAccount::validated(u"Vantor TV"_s, QString::fromStdString(server.url()),
                                         QString::fromStdString(sim::Options().username),
                                         QString::fromStdString(sim::Options().password));
    credentials.put(providerItem, account.toJSON());
    open();
  }
  ~Week() { close(); }

  void run(int days);

 private:
  void open();
  void close() { view_.reset(), items_.reset(); }
  void passMinute();
  void jump(int minute);
  void quieten();
  void look();
  QString expected() const;
  QString shown() const;
  long long now() const {
    return std::chrono::floor<std::chrono::seconds>(clock.now().time_since_epoch()).count();
  }
  /// What the provider says of the channel now.
  GuideEntries programmes(const MediaItem& channel) const;

  std::unique_ptr<ItemListModel> items_;
  std::unique_ptr<ChannelView> view_;
  int onScreen_ = 0;
  int unsettled_ = 0;  // minutes until the screen has to be right again
};

void Week::open() {
  close();
  time = now();
  AppModel& app = launch();
  items_ = std::make_unique<ItemListModel>(app.browsing(), app.record(), app.playback());
  view_ = std::make_unique<ChannelView>(app, clock, *items_);
  EXPECT_TRUE(eventually([&] { return app.browsing().items().size() > manyRows; }));
  app.select(item(2));
  onScreen_ = onScreen_ == fewRows ? manyRows : fewRows;
  view_->showRows(0, onScreen_ - 1);
  unsettled_ = 2;
}

/// To half a second after the next whole minute, when programmes have changed.
void Week::passMinute() {
  EXPECT_LE(server.counters().requests["get_short_epg"], onScreen_ + 1) << "in a minute";
  server.resetCounters();
  time = (now() / 60 + 1) * 60;
  const auto next = WallTime(std::chrono::seconds(time.load()) + 500ms);
  clock.advance(std::chrono::ceil<std::chrono::milliseconds>(next - clock.now()));
}

void Week::jump(int minute) {
  constexpr std::array jumps = {std::pair(3 * 60 + 7, 10h + 17s), std::pair(15 * 60 + 31, -3h - 5s),
                                std::pair(18 * 60, 26h + 0s), std::pair(20 * 60 + 1, -26h - 0s),
                                std::pair(22 * 60, -49h + 0s)};
  for (const auto& [at, ahead] : jumps) {
    if (minute % (2 * 24 * 60) != at) continue;
    // What was under way has come.
    for (int round = 0; round < 10; ++round) quieten(), clock.advance(100ms);
    clock.set(ahead);
    unsettled_ = 2;
  }
  if (minute % (24 * 60) == 24 * 60 - 1) open();
}

GuideEntries Week::programmes(const MediaItem& channel) const {
  const auto index =
      sim::entryIndex(sim::Kind::live, channel.providerID.toStdString(), sim::Options().channels);
  return parseGuide(QByteArray::fromStdString(sim::shortGuideJson(*index, 2, now())), channel.id);
}

QString Week::expected() const {
  QStringList rows;
  for (int row = 0; row < onScreen_; ++row) {
    const GuideEntries known = programmes(item(static_cast<std::size_t>(row)));
    rows.append(known.isEmpty() ? u"No programme information, then —"_s
                                : known[0].title + u", then "_s + known[1].title);
  }
  const auto local = [](ProviderTime moment) {
    const std::time_t seconds = std::chrono::system_clock::to_time_t(moment);
    std::array<char, 8> text{};
    std::strftime(text.data(), text.size(), "%H:%M", std::localtime(&seconds));
    return QString::fromLatin1(text.data());
  };
  const GuideEntry selected = programmes(*model->browsing().selected()).first();
  rows.append(selected.title + u", "_s + local(selected.start) + u"–"_s + local(selected.end));
  return rows.join(u'\n');
}

QString Week::shown() const {
  QStringList rows;
  for (int row = 0; row < onScreen_; ++row) {
    const QModelIndex index = view_->rows()->index(row, 0);
    rows.append(view_->rows()->data(index, GuideListModel::NowTextRole).toString() + u", then "_s +
                view_->rows()->data(index, GuideListModel::NextTextRole).toString());
  }
  rows.append(view_->programmeTitle() + u", "_s + view_->programmeTimes());
  return rows.join(u'\n');
}

/// What is under way comes, before time goes on.
void Week::quieten() {
  do {
    EXPECT_TRUE(eventually([&] { return network.open == 0; }));
    awaited<Done>(worker.run([] {}));
    settle();
  } while (network.open > 0);
}

/// The screen is right soon after the minute has begun, and after two when the clock was set.
void Week::look() {
  EXPECT_EQ(faultIn(*model).toStdString(), "");
  const bool settles = --unsettled_ < 0;
  for (int round = 0; round < 200; ++round) {
    quieten();
    if (!settles || shown() == expected()) return;
    clock.advance(100ms);
  }
  EXPECT_EQ(shown().toStdString(), expected().toStdString())
      << QDateTime::fromSecsSinceEpoch(now()).toString().toStdString();
}

void Week::run(int days) {
  for (int minute = 0; minute < days * 24 * 60 && !::testing::Test::HasFailure(); ++minute) {
    jump(minute);
    passMinute();
    look();
  }
}

TEST(VirtualWeek, TheGuideIsRightWhateverTheClockDoes) {
  qputenv("TZ", "Europe/Berlin");
  ::tzset();
  QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom));
  const int days = environmentNumber("VANTOR_DAYS", 2);
  // Summer time ends, and begins, in the second night.
  for (const QDate begin : {QDate(2026, 10, 24), QDate(2027, 3, 27)})
    Week(QDateTime(begin, QTime(12, 0))).run(days);
}

}  // namespace
}  // namespace vantor::machine
