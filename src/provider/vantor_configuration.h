#pragma once

#include <QByteArray>
#include <QCoroTask>
#include <QString>
#include <QUrl>
#include <stop_token>

namespace vantor {

class HTTPTransport;
class Preferences;

/// Finds the provider server of the service. Main thread only; the references outlive it.
class VantorConfiguration {
 public:
  VantorConfiguration(HTTPTransport& transport, Preferences& preferences, QUrl endpoint,
                      QString fallback);

  /// The last server that was accepted, else the built-in one.
  QString currentServer() const;

  /// The server to use for a new sign-in. Never fails: what goes wrong yields `currentServer`, a
  /// stop an empty text, also when this is gone by then.
  QCoro::Task<QString> resolve(std::stop_token token) const;

  /// Records a server that a sign-in succeeded with.
  void accept(const QString& server);

  /// The server that a configuration document names; fails with `JSONError` or `AppError`.
  static QString decode(const QByteArray& document);

 private:
  HTTPTransport& transport_;
  Preferences& preferences_;
  QUrl endpoint_;
  QString fallback_;
};

}  // namespace vantor
