#include <algorithm>

#include "json/json_reading.h"
#include "platform/app_error.h"
#include "provider/provider_client.h"

namespace vantor {
namespace {

AppError rejection() {
  return AppError(
      AppError::tr("Your provider did not accept this account. Check the username, password and "
                   "subscription status."));
}

std::optional<ProviderTime> expiry(std::string_view text) {
  const auto time = providerTime(text);
  return time && *time > ProviderTime() ? time : std::nullopt;
}

/// Many times as many as there are; a large answer has room for millions.
constexpr qsizetype mostFormats = 64;

/// Empty unless all are texts, of which the first are kept.
QStringList formatsOf(simdjson::ondemand::array array) {
  QStringList list;
  bool onlyTexts = true;
  for (auto element : array) {
    simdjson::ondemand::value format = element.value();
    if (format.type() != simdjson::ondemand::json_type::string) {
      onlyTexts = false;
      expectValue(format);
      continue;
    }
    std::string text;
    appendString(format, text);
    if (list.size() < mostFormats) list.append(QString::fromStdString(text));
  }
  return onlyTexts ? list : QStringList();
}

/// What the answer says about the account.
struct UserInfo {
  std::string auth, status, expires, maximumConnections, activeConnections;
  QStringList formats;
};

UserInfo readUserInfo(simdjson::ondemand::object object) {
  UserInfo info;
  forEachField(object, [&](std::string_view key, simdjson::ondemand::value value) {
    if (key == "allowed_output_formats") {
      const bool isArray = value.type() == simdjson::ondemand::json_type::array;
      info.formats = isArray ? formatsOf(value.get_array()) : QStringList();
      return isArray;
    }
    std::string* const text = key == "auth"              ? &info.auth
                              : key == "status"          ? &info.status
                              : key == "exp_date"        ? &info.expires
                              : key == "max_connections" ? &info.maximumConnections
                              : key == "active_cons"     ? &info.activeConnections
                                                         : nullptr;
    if (!text) return false;
    text->clear();
    appendValueText(value, *text);
    return true;
  });
  return info;
}

/// Absent when the answer is JSON of another shape.
std::optional<UserInfo> readAnswer(QByteArray answer) {
  std::optional<UserInfo> info;
  forEachRootField(std::move(answer), [&](std::string_view key, simdjson::ondemand::value value) {
    if (key != "user_info") return false;
    info.reset();
    if (value.type() != simdjson::ondemand::json_type::object) return false;
    info = readUserInfo(value.get_object());
    return true;
  });
  return info;
}

}  // namespace

ProviderDetails parseSignIn(QByteArray answer) {
  const std::optional<UserInfo> info = readAnswer(std::move(answer));
  if (!info) throw rejection();
  std::string status = info->status;
  std::transform(status.begin(), status.end(), status.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
  if (info->auth != "1" || status != "active") throw rejection();
  ProviderDetails details;
  details.expires = expiry(info->expires);
  details.maximumConnections = QString::fromStdString(info->maximumConnections);
  details.activeConnections = QString::fromStdString(info->activeConnections);
  details.formats = info->formats;
  return details;
}

}  // namespace vantor
