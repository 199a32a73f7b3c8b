#include "sim/media.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <vector>

namespace sim {
namespace {

namespace fs = std::filesystem;
using Arguments = std::vector<std::string>;

// Changes whenever the files' content does.
constexpr auto version = "media-1";
constexpr std::array mediaFiles = {"channel0.ts", "channel1.ts", "channel2.ts",
                                   "channel3.ts", "movie.mkv",   "movie.mp4",
                                   "episode.mkv", "episode.mp4", "audio.m4a"};

// Only one process makes media at a time; the lock goes with the process, however it ends.
class FolderLock {
 public:
  explicit FolderLock(const fs::path& folder)
      : file_(::open((folder / "lock").c_str(), O_CREAT | O_RDWR | O_CLOEXEC, 0600)) {
    while (file_ >= 0 && ::flock(file_, LOCK_EX) != 0 && errno == EINTR) continue;
  }
  ~FolderLock() {
    if (file_ >= 0) ::close(file_);
  }
  FolderLock(const FolderLock&) = delete;
  FolderLock& operator=(const FolderLock&) = delete;

 private:
  int file_;
};

bool isComplete(const fs::path& folder) {
  return std::ranges::all_of(mediaFiles, [&](const char* file) {
    std::error_code error;
    const auto size = fs::file_size(folder / file, error);
    return !error && size > 0;
  });
}

pid_t start(const Arguments& arguments) {
  std::vector<char*> words;
  for (const auto& argument : arguments) words.push_back(const_cast<char*>(argument.c_str()));
  words.push_back(nullptr);
  const pid_t parent = ::getpid();
  const pid_t child = ::fork();
  if (child != 0) return child;

  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (::getppid() != parent) ::_exit(127);
  sigset_t none;
  sigemptyset(&none);
  ::sigprocmask(SIG_SETMASK, &none, nullptr);
  const int nothing = ::open("/dev/null", O_RDWR);
  for (int descriptor = 0; descriptor < 3; ++descriptor) ::dup2(nothing, descriptor);
  ::execvp(words[0], words.data());
  ::_exit(127);
}

// Runs the commands side by side.
void run(const std::vector<Arguments>& commands) {
  std::vector<pid_t> children;
  for (const auto& command : commands) children.push_back(start(command));
  int worst = 0;
  for (const auto child : children) {
    int status = 0;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) continue;
    worst = std::max(worst, child < 0 ? 1 : WIFEXITED(status) ? WEXITSTATUS(status) : 1);
  }
  if (worst == 127) throw std::runtime_error("the program ffmpeg is not installed");
  if (worst != 0) throw std::runtime_error("ffmpeg could not make the streams");
}

Arguments ffmpeg(std::initializer_list<Arguments> groups) {
  Arguments all = {"ffmpeg", "-nostdin", "-loglevel", "quiet", "-y"};
  for (const auto& group : groups) all.insert(all.end(), group.begin(), group.end());
  return all;
}

Arguments channel(const fs::path& folder, int number, const std::string& picture) {
  const auto tone = "sine=frequency=" + std::to_string(330 + 110 * number) +
                    ":sample_rate=48000,volume=0.25,aformat=channel_layouts=stereo[a]";
  // 400 pictures and 750 sound frames of 1,024 samples are both exactly 16 s, so that the loop has
  // no seam. Tables in front of every picture allow a start at any key picture.
  return ffmpeg({{"-filter_complex", picture + "[v];" + tone, "-map", "[v]", "-map", "[a]"},
                 {"-c:v", "libx264", "-preset", "ultrafast", "-pix_fmt", "yuv420p"},
                 {"-g", "25", "-keyint_min", "25", "-sc_threshold", "0", "-bf", "0"},
                 {"-b:v", "2500k", "-maxrate", "3500k", "-bufsize", "2500k"},
                 {"-frames:v", "400", "-c:a", "aac", "-b:a", "96k", "-frames:a", "750"},
                 {"-metadata", "service_name=Sim " + std::to_string(number + 1)},
                 {"-f", "mpegts", "-mpegts_flags", "+pat_pmt_at_frames"},
                 {folder / ("channel" + std::to_string(number) + ".ts")}});
}

Arguments film(const fs::path& folder, const std::string& name, const std::string& picture) {
  const auto tone = [](int frequency) {
    return "sine=duration=60:sample_rate=48000:frequency=" + std::to_string(frequency);
  };
  return ffmpeg({{"-f", "lavfi", "-i", picture},
                 {"-f", "lavfi", "-i", tone(440), "-f", "lavfi", "-i", tone(587)},
                 {"-i", folder / "eng.srt", "-i", folder / "deu.srt"},
                 {"-map", "0", "-map", "1", "-map", "2", "-map", "3", "-map", "4"},
                 {"-metadata:s:a:0", "language=eng", "-metadata:s:a:1", "language=deu"},
                 {"-metadata:s:s:0", "language=eng", "-metadata:s:s:1", "language=deu"},
                 {"-c:v", "libx264", "-preset", "ultrafast", "-pix_fmt", "yuv420p", "-g", "48"},
                 {"-b:v", "1500k", "-c:a", "aac", "-b:a", "96k", "-c:s", "srt"},
                 {"-t", "60", folder / (name + ".mkv")}});
}

Arguments asMp4(const fs::path& folder, const std::string& name) {
  return ffmpeg({{"-i", folder / (name + ".mkv"), "-map", "0", "-c", "copy", "-c:s", "mov_text"},
                 {"-movflags", "+faststart", folder / (name + ".mp4")}});
}

void writeSubtitles(const fs::path& file, const std::string& sentence) {
  std::ofstream text(file);
  for (int second = 0; second < 60; second += 3) {
    const auto two = [](int number) { return (number < 10 ? "0" : "") + std::to_string(number); };
    text << second / 3 + 1 << "\n00:00:" << two(second) << ",000 --> 00:00:" << two(second + 2)
         << ",500\n"
         << sentence << " " << second << " s\n\n";
  }
}

void makeAll(const fs::path& folder) {
  writeSubtitles(folder / "eng.srt", "English subtitle at");
  writeSubtitles(folder / "deu.srt", "Deutscher Untertitel für");
  const std::string size = "s=1280x720:r=25";
  const std::string box = "color=c=white:s=120x120:r=25[box];";
  run({channel(folder, 0, "testsrc2=" + size),
       channel(folder, 1,
               "smptehdbars=" + size + "[back];" + box +
                   "[back][box]overlay=x='mod(t*160,W)':y='300+200*sin(2*PI*t/4)'"),
       channel(folder, 2, "testsrc=" + size),
       channel(folder, 3,
               "color=c=0x102a50:" + size + "[back];color=c=orange:s=320x320:r=25[box];" +
                   "[back][box]overlay=x='480+400*cos(2*PI*t/8)':y='200+180*sin(2*PI*t/8)'"),
       film(folder, "movie", "testsrc2=s=1280x720:r=24"),
       film(folder, "episode", "testsrc=s=640x360:r=24"),
       ffmpeg({{"-f", "lavfi", "-i", "sine=duration=60:sample_rate=48000:frequency=523"},
               {"-c:a", "aac", "-b:a", "96k", "-movflags", "+faststart", folder / "audio.m4a"}})});
  run({asMp4(folder, "movie"), asMp4(folder, "episode")});
  fs::remove(folder / "eng.srt");
  fs::remove(folder / "deu.srt");
}

}  // namespace

std::string defaultMediaFolder() {
  const char* cache = std::getenv("XDG_CACHE_HOME");
  if (cache != nullptr && *cache == '/') return fs::path(cache) / "vantor-sim";
  const char* home = std::getenv("HOME");
  if (home != nullptr && *home == '/') return fs::path(home) / ".cache" / "vantor-sim";
  return fs::temp_directory_path() / ("vantor-sim-" + std::to_string(::getuid()));
}

std::string prepareMedia(const std::string& folder) {
  const auto kept = fs::path(folder) / version;
  if (isComplete(kept)) return kept;
  fs::create_directories(folder);
  const FolderLock lock(folder);
  if (isComplete(kept)) return kept;

  const auto making = fs::path(folder) / (std::string(version) + ".making");
  fs::remove_all(making);
  fs::create_directory(making);
  makeAll(making);
  if (!isComplete(making)) throw std::runtime_error("ffmpeg left some of the streams out");
  fs::remove_all(kept);
  fs::rename(making, kept);
  return kept;
}

}  // namespace sim
