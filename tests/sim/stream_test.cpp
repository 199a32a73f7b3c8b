#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

#include "sim/broadcast.h"
#include "sim/library.h"
#include "sim_fixture.h"

namespace sim {
namespace {

class SimStreams : public ::testing::Test {
 protected:
  Server server;
  const std::string channel = streamTarget("live", "1001.ts");

  std::string read(const std::string& target, std::size_t most) {
    std::string bytes;
    clientOf(server).Get(target, [&](const char* data, std::size_t size) {
      bytes.append(data, size);
      return bytes.size() < most;
    });
    return bytes;
  }
  int status(const std::string& target) { return get(server, target)->status; }

  // What ffprobe prints on both outputs, so that its complaints fail a comparison.
  static std::string probe(const std::string& arguments, const std::string& bytes) {
    const auto file = testing::TempDir() + "/sim-probe-" + std::to_string(::getpid());
    std::ofstream(file, std::ios::binary) << bytes;
    const auto command = "ffprobe -v warning -of csv=p=0 " + arguments + " " + file + " 2>&1";
    auto* pipe = ::popen(command.c_str(), "r");
    std::string output;
    for (int letter = std::fgetc(pipe); letter != EOF; letter = std::fgetc(pipe))
      output += static_cast<char>(letter);
    ::pclose(pipe);
    std::filesystem::remove(file);
    return output;
  }
};

TEST_F(SimStreams, ChannelGoesOnWithoutASeamWhereItsLoopStartsAgain) {
  const Broadcast broadcast(server.mediaPath("channel1.ts"));
  std::string bytes;
  for (int number = 350; number < 450; ++number) bytes += broadcast.picture(number);

  std::istringstream times(
      probe("-count_frames -select_streams v -show_entries frame=pts_time", bytes));
  double last = 0;
  int pictures = 0;
  for (std::string line; std::getline(times, line);) {
    if (line.empty()) continue;
    const double time = std::stod(line);
    if (pictures++ > 0) {
      EXPECT_NEAR(time - last, 0.04, 0.001) << pictures;
    }
    last = time;
  }
  EXPECT_EQ(pictures, 100);

  std::map<int, int> counters;
  for (std::size_t at = 0; at < bytes.size(); at += 188) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(bytes[at + i]); };
    const int stream = (byte(1) & 0x1f) << 8 | byte(2);
    const int counter = byte(3) & 0x0f;
    if (!(byte(3) & 0x10)) continue;
    if (counters.contains(stream)) {
      ASSERT_EQ(counter, (counters[stream] + 1) % 16) << at;
    }
    counters[stream] = counter;
  }
}

TEST_F(SimStreams, ChannelAndSegmentStartWithAPictureThatDecodes) {
  // Whole packets of less than the first burst, so that nothing waits for the clock.
  const auto bytes = read(channel, 188 * 1000).substr(0, 188 * 1000);
  EXPECT_TRUE(
      probe("-select_streams v -read_intervals %+#1 -show_entries frame=key_frame,height", bytes)
          .starts_with("1,720"));
  const auto list = get(server, streamTarget("live", "1002.m3u8"))->body;
  const auto begin = list.find("/segment/");
  ASSERT_NE(begin, std::string::npos);
  const auto segment = get(server, list.substr(begin, list.find('\n', begin) - begin));
  EXPECT_TRUE(probe("-select_streams v -count_frames -show_entries stream=nb_read_frames,height",
                    segment->body)
                  .starts_with("720,50\n"));
}

TEST_F(SimStreams, FilmsHaveTwoSoundAndTwoSubtitleTracks) {
  for (const auto& name : {"movie.mkv", "movie.mp4", "episode.mkv"}) {
    std::ifstream file(server.mediaPath(name), std::ios::binary);
    const std::string bytes(std::istreambuf_iterator<char>(file), {});
    const auto tracks = probe("-show_entries stream=codec_type:stream_tags=language", bytes);
    EXPECT_NE(tracks.find("audio,eng\naudio,deu\nsubtitle,eng\nsubtitle,deu"), std::string::npos)
        << tracks;
  }
}

TEST_F(SimStreams, RangesAreServedExactly) {
  auto client = clientOf(server);
  const auto target = streamTarget("movie", "200001.mp4");
  const auto whole = client.Get(target)->body;
  const auto size = std::to_string(whole.size());
  const std::tuple<std::string, int, std::string, std::string> cases[] = {
      {"bytes=0-9", 206, "bytes 0-9/" + size, whole.substr(0, 10)},
      {"bytes=1000-", 206, "", whole.substr(1000)},
      {"bytes=-7", 206, "", whole.substr(whole.size() - 7)},
      {"bytes=5-" + size + "0", 206, "", whole.substr(5)},
      {"bytes=" + size + "-", 416, "bytes */" + size, ""},
  };
  for (const auto& [range, code, content, body] : cases) {
    const auto answer = client.Get(target, {{"Range", range}});
    EXPECT_EQ(answer->status, code) << range;
    EXPECT_TRUE(answer->get_header_value("Content-Range").starts_with(content)) << range;
    EXPECT_TRUE(code != 206 || answer->body == body) << range;
  }
}

TEST_F(SimStreams, OnlyTheRightLogInOpensAnEntryThatExists) {
  const auto right = streamTarget("live", "1001.m3u8");
  EXPECT_EQ(status(right), 200);
  const std::string unescaped = "/live/demo/p&ss%20w/rd=1+%25%C3%A9%23/1001.m3u8";
  for (const auto& target :
       {unescaped, std::string("/live/demo/wrong/1001.m3u8"), streamTarget("live", "999.m3u8"),
        streamTarget("live", "1001.avi"), streamTarget("movies", "200001.mkv"), right + "/more"})
    EXPECT_EQ(status(target), 404) << target;
}

TEST_F(SimStreams, BreakOffAndAreRefusedAsTheirFaultsSay) {
  server.setFault("live", Fault::connectionLimit);
  int second = 0;
  clientOf(server).Get(channel, [&](const char*, std::size_t) {
    second = status(channel);
    return false;
  });
  EXPECT_EQ(second, 403);

  server.setFault("live", Fault::cutOff);
  const auto bytes = read(channel, SIZE_MAX);
  EXPECT_GT(bytes.size(), 50'000u);
  EXPECT_EQ(bytes.size() % 188, 0u);

  server.setFault("movie", Fault::unsteady);
  const auto film = streamTarget("movie", std::to_string(entryId(Kind::movie, 0)) + ".m4a");
  std::set<std::string> ways;
  for (int times = 0; times < 40; ++times) {
    const auto answer = get(server, film);
    ways.insert(!answer                 ? "broken off"
                : answer->status != 200 ? std::to_string(answer->status)
                                        : std::to_string(answer->body.size()));
  }
  EXPECT_EQ(ways, (std::set<std::string>{"0", "503", "broken off"}));
}

TEST_F(SimStreams, CountsTheConnectionsOfTheClientsThatAreThere) {
  for (int times = 0; times < 5; ++times) read(channel, 1);
  EXPECT_EQ(server.counters().mostStreamsAtOnce, 1);
  clientOf(server).Get(channel, [&](const char*, std::size_t) {
    read(channel, 1);
    return false;
  });
  EXPECT_EQ(server.counters().mostStreamsAtOnce, 2);
}

}  // namespace
}  // namespace sim
