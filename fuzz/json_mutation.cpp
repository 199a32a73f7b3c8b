#include "json_mutation.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

namespace vantor {
namespace {

constexpr auto texts = std::to_array<std::string_view>({
    R"("")",
    R"("1")",
    R"("Active")",
    R"("QUJD")",
    R"("\ud800")",
    R"("\u0000")",
    R"("2020")",
    R"("http://a.example/1.png")",
    R"("https://a@b.example")",
    "\"\xFF\"",
    // marks in the wrong order, an ideograph for a number, letters that fold to several
    "\"\xCC\x81\xCC\xA3\"",
    "\"\xE4\xB8\x80\"",
    "\"\xC4\xB0\"",
    "\"\xEF\xAC\x83\"",
});
constexpr auto values = std::to_array<std::string_view>({
    "{}",
    "[]",
    "null",
    "true",
    "-0",
    "1e999",
    "1.5",
    "01",
    "9223372036854775808",
});
// Of every answer and file.
constexpr auto members = std::to_array<std::string_view>({
    R"("stream_id":1)",
    R"("series_id":"2")",
    R"("name":"a")",
    R"("category_id":"1")",
    R"("category_name":"c")",
    R"("num":3)",
    R"("stream_icon":"http://a.example/")",
    R"("cover":"http://a.example/")",
    R"("container_extension":"mkv")",
    R"("plot":"p")",
    R"("rating":"5")",
    R"("releaseDate":"2020")",
    R"("episodes":{"1":[]})",
    R"("id":"4")",
    R"("title":"t")",
    R"("episode_num":1)",
    R"("epg_listings":[])",
    R"("start_timestamp":"1")",
    R"("stop_timestamp":"2")",
    R"("description":"QUJD")",
    R"("user_info":{})",
    R"("auth":1)",
    R"("status":"Active")",
    R"("exp_date":"1900000000")",
    R"("allowed_output_formats":["ts"])",
    R"("schemaVersion":1)",
    R"("serverUrl":"http://a.example")",
    R"("items":[])",
    R"("categories":[])",
    R"("savedAt":1)",
    R"("providerID":"1")",
    R"("kind":"live")",
    R"("fileExtension":"ts")",
    R"("isExample":false)",
    R"("season":1)",
    R"("episode":1)",
});

struct Span {
  std::size_t begin, end;
  std::size_t size() const { return end - begin; }
};

/// Strings, objects, arrays and members, and what stands between commas and brackets.
std::vector<Span> spansOf(std::string_view text) {
  std::vector<Span> spans;
  std::vector<std::size_t> open;
  std::size_t begin = 0;  // of what stands there
  const auto end = [&](std::size_t place) {
    if (place > begin) spans.push_back({begin, place});
    begin = place + 1;
  };
  for (std::size_t place = 0; place < text.size(); ++place) {
    const char c = text[place];
    if (c == '"') {
      const std::size_t start = place;
      while (++place < text.size() && text[place] != '"') place += text[place] == '\\';
      spans.push_back({start, std::min(place + 1, text.size())});
    } else if (c == '{' || c == '[') {
      open.push_back(begin);
      open.push_back(place);
      begin = place + 1;
    } else if ((c == '}' || c == ']') && !open.empty()) {
      end(place);
      spans.push_back({open.back(), place + 1});
      open.pop_back();
      begin = open.back();
      open.pop_back();
    } else if (c == ',' || c == '\n') {
      end(place);
    }
  }
  end(text.size());
  return spans;
}

}  // namespace

std::string mutatedJSON(std::string text, std::size_t limit, std::mt19937& random) {
  const auto below = [&](std::size_t count) {
    return std::uniform_int_distribution<std::size_t>(0, count - 1)(random);
  };
  const std::vector<Span> spans = spansOf(text);
  const Span span = spans.empty() ? Span{0, text.size()} : spans[below(spans.size())];
  const std::string value = text.substr(span.begin, span.size());
  const bool isText = value.size() > 2 && value.front() == '"' && value.back() == '"';
  const auto one = [&](const auto& words) { return std::string(words[below(words.size())]); };
  const std::size_t room = limit > text.size() ? limit - text.size() : 0;
  // A few times, or as often as there is room for.
  const auto timesOf = [&](std::size_t size) {
    const std::size_t most = room / size;
    return below(4) == 0 ? most : std::min(most, std::size_t{1} << below(10));
  };
  const auto stretched = [&](const std::string& quoted) {
    if (quoted.size() <= 2) return quoted;
    const std::size_t times = timesOf(quoted.size() - 2);
    std::string longer = "\"";
    for (std::size_t i = 0; i < times; ++i) longer.append(quoted, 1, quoted.size() - 2);
    return longer + '"';
  };
  const auto word = [&] {
    if (below(4) == 0) return one(values);
    if (!isText) return one(members);
    return below(2) == 0 ? one(texts) : stretched(one(texts));
  };
  std::string changed;
  switch (below(5)) {
    case 0:
      changed = word();
      break;
    case 1:
      changed = value + ',' + word();
      break;
    case 2:
    case 3:
      if (isText) {
        changed = stretched(value);
      } else {
        for (std::size_t times = timesOf(value.size() + 1); times > 0; --times)
          changed += value + ',';
        changed += value;
      }
      break;
    default:
      if (!spans.empty() && below(2) == 0) {
        const Span other = spans[below(spans.size())];
        changed = text.substr(other.begin, other.size());
      }
  }
  text.replace(span.begin, span.size(), changed);
  text.resize(std::min(text.size(), limit));
  return text;
}

}  // namespace vantor
