#pragma once

#include <memory>

#include "platform/opener.h"
#include "playback/stream_keeper.h"
#include "support/model_fixture.h"
#include "ui/views.h"

namespace vantor::test {

struct FakeOpener final : Opener {
  void open(const QUrl& address) override { opened.append(address); }
  QList<QUrl> opened;
};

/// What every screen shows and does, over the real model.
class ViewsTest : public ModelTest {
 protected:
  void open(const QStringList& arguments = {}) {
    app = &launch(arguments);
    keeper = std::make_unique<StreamKeeper>(app->playback(), engine, frames, transport, clock);
    views = std::make_unique<Views>(
        *app, *keeper, clock, dialog, frames, artwork, opener,
        SettingsLinks{QUrl(u"https://support.example/"_s), u"/usr/share/vantor"_s});
    opened();
  }
  /// Signed in, with so many channels, movies and shows, whose ids begin with 1.
  void open(int channels, int movies = 0, int shows = 0) {
    open();
    if (movies > 0) always(LibraryKind::movies, rows(LibraryKind::movies, 1, movies));
    if (shows > 0) always(LibraryKind::shows, rows(LibraryKind::shows, 1, shows));
    signIn(rows(LibraryKind::live, 1, channels));
  }
  virtual void opened() {}

  /// The texts of a list, joined by commas.
  static QString read(const QAbstractItemModel& list, int role) {
    QStringList texts;
    for (int row = 0; row < list.rowCount(); ++row)
      texts.append(list.data(list.index(row, 0), role).toString());
    return texts.join(u',');
  }

  DialogFilePanel dialog;
  VideoFrameQueue frames;
  ArtworkStore artwork{transport, clock, worker};
  FakeOpener opener;
  AppModel* app = nullptr;
  std::unique_ptr<StreamKeeper> keeper;
  std::unique_ptr<Views> views;
};

}  // namespace vantor::test
