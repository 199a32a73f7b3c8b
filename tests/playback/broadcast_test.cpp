// What a channel does to its pictures while it goes on.

#include <QThread>
#include <atomic>
#include <cstdlib>
#include <functional>
#include <mutex>
#include <utility>
#include <vector>

#include "engine_fixture.h"
#include "playback/libvlc_player.h"

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

/// Places where a line differs from the next one, but not from the one after that.
int combs(const VideoPlane& luma) {
  int count = 0;
  for (int y = luma.size.height() / 2; y < luma.size.height() / 2 + 20; ++y) {
    const std::uint8_t* line = luma.data + std::ptrdiff_t{y} * luma.stride;
    for (int x = 0; x < luma.size.width(); ++x) {
      const int next = std::abs(line[x] - line[x + luma.stride]);
      const int afterNext = std::abs(line[x] - line[x + std::ptrdiff_t{2} * luma.stride]);
      if (next > 60 && afterNext < 20) ++count;
    }
  }
  return count;
}

TEST_F(BroadcastTest, PicturesFollowChangesOfSizeShapeCodecAndInterlacing) {
  if (libVLCInternals() == LibVLCInternals::left) GTEST_SKIP() << "with this version of libVLC";
  const std::pair<Shape, QString> parts[] = {
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
  // In their order, each as it was last.
  struct Shapes {
    std::mutex mutex;
    std::vector<Shape> seen;
  };
  const auto shapes = std::make_shared<Shapes>();
  watch(*frames, [shapes](const VideoFrame& frame) {
    const Shape now{frame.size(), frame.pixelAspect, isDeep(frame.layout)};
    const std::lock_guard lock(shapes->mutex);
    std::vector<Shape>& seen = shapes->seen;
    if (seen.empty() || seen.back().size != now.size || seen.back().isDeep != now.isDeep)
      seen.emplace_back();
    seen.back() = now;
  });
  ASSERT_TRUE(starts(writeFile(path(u"whole.ts"_s), whole)));
  EXPECT_TRUE(eventually([&] { return engine.status().state == EngineState::ended; }));
  const std::lock_guard lock(shapes->mutex);
  const std::vector<Shape>& seen = shapes->seen;
  ASSERT_EQ(seen.size(), std::size(parts));
  for (std::size_t i = 0; i < seen.size(); ++i) {
    SCOPED_TRACE(i);
    const Shape& sent = parts[i].first;
    EXPECT_EQ(seen.at(i).size, sent.size);
    EXPECT_NEAR(seen.at(i).pixelAspect, sent.pixelAspect, 0.01);
    EXPECT_EQ(seen.at(i).isDeep, sent.isDeep);
  }
}

TEST_F(BroadcastTest, EachFieldOfAMovingEdgeIsShownWithoutCombs) {
  // A bar that moves by ten pixels from field to field.
  const QString file =
      make(u"channel.ts"_s,
           u"-f lavfi -i color=black:s=1920x1080:r=50:d=12 -vf "
           "drawbox=x=400:w=300:h=1080:color=white:t=fill,scroll=h=0.0052,format=yuv420p,"
           "interlace=scan=tff:lowpass=off -c:v mpeg2video -q:v 3 -flags +ildct+ilme -top 1"_s);
  for (const unsigned processors : {2U, 8U}) {
    SCOPED_TRACE(testing::Message() << "on " << processors << " processors");
    std::atomic<int> pictures = 0;
    std::atomic<int> combed = 0;
    std::atomic<int> edges = 0;
    const auto queue = std::make_shared<VideoFrameQueue>();
    watch(*queue, [&](const VideoFrame& frame) {
      const VideoPlane& luma = frame.planes[0];
      const std::uint8_t* line = luma.data + std::ptrdiff_t{luma.size.height() / 2} * luma.stride;
      for (int x = 1; x < luma.size.width(); ++x)
        if (std::abs(line[x] - line[x - 1]) > 60) ++edges;
      // The first come before the library has noticed that the source is interlaced.
      if (++pictures > 6 && combs(luma) > 0) ++combed;
    });
    LibVLCPlayer player(libraryOptions(Output::shown, processors), libVLCInternals(), queue, [] {});
    queue->expect(1);
    player.load({.address = QUrl::fromLocalFile(file)}, 1);
    player.play();
    // A machine with other work to do drops pictures; it does not make any.
    double best = 0;
    std::int64_t begin = 0;
    std::int64_t last = 0;
    int before = 0;
    EXPECT_TRUE(eventually([&] {
      const EngineStatus status = player.sample();
      if (status.state == EngineState::ended) return true;
      // The library's time goes on in steps of a third of a second.
      if (std::exchange(last, status.time) == status.time) return false;
      const double passed = static_cast<double>(status.time - begin) / 1000;
      if (begin > 0 && passed < 3) return false;
      const int now = pictures;
      if (begin > 0) best = std::max(best, (now - before) / passed);
      begin = status.time;
      before = now;
      return best > 44;
    }));
    EXPECT_GT(best, 44) << "pictures a second of the source's time";
    EXPECT_LT(best, 56);
    EXPECT_GT(edges, pictures) << "there is something to see";
    // Under load one may lack the neighbour that it is made from.
    EXPECT_LE(combed * 100, pictures);
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
  const QString file = make(
      u"a.ts"_s, u"-f lavfi -i testsrc2=s=638x358:r=25:d=4 -pix_fmt yuv420p -c:v libx264 -qp 10"_s);
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
