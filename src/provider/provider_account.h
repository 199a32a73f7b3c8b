#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QUrl>
#include <QUuid>
#include <utility>

#include "library/library_kind.h"

namespace vantor {

inline const QString defaultUserAgent = QStringLiteral("VantorPlayerMac/0.1.0");

using QueryItems = QList<std::pair<QString, QString>>;

/// The saved sign-in to one provider that speaks the Xtream Codes player API.
struct ProviderAccount {
  QUuid id = QUuid::createUuid();
  QString name;
  QUrl server;  // http or https, host, optional port and base path without trailing "/"
  QString username;
  QString password;
  QString userAgent = defaultUserAgent;

  bool operator==(const ProviderAccount&) const = default;

  /// Makes an account of what the user typed, or fails with an `AppError` for the user.
  static ProviderAccount validated(const QString& name, const QString& server,
                                   const QString& username, const QString& password);

  /// The address of one API request; `action` empty for the sign-in.
  QUrl api(const QString& action = {}, const QueryItems& extra = {}) const;

  /// The playback address of an entry; fails with an `AppError` for a malformed id or extension.
  QUrl stream(const QString& id, LibraryKind kind, const QString& fileExtension) const;

  /// "server" as one absolute address.
  QString serverText() const;
  /// The canonical text of `id`: 36 characters, upper case.
  QString idText() const;

  QByteArray toJSON() const;
  /// Fails with `JSONError` when a key is missing or has the wrong type.
  static ProviderAccount fromJSON(const QByteArray& json);
};

}  // namespace vantor
