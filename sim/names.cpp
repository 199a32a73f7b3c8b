#include "sim/names.h"

#include <array>
#include <optional>

namespace sim {
namespace {

using namespace std::string_view_literals;

constexpr std::array adjectives = {
    "Silent"sv,   "Crimson"sv,   "Hidden"sv,   "Broken"sv,    "Endless"sv, "Golden"sv,
    "Frozen"sv,   "Last"sv,      "Distant"sv,  "Burning"sv,   "Paper"sv,   "Borrowed"sv,
    "Electric"sv, "Hollow"sv,    "Northern"sv, "Forgotten"sv, "Velvet"sv,  "Restless"sv,
    "Salted"sv,   "Winter"sv,    "Seventh"sv,  "Careful"sv,   "Glass"sv,   "Wandering"sv,
    "Iron"sv,     "Midnight"sv,  "Gentle"sv,   "Second"sv,    "Copper"sv,  "Invisible"sv,
    "Quiet"sv,    "Reluctant"sv, "Amber"sv,    "Drifting"sv,  "Painted"sv, "Unlikely"sv,
    "Stolen"sv,   "Lower"sv,     "Patient"sv,  "Wild"sv,      "Early"sv,   "Tall"sv};
constexpr std::array nouns = {
    "Harbour"sv, "Orchard"sv,     "Lantern"sv,    "Machine"sv,   "Garden"sv,     "Border"sv,
    "Witness"sv, "Carnival"sv,    "River"sv,      "Letter"sv,    "Kingdom"sv,    "Violin"sv,
    "Station"sv, "Summer"sv,      "Detective"sv,  "Island"sv,    "Promise"sv,    "Mirror"sv,
    "Signal"sv,  "Kitchen"sv,     "Lighthouse"sv, "Passenger"sv, "Forest"sv,     "Archive"sv,
    "Bicycle"sv, "Equation"sv,    "Neighbour"sv,  "Voyage"sv,    "Clockmaker"sv, "Storm"sv,
    "Theatre"sv, "Bridge"sv,      "Meadow"sv,     "Alibi"sv,     "Comet"sv,      "Tailor"sv,
    "Glacier"sv, "Inheritance"sv, "Ferry"sv,      "Museum"sv,    "Baker"sv,      "Telescope"sv,
    "Wedding"sv, "Desert"sv,      "Avalanche"sv,  "Choir"sv};
constexpr std::array places = {"Lisbon"sv, "Tromsø"sv,    "Kraków"sv,  "Galway"sv,  "Valparaíso"sv,
                               "Osaka"sv,  "Zürich"sv,    "Tbilisi"sv, "Halifax"sv, "Marseille"sv,
                               "Dakar"sv,  "Reykjavík"sv, "Porto"sv,   "Antwerp"sv};
constexpr std::array firstNames = {"Marta"sv, "Elias"sv, "Noor"sv,    "Ingrid"sv, "Tomás"sv,
                                   "Yuki"sv,  "Fiona"sv, "Abel"sv,    "Zofia"sv,  "Kwame"sv,
                                   "Leila"sv, "Anton"sv, "Beatriz"sv, "Søren"sv,  "Hana"sv};
constexpr std::array lastNames = {"Okafor"sv,    "Lindqvist"sv, "Moreau"sv,    "Castellano"sv,
                                  "Brandt"sv,    "Nakamura"sv,  "O’Dwyer"sv,   "Kowalczyk"sv,
                                  "Vasile"sv,    "Haddad"sv,    "Ferreira"sv,  "Whitlock"sv,
                                  "Jørgensen"sv, "Petrov"sv,    "Achterberg"sv};
constexpr std::array genres = {"Drama"sv,   "Comedy"sv,  "Thriller"sv,    "Family"sv,
                               "Science"sv, "History"sv, "Documentary"sv, "Adventure"sv};
constexpr std::array prefixes = {"UK | "sv, "DE: "sv, ""sv, "FR - "sv, ""sv, "|ES| "sv, ""sv};
constexpr std::array topics = {"News"sv, "Sport"sv,    "Cinema"sv,  "Music"sv,
                               "Kids"sv, "History"sv,  "Nature"sv,  "Travel"sv,
                               "Food"sv, "Classics"sv, "Science"sv, "Regional"sv};
constexpr std::array qualities = {""sv, " HD"sv, " FHD"sv, " 4K"sv, ""sv, " SD"sv, " HD"sv};
constexpr std::array unusual = {
    "Größe der Stille"sv,
    "حكايات من المدينة القديمة"sv,
    "An Exceedingly Long and Carefully Detailed Account of the Clockmaker, the Ferry, the Two "
    "Borrowed Bicycles and the Winter in Which Nothing at All Happened Until Everything Did, Told "
    "by Those Who Were Not There"sv,
    "🎪 Midnight Carnival 🎪"sv,
    "Żółta łódź"sv,
    "הסירה האחרונה"sv,
    "El último tren a Ñandú"sv,
    "北の灯台"sv,
    "The \"Quiet\" Baker \\ Part <1> & more"sv,
    "Последний маяк"sv,
    "여름의 편지"sv,
    "👨‍👩‍👧‍👦 Family Night"sv,
    "Η σιωπηλή γέφυρα"sv};

template <std::size_t Size>
std::string_view pick(const std::array<std::string_view, Size>& words, std::uint64_t number) {
  return words[number % Size];
}

std::string join(std::initializer_list<std::string_view> pieces) {
  std::string text;
  for (const auto piece : pieces) text += piece;
  return text;
}

std::string title(std::uint64_t number) {
  const auto adjective = pick(adjectives, number >> 8);
  const auto noun = pick(nouns, number >> 20);
  const auto other = pick(nouns, number >> 32);
  const auto place = pick(places, number >> 44);
  switch (number % 8) {
    case 0:
      return join({"The ", noun});
    case 1:
      return join({noun, " of ", place});
    case 2:
      return join({"The ", adjective, " ", noun, " of ", place});
    case 3:
      return join({adjective, " ", noun, ", ", pick(adjectives, number >> 50), " ", other});
    case 4:
      return join({noun, " in ", place});
    case 5:
      return join({pick(firstNames, number >> 52), " and the ", adjective, " ", noun});
    default:
      return join({"The ", adjective, " ", noun});
  }
}

// Unusual names come early enough to be seen in a small library and
// rarely enough not to fill a large one.
std::optional<std::string> unusualName(int index) {
  const auto place = index % 7 == 6 && index < 48 ? index / 7
                     : index % 29 == 4            ? 7 + index / 29
                                                  : -1;
  if (place < 0) return std::nullopt;
  return std::string(pick(unusual, static_cast<std::uint64_t>(place)));
}

}  // namespace

std::uint64_t scatter(std::uint64_t number, std::uint64_t salt) {
  number += 0x9E3779B97F4A7C15u * (salt + 1);
  number = (number ^ (number >> 30)) * 0xBF58476D1CE4E5B9u;
  number = (number ^ (number >> 27)) * 0x94D049BB133111EBu;
  return number ^ (number >> 31);
}

std::string channelName(int index) {
  const auto number = scatter(static_cast<unsigned>(index), 1);
  if (auto name = unusualName(index)) return *name;
  if (index % 40 == 39) return join({"##### ", pick(topics, number), " #####"});
  std::string name = join({pick(prefixes, number), pick(places, number >> 8), " ",
                           pick(topics, number >> 16), pick(qualities, number >> 24)});
  if (index >= 200) name += " " + std::to_string(index / 200 + 1);
  return name;
}

std::string movieName(int index) {
  if (auto name = unusualName(index)) return *name;
  const auto number = scatter(static_cast<unsigned>(index), 2);
  std::string name = title(number);
  if (number % 11 == 3) name += " II";
  if (number % 5 == 1) name += " (" + std::to_string(1950 + number % 76) + ")";
  return name;
}

std::string showName(int index) {
  if (auto name = unusualName(index + 3)) return *name;
  return title(scatter(static_cast<unsigned>(index), 3));
}

std::string episodeName(int show, int season, int episode) {
  const auto number = scatter(static_cast<unsigned>(show * 10'000 + season * 100 + episode), 4);
  if (number % 9 == 0) return "Episode " + std::to_string(episode);
  return title(number);
}

std::string programmeName(std::uint64_t number) {
  if (number % 6 == 0) return join({pick(places, number >> 8), " at Seven: Das große Gespräch"});
  if (number % 6 == 1) return join({"The ", pick(topics, number >> 8), " Hour"});
  return title(number);
}

std::string personName(std::uint64_t number) {
  return join({pick(firstNames, number), " ", pick(lastNames, number >> 8)});
}

std::string_view genreName(std::uint64_t number) {
  return pick(genres, number);
}

std::string plotText(std::uint64_t number) {
  return join({personName(number), " returns to ", pick(places, number >> 16), " to find the ",
               pick(adjectives, number >> 24), " ", pick(nouns, number >> 32),
               " gone, and a stranger who remembers everything."});
}

}  // namespace sim
