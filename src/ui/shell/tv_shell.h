#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <QVariantList>

#include "core/section.h"
#include "library/media_item.h"

namespace vantor {

class AppModel;
class Playback;

/// The browsing screen around its content: sections, header, notice, footer, keyboard actions and
/// the way back that Esc takes. Main thread only.
class TVShell final : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  Q_PROPERTY(QVariantList sections READ sections CONSTANT)
  Q_PROPERTY(int section READ section NOTIFY sectionChanged)
  Q_PROPERTY(bool showsChannels READ showsChannels NOTIFY sectionChanged)
  Q_PROPERTY(QString headerTitle READ headerTitle NOTIFY sectionChanged)
  Q_PROPERTY(bool searchOffered READ searchOffered NOTIFY accountChanged)
  Q_PROPERTY(QString searchPlaceholder READ searchPlaceholder NOTIFY sectionChanged)
  Q_PROPERTY(QString search READ search WRITE setSearch NOTIFY searchChanged)
  Q_PROPERTY(bool refreshOffered READ refreshOffered NOTIFY sectionChanged)
  Q_PROPERTY(bool refreshEnabled READ refreshEnabled NOTIFY refreshEnabledChanged)
  Q_PROPERTY(QString notice READ notice NOTIFY noticeChanged)
  Q_PROPERTY(bool expanded READ expanded NOTIFY expandedChanged)
  Q_PROPERTY(QString accountLabel READ accountLabel NOTIFY accountChanged)
  Q_PROPERTY(QString browseHint READ browseHint CONSTANT)
  Q_PROPERTY(QString versionLabel READ versionLabel CONSTANT)

 public:
  // Upper case, because QML takes no other.
  enum class Direction { Up, Down, Left, Right };
  Q_ENUM(Direction)

  explicit TVShell(AppModel& model, QObject* parent = nullptr);

  /// Maps of "title" and "symbol", top to bottom.
  QVariantList sections() const;
  int section() const;         // its place in them
  bool showsChannels() const;  // the channel guide, else posters
  QString title() const;
  QString headerTitle() const;
  bool searchOffered() const;
  QString searchPlaceholder() const;
  QString search() const;
  void setSearch(const QString& text);
  bool refreshOffered() const;
  bool refreshEnabled() const;
  QString notice() const;  // empty: none
  bool expanded() const;
  QString accountLabel() const;
  QString browseHint() const;
  QString versionLabel() const;

  Q_INVOKABLE void navigate(int section);
  Q_INVOKABLE void refresh();
  Q_INVOKABLE void openFile();
  Q_INVOKABLE void clearNotice();
  Q_INVOKABLE void openSettings();
  Q_INVOKABLE void connectProvider();
  Q_INVOKABLE void backToBrowsing();
  Q_INVOKABLE void startOver();
  Q_INVOKABLE void escape();

  // keyboard_navigation.cpp; rows are positions in the list of entries.
  Q_INVOKABLE void moveSelection(vantor::TVShell::Direction direction, int columns);
  Q_INVOKABLE void activateSelection();
  Q_INVOKABLE void selectRow(int row);
  Q_INVOKABLE void openRow(int row);
  Q_INVOKABLE void playRow(int row);
  Q_INVOKABLE void favoriteRow(int row);
  Q_INVOKABLE bool isFavoriteRow(int row) const;
  /// Whether "Continue watching" has the entry.
  Q_INVOKABLE bool isBegunRow(int row) const;
  Q_INVOKABLE void stopContinuingRow(int row);

 Q_SIGNALS:
  void sectionChanged();
  void accountChanged();
  void searchChanged();
  void refreshEnabledChanged();
  void noticeChanged();
  void expandedChanged();
  /// The search field is to take the keyboard focus.
  void searchFocusRequested();

 private:
  void open(MediaItem item);
  bool hasRow(int row) const;

  AppModel& model_;
  Playback& playback_;
};

/// What a section is called: "TV", "Movies", "Search".
QString sectionTitle(Section section);
/// What all of its entries are called: "All movies".
QString allOf(Section section);

}  // namespace vantor
