#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <QUrl>
#include <optional>

#include "library/media_item.h"

namespace vantor {

class AppModel;

/// The screen of posters: the title it presents large (the selected entry, or the first one), what
/// stands below it, and where the grid of posters is scrolled to. Main thread only.
class PosterView final : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  Q_PROPERTY(QString kicker READ kicker NOTIFY changed)
  Q_PROPERTY(QString name READ name NOTIFY changed)
  Q_PROPERTY(QString facts READ facts NOTIFY changed)
  Q_PROPERTY(QString description READ description NOTIFY changed)
  Q_PROPERTY(bool hasHero READ hasHero NOTIFY changed)
  Q_PROPERTY(QUrl artwork READ artwork NOTIFY changed)
  Q_PROPERTY(QString symbol READ symbol NOTIFY changed)
  Q_PROPERTY(QString openLabel READ openLabel NOTIFY changed)
  Q_PROPERTY(QString favoriteSymbol READ favoriteSymbol NOTIFY changed)
  Q_PROPERTY(bool allShowsOffered READ allShowsOffered NOTIFY changed)
  Q_PROPERTY(bool showsPlayer READ showsPlayer NOTIFY changed)
  Q_PROPERTY(Content content READ content NOTIFY changed)
  Q_PROPERTY(QString limitNote READ limitNote NOTIFY changed)
  Q_PROPERTY(int keyRow READ keyRow NOTIFY changed)

 public:
  // Upper case, because QML takes no other.
  enum class Content { Episodes, Empty, Grid };
  Q_ENUM(Content)

  explicit PosterView(AppModel& model, QObject* parent = nullptr);

  QString kicker() const;
  QString name() const;
  QString facts() const;  // may be empty
  QString description() const;
  bool hasHero() const { return hero_.has_value(); }
  QUrl artwork() const;
  QString symbol() const;
  QString openLabel() const;
  QString favoriteSymbol() const;
  bool allShowsOffered() const;
  bool showsPlayer() const;  // in place of the artwork
  Content content() const;
  QString limitNote() const;  // empty: every entry has a poster
  /// The row that Return acts on, -1 when it has no poster.
  int keyRow() const;

  Q_INVOKABLE void toggleFavorite();
  Q_INVOKABLE void closeEpisodes();
  Q_INVOKABLE void choose(int row);
  /// Scrolling ended with this row in the middle; -1: with none.
  Q_INVOKABLE void settledOn(int row);
  /// Asks for the row that belongs in the middle of a grid that is just being shown.
  Q_INVOKABLE void restorePosition();

 Q_SIGNALS:
  void changed();
  /// This row is to stand in the middle of the grid; -1: the first one at the top.
  void centerRequested(int row);

 private:
  enum class Scroll { None, ToSelection, ToAnchor };

  void updateHero();
  void request(Scroll scroll);
  void carryOutScroll();
  int rowOf(const QString& id) const;

  AppModel& model_;
  std::optional<MediaItem> hero_;
  Scroll scroll_ = Scroll::None;
};

}  // namespace vantor
