#include <gtest/gtest.h>

#include <QQuickWindow>
#include <QTemporaryDir>

#include "playback/libvlc_engine.h"
#include "playback/video_surface.h"
#include "support/test_media.h"
#include "support/waiting.h"

namespace vantor {
namespace {

using namespace test;
using namespace Qt::StringLiterals;

/// Pictures of one colour, given as Y, U and V.
SharedFrame solidFrame(SourceNumber source, QSize size, std::array<int, 3> yuv, int padding = 0) {
  const QSize chroma((size.width() + 1) / 2, (size.height() + 1) / 2);
  auto frame = std::make_shared<VideoFrame>();
  frame->source = source;
  auto memory = std::make_shared<std::array<QByteArray, 3>>();
  for (std::size_t i = 0; i < 3; ++i) {
    const QSize shown = i == 0 ? size : chroma;
    const int stride = (shown.width() + padding + 3) / 4 * 4;
    QByteArray& bytes = (*memory)[i];
    bytes.fill(char(0x7f), qsizetype{stride} * shown.height());
    for (int y = 0; y < shown.height(); ++y)
      std::fill_n(bytes.data() + y * stride, shown.width(), static_cast<char>(yuv[i]));
    frame->planes[i] = {reinterpret_cast<const std::uint8_t*>(bytes.constData()), stride, shown};
  }
  frame->memory = memory;
  return frame;
}

bool near(const QColor& color, const QColor& expected, int tolerance = 6) {
  return std::abs(color.red() - expected.red()) <= tolerance &&
         std::abs(color.green() - expected.green()) <= tolerance &&
         std::abs(color.blue() - expected.blue()) <= tolerance;
}

class SurfaceTest : public ::testing::Test {
 protected:
  std::shared_ptr<VideoFrameQueue> frames = std::make_shared<VideoFrameQueue>();
  QQuickWindow window;
  VideoSurface surface{window.contentItem()};
  int firstPictures = 0;

  void SetUp() override {
    window.setColor(Qt::green);
    window.resize(400, 300);
    surface.setSize(QSizeF(400, 300));
    surface.setFrames(frames.get());
    QObject::connect(&surface, &VideoSurface::firstPictureShown, [this] { ++firstPictures; });
    window.show();
    ASSERT_TRUE(eventually([this] { return window.isExposed(); }));
  }

