// What a channel does to its pictures while it goes on.

#include <QThread>
#include <atomic>
#include <functional>
#include <mutex>
#include <vector>

#include "engine_fixture.h"

namespace vantor::test {
namespace {

using BroadcastTest = EngineFixture;

struct Shape {
  QSize size;
  double pixelAspect = 1;
  bool isDeep = false;
};

/// Calls `see` for each picture on the thread that brings it, for as long as there is the queue.
void watch(VideoFrameQueue& frames, std::function<void(const VideoFrame&)> see) {
  const auto look = [&frames, see = std::move(see)] {
    if (const SharedFrame frame = frames.take()) see(*frame);
  };
  QObject::connect(&frames, &VideoFrameQueue::changed, &frames, look, Qt::DirectConnection);
}

/// The shapes of pictures in their order, each as it was last.
class Shapes {
 public:
  void see(const VideoFrame& frame) {
    const std::lock_guard lock(mutex_);
    const bool deep = isDeep(frame.layout);
    if (shapes_.empty() || shapes_.back().size != frame.size() || shapes_.back().isDeep != deep)
      shapes_.emplace_back();
    shapes_.back() = {frame.size(), frame.pixelAspect, deep};
  }
  std::vector<Shape> seen() const {
    const std::lock_guard lock(mutex_);
    return shapes_;
  }

 private:
  mutable std::mutex mutex_;
  std::vector<Shape> shapes_;
};

TEST_F(BroadcastTest, PicturesFollowChangesOfSizeShapeCodecAndInterlacing) {
  if (libVLCInternals() == LibVLCInternals::left) GTEST_SKIP() << "with this version of libVLC";
  const struct {
    Shape shape;
    QString format;
  } parts[] = {
      {{{320, 180}}, u"setsar=1 -c:v libx264 -pix_fmt yuv420p"_s},
      {{{640, 480}, 4.0 / 3}, u"setsar=4/3 -c:v libx264 -pix_fmt yuv420p"_s},
      {{{720, 576}, 64.0 / 45},
       u"setsar=64/45,fps=50,interlace=scan=tff:lowpass=off -c:v mpeg2video -flags +ildct+ilme"_s},
      {{{320, 180}, 1, true},
       u"setsar=1 -c:v libx265 -x265-params log-level=none -pix_fmt yuv420p10le"_s},
  };
  constexpr int partSeconds = 3;
  QByteArray whole;
  int number = 0;
  for (const auto& [shape, format] : parts) {
    const QString pixels = u"%1x%2"_s.arg(shape.size.width()).arg(shape.size.height());
    whole += readFile(make(
        u"part.ts"_s,
        solidColor(u"gray"_s, pixels, partSeconds) + u" -vf "_s + format +
            u" -output_ts_offset %1 -tables_version %2"_s.arg(number * partSeconds).arg(number)));
    ++number;
  }
  frames->setShowsDeepSamples(true);
  const auto shapes = std::make_shared<Shapes>();
  watch(*frames, [shapes](const VideoFrame& frame) { shapes->see(frame); });
  ASSERT_TRUE(starts(writeFile(path(u"whole.ts"_s), whole)));
  EXPECT_TRUE(eventually([&] { return engine.status().state == EngineState::ended; }));
  const std::vector<Shape> seen = shapes->seen();
  ASSERT_EQ(seen.size(), std::size(parts));
  for (std::size_t i = 0; i < seen.size(); ++i) {
    SCOPED_TRACE(i);
    EXPECT_EQ(seen.at(i).size, parts[i].shape.size);
    EXPECT_NEAR(seen.at(i).pixelAspect, parts[i].shape.pixelAspect, 0.01);
    EXPECT_EQ(seen.at(i).isDeep, parts[i].shape.isDeep);
  }
}

TEST_F(BroadcastTest, LatePicturesAreDroppedAndCounted) {
  // Each picture is brighter than the last one.
  const QString file = make(u"brighter.mkv"_s,
                            u"-f lavfi -i nullsrc=s=320x180:r=50:d=4,geq=lum=16+N:cb=128:cr=128 "
                            "-pix_fmt yuv420p -c:v libx264"_s);
  // Whoever takes them needs five times as long for one as there is.
  struct Taken {
    std::atomic<int> pictures = 0;
    std::atomic<int> brightness = 0;  // of the last
  };
  const auto taken = std::make_shared<Taken>();
  watch(*frames, [taken](const VideoFrame& frame) {
    const VideoPlane& luma = frame.planes[0];
    taken->brightness = luma.data[std::ptrdiff_t{luma.stride} * 90 + 160];
    ++taken->pictures;
    QThread::msleep(100);
  });
  ASSERT_TRUE(starts(file));
  ASSERT_TRUE(eventually([&] { return engine.status().time > 3'000; }));
  const double shownTime = (taken->brightness - 16) / 50.0;
  const EngineStatus status = engine.status();
  EXPECT_NEAR(shownTime, static_cast<double>(status.time) / 1000, 0.7) << "pictures wait in a row";
  EXPECT_LT(taken->pictures, 60);
  EXPECT_GT(status.picture.lost, 50);
  EXPECT_LE(status.picture.shown, taken->pictures + 1);
}

TEST_F(BroadcastTest, TellsFactsOfItsPictures) {
  const QString file =
      make(u"a.ts"_s,
           u"-f lavfi -i testsrc2=s=638x358:r=25:d=4 -pix_fmt yuv420p -c:v libx264 "
           "-qp 10"_s);
  const double bitsPerSecond = static_cast<double>(QFileInfo(file).size()) * 8 / 4;
  EXPECT_EQ(engine.status().picture, PictureFacts());
  ASSERT_TRUE(starts(file));
  PictureFacts facts;
  EXPECT_TRUE(eventually([&] {
    facts = engine.status().picture;
    return facts.shown > 40 && facts.bitsPerSecond > 0;
  }));
  EXPECT_THAT(facts.codec.toStdString(), testing::HasSubstr("H264"));
  EXPECT_NE(facts.decoder, PictureDecoder::unknown);
  EXPECT_EQ(facts.size, QSize(638, 358));
  EXPECT_EQ(facts.bits, 8);
  EXPECT_NEAR(facts.rate, 25, 0.1);
  EXPECT_GT(facts.bitsPerSecond, bitsPerSecond / 3);
  EXPECT_LT(facts.bitsPerSecond, bitsPerSecond * 3);
  engine.unload();
  EXPECT_EQ(engine.status().picture, PictureFacts());
}

}  // namespace
}  // namespace vantor::test
