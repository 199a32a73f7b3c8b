// What the settings pages say.
#include "core/app_model.h"
#include "ui/settings/settings_block.h"

namespace vantor {
namespace {

using namespace Qt::StringLiterals;
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
  return {row(title(SettingsPage::playlists), u"Your provider and saved libraries"_s,
              Action::showPlaylists),
          row(title(SettingsPage::playback), u"Player controls and supported sources"_s,
              Action::showPlayback),
          row(title(SettingsPage::guide), u"Programme information"_s, Action::showGuide),
          row(title(SettingsPage::about), u"Version, support and preview features"_s,
              Action::showAbout)};
}

QList<SettingsBlock> playlistsPage(const AppModel& model) {
  QList<SettingsBlock> blocks = {
      text(model.session().account() ? model.session().account()->name
                                     : u"No provider connected"_s),
      secondary(u"Channels, movies, shows and artwork come directly from your provider. Saved "
                "libraries stay available when you change sections."_s)};
  if (model.session().account() && model.session().subscription())
    blocks.append(text(u"Provider connection limit: "_s +
                       model.session().subscription()->maximumConnections));
  blocks.append(
      {row(u"Xtream Codes parameters"_s, u"Change your provider account"_s, Action::changeProvider),
       row(u"Refresh playlists"_s, u"Update TV, Movies and Shows"_s, Action::refreshPlaylists),
       row(u"Remove saved provider"_s, u"Remove this Mac's saved login and library"_s,
           Action::removeProvider)});
  return blocks;
}

QList<SettingsBlock> playbackPage() {
  return {
      text(u"Use the player's controls for seeking, volume, audio, subtitles and fullscreen "
           "when available for the source."_s),
      row(u"Open media file"_s, u"Play a compatible file saved on your Mac"_s, Action::openFile),
      text(u"VideoLAN playback is built into Vantor. No external player is required for "
           "supported MKV, MP4, HLS and TS sources. Use the controls for volume, seeking, "
           "audio tracks, subtitles and speed."_s),
      text(u"Space  Play / pause\nCtrl .  Stop\nCtrl O  Open file\nEsc  Back to browsing"_s)};
}

QList<SettingsBlock> guidePage() {
  return {text(u"The guide automatically loads your provider's Now / Next information for visible "
               "channels. The highlighted channel stays centered as you browse."_s),
          row(u"Refresh guide information"_s, u"Reload the selected channel's schedule"_s,
              Action::refreshGuide),
          text(u"This version shows Now / Next information."_s)};
}

QList<SettingsBlock> aboutPage() {
  return {text(u"Vantor Player for Mac\n" VANTOR_VERSION " · Preview"_s),
          text(u"The interface follows the Vantor TV player, adapted for mouse and keyboard, with "
               "one video playing at a time. Guide information loads as you browse."_s),
          text(u"Sign in using your existing Vantor TV account."_s),
          row(u"Open-source licenses"_s, u"VideoLAN playback and acknowledgements"_s,
              Action::openLicenses),
          {Kind::link, u"Help & support"_s, {}, Action::openSupport}};
}

}  // namespace

QString title(SettingsPage page) {
  switch (page) {
    case SettingsPage::main:
      return u"Settings"_s;
    case SettingsPage::playlists:
      return u"Playlists"_s;
    case SettingsPage::playback:
      return u"Playback"_s;
    case SettingsPage::guide:
      return u"TV guide"_s;
    case SettingsPage::about:
      return u"About"_s;
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
