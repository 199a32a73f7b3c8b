#include "provider/guide_parsing.h"

#include <string>

#include "json/base64_text.h"
#include "json/json_reading.h"
#include "platform/cancelled.h"

namespace vantor {
namespace {

QString shownText(const std::string& text) {
  const auto decoded = textFromBase64(text);
  return decoded ? *decoded : QString::fromStdString(text);
}

/// The fields of one row; the strings keep their room from row to row.
struct Programme {
  std::string title, description, start, end;
};

void readRow(simdjson::ondemand::object object, Programme& row) {
  for (std::string* text : {&row.title, &row.description, &row.start, &row.end}) text->clear();
  forEachField(object, [&](std::string_view key, simdjson::ondemand::value value) {
    std::string* const text = key == "title"             ? &row.title
                              : key == "description"     ? &row.description
                              : key == "start_timestamp" ? &row.start
                              : key == "stop_timestamp"  ? &row.end
                                                         : nullptr;
    if (!text) return false;
    text->clear();
    appendValueText(value, *text);
    return true;
  });
}

/// No entries when one of the listings is not an object.
GuideEntries readListings(simdjson::ondemand::array listings, const QString& channelID,
                          const std::stop_token& stop) {
  GuideEntries entries;
  Programme row;
  int position = -1;
  qsizetype room = maximumProgrammeText;
  const auto fitting = [&room](const std::string& text) {
    QString shown = shownText(text).left(room);
    room -= shown.size();
    return shown;
  };
  const bool wellShaped = forEachObject(listings, [&](simdjson::ondemand::object listing) {
    throwIfStopped(stop);
    ++position;
    if (entries.size() == maximumProgrammes || room == 0) return;
    readRow(listing, row);
    const auto start = providerTime(row.start);
    const auto end = providerTime(row.end);
    if (!start || !end || *start >= *end) return;
    QString title = fitting(row.title);
    entries.append({channelID + QLatin1Char(':') + QString::number(position), std::move(title),
                    fitting(row.description), *start, *end});
  });
  return wellShaped ? entries : GuideEntries();
}

}  // namespace

GuideEntries parseGuide(QByteArray answer, const QString& channelID, const std::stop_token& stop) {
  throwIfStopped(stop);
  GuideEntries entries;
  forEachRootField(std::move(answer), [&](std::string_view key, simdjson::ondemand::value value) {
    if (key != "epg_listings") return false;
    entries.clear();
    if (value.type() != simdjson::ondemand::json_type::array) return false;
    entries = readListings(value.get_array(), channelID, stop);
    return true;
  });
  return entries;
}

}  // namespace vantor
