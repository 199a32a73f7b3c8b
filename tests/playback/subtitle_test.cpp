// Subtitles, through to the pictures that are shown.
#include <QFile>
#include <QtEndian>

#include "engine_fixture.h"
#include "playback/still.h"

namespace vantor::test {
namespace {

constexpr int seconds = 20;
constexpr int width = 320;
constexpr int height = 180;

/// Big-endian bytes.
template <class Integer>
QByteArray be(Integer value) {
  QByteArray bytes(sizeof value, Qt::Uninitialized);
  qToBigEndian(value, bytes.data());
  return bytes;
}

/// Words in every second.
QByteArray texts() {
  QByteArray file;
  for (int second = 0; second < seconds; ++second) {
    const QByteArray begin = QByteArray::number(second).rightJustified(2, '0');
    file += QByteArray::number(second + 1) + "\n00:00:" + begin + ",000 --> 00:00:" + begin +
            ",950\nWords\n\n";
  }
  return file;
}

/// A white bar in every second, as the subtitles of a Blu-ray disc.
QByteArray bitmaps() {
  constexpr quint16 barWidth = 160;
  constexpr quint16 barHeight = 20;
  const QByteArray place = be(quint16{80}) + be(quint16{130});
  const QByteArray line =
      QByteArray::fromHex("00c0") + char(barWidth) + '\x01' + QByteArray(2, '\0');
  const QByteArray bar = be(barWidth) + be(barHeight) + line.repeated(barHeight);
  const QByteArray presentation = be(quint16{width}) + be(quint16{height}) +
                                  QByteArray::fromHex("10 0000 80 00 00 01 0000 00 00") + place;
  const QByteArray window = QByteArray::fromHex("01 00") + place + be(barWidth) + be(barHeight);
  const QByteArray palette = QByteArray::fromHex("00 00 01 eb 80 80 ff");
  const QByteArray object =
      QByteArray::fromHex("0000 00 c0") + be(quint32(bar.size())).last(3) + bar;
  const std::pair<quint8, QByteArray> segments[] = {
      {0x16, presentation}, {0x17, window}, {0x14, palette}, {0x15, object}, {0x80, {}}};
  QByteArray file;
  for (quint32 second = 0; second < seconds; ++second) {
    for (const auto& [type, content] : segments)
      file += "PG" + be(second * 90'000) + be(quint32{0}) + be(type) + be(quint16(content.size())) +
              content;
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
