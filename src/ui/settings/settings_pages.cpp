// What the settings pages say.
#include "core/app_model.h"
#include "ui/entries/shown_text.h"
#include "ui/settings/settings_block.h"
#include "ui/settings/settings_view.h"

namespace vantor {
namespace {

using Action = SettingsBlock::Action;
using Kind = SettingsBlock::Kind;

SettingsBlock text(const QString& text) {
  return {Kind::text, text, {}, Action::none};
}

SettingsBlock secondary(const QString& text) {
  return {Kind::secondary, text, {}, Action::none};
}

SettingsBlock row(const QString& title, const QString& subtitle, Action action) {
  return {Kind::row, title, subtitle, action};
}

QList<SettingsBlock> mainPage() {
  return {
      row(title(SettingsPage::playlists), SettingsView::tr("Your provider and saved libraries"),
          Action::showPlaylists),
      row(title(SettingsPage::playback), SettingsView::tr("Player controls and supported sources"),
          Action::showPlayback),
      row(title(SettingsPage::guide), SettingsView::tr("Programme information"), Action::showGuide),
      row(title(SettingsPage::about), SettingsView::tr("Version, support and preview features"),
          Action::showAbout)};
}

QList<SettingsBlock> playlistsPage(const AppModel& model) {
  QList<SettingsBlock> blocks = {
      text(model.session().account() ? model.session().account()->name
                                     : SettingsView::tr("No provider connected")),
      secondary(SettingsView::tr(
          "Channels, movies, shows and artwork come directly from your provider. Saved "
          "libraries stay available when you change sections."))};
  if (model.session().account() && model.session().subscription())
    blocks.append(text(SettingsView::tr("Provider connection limit: %1")
                           .arg(oneLine(model.session().subscription()->maximumConnections))));
  blocks.append(
      {row(SettingsView::tr("Xtream Codes parameters"),
           SettingsView::tr("Change your provider account"), Action::changeProvider),
       row(SettingsView::tr("Refresh playlists"), SettingsView::tr("Update TV, Movies and Shows"),
           Action::refreshPlaylists),
       row(SettingsView::tr("Remove saved provider"),
           SettingsView::tr("Remove this Mac's saved login and library"), Action::removeProvider)});
  return blocks;
}

QList<SettingsBlock> playbackPage() {
  return {text(SettingsView::tr(
              "Use the player's controls for seeking, volume, audio, subtitles and fullscreen "
              "when available for the source.")),
          row(SettingsView::tr("Open media file"),
              SettingsView::tr("Play a compatible file saved on your Mac"), Action::openFile),
          text(SettingsView::tr(
              "VideoLAN playback is built into Vantor. No external player is required for "
              "supported MKV, MP4, HLS and TS sources. Use the controls for volume, seeking, "
              "audio tracks, subtitles and speed.")),
          text(SettingsView::tr(
              "Space  Play / pause\nCtrl .  Stop\nCtrl O  Open file\nEsc  Back to browsing"))};
}

QList<SettingsBlock> guidePage() {
  return {text(SettingsView::tr(
              "The guide automatically loads your provider's Now / Next information for visible "
              "channels. The highlighted channel stays centered as you browse.")),
          row(SettingsView::tr("Refresh guide information"),
              SettingsView::tr("Reload the selected channel's schedule"), Action::refreshGuide),
          text(SettingsView::tr("This version shows Now / Next information."))};
}

QList<SettingsBlock> aboutPage() {
  return {text(SettingsView::tr("Vantor Player for Mac\n%1 · Preview")
                   .arg(QStringLiteral(VANTOR_VERSION))),
          text(SettingsView::tr(
              "The interface follows the Vantor TV player, adapted for mouse and keyboard, with "
              "one video playing at a time. Guide information loads as you browse.")),
          text(SettingsView::tr("Sign in using your existing Vantor TV account.")),
          row(SettingsView::tr("Open-source licenses"),
              SettingsView::tr("VideoLAN playback and acknowledgements"), Action::openLicenses),
          {Kind::link, SettingsView::tr("Help & support"), {}, Action::openSupport}};
}

}  // namespace

QString title(SettingsPage page) {
  switch (page) {
    case SettingsPage::main:
      return SettingsView::tr("Settings");
    case SettingsPage::playlists:
      return SettingsView::tr("Playlists");
    case SettingsPage::playback:
      return SettingsView::tr("Playback");
    case SettingsPage::guide:
      return SettingsView::tr("TV guide");
    case SettingsPage::about:
      return SettingsView::tr("About");
  }
  return {};
}

QList<SettingsBlock> blocksOf(SettingsPage page, const AppModel& model) {
  switch (page) {
    case SettingsPage::main:
      return mainPage();
    case SettingsPage::playlists:
      return playlistsPage(model);
    case SettingsPage::playback:
      return playbackPage();
    case SettingsPage::guide:
      return guidePage();
    case SettingsPage::about:
      return aboutPage();
  }
  return {};
}

}  // namespace vantor
