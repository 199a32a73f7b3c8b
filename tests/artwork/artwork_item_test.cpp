#include "artwork/artwork_item.h"

#include <gtest/gtest.h>

#include <QQuickWindow>

#include "platform/worker.h"
#include "support/fake_transport.h"
#include "support/manual_clock.h"
#include "support/picture.h"
#include "support/waiting.h"

namespace vantor::test {
namespace {

const QString red = u"red.png"_s;
const QString blue = u"blue.png"_s;

QUrl address(const QString& name) {
  return QUrl(u"http://cdn.example/"_s + name);
}

class ArtworkItemTest : public ::testing::Test {
 protected:
  void SetUp() override {
    window.setColor(Qt::black);
    window.resize(200, 200);
    item.setSize({100, 100});
    item.setStore(&store);
  }
  /// On the screen, with that gradient.
  void open(QSizeF size, QColor topLeft, QColor bottomRight) {
    item.setSize(size);
    item.setProperty("topLeft", topLeft);
    item.setProperty("bottomRight", bottomRight);
    window.show();
    ASSERT_TRUE(eventually([this] { return window.isExposed(); }));
  }
  void show(const QString& name) {
    item.setSource(address(name));
    settle();
  }
  bool cancelled(std::size_t number) const { return transport.exchanges().at(number)->cancelled; }
  /// Grabs until the window shows `color` at a place, for pictures arrive a frame later.
  bool shows(QColor color, QPoint place) {
    return eventually([&] { return window.grabWindow().pixelColor(place) == color; });
  }

  FakeTransport transport;
  ManualClock clock;
  Worker worker;
  ArtworkStore store{transport, clock, worker};
  QQuickWindow window;
  QQuickItem parent{window.contentItem()};
  ArtworkItem item{&parent};
};

TEST_F(ArtworkItemTest, FollowsItsAddress) {
  show(red);
  EXPECT_FALSE(item.hasImage());
  show(blue);
  EXPECT_TRUE(cancelled(0)) << "the picture of another entry is not wanted any more";
  transport.answer(blue, pictureOf(Qt::blue));
  ASSERT_TRUE(eventually([&] { return item.hasImage(); }));
  item.setSource({});
  EXPECT_FALSE(item.hasImage());
  item.setSource(address(blue));
  EXPECT_TRUE(item.hasImage()) << "at once, from memory";
  show(red);
  EXPECT_FALSE(item.hasImage()) << "never the last entry's picture";
  transport.fail(red, HTTPFailure(404));
  settle();
  EXPECT_FALSE(item.hasImage());
  EXPECT_EQ(transport.exchanges().size(), 3u);
}

TEST_F(ArtworkItemTest, AsksOnlyWhileItIsShown) {
  const std::function<void(bool)> cases[] = {[this](bool shown) { item.setVisible(shown); },
                                             [this](bool shown) { item.setActive(shown); },
                                             [this](bool shown) { parent.setVisible(shown); }};
  std::size_t asked = 0;
  for (const auto& setShown : cases) {
    SCOPED_TRACE(&setShown - cases);
    show(red);
    ASSERT_EQ(transport.exchanges().size(), ++asked);
    setShown(false);
    settle();
    EXPECT_TRUE(cancelled(asked - 1));
    show(blue);
    EXPECT_EQ(transport.exchanges().size(), asked);
    setShown(true);
    settle();
    EXPECT_EQ(transport.exchanges().size(), ++asked);
    EXPECT_EQ(transport.exchanges().back()->action, blue);
    item.setSource({});
    settle();
  }
  auto other = std::make_unique<ArtworkItem>();
  other->setStore(&store);
  other->setSource(address(red));
  settle();
  ASSERT_EQ(transport.open(red), 1);
  other.reset();
  settle();
  EXPECT_TRUE(cancelled(asked)) << "the item is gone";
}

TEST_F(ArtworkItemTest, DrawsThePictureWholeAndInTheMiddle) {
  open({100, 100}, Qt::green, Qt::green);
  show(red);
  EXPECT_TRUE(shows(Qt::green, {50, 50}));
  transport.answer(red, pictureOf(Qt::red));
  for (const QPoint inside : {QPoint(50, 50), QPoint(2, 50), QPoint(50, 72)})
    EXPECT_TRUE(shows(Qt::red, inside));
  for (const QPoint outside : {QPoint(50, 78), QPoint(50, 22)})
    EXPECT_TRUE(shows(Qt::green, outside));
  item.setSize({40, 100});
  EXPECT_TRUE(shows(Qt::black, {50, 50}));
  EXPECT_TRUE(shows(Qt::red, {20, 50}));
  EXPECT_TRUE(shows(Qt::green, {20, 65}));
  show(blue);
  EXPECT_TRUE(shows(Qt::green, {20, 50}));
  transport.answer(blue, pictureOf(Qt::blue, {10, 200}));
  EXPECT_TRUE(shows(Qt::blue, {20, 2}));
  EXPECT_TRUE(shows(Qt::green, {8, 50}));
}

TEST_F(ArtworkItemTest, RunsItsGradientAlongTheDiagonal) {
  open({200, 100}, QColor(0, 0, 0), QColor(250, 250, 250));
  const auto redAt = [this](QPoint place) { return window.grabWindow().pixelColor(place).red(); };
  EXPECT_TRUE(eventually([&] { return std::abs(redAt({100, 50}) - 125) <= 3; }));
  EXPECT_NEAR(redAt({1, 1}), 2, 3);
  EXPECT_NEAR(redAt({198, 98}), 247, 3);
  // The diagonal of a wide item lies low: what is to the right counts four times what is below.
  EXPECT_NEAR(redAt({199, 0}), 200, 3);
  EXPECT_NEAR(redAt({0, 99}), 50, 3);
}

}  // namespace
}  // namespace vantor::test
