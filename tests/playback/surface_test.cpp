#include <cstring>
#include <functional>

#include "playback/still.h"
#include "surface_fixture.h"

namespace vantor::test {
namespace {

using YUV = std::array<int, 3>;

/// A picture of Y, U and V at each place, as numbers of 8 bits.
auto frameOf(SourceNumber source, QSize size, const std::function<YUV(int x, int y)>& yuvAt,
             PictureLayout layout = PictureLayout::planar, int padding = 0) {
  const int bytes = isDeep(layout) ? 2 : 1;
  const int stride = (size.width() * bytes + padding + 7) / 8 * 8;
  const int lines = (size.height() + 1) / 2 * 2;
  const auto memory = std::make_shared<QByteArray>(qsizetype{stride} * (2 * lines + 2), char(0x7f));
  auto frame = std::make_shared<VideoFrame>();
  frame->source = source;
  frame->layout = layout;
  layOut(*frame, reinterpret_cast<const std::uint8_t*>(memory->constData()), size, stride, lines);
  const auto put = [&](const VideoPlane& plane, int sample, std::size_t component, int scale) {
    for (int y = 0; y < plane.size.height(); ++y) {
      char* line =
          memory->data() + (plane.data - frame->planes[0].data + std::ptrdiff_t{y} * plane.stride);
      for (int x = 0; x < plane.size.width(); ++x) {
        int value = yuvAt(x * scale, y * scale)[component];
        if (layout == PictureLayout::deepPlanar) value <<= 2;
        if (layout == PictureLayout::deepInterleaved) value <<= 8;
        std::memcpy(line + (std::ptrdiff_t{x} * plane.samples + sample) * bytes, &value,
                    static_cast<std::size_t>(bytes));
      }
    }
  };
  const bool interleaved = isInterleaved(layout);
  put(frame->planes[0], 0, 0, 1);
  put(frame->planes[1], 0, 1, 2);
  put(interleaved ? frame->planes[1] : frame->planes[2], interleaved ? 1 : 0, 2, 2);
  frame->memory = memory;
  return frame;
}

auto solidFrame(SourceNumber source, QSize size, YUV yuv,
                PictureLayout layout = PictureLayout::planar, int padding = 0) {
  return frameOf(
      source, size, [yuv](int, int) { return yuv; }, layout, padding);
}

using SurfaceTest = SurfaceFixture;

constexpr PictureLayout layouts[] = {PictureLayout::planar, PictureLayout::interleaved,
                                     PictureLayout::deepPlanar, PictureLayout::deepInterleaved};

constexpr std::array red{63, 102, 240};  // BT.709, limited
constexpr std::array blue{32, 240, 118};
constexpr std::array greenSample{173, 42, 26};
constexpr std::array gray{126, 128, 128};

TEST_F(SurfaceTest, ShowsTheExpectedSourceOnBlackAndNothingElse) {
  EXPECT_TRUE(shows({200, 150}, Qt::black));
  frames->expect(1);
  frames->present(solidFrame(2, {64, 36}, blue));
  frames->present(solidFrame(1, {64, 36}, red));
  EXPECT_TRUE(shows({200, 150}, Qt::red));
  EXPECT_TRUE(shows({200, 10}, Qt::black)) << "above a 16:9 picture in a 4:3 area";
  EXPECT_TRUE(shows({2, 150}, Qt::red)) << "the picture is as wide as the area";
  SharedFrame last = solidFrame(1, {64, 36}, blue);
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
    frames->present(solidFrame(1, size, red, PictureLayout::planar, 29));
    EXPECT_TRUE(shows({200, 150}, Qt::red));
    const QRect picture(QPoint(), size.scaled(400, 300, Qt::KeepAspectRatio));
    const int right = 200 + picture.width() / 2 - 3;
    const int bottom = 150 + picture.height() / 2 - 3;
    EXPECT_TRUE(shows({right, bottom}, Qt::red));
    frames->present(solidFrame(1, {64, 36}, blue));
    EXPECT_TRUE(shows({200, 150}, Qt::blue));
  }
}

TEST_F(SurfaceTest, LiesInItsAreaAsItIsAskedTo) {
  // Blue in the left quarter, in an area of 4:3.
  struct Case {
    PictureShape shape;
    QSize size;
    QColor left, third, top;  // at the left edge, a third from it, at the top
    double pixelAspect = 1;
  };
  const Case cases[] = {
      {PictureShape::fit, {720, 576}, Qt::blue, Qt::red, Qt::black, 64.0 / 45},
      {PictureShape::fit, {160, 90}, Qt::blue, Qt::red, Qt::black},
      {PictureShape::fit, {90, 160}, Qt::black, Qt::blue, Qt::red},
      {PictureShape::fill, {160, 90}, Qt::blue, Qt::red, Qt::red},
      {PictureShape::fill, {160, 40}, Qt::red, Qt::red, Qt::red},
      {PictureShape::fill, {90, 160}, Qt::blue, Qt::red, Qt::red},
      {PictureShape::stretch, {160, 40}, Qt::blue, Qt::red, Qt::red},
      {PictureShape::fourToThree, {160, 40}, Qt::blue, Qt::red, Qt::red},
      {PictureShape::sixteenToNine, {160, 40}, Qt::blue, Qt::red, Qt::black},
      {PictureShape::sixteenToNine, {40, 160}, Qt::blue, Qt::red, Qt::black},
  };
  frames->expect(1);
  for (const Case& row : cases) {
    SCOPED_TRACE(&row - cases);
    const int quarter = row.size.width() / 4;
    const auto frame = frameOf(1, row.size, [=](int x, int) { return x < quarter ? blue : red; });
    frame->pixelAspect = row.pixelAspect;
    frames->present(frame);
    surface.setShape(int(row.shape));
    EXPECT_TRUE(shows({3, 150}, row.left));
    EXPECT_TRUE(shows({140, 150}, row.third));
    EXPECT_TRUE(shows({200, 10}, row.top));
  }
}

TEST_F(SurfaceTest, MatrixAndRangeAreThePictures) {
  frames->expect(1);
  const std::tuple<ColorMatrix, ColorRange, YUV, QColor> cases[] = {
      {ColorMatrix::bt601, ColorRange::limited, {81, 90, 240}, Qt::red},
      {ColorMatrix::bt709, ColorRange::limited, {173, 42, 26}, Qt::green},
      {ColorMatrix::bt601, ColorRange::full, {76, 85, 255}, QColor(254, 0, 0)},
      {ColorMatrix::bt2020, ColorRange::limited, {74, 97, 240}, Qt::red},
      {ColorMatrix::bt709, ColorRange::full, {128, 128, 128}, QColor(128, 128, 128)},
      {ColorMatrix::bt709, ColorRange::limited, {235, 128, 128}, Qt::white},
      {ColorMatrix::bt709, ColorRange::limited, {16, 128, 128}, Qt::black},
  };
  for (const auto& [matrix, range, yuv, color] : cases) {
    for (const PictureLayout layout : layouts) {
      if (isDeep(layout) && !frames->showsDeepSamples()) continue;
      SCOPED_TRACE(color.name().toStdString() + " " + std::to_string(static_cast<int>(layout)));
      const auto frame = solidFrame(1, {64, 48}, yuv, layout);
      frame->matrix = matrix;
      frame->range = range;
      frames->present(frame);
      EXPECT_TRUE(shows({200, 150}, color));
      EXPECT_TRUE(isNear(stillOf(*frame, 8).pixelColor(4, 3), color));
    }
  }
}

TEST_F(SurfaceTest, EveryLayoutShowsTheSameColors) {
  frames->expect(1);
  EXPECT_TRUE(shows({200, 150}, Qt::black));
  if (!frames->showsDeepSamples()) GTEST_SKIP() << "10 bits on this graphics card";
  // Quarters of a picture, so that places are told apart as well as samples.
  const YUV quarters[2][2] = {{red, blue}, {greenSample, gray}};
  const QColor colors[2][2] = {{Qt::red, Qt::blue}, {Qt::green, QColor(128, 128, 128)}};
  for (const PictureLayout layout : layouts) {
    for (const QSize size : {QSize(64, 48), QSize(361, 271)}) {
      SCOPED_TRACE(testing::Message() << static_cast<int>(layout) << " " << size.width());
      const SharedFrame frame = frameOf(
          1, size,
          [&](int x, int y) { return quarters[y * 2 > size.height()][x * 2 > size.width()]; },
          layout, 13);
      frames->present(solidFrame(1, {64, 48}, gray));
      ASSERT_TRUE(shows({50, 50}, QColor(128, 128, 128)));
      frames->present(frame);
      const QImage still = stillOf(*frame, 400);
      for (const int row : {0, 1}) {
        for (const int column : {0, 1}) {
          const QPoint place(100 + 200 * column, 75 + 150 * row);
          EXPECT_TRUE(shows(place, colors[row][column])) << row << column;
          EXPECT_TRUE(isNear(still.pixelColor(place), colors[row][column]))
              << "a still at " << row << column;
        }
      }
    }
  }
}

TEST_F(SurfaceTest, TonesAreMappedForTheirOwnPicturesOnly) {
  frames->expect(1);
  for (const Transfer transfer : {Transfer::pq, Transfer::hlg}) {
    const PictureLight light{transfer, Primaries::bt2020};
    const auto mapped = solidFrame(1, {64, 48}, gray);
    mapped->tones = std::make_shared<const ToneTable>(light);
    const RGB expected = standardOf({0.502f, 0.502f, 0.502f}, light);
    const QColor color = QColor::fromRgbF(expected[0], expected[1], expected[2]);
    ASSERT_FALSE(isNear(color, QColor(128, 128, 128), 0));
    frames->present(mapped);
    EXPECT_TRUE(shows({200, 150}, color));
    EXPECT_TRUE(isNear(stillOf(*mapped, 8).pixelColor(4, 3), color));
    frames->present(solidFrame(1, {64, 48}, gray));
    EXPECT_TRUE(shows({200, 150}, QColor(128, 128, 128)));
  }
}

TEST_F(SurfaceTest, OpacityAndSizeFollowTheItem) {
  frames->expect(1);
  frames->present(solidFrame(1, {64, 48}, gray));
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
    frames->present(solidFrame(source, {64, 36}, red));
    EXPECT_TRUE(eventually([&] { return firstPictures == static_cast<int>(source); }));
    frames->present(solidFrame(source, {64, 36}, blue));
    ASSERT_TRUE(shows({200, 150}, Qt::blue));
  }
  EXPECT_EQ(firstPictures, 2);
}

TEST_F(SurfaceTest, SurvivesTheWindowLosingItsGraphics) {
  frames->expect(1);
  frames->present(solidFrame(1, {64, 36}, red));
  ASSERT_TRUE(shows({200, 150}, Qt::red));
  window.setPersistentSceneGraph(false);
  window.setPersistentGraphics(false);
  window.hide();
  window.releaseResources();
  window.show();
  EXPECT_TRUE(shows({200, 150}, Qt::red));
}

}  // namespace
}  // namespace vantor::test
