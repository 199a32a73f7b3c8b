#include "provider/guide_parsing.h"

#include <optional>
#include <string>

#include "provider/base64_text.h"
#include "provider/json_reading.h"

namespace vantor {
namespace {

using Time = std::chrono::system_clock::time_point;

/// Times beyond the clock's range become its ends.
std::optional<Time> timeOf(std::string_view text) {
  const auto seconds = decimalNumber(text);
  if (!seconds) return std::nullopt;
  const std::chrono::duration<double> sinceEpoch(*seconds);
  if (sinceEpoch >= Time::max().time_since_epoch()) return Time::max();
  if (sinceEpoch <= Time::min().time_since_epoch()) return Time::min();
  return Time(std::chrono::duration_cast<Time::duration>(sinceEpoch));
}

QString shownText(const std::string& text) {
  const auto decoded = textFromBase64(text);
  return decoded ? *decoded : QString::fromStdString(text);
}

/// The fields of one row; the strings keep their room from row to row.
struct Row {
  std::string title, description, start, end;
};

void readRow(simdjson::ondemand::object object, Row& row) {
  for (std::string* text : {&row.title, &row.description, &row.start, &row.end}) text->clear();
  for (auto element : object) {
    simdjson::ondemand::field field = std::move(element);
    const std::string_view key = field.unescaped_key();
    std::string* const text = key == "title"             ? &row.title
                              : key == "description"     ? &row.description
                              : key == "start_timestamp" ? &row.start
                              : key == "stop_timestamp"  ? &row.end
                                                         : nullptr;
    if (!text) continue;
    text->clear();
    appendValueText(field.value(), *text);
  }
}

/// No entries when one of the listings is not an object.
GuideEntries readListings(simdjson::ondemand::array listings, const QString& channelID) {
  GuideEntries entries;
  bool wellShaped = true;
  Row row;
  int position = -1;
  for (auto element : listings) {
    simdjson::ondemand::value listing = element.value();
    ++position;
    if (listing.type() != simdjson::ondemand::json_type::object) {
      wellShaped = false;
      continue;
    }
    readRow(listing.get_object(), row);
    const auto start = timeOf(row.start);
    const auto end = timeOf(row.end);
    if (!start || !end || *start >= *end) continue;
    entries.append({channelID + QLatin1Char(':') + QString::number(position), shownText(row.title),
                    shownText(row.description), *start, *end});
  }
  return wellShaped ? entries : GuideEntries();
}

}  // namespace

GuideEntries parseGuide(QByteArray answer, const QString& channelID) {
  return readJSON([&] {
    JSONDocument document(std::move(answer));
    GuideEntries entries;
    if (document.root().type() != simdjson::ondemand::json_type::object) return entries;
    simdjson::ondemand::object root = document.root().get_object();
    for (auto element : root) {
      simdjson::ondemand::field field = std::move(element);
      const std::string_view key = field.unescaped_key();
      if (key != "epg_listings") continue;
      entries.clear();
      simdjson::ondemand::value listings = field.value();
      if (listings.type() == simdjson::ondemand::json_type::array)
        entries = readListings(listings.get_array(), channelID);
    }
    document.expectEnd();
    return entries;
  });
}

}  // namespace vantor
