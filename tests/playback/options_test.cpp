#include "playback/libvlc_options.h"

#include <gtest/gtest.h>

namespace vantor {
namespace {

using namespace Qt::StringLiterals;

TEST(LibVLCOptions, OfTheLibraryAreInOrder) {
  const QList<QByteArray> always{"--quiet", "--no-video-title-show", "--no-osd",
                                 "--network-caching=1200", "--file-caching=500"};
  const QList<QByteArray> nothingOut{"--vout=dummy", "--aout=dummy", "--avcodec-hw=none"};
  EXPECT_EQ(libraryOptions(false, AudioOutput::device), always);
  EXPECT_EQ(libraryOptions(false, AudioOutput::none), always + QList<QByteArray>{"--aout=dummy"});
  EXPECT_EQ(libraryOptions(true, AudioOutput::device), always + nothingOut);
  EXPECT_EQ(libraryOptions(true, AudioOutput::none), always + nothingOut);
}

TEST(LibVLCOptions, OfAMediaHoldNoControlCharacters) {
  const struct {
    QString agent;
    QList<QByteArray> options;
  } cases[] = {
      {u"VantorPlayerMac/0.1.0"_s,
       {":http-user-agent=VantorPlayerMac/0.1.0", ":network-caching=1200"}},
      {u""_s, {":http-user-agent=", ":network-caching=1200"}},
      {u"A/1 (b; :c=d) é"_s, {":http-user-agent=A/1 (b; :c=d) é", ":network-caching=1200"}},
      {u"A/1\nX: y"_s, {":network-caching=1200"}},
      {u"A/1\r\nX: y"_s, {":network-caching=1200"}},
      {QString(QChar(0)), {":network-caching=1200"}},
      {u"A\u0085B"_s, {":network-caching=1200"}},
  };
  for (const auto& row : cases) EXPECT_EQ(mediaOptions({.userAgent = row.agent}), row.options);
}

}  // namespace
}  // namespace vantor
