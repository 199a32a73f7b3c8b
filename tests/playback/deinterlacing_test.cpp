// Pictures of an interlaced channel: one for each field, and each of one moment only.
#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <cstdlib>
#include <mutex>
#include <utility>

#include "playback/libvlc_player.h"
#include "support/test_media.h"
#include "support/waiting.h"

namespace vantor::test {
namespace {

// Those before the library has noticed that the source is interlaced.
constexpr int firstPictures = 6;

/// Looks at every picture, on the thread that brings it.
class Witness {
 public:
  explicit Witness(VideoFrameQueue& frames) {
    QObject::connect(
        &frames, &VideoFrameQueue::changed, &frames, [this, &frames] { see(frames.take()); },
        Qt::DirectConnection);
  }

  struct Seen {
    int pictures = 0;
    int combed = 0;
    int edges = 0;
  };
  Seen seen() const {
    const std::lock_guard lock(mutex_);
    return seen_;
  }

 private:
  /// Places where a line differs from the next one, but not from the one after that.
  static int combs(const VideoPlane& luma) {
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

  void see(const SharedFrame& frame) {
    if (!frame) return;
    const VideoPlane& luma = frame->planes[0];
    const std::uint8_t* line = luma.data + std::ptrdiff_t{luma.size.height() / 2} * luma.stride;
    const int combs = Witness::combs(luma);
    const std::lock_guard lock(mutex_);
    ++seen_.pictures;
    for (int x = 1; x < luma.size.width(); ++x)
      if (std::abs(line[x] - line[x - 1]) > 60) ++seen_.edges;
    if (seen_.pictures > firstPictures && combs > 0) ++seen_.combed;
  }

  mutable std::mutex mutex_;
  Seen seen_;
};

TEST(Deinterlacing, ShowsEachFieldOfAMovingEdgeWithoutCombs) {
  qputenv("VANTOR_AUDIO", "none");
  const QTemporaryDir folder;
  const QString file = folder.filePath(u"channel.ts"_s);
  // A bar that moves by ten pixels from field to field.
  ASSERT_TRUE(
      makeMedia(u"-f lavfi -i color=black:s=1920x1080:r=50:d=12 -vf "
                "drawbox=x=400:w=300:h=1080:color=white:t=fill,scroll=h=0.0052,format=yuv420p,"
                "interlace=scan=tff:lowpass=off -c:v mpeg2video -q:v 3 -flags +ildct+ilme -top 1"_s,
                file));
  for (const unsigned processors : {2U, 8U}) {
    SCOPED_TRACE(testing::Message() << "on " << processors << " processors");
    const auto frames = std::make_shared<VideoFrameQueue>();
    Witness witness(*frames);
    LibVLCPlayer player(libraryOptions(Output::shown, processors), libVLCInternals(), frames,
                        [] {});
    frames->expect(1);
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
      const int pictures = witness.seen().pictures;
      if (begin > 0) best = std::max(best, (pictures - before) / passed);
      begin = status.time;
      before = pictures;
      return best > 44;
    }));
    EXPECT_GT(best, 44) << "pictures a second of the source's time";
    EXPECT_LT(best, 56);
    const Witness::Seen seen = witness.seen();
    EXPECT_GT(seen.edges, seen.pictures) << "there is something to see";
    // Under load one may lack the neighbour that it is made from.
    EXPECT_LE(seen.combed * 100, seen.pictures);
  }
}

}  // namespace
}  // namespace vantor::test
