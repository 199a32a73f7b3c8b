// Subtitles, through to the pictures that are shown.
#include "engine_fixture.h"
#include "playback/still.h"

namespace vantor::test {
namespace {

constexpr int seconds = 20;
constexpr int width = 320;
constexpr int height = 180;

/// Words in every second.
QByteArray texts() {
  QString file;
  for (int second = 0; second < seconds; ++second)
    file += u"%1\n00:00:%2,000 --> 00:00:%2,950\nWords\n\n"_s.arg(second + 1)
                .arg(second, 2, 10, QChar(u'0'));
  return file.toUtf8();
}

/// A white bar in every second, as the subtitles of a Blu-ray disc.
QByteArray bitmaps() {
  const QByteArray line = "00 c0a0 01 0000";  // 160 pixels of the first colour
  // Of each its type, the length of the rest, and that.
  const QByteArray segments[] = {
      "16 0013 0140 00b4 10 0000 80 00 00 01 0000 00 00 0050 0082",  // at 80, 130 of 320x180
      "17 000a 01 00 0050 0082 00a0 0014",                           // there, 160x20
      "14 0007 00 00 01 eb 80 80 ff",                                // the first colour is white
      "15 0083 0000 00 c0 00007c 00a0 0014" + line.repeated(20),     // 160x20
      "80 0000"};
  QByteArray file;
  for (int second = 0; second < seconds; ++second) {
    const QByteArray time = QByteArray::number(second * 90'000, 16).rightJustified(8, '0');
    for (const QByteArray& segment : segments)
      file += "PG" + QByteArray::fromHex(time + "00000000" + segment);
  }
  return file;
}

class SubtitleTest : public EngineFixture {
 protected:
  /// Whether the newest picture, black without them, holds subtitles.
  bool shows() const {
    const SharedFrame frame = frames->latest();
    if (!frame) return false;
    const QImage picture = stillOf(*frame, width);
    int bright = 0;
    for (int y = height / 2; y < height; ++y) {
      for (int x = 0; x < width; ++x) bright += qGray(picture.pixel(x, y)) > 160 ? 1 : 0;
    }
    return bright > 20;
  }
};

TEST_F(SubtitleTest, AreShownWhenChosenAndGoWithOff) {
  const std::tuple<QString, QByteArray, QString, QString> cases[] = {
      {u"words.srt"_s, texts(), u"srt"_s, u"yuv420p"_s},
      {u"words.srt"_s, texts(), u"srt"_s, u"yuv420p10le"_s},
      {u"bars.sup"_s, bitmaps(), u"copy"_s, u"yuv420p"_s}};
  frames->setShowsDeepSamples(true);
  for (const auto& [name, content, codec, pixels] : cases) {
    SCOPED_TRACE((name + u' ' + pixels).toStdString());
    const QString subtitles = writeFile(path(name), content);
    ASSERT_TRUE(starts(
        make(name + u".mkv"_s,
             solidColor(u"black"_s, u"%1x%2"_s.arg(width).arg(height), seconds) +
                 u" -i %1 -map 0 -map 1 -pix_fmt %2 -c:s %3"_s.arg(subtitles, pixels, codec))));
    const TransportState& transport = *playback.transport();
    ASSERT_TRUE(eventually([&] { return transport.subtitles().size() == 1; }));
    for (int round = 0; round < 2; ++round) {
      playback.setSubtitleTrack(transport.subtitles().first().id);
      EXPECT_TRUE(eventually([&] { return shows(); }));
      EXPECT_TRUE(eventually(
          [&] { return transport.subtitleTrack() == transport.subtitles().first().id; }));
      playback.setSubtitleTrack(-1);
      EXPECT_TRUE(eventually([&] { return !shows() && transport.subtitleTrack() == -1; }));
      // They do not come back in any of the next pictures either.
      const std::int64_t time = engine.status().time;
      EXPECT_FALSE(!eventually([&] { return shows() || engine.status().time > time + 1'500; }) ||
                   shows());
    }
  }
}

}  // namespace
}  // namespace vantor::test
