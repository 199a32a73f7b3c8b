#include "sim/arguments.h"

#include <charconv>
#include <functional>
#include <map>
#include <stdexcept>

namespace sim {
namespace {

constexpr auto kSignIn = "sign-in";

int number(const std::string& text, int most) {
  int value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size() || value < 0 || value > most) {
    throw std::runtime_error("\"" + text + "\" is no number from 0 to " + std::to_string(most));
  }
  return value;
}

std::pair<std::string, Fault> faultArgument(const std::string& text) {
  const auto equals = text.find('=');
  const auto fault =
      equals == std::string::npos ? std::nullopt : faultNamed(text.substr(equals + 1));
  if (!fault) throw std::runtime_error("\"" + text + "\" is not ACTION=FAULT; see --help");
  const auto action = text.substr(0, equals);
  return {action == kSignIn ? std::string() : action, *fault};
}

std::string basePath(const std::string& text) {
  if (text.empty()) return text;
  if (!text.starts_with('/') || text.ends_with('/')) {
    throw std::runtime_error("the base path must begin with a slash and not end with one");
  }
  return text;
}

}  // namespace

Arguments parseArguments(const std::vector<std::string>& words) {
  constexpr int kMostRows = 1'000'000;
  Arguments arguments;
  auto& options = arguments.options;
  const std::map<std::string, std::function<void(const std::string&)>> withValue = {
      {"--port", [&](const auto& value) { options.port = number(value, 65535); }},
      {"--size",
       [&](const auto& value) {
         options.channels = options.movies = options.shows = number(value, kMostRows);
       }},
      {"--channels", [&](const auto& value) { options.channels = number(value, kMostRows); }},
      {"--movies", [&](const auto& value) { options.movies = number(value, kMostRows); }},
      {"--shows", [&](const auto& value) { options.shows = number(value, kMostRows); }},
      {"--user", [&](const auto& value) { options.username = value; }},
      {"--password", [&](const auto& value) { options.password = value; }},
      {"--base-path", [&](const auto& value) { options.basePath = basePath(value); }},
      {"--media", [&](const auto& value) { options.mediaFolder = value; }},
      {"--fault", [&](const auto& value) { arguments.faults.push_back(faultArgument(value)); }},
  };
  const std::map<std::string, std::function<void()>> withoutValue = {
      {"--tls", [&] { options.tls = true; }},
      {"--no-streams", [&] { options.streams = false; }},
      {"--help", [&] { arguments.help = true; }},
  };
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (const auto plain = withoutValue.find(words[i]); plain != withoutValue.end()) {
      plain->second();
      continue;
    }
    const auto equals = words[i].find('=');
    const auto option = withValue.find(words[i].substr(0, equals));
    if (option == withValue.end()) {
      throw std::runtime_error("unknown option " + words[i] + "; see --help");
    }
    if (equals != std::string::npos) {
      option->second(words[i].substr(equals + 1));
    } else if (i + 1 < words.size()) {
      option->second(words[++i]);
    } else {
      throw std::runtime_error(words[i] + " needs a value");
    }
  }
  return arguments;
}

std::string helpText() {
  std::string text =
      R"(Usage: vantor-sim [OPTION]…
A made-up television provider on this machine, to try the player with.

  --port NUMBER         listen here instead of on any free port
  --size NUMBER         so many channels, movies and shows each
  --channels NUMBER, --movies NUMBER, --shows NUMBER
  --user NAME           user name (demo)
  --password TEXT       password
  --base-path /PATH     put everything below this path
  --tls                 https with a self-signed certificate
  --no-streams          do not make or serve streams
  --media FOLDER        keep the streams here
  --fault ACTION=FAULT  make an action misbehave; may be given several times
  --help

Actions: sign-in, get_live_streams, get_live_categories, get_vod_streams,
  get_vod_categories, get_series, get_series_categories, get_series_info,
  get_short_epg, config, poster, live, segment, movie, series, or * for all.
Faults:
)";
  std::string line = " ";
  for (const auto name : faultNames()) {
    if (line.size() + name.size() > 76) {
      text += line + "\n";
      line = " ";
    }
    line += " " + std::string(name);
  }
  return text + line + "\n";
}

}  // namespace sim
