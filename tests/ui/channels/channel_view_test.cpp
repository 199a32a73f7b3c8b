#include "ui/channels/channel_view.h"

#include <gtest/gtest.h>

#include <QDateTime>
#include <QLocale>
#include <QSignalSpy>

#include "support/model_fixture.h"
#include "ui/entries/item_list_model.h"

namespace vantor {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using test::eventually;
using test::settle;

const QString guideRequest = u"get_short_epg"_s;

class ChannelViewTest : public ::testing::Test, protected test::ModelFixture {
 protected:
  void open(int channels) {
    launch();
    makeViews();
    signIn(rows(LibraryKind::live, 0, channels));
  }
  void makeViews() {
    items = std::make_unique<ItemListModel>(model->browsing(), model->record(), model->playback());
    view = std::make_unique<ChannelView>(*model, clock, *items);
  }
  void TearDown() override {
    view.reset();
    items.reset();
  }

  QString text(int row, int role) const {
    return view->rows()->data(view->rows()->index(row, 0), role).toString();
  }
  QString now(int row) const { return text(row, GuideListModel::NowTextRole); }
  QString next(int row) const { return text(row, GuideListModel::NextTextRole); }
  int requests() const { return transport.requests(guideRequest); }
  int running() const { return transport.open(guideRequest); }

  /// A guide of half-hour programmes with these titles, the first of which ends in `left`.
  QByteArray guide(const QByteArrayList& titles, std::chrono::seconds left) const {
    const auto at = std::chrono::floor<std::chrono::seconds>(clock.now().time_since_epoch()) + left;
    auto end = at.count();
    QByteArrayList programmes;
    for (const QByteArray& title : titles) {
      programmes.append("{\"title\":\"" + title.toBase64() + "\",\"description\":\"" +
                        ("About " + title).toBase64() +
                        "\",\"start_timestamp\":" + QByteArray::number(qint64(end - 1800)) +
                        ",\"stop_timestamp\":" + QByteArray::number(qint64(end)) + '}');
      end += 1800;
    }
    return "{\"epg_listings\":[" + programmes.join(',') + "]}";
  }
  void arrive(int row, const QByteArray& body) {
    ASSERT_TRUE(eventually([&] { return transport.answer(guideRequest, body); }));
    ASSERT_TRUE(eventually([&] {
      return model->guide().guideOf(model->browsing().items().id(std::size_t(row))).has_value();
    }));
  }

