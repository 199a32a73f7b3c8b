#include "playback/libvlc_options.h"

#include <gtest/gtest.h>

#include <limits>

#include "playback/libvlc_internals.h"
#include "playback/wrapping_count.h"

namespace vantor::test {
namespace {

using namespace Qt::StringLiterals;

TEST(LibVLCOptions, FitTheProcessorsAndTheOutput) {
  for (const unsigned processors : {0U, 2U, 4U}) {
    const QByteArray mode = processors < 4 ? "bob" : "yadif2x";
    const auto options = libraryOptions(Output::shown, processors);
    EXPECT_TRUE(options.contains("--deinterlace-mode=" + mode)) << processors;
    EXPECT_EQ(libraryOptions(Output::discarded, processors),
              options + QList<QByteArray>({"--vout=dummy", "--aout=dummy", "--avcodec-hw=none"}));
  }
}

TEST(LibVLCOptions, OfAMediaHoldNoControlCharacters) {
  const std::pair<QString, QList<QByteArray>> cases[] = {
      {u"VantorPlayerMac/0.1.0"_s,
       {":http-user-agent=VantorPlayerMac/0.1.0", ":network-caching=1200"}},
      {u""_s, {":http-user-agent=", ":network-caching=1200"}},
      {u"A/1 (b; :c=d) é"_s, {":http-user-agent=A/1 (b; :c=d) é", ":network-caching=1200"}},
      {u"A/1\nX: y"_s, {":network-caching=1200"}},
      {u"A/1\r\nX: y"_s, {":network-caching=1200"}},
      {QString(QChar(0)), {":network-caching=1200"}},
      {u"A\u0085B"_s, {":network-caching=1200"}},
  };
  for (const auto& [agent, options] : cases) EXPECT_EQ(mediaOptions({.userAgent = agent}), options);
}

TEST(LibVLCInternals, AreUsedInTriedVersionsOnly) {
  const QByteArrayList tried{"3.0.23", "3.0.24"};
  const std::tuple<QByteArray, QByteArray, LibVLCInternals> cases[] = {
      {"3.0.24", "3.0.24 Vetinari", LibVLCInternals::used},
      {"3.0.23", "3.0.24 Vetinari", LibVLCInternals::used},
      {"3.0.24", "3.0.25 Vetinari", LibVLCInternals::left},
      {"3.0.21", "3.0.24 Vetinari", LibVLCInternals::left},
      {"3.0.24", "3.0.2 Vetinari", LibVLCInternals::left},
      {"3.0.24", "3.0.240", LibVLCInternals::left},
      {"3.0.24", "", LibVLCInternals::left},
  };
  for (const auto& [built, library, internals] : cases)
    EXPECT_EQ(internalsOf(built, library, tried), internals)
        << built.toStdString() << " with " << library.toStdString();
}

TEST(WrappingCount, GrowsPastTheCountersEnd) {
  constexpr std::int32_t largest = std::numeric_limits<std::int32_t>::max();
  constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min();
  WrappingCount count;
  count.begin(largest - 10);
  const std::pair<std::int32_t, std::int64_t> steps[] = {
      {largest - 10, 0}, {largest, 10},          {least + 9, 20},
      {least, 20},       {-1, (1LL << 31) + 10}, {largest - 10, 1LL << 32}};
  for (const auto& [now, grown] : steps) EXPECT_EQ(count.grownTo(now), grown) << now;
}

}  // namespace
}  // namespace vantor::test
