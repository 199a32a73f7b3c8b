#include "ui/player/channel_banner.h"

#include <algorithm>

#include "core/programme_guide.h"
#include "ui/channels/programme_times.h"
#include "ui/channels/upcoming_entries.h"
#include "ui/entries/shown_text.h"

namespace vantor {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

constexpr auto shownTime = 4s;
// What is only passed is not asked for.
constexpr auto guideRest = 250ms;

}  // namespace

ChannelBanner::ChannelBanner(Zapping& zapping, ProgrammeGuide& guide, Clock& clock, QObject* parent)
    : QObject(parent), zapping_(zapping), guide_(guide), clock_(clock) {
  connect(&zapping, &Zapping::changed, this, &ChannelBanner::show);
  connect(&guide, &ProgrammeGuide::guideCacheChanged, this, [this](const QString& channelID) {
    const auto channel = told();
    if (shown_ && channel && (channelID.isEmpty() || channelID == channel->id)) Q_EMIT changed();
  });
}

void ChannelBanner::show() {
  shown_ = zapping_.channel().has_value();
  hiding_.reset();
  asking_.reset();
  if (shown_) {
    asking_ = clock_.callAfter(guideRest, [this] {
      if (const auto channel = told()) guide_.prefetchGuide(*channel);
    });
    hiding_ = clock_.callAfter(shownTime, [this] {
      shown_ = false;
      Q_EMIT changed();
    });
  }
  Q_EMIT changed();
}

QString ChannelBanner::number() const {
  if (!zapping_.typed().isEmpty()) return zapping_.typed();
  return zapping_.channel() ? QString::number(zapping_.number()) : QString();
}

std::optional<MediaItem> ChannelBanner::told() const {
  return zapping_.typed().isEmpty() ? zapping_.channel() : zapping_.typedChannel();
}

QString ChannelBanner::name() const {
  const auto channel = told();
  return channel                      ? oneLine(channel->name)
         : zapping_.typed().isEmpty() ? QString()
                                      : tr("No such channel");
}

QUrl ChannelBanner::artwork() const {
  const auto channel = told();
  return channel ? channel->artwork.value_or(QUrl()) : QUrl();
}

GuideEntries ChannelBanner::upcoming() const {
  const auto channel = told();
  return channel ? upcomingEntries(guide_, channel->id, clock_.now()) : GuideEntries();
}

QString ChannelBanner::now() const {
  const GuideEntries entries = upcoming();
  if (!entries.isEmpty()) return oneLine(entries.first().title);
  const auto channel = told();
  return channel ? absentProgramme(guide_, channel->id) : QString();
}

QString ChannelBanner::times() const {
  const GuideEntries entries = upcoming();
  return entries.isEmpty() ? QString() : programmeTimes(entries.first());
}

double ChannelBanner::progress() const {
  const GuideEntries entries = upcoming();
  if (entries.isEmpty()) return -1;
  const auto time = std::chrono::floor<ProviderTime::duration>(clock_.now());
  const std::chrono::duration<double> length = entries.first().end - entries.first().start;
  const std::chrono::duration<double> passed = time - entries.first().start;
  return std::clamp(passed / length, 0.0, 1.0);
}

QString ChannelBanner::next() const {
  const GuideEntries entries = upcoming();
  return entries.size() < 2 ? QString()
                            : programmeTimes(entries[1]) + u"   "_s + oneLine(entries[1].title);
}

}  // namespace vantor
