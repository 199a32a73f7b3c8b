#include "ui/channels/channel_view.h"

#include <QDateTime>
#include <QLocale>
#include <QSignalSpy>

#include "ui/views_fixture.h"

namespace vantor::test {
namespace {

class ChannelViewTest : public ViewsTest {
 protected:
  void opened() override { view = views->channels(); }

  /// What a row says, "now, then next".
  QString row(int number) const {
    const QModelIndex index = view->rows()->index(number, 0);
    return view->rows()->data(index, GuideListModel::NowTextRole).toString() + u", then "_s +
           view->rows()->data(index, GuideListModel::NextTextRole).toString();
  }
  bool becomes(int number, const QString& text) {
    return eventually([&] {
      clock.advance(100ms);
      return row(number) == text;
    });
  }
  int requests() const { return transport.requests(guideRequest); }

  /// A guide of half-hour programmes with these titles, the first of which ends in `left`.
  QByteArray halfHours(const QByteArrayList& titles, std::chrono::seconds left) const {
    QList<Programme> programmes;
    for (const QByteArray& title : titles) {
      programmes.append({title, left - 30min, left, "About " + title});
      left += 30min;
    }
    return guide(programmes);
  }
  void arrive(int row, const QByteArray& body) {
    ASSERT_TRUE(eventually([&] { return transport.answer(guideRequest, body); }));
    ASSERT_TRUE(eventually([&] { return app->guide().guideOf(item(row).id).has_value(); }));
  }

