// Qt, whose parser the player uses, stays out of the simulator: see CMakeLists.txt.
#include "sim/arguments.h"

#include <algorithm>
#include <charconv>
#include <stdexcept>
#include <string_view>

namespace sim {
namespace {

constexpr auto signIn = "sign-in";
constexpr int mostRows = 1'000'000;

int number(const std::string& text, int most = mostRows) {
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
  return {action == signIn ? std::string() : action, *fault};
}

std::string basePath(const std::string& text) {
  if (text.empty()) return text;
  if (!text.starts_with('/') || text.ends_with('/')) {
    throw std::runtime_error("the base path must begin with a slash and not end with one");
  }
  return text;
}

std::string helpText();

struct Option {
  std::string_view name;
  // What its value is called; empty when it takes none.
  std::string_view value;
  std::string_view meaning;
  void (*apply)(Arguments& arguments, const std::string& value);
};

constexpr Option optionTable[] = {
    {"--port", "NUMBER", "listen here instead of on any free port",
     [](auto& arguments, auto& value) { arguments.options.port = number(value, 65535); }},
    {"--size", "NUMBER", "so many channels, movies and shows each",
     [](auto& arguments, auto& value) {
       auto& options = arguments.options;
       options.channels = options.movies = options.shows = number(value);
     }},
    {"--channels", "NUMBER", "so many channels",
     [](auto& arguments, auto& value) { arguments.options.channels = number(value); }},
    {"--movies", "NUMBER", "so many movies",
     [](auto& arguments, auto& value) { arguments.options.movies = number(value); }},
    {"--shows", "NUMBER", "so many shows",
     [](auto& arguments, auto& value) { arguments.options.shows = number(value); }},
    {"--user", "NAME", "user name (demo)",
     [](auto& arguments, auto& value) { arguments.options.username = value; }},
    {"--password", "TEXT", "password",
     [](auto& arguments, auto& value) { arguments.options.password = value; }},
    {"--base-path", "/PATH", "put everything below this path",
     [](auto& arguments, auto& value) { arguments.options.basePath = basePath(value); }},
    {"--tls", "", "https with a self-signed certificate",
     [](auto& arguments, auto&) { arguments.options.tls = true; }},
    {"--no-streams", "", "do not make or serve streams",
     [](auto& arguments, auto&) { arguments.options.streams = false; }},
    {"--media", "FOLDER", "keep the streams here",
     [](auto& arguments, auto& value) { arguments.options.mediaFolder = value; }},
    {"--fault", "ACTION=FAULT", "make an action misbehave; may be given several times",
     [](auto& arguments, auto& value) { arguments.faults.push_back(faultArgument(value)); }},
    {"--version", "", "say which version this is",
     [](auto& arguments, auto&) { arguments.answer = "vantor-sim " VANTOR_VERSION "\n"; }},
    {"--help", "", "say this", [](auto& arguments, auto&) { arguments.answer = helpText(); }},
};

std::string helpText() {
  std::string text =
      "Usage: vantor-sim [OPTION]...\n"
      "A made-up television provider on this machine, to try the player with.\n\n";
  for (const auto& option : optionTable) {
    std::string line = "  " + std::string(option.name);
    if (!option.value.empty()) line += " " + std::string(option.value);
    line.resize(24, ' ');
    text += line + std::string(option.meaning) + "\n";
  }
  text += R"(
Actions: sign-in, get_live_streams, get_live_categories, get_vod_streams,
  get_vod_categories, get_series, get_series_categories, get_series_info,
  get_short_epg, config, poster, live, segment, movie, series, or * for all;
  get_vod_streams/101 and its like for the entries of one category.
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

}  // namespace

Arguments parseArguments(const std::vector<std::string>& words) {
  Arguments arguments;
  for (auto word = words.begin(); word != words.end(); ++word) {
    const auto equals = word->find('=');
    const auto name = word->substr(0, equals);
    const auto* const option = std::ranges::find(optionTable, name, &Option::name);
    if (option == std::end(optionTable)) {
      throw std::runtime_error("unknown option " + *word + "; see --help");
    }
    std::string value;
    if (equals != std::string::npos) {
      if (option->value.empty()) throw std::runtime_error(name + " takes no value; see --help");
      value = word->substr(equals + 1);
    } else if (!option->value.empty()) {
      if (word + 1 == words.end()) throw std::runtime_error(name + " needs a value; see --help");
      value = *++word;
    }
    option->apply(arguments, value);
  }
  return arguments;
}

}  // namespace sim
