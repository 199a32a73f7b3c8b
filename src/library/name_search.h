#pragma once

#include <algorithm>
#include <array>
#include <cstring>
#include <experimental/simd>
#include <string_view>

namespace vantor {

/// Looks for a text in folded names that lie one behind the other. By hand, since memmem goes byte
/// by byte for texts as short as those that are typed; inline, since it is called for every name.
/// Any thread.
class NameSearch {
 public:
  /// `text` is not empty, and outlives the search.
  explicit NameSearch(std::string_view text);

  /// Where the text begins first, at `from` or behind it; npos when it does not.
  std::size_t find(std::string_view names, std::size_t from) const;
  /// Whether the text is in what lies from `begin` to `end`. Takes much the same time whether it is
  /// or not: over many short names, guesses of the processor that fail cost more than comparing.
  bool isIn(std::string_view names, std::size_t begin, std::size_t end) const;

 private:
  using Bytes = std::experimental::native_simd<unsigned char>;
  using Places = Bytes::mask_type;
  /// Ones for twice as many places as are compared at once, then as many zeros.
  static constexpr auto ownPlaces = [] {
    std::array<char, 4 * Bytes::size()> places{};
    std::fill_n(places.begin(), places.size() / 2, char{1});
    return places;
  }();

  static Bytes bytesAt(const char* place);
  /// The places, from `place` on, where three bytes of the text are where they should be: it may
  /// begin there, and does if it has no more than three.
  Places candidates(const char* place) const;
  bool beginsAt(const char* place) const;

  std::string_view text_;
  std::size_t second_;  // the place of a byte; the first one's when there is no other
  Bytes firstByte_;
  Bytes secondByte_;
  Bytes lastByte_;
};

inline NameSearch::NameSearch(std::string_view text)
    : text_(text),
      second_(text.size() > 1 ? 1 : 0),
      firstByte_(static_cast<unsigned char>(text.front())),
      secondByte_(static_cast<unsigned char>(text[second_])),
      lastByte_(static_cast<unsigned char>(text.back())) {}

inline NameSearch::Bytes NameSearch::bytesAt(const char* place) {
  return {reinterpret_cast<const unsigned char*>(place), std::experimental::element_aligned};
}

inline NameSearch::Places NameSearch::candidates(const char* place) const {
  return bytesAt(place) == firstByte_ && bytesAt(place + second_) == secondByte_ &&
         bytesAt(place + text_.size() - 1) == lastByte_;
}

inline bool NameSearch::beginsAt(const char* place) const {
  return text_.size() <= 3 || std::memcmp(place + 2, text_.data() + 2, text_.size() - 3) == 0;
}

inline std::size_t NameSearch::find(std::string_view names, std::size_t from) const {
  const char* place = names.data() + from;
  const char* const end = names.data() + names.size();
  const auto read = static_cast<std::ptrdiff_t>(Bytes::size() + text_.size() - 1);
  while (end - place >= read) {
    const Places found = candidates(place);
    if (std::experimental::none_of(found)) {
      place += Bytes::size();
      continue;
    }
    place += std::experimental::find_first_set(found);
    if (beginsAt(place)) return static_cast<std::size_t>(place - names.data());
    ++place;
  }
  return names.find(text_, static_cast<std::size_t>(place - names.data()));
}

inline bool NameSearch::isIn(std::string_view names, std::size_t begin, std::size_t end) const {
  constexpr std::size_t width = Bytes::size();
  if (end - begin < text_.size()) return false;
  const std::size_t places = end - begin - text_.size() + 1;
  const std::size_t read = 2 * width + text_.size() - 1;
  const auto inFull = [&] {
    return names.substr(begin, end - begin).find(text_) != std::string_view::npos;
  };
  if (places > 2 * width || names.size() - begin < read) return inFull();
  const char* const name = names.data() + begin;
  const char* const own = ownPlaces.data() + 2 * width - places;
  const Places found = candidates(name) && bytesAt(own) == Bytes(1);
  const Places more = candidates(name + width) && bytesAt(own + width) == Bytes(1);
  const bool any = std::experimental::any_of(found || more);
  return text_.size() > 3 && any ? inFull() : any;
}

}  // namespace vantor