  ChannelView* view = nullptr;
};

TEST_F(ChannelViewTest, ARowSaysWhatIsKnownOfItsProgrammes) {
  open(4);
  EXPECT_EQ(row(0), u"Loading guide…, then —"_s);
  view->showRows(0, 3);
  settle();
  arrive(0, halfHours({"Morning\nnews", "Harbour\r\nlights"}, 10min));
  arrive(1, halfHours({QByteArray(5'000, 'x')}, 10min));
  clock.advance(1s);  // the loader looks again for what had to wait
  QSignalSpy changes(view->rows(), &QAbstractItemModel::dataChanged);
  ASSERT_TRUE(eventually([&] { return transport.fail(guideRequest, HTTPFailure(500)); }));
  ASSERT_TRUE(eventually([&] { return app->guide().guideFailed(item(2).id); }));
  ASSERT_FALSE(changes.isEmpty());
  for (const auto& change : changes) {
    EXPECT_EQ(change[0].toModelIndex().row(), 2) << "the other rows are left alone";
    EXPECT_EQ(change[1].toModelIndex().row(), 2);
  }
  clock.advance(1s);
  arrive(3, halfHours({"Over", "Over as well"}, -2h));
  EXPECT_EQ(row(0), u"Morning news, then Harbour lights"_s);
  EXPECT_EQ(row(1), QString(1'000, u'x') + u", then —"_s);
  EXPECT_EQ(row(2), u"Guide unavailable, then —"_s);
  EXPECT_EQ(row(3), u"No programme information, then —"_s);

  app->refreshGuide();
  EXPECT_EQ(row(0), u"Loading guide…, then —"_s);
  settle();
  arrive(0, halfHours({"New"}, 10min));
  EXPECT_EQ(row(0), u"New, then —"_s);
}

TEST_F(ChannelViewTest, ARefreshAsksAgainForWhatHasYetToArrive) {
  open(1);
  view->showRows(0, 0);
  settle();
  app->refreshGuide();
  settle();
  arrive(0, halfHours({"New"}, 10min));
  EXPECT_EQ(row(0), u"New, then —"_s);
}

TEST_F(ChannelViewTest, SampleChannelsHaveNoGuide) {
  open({u"--demo"_s});
  view->showRows(0, 5);
  settle();
  for (int number = 0; number < 6; ++number) EXPECT_EQ(row(number), u"Preview channel, then —"_s);
  EXPECT_EQ(requests(), 0);
}

TEST_F(ChannelViewTest, TimeMovesTheProgrammesOn) {
  open(1);
  view->showRows(0, 0);
  settle();
  arrive(0, halfHours({"First", "Second", "Third"}, 90s));
  app->select(item(0));
  EXPECT_EQ(view->programmeTitle(), u"First"_s);
  QSignalSpy rowChanges(view->rows(), &QAbstractItemModel::dataChanged);
  QSignalSpy panelChanges(view, &ChannelView::programmeChanged);
  clock.advance(2min);
  EXPECT_FALSE(rowChanges.isEmpty() || panelChanges.isEmpty());
  EXPECT_EQ(row(0), u"Second, then Third"_s);
  EXPECT_EQ(view->programmeTitle(), u"Second"_s);
  EXPECT_EQ(requests(), 1) << "enough is known";
  clock.advance(31min);
  EXPECT_EQ(row(0), u"Third, then —"_s);
  EXPECT_EQ(requests(), 2) << "a row that stays on screen is kept from running out";
  view->showRows(0, -1);
  arrive(0, halfHours({}, 0s));
  clock.advance(1h);
  EXPECT_EQ(requests(), 2) << "the row is gone from the screen";
}

TEST_F(ChannelViewTest, RowsAreAskedForAsFarAsThereAreAnyAndWhenThereIsRoom) {
  open(40);
  view->showRows(0, 29);
  settle();
  transport.always(guideRequest, halfHours({"Now", "Next"}, 10min));
  while (transport.answer(guideRequest, halfHours({"Now", "Next"}, 10min))) continue;
  EXPECT_TRUE(becomes(29, u"Now, then Next"_s)) << "it was turned away at first";
  EXPECT_EQ(row(30), u"Loading guide…, then —"_s) << "not on screen";
  app->browsing().setSearch(u"title 3"_s);
  EXPECT_TRUE(becomes(10, u"Now, then Next"_s)) << "Title 39 came into view";
  app->browsing().setSearch({});
  view->showRows(39, 99);
  EXPECT_TRUE(becomes(39, u"Now, then Next"_s));
  EXPECT_EQ(row(38), u"Now, then Next"_s);
}

TEST_F(ChannelViewTest, ThePanelShowsTheSelectedChannel) {
  QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom));
  open(2);
  EXPECT_EQ(view->channelName(), u"Live TV"_s);
  EXPECT_EQ(view->programmeHint(), u"Select a channel to see its programme information."_s);
  view->watch();
  view->toggleBookmark();
  EXPECT_FALSE(app->playback().itemID());

  app->select(item(1));
  EXPECT_EQ(view->channelName(), u"Title 2"_s);
  EXPECT_EQ(view->programmeHint(), u"Loading programme information…"_s);
  settle();
  arrive(1, halfHours({"Concert", "Talk"}, 10min));
  ASSERT_TRUE(eventually([&] { return !app->details().detailsLoading(); }));
  EXPECT_EQ(view->programmeHint(), QString());
  EXPECT_EQ(view->programmeTitle(), u"Concert"_s);
  EXPECT_EQ(view->programmeDescription(), u"About Concert"_s);
  const auto end = std::chrono::system_clock::to_time_t(clock.now() + 10min);
  const QDateTime ends = QDateTime::fromSecsSinceEpoch(end);
  EXPECT_EQ(view->programmeTimes(),
            ends.addSecs(-1800).toString(u"HH:mm"_s) + u"–"_s + ends.toString(u"HH:mm"_s));

  view->toggleBookmark();
  EXPECT_EQ(view->bookmarkSymbol(), u"bookmark.fill"_s);
  view->watch();
  settle();
  EXPECT_EQ(app->playback().itemID(), u"live:2"_s);

  app->select(item(0));
  settle();
  EXPECT_EQ(view->bookmarkSymbol(), u"bookmark"_s);
  ASSERT_TRUE(transport.fail(guideRequest, HTTPFailure(500)));
  ASSERT_TRUE(eventually([&] { return !view->error().isEmpty(); }));
  EXPECT_EQ(view->programmeHint(), u"Select a channel to see its programme information."_s);
}

TEST_F(ChannelViewTest, TheGroupIsTheCategory) {
  open(9);
  EXPECT_EQ(view->groups(), QStringList{u"All channels"_s}) << "the library has no categories";
  QSignalSpy changes(view, &ChannelView::groupsChanged);
  app->load(LibraryKind::live, LoadMode::refresh);
  answer(LibraryKind::live, rows(LibraryKind::live, 1, 9),
         R"([{"category_id":"1","category_name":"News"},
             {"category_id":"2","category_name":"Sport"}])");
  EXPECT_FALSE(changes.isEmpty());
  EXPECT_EQ(view->groups(), (QStringList{u"All channels"_s, u"News"_s, u"Sport"_s}));
  view->chooseGroup(2);
  EXPECT_EQ(app->browsing().category(), u"2"_s);
  EXPECT_EQ(view->groupName(), u"Sport"_s);
  EXPECT_EQ(view->rows()->rowCount(), 3);
  view->chooseGroup(3);
  view->chooseGroup(-1);
  EXPECT_EQ(view->group(), 2) << "no such groups";
  app->setCategory(u"gone"_s);
  EXPECT_EQ(view->group(), -1);
  EXPECT_EQ(view->groupName(), QString());
  view->chooseGroup(0);
  EXPECT_EQ(view->rows()->rowCount(), 9);
}

}  // namespace
}  // namespace vantor::test
