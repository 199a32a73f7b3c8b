#include "provider/provider_account.h"

#include <unicode/uchar.h>

#include <QRegularExpression>
#include <algorithm>
#include <array>
#include <optional>

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include "json/json_reading.h"
#include "platform/app_error.h"
#include "platform/canonical_text.h"

namespace vantor {

using namespace Qt::StringLiterals;

namespace {

AppError addressError() {
  return AppError(
      AppError::tr("Enter a provider address beginning with https:// or http://, without account "
                   "details in the address."));
}

QString withoutSlashes(QString path) {
  while (path.startsWith(QLatin1Char('/'))) path.remove(0, 1);
  while (path.endsWith(QLatin1Char('/'))) path.chop(1);
  return path;
}

QUrl serverAddress(const QString& typed) {
  const QString text = typed.trimmed();
  QUrl address(text, QUrl::StrictMode);
  const bool web =
      address.scheme() == QLatin1String("https") || address.scheme() == QLatin1String("http");
  if (!address.isValid() || !web || address.host().isEmpty()) throw addressError();
  // QUrl cannot tell an empty user from none.
  const bool userInfo = address.authority().contains(QLatin1Char('@')) ||
                        text.section(QLatin1Char('/'), 2, 2).contains(QLatin1Char('@'));
  if (userInfo || address.hasQuery() || address.hasFragment()) throw addressError();
  const QString path = withoutSlashes(address.path(QUrl::FullyEncoded));
  address.setPath(path.isEmpty() ? QString() : QLatin1Char('/') + path, QUrl::StrictMode);
  return address;
}

QByteArray percentEncoded(const QString& text) {
  return QUrl::toPercentEncoding(text);
}

QString pathSegment(LibraryKind kind) {
  switch (kind) {
    case LibraryKind::live:
      return u"live"_s;
    case LibraryKind::movies:
      return u"movie"_s;
    case LibraryKind::shows:
      return u"series"_s;
  }
  return {};
}

/// Ideographs for numbers are letters by their category, and numeric all the same.
bool isNumeric(const QString& id) {
  const auto codes = id.toUcs4();
  return !codes.isEmpty() && std::all_of(codes.begin(), codes.end(), [](uint code) {
    return u_getIntPropertyValue(static_cast<UChar32>(code), UCHAR_NUMERIC_TYPE) != U_NT_NONE;
  });
}

}  // namespace

QString ProviderAccount::idText() const {
  return canonicalText(id);
}

QString ProviderAccount::serverText() const {
  return QString::fromLatin1(server.toEncoded());
}

ProviderAccount ProviderAccount::validated(const QString& name, const QString& server,
                                           const QString& username, const QString& password) {
  ProviderAccount account;
  account.server = serverAddress(server);
  account.username = username.trimmed();
  account.password = password;
  if (account.username.isEmpty() || password.isEmpty())
    throw AppError(AppError::tr("Enter your provider username and password."));
  account.name = name.trimmed();
  if (account.name.isEmpty()) account.name = u"My provider"_s;
  return account;
}

QUrl ProviderAccount::api(const QString& action, const QueryItems& extra) const {
  QueryItems items{{u"username"_s, username}, {u"password"_s, password}};
  if (!action.isEmpty()) items.append({u"action"_s, action});
  items.append(extra);
  QByteArray address = server.toEncoded() + "/player_api.php";
  char separator = '?';
  for (const auto& [key, value] : items) {
    address += separator + percentEncoded(key) + '=' + percentEncoded(value);
    separator = '&';
  }
  return QUrl::fromEncoded(address, QUrl::StrictMode);
}

QUrl ProviderAccount::stream(const QString& streamID, LibraryKind kind,
                             const QString& fileExtension) const {
  static const QRegularExpression extensionForm(u"\\A[A-Za-z0-9]{1,8}\\z"_s);
  if (!isNumeric(streamID) || !extensionForm.match(fileExtension).hasMatch())
    throw AppError(AppError::tr("This provider item has an invalid playback address."));
  const QByteArray address = server.toEncoded() + '/' + pathSegment(kind).toLatin1() + '/' +
                             percentEncoded(username) + '/' + percentEncoded(password) + '/' +
                             percentEncoded(streamID + QLatin1Char('.') + fileExtension);
  return QUrl::fromEncoded(address, QUrl::StrictMode);
}

QByteArray ProviderAccount::toJSON() const {
  rapidjson::StringBuffer buffer;
  rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
  const auto field = [&](const char* key, const QString& value) {
    const QByteArray utf8 = value.toUtf8();
    writer.Key(key);
    writer.String(utf8.constData(), static_cast<rapidjson::SizeType>(utf8.size()));
  };
  writer.StartObject();
  field("id", idText());
  field("name", name);
  field("server", serverText());
  field("username", username);
  field("password", password);
  field("userAgent", userAgent);
  writer.EndObject();
  return QByteArray(buffer.GetString(), static_cast<qsizetype>(buffer.GetSize()));
}

ProviderAccount ProviderAccount::fromJSON(const QByteArray& json) {
  constexpr std::array<std::string_view, 6> keys = {"id",       "name",     "server",
                                                    "username", "password", "userAgent"};
  std::array<std::optional<QString>, keys.size()> fields;
  readJSON([&] {
    JSONDocument document(json);
    forEachField(document.object(), [&](std::string_view key, simdjson::ondemand::value value) {
      const auto known = std::find(keys.begin(), keys.end(), key);
      if (known == keys.end()) return false;
      if (value.type() != simdjson::ondemand::json_type::string) throw JSONError();
      std::string text;
      appendString(value, text);
      fields[static_cast<std::size_t>(known - keys.begin())] = QString::fromStdString(text);
      return true;
    });
    document.expectEnd();
  });
  for (const auto& field : fields)
    if (!field) throw JSONError();
  ProviderAccount account;
  account.id = QUuid::fromString(*fields[0]);
  account.name = *fields[1];
  account.server = QUrl::fromEncoded(fields[2]->toUtf8(), QUrl::StrictMode);
  account.username = *fields[3];
  account.password = *fields[4];
  account.userAgent = *fields[5];
  if (account.id.isNull() || !account.server.isValid()) throw JSONError();
  return account;
}

}  // namespace vantor
