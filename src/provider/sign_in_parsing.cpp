#include <algorithm>

#include "provider/error_wording.h"
#include "provider/json_reading.h"
#include "provider/provider_client.h"

namespace vantor {
namespace {

AppError rejection() {
  return AppError(
      QStringLiteral("Your provider did not accept this account. Check the username, password and "
                     "subscription status."));
}

std::optional<std::chrono::system_clock::time_point> expiry(std::string_view text) {
  const auto seconds = decimalNumber(text);
  if (!seconds || *seconds <= 0) return std::nullopt;
  using Time = std::chrono::system_clock::time_point;
  const std::chrono::duration<double> sinceEpoch(*seconds);
  if (sinceEpoch >= Time::max().time_since_epoch()) return Time::max();
  return Time(std::chrono::duration_cast<Time::duration>(sinceEpoch));
}

QStringList formats(simdjson::ondemand::object& info) {
  QStringList list;
  auto value = fieldOf(info, "allowed_output_formats");
  if (!value || value->type() != simdjson::ondemand::json_type::array) return {};
  simdjson::ondemand::array array = value->get_array();
  bool onlyTexts = true;
  for (auto element : array) {
    simdjson::ondemand::value format = element.value();
    if (format.type() != simdjson::ondemand::json_type::string) {
      onlyTexts = false;
      continue;
    }
    std::string text;
    appendString(format, text);
    list.append(QString::fromStdString(text));
  }
  return onlyTexts ? list : QStringList();
}

}  // namespace

ProviderDetails parseSignIn(QByteArray answer) {
  return readJSON([&] {
    JSONDocument document(std::move(answer));
    if (document.root().type() != simdjson::ondemand::json_type::object) throw rejection();
    simdjson::ondemand::object root = document.root().get_object();
    auto value = fieldOf(root, "user_info");
    if (!value || value->type() != simdjson::ondemand::json_type::object) throw rejection();
    simdjson::ondemand::object info = value->get_object();
    std::string status = valueString(info, "status");
    std::transform(status.begin(), status.end(), status.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
    if (valueString(info, "auth") != "1" || status != "active") throw rejection();
    ProviderDetails details;
    details.expires = expiry(valueString(info, "exp_date"));
    details.maximumConnections = QString::fromStdString(valueString(info, "max_connections"));
    details.activeConnections = QString::fromStdString(valueString(info, "active_cons"));
    details.formats = formats(info);
    return details;
  });
}

}  // namespace vantor
