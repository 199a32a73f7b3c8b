#include "ui/player/statistics.h"

#include "playback/playback.h"

namespace vantor {
namespace {

using namespace std::chrono_literals;

constexpr auto period = 1s;
constexpr double mega = 1e6;

QString decoderName(PictureDecoder decoder) {
  switch (decoder) {
    case PictureDecoder::unknown:
      return {};
    case PictureDecoder::software:
      return Statistics::tr("processor");
    case PictureDecoder::vaapi:
      return Statistics::tr("graphics card (VA-API)");
    case PictureDecoder::vdpau:
      return Statistics::tr("graphics card (VDPAU)");
  }
  return {};
}

QString rateText(double perSecond) {
  return Statistics::tr("%1 pictures a second").arg(perSecond, 0, 'f', 1);
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
    if (!value.isEmpty()) lines.append(tr("%1: %2", "a fact and its value").arg(name, value));
  };
  add(tr("Codec"), facts.codec);
  if (!facts.size.isEmpty())
    add(tr("Picture"),
        tr("%1 × %2, %3 bit").arg(facts.size.width()).arg(facts.size.height()).arg(facts.bits));
  add(tr("Decoded by"), decoderName(facts.decoder));
  if (facts.rate > 0) add(tr("In the source"), rateText(facts.rate));

  const SteadyTime now = clock_.steadyNow();
  const std::chrono::duration<double> passed = now - lastTime_;
  // Another source begins to count anew.
  if (lastShown_ >= 0 && facts.shown >= lastShown_ && passed.count() > 0)
    add(tr("Shown"), rateText(static_cast<double>(facts.shown - lastShown_) / passed.count()));
  lastShown_ = facts.shown;
  lastTime_ = now;

  add(tr("Lost"), tr("%n pictures", nullptr, static_cast<int>(facts.lost)));
  if (facts.bitsPerSecond > 0)
    add(tr("Bit rate"), tr("%1 Mbit/s").arg(facts.bitsPerSecond / mega, 0, 'f', 2));
  if (!playback_.isLocal()) add(tr("Buffer"), tr("%1 ms").arg(networkCaching));
  text_ = lines.join(u'\n');
  next_ = clock_.callAfter(period, [this] { read(); });
  Q_EMIT changed();
}

}  // namespace vantor
