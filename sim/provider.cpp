#include "sim/provider.h"

#include <algorithm>
#include <charconv>
#include <ctime>

#include "sim/guide.h"
#include "sim/json_writer.h"
#include "sim/poster.h"

namespace sim {
namespace {

constexpr auto rejection = R"({"user_info":{"auth":0}})";
constexpr int maximumConnections = 2;

std::optional<Kind> kindNamed(std::string_view name) {
  for (const auto kind : {Kind::live, Kind::movie, Kind::series}) {
    if (kindName(kind) == name) return kind;
  }
  return std::nullopt;
}

}  // namespace

Provider::Provider(const Options& options, std::string origin)
    : options_(options), origin_(std::move(origin)) {
  std::string_view path = options_.basePath;
  while (!path.empty()) {
    path.remove_prefix(1);
    const auto end = std::min(path.find('/'), path.size());
    baseSegments_.emplace_back(path.substr(0, end));
    path.remove_prefix(end);
  }
}

std::string Provider::actionOf(const Request& request) const {
  const auto& segments = request.segments;
  if (segments.size() == 1 && segments[0] == "vantor-config.json") return "config";
  if (segments.size() <= depth() ||
      !std::equal(baseSegments_.begin(), baseSegments_.end(), segments.begin())) {
    return "unknown";
  }
  const auto& first = segments[depth()];
  const auto rest = segments.size() - depth();
  if (rest == 1 && first == "player_api.php") return request.queryValue("action");
  if (rest == 4 && kindNamed(first)) return first;
  if (rest == 3 && (first == "poster" || first == "segment")) return first;
  return "unknown";
}

Response Provider::answer(const Request& request, const std::string& action, Fault fault,
                          int streamsOpen) {
  if (action == "unknown") return errorResponse(404);
  if (action == "poster") return posterAnswer(request);
  if (action == "config") {
    return jsonResponse(writtenJson([&](JsonWriter& json) {
      json.StartObject();
      put(json, "schemaVersion", 1);
      put(json, "serverUrl", origin_ + options_.basePath);
      json.EndObject();
    }));
  }
  return apiAnswer(request, action, fault, streamsOpen);
}

Response Provider::apiAnswer(const Request& request, const std::string& action, Fault fault,
                             int streamsOpen) {
  if (!loginIsRight(request.queryValue("username"), request.queryValue("password"))) {
    return jsonResponse(rejection);
  }
  if (action.empty()) return jsonResponse(signInJson(fault, streamsOpen));
  if (fault == Fault::expiredAccount) return jsonResponse(rejection);

  if (action == "get_live_categories") return jsonResponse(categoriesJson(Kind::live));
  if (action == "get_vod_categories") return jsonResponse(categoriesJson(Kind::movie));
  if (action == "get_series_categories") return jsonResponse(categoriesJson(Kind::series));

  auto response = jsonResponse("[]");
  const auto category =
      fault == Fault::ignoresCategory ? std::string() : request.queryValue("category_id");
  if (action == "get_live_streams") response.body = rows(Kind::live, category);
  if (action == "get_vod_streams") response.body = rows(Kind::movie, category);
  if (action == "get_series") response.body = rows(Kind::series, category);

  if (action == "get_series_info") {
    const auto show = entryIndex(Kind::series, request.queryValue("series_id"), options_.shows);
    if (show) return jsonResponse(seriesInfoJson(*show, origin_ + options_.basePath));
  }
  if (action == "get_short_epg") {
    const auto channel = entryIndex(Kind::live, request.queryValue("stream_id"), options_.channels);
    if (!channel) return jsonResponse(R"({"epg_listings":[]})");
    int limit = 4;
    const auto text = request.queryValue("limit");
    std::from_chars(text.data(), text.data() + text.size(), limit);
    return jsonResponse(shortGuideJson(*channel, std::clamp(limit, 0, 100), now()));
  }
  return response;
}

std::optional<Provider::Item> Provider::item(const Request& request) const {
  const auto& segments = request.segments;
  const auto kind = kindNamed(segments[depth()]);
  if (!kind || !loginIsRight(segments[depth() + 1], segments[depth() + 2])) return std::nullopt;
  const auto& file = segments.back();
  const auto dot = std::min(file.find('.'), file.size());
  Item item{.kind = *kind,
            .index = 0,
            .id = file.substr(0, dot),
            .extension = file.substr(std::min(dot + 1, file.size()))};
  const auto index = *kind == Kind::series ? episodeShow(item.id, options_.shows)
                                           : entryIndex(*kind, item.id, count(*kind));
  if (!index) return std::nullopt;
  item.index = *index;
  return item;
}

long long Provider::now() const {
  return options_.now ? options_.now() : static_cast<long long>(std::time(nullptr));
}

int Provider::count(Kind kind) const {
  return kind == Kind::live    ? options_.channels
         : kind == Kind::movie ? options_.movies
                               : options_.shows;
}

bool Provider::loginIsRight(const std::string& username, const std::string& password) const {
  return username == options_.username && password == options_.password;
}

std::string Provider::signInJson(Fault fault, int streamsOpen) const {
  const long long time = now();
  const bool expired = fault == Fault::expiredAccount;
  const int active = fault == Fault::connectionLimit ? maximumConnections : streamsOpen;
  const auto scheme = origin_.substr(0, origin_.find(':'));
  const auto port = origin_.substr(origin_.rfind(':') + 1);
  return writtenJson([&](JsonWriter& json) {
    json.StartObject();
    json.Key("user_info");
    json.StartObject();
    put(json, "username", options_.username);
    put(json, "password", options_.password);
    put(json, "message", "Welcome");
    put(json, "auth", 1);
    put(json, "status", expired ? "Expired" : "Active");
    put(json, "exp_date", time + (expired ? -1 : 200) * 24 * 3600, Form::text);
    put(json, "is_trial", "0");
    put(json, "active_cons", active, Form::text);
    put(json, "created_at", "1600000000");
    put(json, "max_connections", maximumConnections, Form::text);
    json.Key("allowed_output_formats");
    json.StartArray();
    json.String("m3u8");
    json.String("ts");
    json.EndArray();
    json.EndObject();
    json.Key("server_info");
    json.StartObject();
    put(json, "url", "127.0.0.1");
    put(json, "port", port);
    put(json, "https_port", port);
    put(json, "server_protocol", scheme);
    put(json, "timezone", "UTC");
    put(json, "timestamp_now", time);
    json.EndObject();
    json.EndObject();
  });
}

std::shared_ptr<const std::string> Provider::rows(Kind kind, const std::string& category) {
  if (!category.empty()) {
    return std::make_shared<const std::string>(
        rowsJson(kind, count(kind), origin_ + options_.basePath, category));
  }
  const std::lock_guard lock(rowsMutex_);
  auto& text = rows_[static_cast<std::size_t>(kind)];
  if (!text) {
    text = std::make_shared<const std::string>(
        rowsJson(kind, count(kind), origin_ + options_.basePath));
  }
  return text;
}

Response Provider::posterAnswer(const Request& request) const {
  const auto& file = request.segments.back();
  const auto kind = kindNamed(request.segments[depth() + 1]);
  if (!kind || !file.ends_with(".png")) return errorResponse(404);
  const auto index = entryIndex(*kind, file.substr(0, file.size() - 4), count(*kind));
  if (!index) return errorResponse(404);
  return textResponse(200, posterPng(*kind, static_cast<std::uint64_t>(*index)), "image/png");
}

}  // namespace sim
