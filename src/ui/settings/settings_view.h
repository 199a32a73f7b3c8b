#pragma once

#include <QtQml/qqmlregistration.h>
#include <QCoroTask>
#include <QObject>
#include <QPointer>
#include <QUrl>
#include <QVariantList>
#include <stop_token>

#include "platform/job.h"
#include "ui/settings/settings_block.h"

namespace vantor {

class AppModel;
class Opener;

/// Where the settings lead outside of the program.
struct SettingsLinks {
  QUrl supportSite;
  QString resourceFolder;  // of the installed program; empty when it has none
};

/// The settings sheet: a stack of one main page and a page per section. Main thread only.
class SettingsView final : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  Q_PROPERTY(bool shown READ shown NOTIFY shownChanged)
  Q_PROPERTY(QString title READ title NOTIFY pageChanged)
  Q_PROPERTY(QString backLabel READ backLabel NOTIFY pageChanged)
  Q_PROPERTY(QString hint READ hint CONSTANT)
  Q_PROPERTY(QString heading READ heading CONSTANT)
  Q_PROPERTY(QVariantList blocks READ blocks NOTIFY blocksChanged)
  Q_PROPERTY(QString message READ message NOTIFY messageChanged)
  Q_PROPERTY(bool confirmingRemoval READ confirmingRemoval NOTIFY confirmingRemovalChanged)

 public:
  SettingsView(AppModel& model, Opener& opener, SettingsLinks links, QObject* parent = nullptr);

  bool shown() const { return shown_; }
  QString title() const { return vantor::title(page_); }  // of the page
  QString backLabel() const;
  QString hint() const;
  QString heading() const;
  /// Maps of "kind" ("text", "secondary", "row" or "link"), "text", "subtitle" and "place", the one
  /// of a row or link among those that act.
  QVariantList blocks() const;
  const QString& message() const { return message_; }  // empty: none
  bool confirmingRemoval() const { return confirmingRemoval_; }

  /// Runs the action of the row or link that stands at `index` of the blocks.
  Q_INVOKABLE void activate(int index);
  /// To the main page, and from there out.
  Q_INVOKABLE void back();
  Q_INVOKABLE void removeProvider();
  Q_INVOKABLE void cancelRemoval();

 Q_SIGNALS:
  /// After the sheet is at its main page.
  void shownChanged();
  void pageChanged();
  void blocksChanged();
  void messageChanged();
  void confirmingRemovalChanged();

 private:
  static QCoro::Task<> disconnectProvider(QPointer<AppModel> model, std::stop_token stop);
  void shownOrHidden();
  void run(SettingsBlock::Action action);
  void setPage(SettingsPage page);
  void setMessage(const QString& message);
  void setConfirmingRemoval(bool confirming);
  void refreshPlaylists();
  void openLicenses();

  AppModel& model_;
  Opener& opener_;
  const SettingsLinks links_;
  bool shown_ = false;
  SettingsPage page_ = SettingsPage::main;
  QString message_;
  bool confirmingRemoval_ = false;
  Job removalTask_;
};

}  // namespace vantor