  /// Grabs until the window shows `color` at a place, for pictures arrive a frame later.
  testing::AssertionResult shows(QPoint place, const QColor& color) {
    QColor seen;
    const bool right = eventually([&] {
      const QImage image = window.grabWindow();
      if (!image.valid(place)) return false;
      seen = image.pixelColor(place);
      return near(seen, color);
    });
    if (right) return testing::AssertionSuccess();
    return testing::AssertionFailure() << "shows " << seen.name().toStdString();
  }
};

constexpr std::array kRed{63, 102, 240};  // BT.709, limited
constexpr std::array kBlue{32, 240, 118};
constexpr std::array kGray{126, 128, 128};

TEST_F(SurfaceTest, ShowsTheExpectedSourceOnBlackAndNothingElse) {
  EXPECT_TRUE(shows({200, 150}, Qt::black));
  frames->expect(1);
  frames->present(solidFrame(2, {64, 36}, kBlue));
  frames->present(solidFrame(1, {64, 36}, kRed));
  EXPECT_TRUE(shows({200, 150}, Qt::red));
  EXPECT_TRUE(shows({200, 10}, Qt::black)) << "above a 16:9 picture in a 4:3 area";
  EXPECT_TRUE(shows({2, 150}, Qt::red)) << "the picture is as wide as the area";
  SharedFrame last = solidFrame(1, {64, 36}, kBlue);
  const std::weak_ptr<const void> memory = last->memory;
  frames->present(std::move(last));
  EXPECT_TRUE(shows({200, 150}, Qt::blue));
  frames->expect(2);
  EXPECT_TRUE(shows({200, 150}, Qt::black)) << "the last picture of a stopped source stays";
  EXPECT_TRUE(memory.expired()) << "in memory";
}

TEST_F(SurfaceTest, PaddingAndOddSizesDoNotShow) {
  frames->expect(1);
  for (const QSize size : {QSize(17, 9), QSize(1, 1), QSize(321, 181), QSize(64, 36)}) {
    SCOPED_TRACE(testing::Message() << size.width() << "x" << size.height());
    frames->present(solidFrame(1, size, kRed, 29));
    EXPECT_TRUE(shows({200, 150}, Qt::red));
    const QRect picture(QPoint(), size.scaled(400, 300, Qt::KeepAspectRatio));
    const int right = 200 + picture.width() / 2 - 3;
    const int bottom = 150 + picture.height() / 2 - 3;
    EXPECT_TRUE(shows({right, bottom}, Qt::red));
    frames->present(solidFrame(1, {64, 36}, kBlue));
    EXPECT_TRUE(shows({200, 150}, Qt::blue));
  }
}

TEST_F(SurfaceTest, PixelShapeDecidesTheWidth) {
  frames->expect(1);
  auto frame = std::make_shared<VideoFrame>(*solidFrame(1, {720, 576}, kRed));
  frame->pixelAspect = 64.0 / 45;
  frames->present(frame);
  EXPECT_TRUE(shows({2, 150}, Qt::red));
  EXPECT_TRUE(shows({200, 30}, Qt::black));
}

TEST_F(SurfaceTest, MatrixAndRangeAreThePictures) {
  frames->expect(1);
  const struct {
    ColorMatrix matrix;
    ColorRange range;
    std::array<int, 3> yuv;
    QColor color;
  } cases[] = {
      {ColorMatrix::bt601, ColorRange::limited, {81, 90, 240}, Qt::red},
      {ColorMatrix::bt709, ColorRange::limited, {173, 42, 26}, Qt::green},
      {ColorMatrix::bt601, ColorRange::full, {76, 85, 255}, QColor(254, 0, 0)},
      {ColorMatrix::bt2020, ColorRange::limited, {74, 97, 240}, Qt::red},
      {ColorMatrix::bt709, ColorRange::full, {128, 128, 128}, QColor(128, 128, 128)},
      {ColorMatrix::bt709, ColorRange::limited, {235, 128, 128}, Qt::white},
      {ColorMatrix::bt709, ColorRange::limited, {16, 128, 128}, Qt::black},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.color.name().toStdString());
    auto frame = std::make_shared<VideoFrame>(*solidFrame(1, {64, 48}, row.yuv));
    frame->matrix = row.matrix;
    frame->range = row.range;
    frames->present(frame);
    EXPECT_TRUE(shows({200, 150}, row.color));
  }
}

TEST_F(SurfaceTest, OpacityAndSizeFollowTheItem) {
  frames->expect(1);
  frames->present(solidFrame(1, {64, 48}, kGray));
  ASSERT_TRUE(shows({200, 150}, QColor(128, 128, 128)));
  surface.setOpacity(0.5);
  // Half of it over half of the black, over the green of the window.
  EXPECT_TRUE(shows({200, 150}, QColor(64, 128, 64))) << "is blended with what lies below";
  surface.setOpacity(0);
  EXPECT_TRUE(shows({200, 150}, Qt::green));
  surface.setOpacity(1);
  surface.setSize(QSizeF(100, 75));
  EXPECT_TRUE(shows({50, 37}, QColor(128, 128, 128)));
  EXPECT_TRUE(shows({200, 150}, Qt::green));
  surface.setSize(QSizeF());
  EXPECT_TRUE(shows({50, 37}, Qt::green));
}

TEST_F(SurfaceTest, AnnouncesTheFirstPictureOfEachSourceOnce) {
  for (SourceNumber source = 1; source <= 2; ++source) {
    frames->expect(source);
    frames->present(solidFrame(source, {64, 36}, kRed));
    EXPECT_TRUE(eventually([&] { return firstPictures == static_cast<int>(source); }));
    frames->present(solidFrame(source, {64, 36}, kBlue));
    ASSERT_TRUE(shows({200, 150}, Qt::blue));
  }
  EXPECT_EQ(firstPictures, 2);
}

TEST_F(SurfaceTest, SurvivesTheWindowLosingItsGraphics) {
  frames->expect(1);
  frames->present(solidFrame(1, {64, 36}, kRed));
  ASSERT_TRUE(shows({200, 150}, Qt::red));
  window.setPersistentSceneGraph(false);
  window.setPersistentGraphics(false);
  window.hide();
  window.releaseResources();
  window.show();
  EXPECT_TRUE(shows({200, 150}, Qt::red));
}

TEST_F(SurfaceTest, ShowsWhatTheEngineDecodes) {
  const QTemporaryDir folder;
  qputenv("VANTOR_AUDIO", "none");
  LibVLCEngine engine(frames, Output::shown);
  const struct {
    QString name;
    QString color;
    QString size;
    QStringList format;
    QColor expected;
  } cases[] = {
      {u"a.ts"_s, u"red"_s, u"720x576"_s, {}, Qt::red},
      {u"b.mkv"_s,
       u"blue"_s,
       u"1280x720"_s,
       {u"-vf"_s, u"scale=out_color_matrix=bt709"_s},
       Qt::blue},
      {u"c.mkv"_s,
       u"red"_s,
       u"640x360"_s,
       {u"-c:v"_s, u"libx264"_s, u"-pix_fmt"_s, u"yuv420p10le"_s},
       Qt::red},
      {u"d.mp4"_s, u"white"_s, u"638x358"_s, {u"-pix_fmt"_s, u"yuvj420p"_s}, Qt::white},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.name.toStdString());
    const QString file = folder.filePath(row.name);
    ASSERT_TRUE(makeMedia(solidColor(row.color, row.size, 2) + row.format, file));
    engine.load({.address = QUrl::fromLocalFile(file)});
    engine.play();
    EXPECT_TRUE(shows({200, 150}, row.expected));
  }
  engine.unload();
  EXPECT_TRUE(shows({200, 150}, Qt::black));
}

}  // namespace
}  // namespace vantor
