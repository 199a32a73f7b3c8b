#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QStringList>
#include <functional>
#include <memory>
#include <optional>

#include "platform/clock.h"
#include "platform/file_panel.h"
#include "platform/job.h"

class QDBusMessage;
class QDBusPendingCallWatcher;

namespace vantor {

class Worker;

/// The file panel that the desktop's portal has, and another where there is no portal or it does
/// not answer. Main thread only.
class PortalFilePanel final : public QObject, public FilePanel {
  Q_OBJECT

 public:
  struct Wording {
    QString title;
    QString kinds;         // what the files are, in words
    QStringList patterns;  // globs of their names
  };

  PortalFilePanel(FilePanel& otherwise, Clock& clock, std::function<Wording()> wording)
      : otherwise_(otherwise), clock_(clock), wording_(std::move(wording)) {}
  ~PortalFilePanel() override;

  /// Speaks over the session bus, from some time later on; `worker` waits for the bus.
  void join(Worker& worker);
  /// The window that the panel belongs to, as portals name it ("x11:" and its number); empty: none.
  void setParentWindow(const QString& identifier) { parentWindow_ = identifier; }

  Pending<std::optional<QUrl>> chooseMediaFile() override;

 private Q_SLOTS:
  void onResponse(const QDBusMessage& response);
  void onOwnerChanged(const QString& service, const QString& before, const QString& now);

 private:
  using Choice = Pending<std::optional<QUrl>>;

  void useBus(const QDBusConnection& bus);
  void askPortal();
  void answered(const QDBusPendingCallWatcher& answer);
  void askOther();
  static QCoro::Task<> takeChoice(Choice of, Choice to);
  /// Hears what becomes of the request from now on; empty: of none.
  void follow(const QString& request);
  void letGo();
  void close();
  void settle(const std::optional<QUrl>& file);

  FilePanel& otherwise_;
  Clock& clock_;
  const std::function<Wording()> wording_;
  QString parentWindow_;
  std::optional<QDBusConnection> bus_;
  std::optional<Choice> choice_;
  QString request_;  // the portal's object for the open panel; empty: none
  int requests_ = 0;
  std::unique_ptr<Clock::Timer> patience_;
  Job joining_;
  Job asking_;
};

}  // namespace vantor
