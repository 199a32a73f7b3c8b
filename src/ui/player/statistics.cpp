#include "ui/player/statistics.h"

#include "playback/playback.h"

namespace vantor {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

constexpr auto period = 1s;
constexpr double mega = 1e6;

QString decoderName(PictureDecoder decoder) {
  switch (decoder) {
    case PictureDecoder::unknown:
      return {};
    case PictureDecoder::software:
      return u"processor"_s;
    case PictureDecoder::vaapi:
      return u"graphics card (VA-API)"_s;
    case PictureDecoder::vdpau:
      return u"graphics card (VDPAU)"_s;
  }
  return {};
}

QString rateText(double perSecond) {
  return QString::number(perSecond, 'f', 1);
}

}  // namespace

Statistics::Statistics(Playback& playback, Clock& clock, QObject* parent)
    : QObject(parent), playback_(playback), clock_(clock) {
  connect(&playback, &Playback::sourceChanged, this, [this] {
    lastShown_ = -1;
    if (shown_ && !playback_.source()) putAway();
  });
}

bool Statistics::toggle() {
  if (!playback_.source()) return false;
  if (shown_) {
    putAway();
  } else {
    shown_ = true;
    read();
  }
  return true;
}

void Statistics::putAway() {
  shown_ = false;
  text_.clear();
  lastShown_ = -1;
  next_.reset();
  Q_EMIT changed();
}

void Statistics::read() {
  const PictureFacts facts = playback_.picture();
  QStringList lines;
  const auto add = [&lines](const QString& name, const QString& value) {
    if (!value.isEmpty()) lines.append(name + u": "_s + value);
  };
  add(u"Codec"_s, facts.codec);
  if (!facts.size.isEmpty())
    add(u"Picture"_s,
        u"%1 × %2, %3 bit"_s.arg(facts.size.width()).arg(facts.size.height()).arg(facts.bits));
  add(u"Decoded by"_s, decoderName(facts.decoder));
  if (facts.rate > 0) add(u"In the source"_s, rateText(facts.rate) + u" pictures a second"_s);

  const SteadyTime now = clock_.steadyNow();
  const std::chrono::duration<double> passed = now - lastTime_;
  // Another source begins to count anew.
  if (lastShown_ >= 0 && facts.shown >= lastShown_ && passed.count() > 0)
    add(u"Shown"_s, rateText(static_cast<double>(facts.shown - lastShown_) / passed.count()) +
                        u" pictures a second"_s);
  lastShown_ = facts.shown;
  lastTime_ = now;

  add(u"Lost"_s, u"%1 pictures"_s.arg(facts.lost));
  if (facts.bitsPerSecond > 0)
    add(u"Bit rate"_s, QString::number(facts.bitsPerSecond / mega, 'f', 2) + u" Mbit/s"_s);
  if (!playback_.isLocal())
    add(u"Buffer"_s, QString::number(MediaSource().networkCaching) + u" ms"_s);
  text_ = lines.join(u'\n');
  next_ = clock_.callAfter(period, [this] { read(); });
  Q_EMIT changed();
}

}  // namespace vantor
