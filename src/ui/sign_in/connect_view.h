#pragma once

#include <QtQml/qqmlregistration.h>
#include <QCoroTask>
#include <QObject>
#include <QPointer>
#include <stop_token>

#include "platform/job.h"

namespace vantor {

class AppModel;

/// The sign-in sheet: what the user types, the attempt and what became of it. Main thread only.
class ConnectView final : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  Q_PROPERTY(bool shown READ shown NOTIFY shownChanged)
  Q_PROPERTY(QString username READ username WRITE setUsername NOTIFY usernameChanged)
  Q_PROPERTY(QString password READ password WRITE setPassword NOTIFY passwordChanged)
  Q_PROPERTY(QString error READ error NOTIFY errorChanged)
  Q_PROPERTY(bool working READ working NOTIFY workingChanged)
  Q_PROPERTY(bool closable READ closable NOTIFY workingChanged)
  Q_PROPERTY(bool canConnect READ canConnect NOTIFY canConnectChanged)

 public:
  explicit ConnectView(AppModel& model, QObject* parent = nullptr);

  bool shown() const { return shown_; }
  const QString& username() const { return username_; }
  const QString& password() const { return password_; }
  const QString& error() const { return error_; }  // empty: none
  /// Whether an attempt is being made, from the click on.
  bool working() const;
  bool closable() const;
  bool canConnect() const;
  void setUsername(const QString& username);
  void setPassword(const QString& password);

  Q_INVOKABLE void connectAccount();
  /// Closes the sheet, unless the provider is being asked.
  Q_INVOKABLE void close();

 Q_SIGNALS:
  /// After the sheet has been prepared for what it is shown for.
  void shownChanged();
  void usernameChanged();
  void passwordChanged();
  void errorChanged();
  void workingChanged();
  void canConnectChanged();

 private:
  static QCoro::Task<> attempt(QPointer<ConnectView> self, QString username, QString password,
                               std::stop_token stop);
  QString savedUsername() const;  // empty without an account
  void shownOrHidden();
  void setError(const QString& error);
  void setAttempting(bool attempting);

  AppModel& model_;
  bool shown_ = false;
  QString username_;
  QString password_;
  QString error_;
  bool attempting_ = false;
  Job connectTask_;
};

}  // namespace vantor