  std::unique_ptr<ItemListModel> items;
  std::unique_ptr<ChannelView> view;
};

TEST_F(ChannelViewTest, ARowSaysWhatIsKnownOfItsProgrammes) {
  open(4);
  EXPECT_EQ(now(0), u"Loading guide…"_s);
  EXPECT_EQ(next(0), u"—"_s);
  view->showRows(0, 3);
  settle();
  arrive(0, guide({"Morning news", "Harbour lights", "Late film"}, 10min));
  arrive(1, guide({"Only one"}, 10min));
  clock.advance(1s);  // the loader looks again for what had to wait
  QSignalSpy changes(view->rows(), &QAbstractItemModel::dataChanged);
  ASSERT_TRUE(eventually(
      [&] { return transport.fail(guideRequest, std::make_exception_ptr(HTTPFailure(500))); }));
  ASSERT_TRUE(eventually([&] { return model->guide().guideFailed(u"live:2"_s); }));
  ASSERT_FALSE(changes.isEmpty());
  for (const auto& change : changes) {
    EXPECT_EQ(change[0].toModelIndex().row(), 2) << "the other rows are left alone";
    EXPECT_EQ(change[1].toModelIndex().row(), 2);
  }
  clock.advance(1s);
  arrive(3, guide({"Over", "Over as well"}, -2h));

  EXPECT_EQ(now(0), u"Morning news"_s);
  EXPECT_EQ(next(0), u"Harbour lights"_s);
  EXPECT_EQ(now(1), u"Only one"_s);
  EXPECT_EQ(next(1), u"—"_s);
  EXPECT_EQ(now(2), u"Guide unavailable"_s);
  EXPECT_EQ(now(3), u"No programme information"_s);
  EXPECT_EQ(next(3), u"—"_s);
  EXPECT_EQ(text(3, ItemListModel::NameRole), u"Title 3"_s);
}

TEST_F(ChannelViewTest, SampleChannelsHaveNoGuide) {
  launch({u"--demo"_s});
  makeViews();
  view->showRows(0, 5);
  settle();
  for (int row = 0; row < 6; ++row) EXPECT_EQ(now(row), u"Preview channel"_s);
  EXPECT_EQ(requests(), 0);
  EXPECT_EQ(view->groups(), (QStringList{u"All channels"_s, u"Featured"_s, u"Discover"_s}));
}

TEST_F(ChannelViewTest, ListsTheFirst2500Channels) {
  open(3000);
  EXPECT_EQ(view->rows()->rowCount(), 2500);
  transport.always(guideRequest, guide({"Now"}, 10min));
  view->showRows(2495, 2999);
  EXPECT_TRUE(eventually([&] {
    clock.advance(100ms);
    return requests() >= 5 && now(2499) == u"Now"_s;
  }));
  clock.advance(1s);
  EXPECT_EQ(requests(), 5) << "there are no rows beyond the last";
}

TEST_F(ChannelViewTest, TimeMovesTheProgrammesOn) {
  open(1);
  view->showRows(0, 0);
  settle();
  arrive(0, guide({"First", "Second", "Third"}, 90s));
  model->select(model->browsing().items().item(0));
  EXPECT_EQ(view->programmeTitle(), u"First"_s);
  QSignalSpy rowChanges(view->rows(), &QAbstractItemModel::dataChanged);
  QSignalSpy panelChanges(view.get(), &ChannelView::programmeChanged);
  clock.advance(2min);
  EXPECT_FALSE(rowChanges.isEmpty() || panelChanges.isEmpty());
  EXPECT_EQ(now(0), u"Second"_s);
  EXPECT_EQ(next(0), u"Third"_s);
  EXPECT_EQ(view->programmeTitle(), u"Second"_s);
  EXPECT_EQ(requests(), 1) << "enough is known";
  clock.advance(31min);
  EXPECT_EQ(now(0), u"Third"_s);
  EXPECT_EQ(requests(), 2) << "a row that stays on screen is kept from running out";
  view->showRows(0, -1);
  arrive(0, guide({}, 0s));
  clock.advance(1h);
  EXPECT_EQ(requests(), 2) << "the row is gone from the screen";
}

TEST_F(ChannelViewTest, RowsTurnedAwayAreAskedForWhenThereIsRoom) {
  open(40);
  view->showRows(0, 29);
  settle();
  transport.always(guideRequest, guide({"Now", "Next"}, 10min));
  for (int open = running(); open > 0; --open)
    transport.answer(guideRequest, guide({"Now", "Next"}, 10min));
  EXPECT_TRUE(eventually([&] {
    clock.advance(100ms);
    return now(29) == u"Now"_s;
  }));
  EXPECT_EQ(now(30), u"Loading guide…"_s) << "not on screen";

  model->browsing().setSearch(u"title 3"_s);
  EXPECT_TRUE(eventually([&] {
    clock.advance(100ms);
    return now(10) == u"Now"_s;
  })) << "Title 39 came into view";
}

TEST_F(ChannelViewTest, RefreshFetchesTheRowsOnScreenAnew) {
  open(2);
  view->showRows(0, 1);
  settle();
  arrive(0, guide({"Old"}, 10min));
  arrive(1, guide({"Old"}, 10min));
  model->refreshGuide();
  EXPECT_EQ(now(0), u"Loading guide…"_s);
  settle();
  arrive(0, guide({"New"}, 10min));
  EXPECT_EQ(now(0), u"New"_s);
  EXPECT_EQ(running(), 1);
}

TEST_F(ChannelViewTest, ThePanelShowsTheSelectedChannel) {
  QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom));
  open(2);
  EXPECT_EQ(view->channelName(), u"Live TV"_s);
  EXPECT_EQ(view->programmeHint(), u"Select a channel to see its programme information."_s);
  EXPECT_FALSE(view->channelSelected());
  view->watch();
  view->toggleBookmark();
  EXPECT_FALSE(model->playback().itemID());

  model->select(model->browsing().items().item(1));
  EXPECT_EQ(view->channelName(), u"Title 1"_s);
  EXPECT_EQ(view->programmeHint(), u"Loading programme information…"_s);
  settle();
  arrive(1, guide({"Concert", "Talk"}, 10min));
  ASSERT_TRUE(eventually([&] { return !model->details().detailsLoading(); }));
  EXPECT_EQ(view->programmeHint(), QString());
  EXPECT_EQ(view->programmeTitle(), u"Concert"_s);
  EXPECT_EQ(view->programmeDescription(), u"About Concert"_s);
  const auto end = std::chrono::system_clock::to_time_t(clock.now() + 10min);
  const QDateTime ends = QDateTime::fromSecsSinceEpoch(end);
  EXPECT_EQ(view->programmeTimes(),
            ends.addSecs(-1800).toString(u"HH:mm"_s) + u"–"_s + ends.toString(u"HH:mm"_s));

  EXPECT_EQ(view->bookmarkSymbol(), u"bookmark"_s);
  view->toggleBookmark();
  EXPECT_EQ(view->bookmarkSymbol(), u"bookmark.fill"_s);
  view->watch();
  settle();
  EXPECT_EQ(model->playback().itemID(), u"live:1"_s);

  model->select(model->browsing().items().item(0));
  settle();
  ASSERT_TRUE(transport.fail(guideRequest, std::make_exception_ptr(HTTPFailure(500))));
  ASSERT_TRUE(eventually([&] { return !view->error().isEmpty(); }));
  EXPECT_EQ(view->programmeHint(), u"Select a channel to see its programme information."_s);
}

TEST_F(ChannelViewTest, TheGroupIsTheCategory) {
  open(9);
  EXPECT_EQ(view->groups(), QStringList{u"All channels"_s}) << "the library has no categories";
  QSignalSpy changes(view.get(), &ChannelView::groupsChanged);
  model->load(LibraryKind::live, LoadMode::refresh);
  settle();
  transport.answer(action(LibraryKind::live), rows(LibraryKind::live, 0, 9));
  transport.answer(categoryAction(LibraryKind::live),
                   R"([{"category_id":"1","category_name":"News"},
                       {"category_id":"2","category_name":"Sport"}])");
  ASSERT_TRUE(eventually([&] { return !changes.isEmpty(); }));
  EXPECT_EQ(view->groups(), (QStringList{u"All channels"_s, u"News"_s, u"Sport"_s}));
  EXPECT_EQ(view->group(), 0);
  view->chooseGroup(2);
  EXPECT_EQ(model->browsing().category(), u"2"_s);
  EXPECT_EQ(view->group(), 2);
  EXPECT_EQ(view->groupName(), u"Sport"_s);
  EXPECT_EQ(view->rows()->rowCount(), 3);
  view->chooseGroup(3);
  view->chooseGroup(-1);
  EXPECT_EQ(view->group(), 2) << "no such groups";
  model->setCategory(u"gone"_s);
  EXPECT_EQ(view->group(), -1);
  EXPECT_EQ(view->groupName(), QString());
  view->chooseGroup(0);
  EXPECT_EQ(view->rows()->rowCount(), 9);
}

}  // namespace
}  // namespace vantor
