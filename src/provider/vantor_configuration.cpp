#include "provider/vantor_configuration.h"

#include "json/json_reading.h"
#include "net/http_transport.h"
#include "platform/app_error.h"
#include "platform/preferences.h"
#include "platform/trace.h"

namespace vantor {

using namespace Qt::StringLiterals;

namespace {

const QString serverKey = u"vantor.server"_s;

AppError invalid() {
  return AppError(AppError::tr("Invalid Vantor TV server configuration."));
}

constexpr std::int64_t documentLimit = 16'384;  // bytes

bool isServerAddress(const QString& text) {
  const QUrl address(text, QUrl::StrictMode);
  const QString scheme = text.section(QLatin1Char(':'), 0, 0);
  const QString authority = text.section(QLatin1Char('/'), 2, 2);
  return address.isValid() &&
         (scheme == QLatin1String("http") || scheme == QLatin1String("https")) &&
         !address.host().isEmpty() && !authority.contains(QLatin1Char('@')) &&
         !address.hasQuery() && !address.hasFragment();
}

}  // namespace

VantorConfiguration::VantorConfiguration(HTTPTransport& transport, Preferences& preferences,
                                         QUrl endpoint, QString fallback)
    : transport_(transport),
      preferences_(preferences),
      endpoint_(std::move(endpoint)),
      fallback_(std::move(fallback)) {}

QString VantorConfiguration::currentServer() const {
  return preferences_.text(serverKey).value_or(fallback_);
}

QCoro::Task<QString> VantorConfiguration::resolve(std::stop_token token) const {
  HTTPRequest request;
  request.address = endpoint_;
  request.timeout = std::chrono::seconds(8);
  const Attempt attempt(providerTrace, "reading the service configuration");
  try {
    const QCoro::Task<QByteArray> fetched = transport_.fetch(request, documentLimit, token);
    const QByteArray document = co_await fetched;
    co_return decode(document);
  } catch (...) {
    // Every failure has the same answer, below.
    attempt.failed();
  }
  // Whoever cancels it may be gone by now, and all this with it.
  if (token.stop_requested()) co_return QString();
  co_return currentServer();
}

void VantorConfiguration::accept(const QString& server) {
  preferences_.setText(serverKey, server);
}

QString VantorConfiguration::decode(const QByteArray& bytes) {
  std::string version;
  std::string server;
  forEachRootField(bytes, [&](std::string_view key, simdjson::ondemand::value value) {
    const simdjson::ondemand::json_type type = value.type();
    if (key == "schemaVersion") {
      version.clear();
      if (type != simdjson::ondemand::json_type::number) return false;
      appendValueText(value, version);
      return true;
    }
    if (key != "serverUrl") return false;
    server.clear();
    if (type != simdjson::ondemand::json_type::string) return false;
    appendString(value, server);
    return true;
  });
  if (version != "1") throw invalid();
  QString address = QString::fromStdString(server);
  if (!isServerAddress(address)) throw invalid();
  while (address.startsWith(QLatin1Char('/'))) address.remove(0, 1);
  while (address.endsWith(QLatin1Char('/'))) address.chop(1);
  return address;
}

}  // namespace vantor
