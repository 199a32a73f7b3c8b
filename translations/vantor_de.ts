<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>BookmarkButton</name>
    <message>
        <source>Add / remove from My list</source>
        <translation>Zu „Meine Liste“ hinzufügen / entfernen</translation>
    </message>
</context>
<context>
    <name>CategoryRail</name>
    <message>
        <source>CATEGORIES</source>
        <translation>KATEGORIEN</translation>
    </message>
</context>
<context>
    <name>ChannelChooserPanel</name>
    <message>
        <source>No channels in this group</source>
        <translation>Keine Sender in dieser Gruppe</translation>
    </message>
    <message>
        <source>Previous group</source>
        <translation>Vorige Gruppe</translation>
    </message>
    <message>
        <source>Next group</source>
        <translation>Nächste Gruppe</translation>
    </message>
</context>
<context>
    <name>ConnectSheet</name>
    <message>
        <source>Sign in</source>
        <translation>Anmelden</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Sign in with your existing Vantor TV account.</source>
        <translation>Melden Sie sich mit Ihrem bestehenden Vantor-TV-Konto an.</translation>
    </message>
    <message>
        <source>Username</source>
        <translation>Benutzername</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Passwort</translation>
    </message>
    <message>
        <source>Your login is stored securely in this Mac&apos;s Keychain.</source>
        <translation>Ihre Anmeldedaten werden sicher im Schlüsselbund dieses Computers gespeichert.</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>Verbinden</translation>
    </message>
    <message>
        <source>Signing in</source>
        <translation>Anmeldung läuft</translation>
    </message>
</context>
<context>
    <name>EmptyStateCard</name>
    <message>
        <source>Connect provider</source>
        <translation>Anbieter verbinden</translation>
    </message>
</context>
<context>
    <name>EntryMenu</name>
    <message>
        <source>Add / remove from My list</source>
        <translation>Zu „Meine Liste“ hinzufügen / entfernen</translation>
    </message>
    <message>
        <source>Remove from Continue watching</source>
        <translation>Aus „Weiterschauen“ entfernen</translation>
    </message>
</context>
<context>
    <name>EpisodeBrowser</name>
    <message>
        <source>Episodes</source>
        <translation>Folgen</translation>
    </message>
</context>
<context>
    <name>ExpandedPlayer</name>
    <message>
        <source>Back to browsing</source>
        <translation>Zurück zur Übersicht</translation>
    </message>
    <message>
        <source>Start over</source>
        <translation>Von vorn beginnen</translation>
    </message>
</context>
<context>
    <name>FailureCard</name>
    <message>
        <source>Retry</source>
        <translation>Erneut versuchen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>FrameButtons</name>
    <message>
        <source>Minimize</source>
        <translation>Minimieren</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Wiederherstellen</translation>
    </message>
    <message>
        <source>Maximize</source>
        <translation>Maximieren</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>GroupPicker</name>
    <message>
        <source>Group</source>
        <translation>Gruppe</translation>
    </message>
</context>
<context>
    <name>Guide</name>
    <message>
        <source>Guide unavailable</source>
        <translation>Programm nicht verfügbar</translation>
    </message>
    <message>
        <source>No programme information</source>
        <translation>Keine Informationen</translation>
    </message>
    <message>
        <source>Loading guide…</source>
        <translation>Programm wird geladen…</translation>
    </message>
</context>
<context>
    <name>GuideHeading</name>
    <message>
        <source>CHANNEL GUIDE</source>
        <translation>SENDERÜBERSICHT</translation>
    </message>
    <message>
        <source>Loading</source>
        <translation>Wird geladen</translation>
    </message>
    <message>
        <source>Group</source>
        <translation>Gruppe</translation>
    </message>
    <message>
        <source>Now / Next</source>
        <translation>Jetzt / Danach</translation>
    </message>
</context>
<context>
    <name>GuideList</name>
    <message>
        <source>Watch channel</source>
        <translation>Sender ansehen</translation>
    </message>
</context>
<context>
    <name>HeroPanel</name>
    <message>
        <source>All shows</source>
        <translation>Alle Serien</translation>
    </message>
</context>
<context>
    <name>InterruptionStrip</name>
    <message>
        <source>Stop trying</source>
        <translation>Nicht mehr versuchen</translation>
    </message>
</context>
<context>
    <name>KeyList</name>
    <message>
        <source>Full screen</source>
        <translation>Vollbild</translation>
    </message>
    <message>
        <source>Small window, above the others</source>
        <translation>Kleines Fenster über den anderen</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Leertaste</translation>
    </message>
    <message>
        <source>Pause and go on</source>
        <translation>Anhalten und fortsetzen</translation>
    </message>
    <message>
        <source>↑  ↓   Page ↑  Page ↓</source>
        <translation>↑  ↓   Bild ↑  Bild ↓</translation>
    </message>
    <message>
        <source>Next and previous channel</source>
        <translation>Nächster und voriger Sender</translation>
    </message>
    <message>
        <source>Channel by its number</source>
        <translation>Sender nach Nummer</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Rücktaste</translation>
    </message>
    <message>
        <source>The channel before, and back</source>
        <translation>Zum letzten Sender und zurück</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>Eingabe</translation>
    </message>
    <message>
        <source>List of channels</source>
        <translation>Senderliste</translation>
    </message>
    <message>
        <source>What is on now and next</source>
        <translation>Was jetzt und danach läuft</translation>
    </message>
    <message>
        <source>10 seconds back and on</source>
        <translation>10 Sekunden zurück und vor</translation>
    </message>
    <message>
        <source>Shift ←  Shift →</source>
        <translation>Umschalt ←  Umschalt →</translation>
    </message>
    <message>
        <source>60 seconds back and on</source>
        <translation>60 Sekunden zurück und vor</translation>
    </message>
    <message>
        <source>Next episode</source>
        <translation>Nächste Folge</translation>
    </message>
    <message>
        <source>Mute, volume</source>
        <translation>Stumm, Lautstärke</translation>
    </message>
    <message>
        <source>Ctrl +   Ctrl −</source>
        <translation>Strg +   Strg −</translation>
    </message>
    <message>
        <source>Sound later, earlier</source>
        <translation>Ton später, früher</translation>
    </message>
    <message>
        <source>Sound, subtitles</source>
        <translation>Ton, Untertitel</translation>
    </message>
    <message>
        <source>Shape of the picture</source>
        <translation>Bildformat</translation>
    </message>
    <message>
        <source>Ctrl I</source>
        <translation>Strg I</translation>
    </message>
    <message>
        <source>About the picture</source>
        <translation>Angaben zum Bild</translation>
    </message>
    <message>
        <source>Ctrl .</source>
        <translation>Strg .</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Stopp</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>Blättern</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>Auswählen</translation>
    </message>
    <message>
        <source>Menu   Shift F10</source>
        <translation>Menü   Umschalt F10</translation>
    </message>
    <message>
        <source>What can be done with an entry</source>
        <translation>Aktionen für einen Eintrag</translation>
    </message>
    <message>
        <source>Esc</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Ctrl 1   Ctrl 2   Ctrl 3</source>
        <translation>Strg 1   Strg 2   Strg 3</translation>
    </message>
    <message>
        <source>TV, Movies, Shows</source>
        <translation>TV, Filme, Serien</translation>
    </message>
    <message>
        <source>Ctrl O</source>
        <translation>Strg O</translation>
    </message>
    <message>
        <source>Open a media file</source>
        <translation>Mediendatei öffnen</translation>
    </message>
    <message>
        <source>Ctrl K</source>
        <translation>Strg K</translation>
    </message>
    <message>
        <source>Connect a provider</source>
        <translation>Anbieter verbinden</translation>
    </message>
    <message>
        <source>Ctrl ,</source>
        <translation>Strg ,</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Ctrl Q</source>
        <translation>Strg Q</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>This list</source>
        <translation>Diese Liste</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Tasten</translation>
    </message>
</context>
<context>
    <name>Library</name>
    <message>
        <source>Untitled</source>
        <translation>Ohne Titel</translation>
    </message>
    <message>
        <source>TV</source>
        <translation>TV</translation>
    </message>
    <message>
        <source>Movies</source>
        <translation>Filme</translation>
    </message>
    <message>
        <source>Shows</source>
        <translation>Serien</translation>
    </message>
    <message>
        <source>Continue watching</source>
        <translation>Weiterschauen</translation>
    </message>
</context>
<context>
    <name>MediaFileDialog</name>
    <message>
        <source>Open a media file</source>
        <translation>Mediendatei öffnen</translation>
    </message>
</context>
<context>
    <name>NextEpisodeCard</name>
    <message>
        <source>Next episode</source>
        <translation>Nächste Folge</translation>
    </message>
    <message>
        <source>Play now</source>
        <translation>Jetzt abspielen</translation>
    </message>
    <message>
        <source>Not now</source>
        <translation>Nicht jetzt</translation>
    </message>
</context>
<context>
    <name>NoticeBanner</name>
    <message>
        <source>Dismiss</source>
        <translation>Ausblenden</translation>
    </message>
</context>
<context>
    <name>PlayerBar</name>
    <message>
        <source>Play / pause</source>
        <translation>Wiedergabe / Pause</translation>
    </message>
    <message>
        <source>Expand player</source>
        <translation>Player vergrößern</translation>
    </message>
    <message>
        <source>List of channels</source>
        <translation>Senderliste</translation>
    </message>
    <message>
        <source>Small window</source>
        <translation>Kleines Fenster</translation>
    </message>
    <message>
        <source>Full screen</source>
        <translation>Vollbild</translation>
    </message>
    <message>
        <source>Stop playback</source>
        <translation>Wiedergabe beenden</translation>
    </message>
</context>
<context>
    <name>PosterGrid</name>
    <message>
        <source>Play</source>
        <translation>Abspielen</translation>
    </message>
</context>
<context>
    <name>ProgrammePanel</name>
    <message>
        <source>Watch channel</source>
        <translation>Sender ansehen</translation>
    </message>
</context>
<context>
    <name>RemovalConfirmation</name>
    <message>
        <source>Remove this provider from the Mac?</source>
        <translation>Diesen Anbieter von diesem Computer entfernen?</translation>
    </message>
    <message>
        <source>This removes its saved login and libraries. It does not cancel your subscription.</source>
        <translation>Gespeicherte Anmeldedaten und Bibliotheken werden gelöscht. Ihr Abonnement wird dadurch nicht gekündigt.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Remove provider</source>
        <translation>Anbieter entfernen</translation>
    </message>
</context>
<context>
    <name>SampleLibrary</name>
    <message>
        <source>World window</source>
        <translation>Fenster zur Welt</translation>
    </message>
    <message>
        <source>The outdoors</source>
        <translation>Draußen in der Natur</translation>
    </message>
    <message>
        <source>Studio sessions</source>
        <translation>Im Studio</translation>
    </message>
    <message>
        <source>At the table</source>
        <translation>Zu Tisch</translation>
    </message>
    <message>
        <source>City stories</source>
        <translation>Stadtgeschichten</translation>
    </message>
    <message>
        <source>The quiet hour</source>
        <translation>Die stille Stunde</translation>
    </message>
    <message>
        <source>Across the valley</source>
        <translation>Jenseits des Tals</translation>
    </message>
    <message>
        <source>The long way home</source>
        <translation>Der lange Weg nach Hause</translation>
    </message>
    <message>
        <source>After the rain</source>
        <translation>Nach dem Regen</translation>
    </message>
    <message>
        <source>A place to begin</source>
        <translation>Ein Ort für den Anfang</translation>
    </message>
    <message>
        <source>The night garden</source>
        <translation>Der Nachtgarten</translation>
    </message>
    <message>
        <source>Open horizons</source>
        <translation>Weite Horizonte</translation>
    </message>
    <message>
        <source>Wild places</source>
        <translation>Wilde Orte</translation>
    </message>
    <message>
        <source>Made by hand</source>
        <translation>Von Hand gemacht</translation>
    </message>
    <message>
        <source>The art of living</source>
        <translation>Die Kunst zu leben</translation>
    </message>
    <message>
        <source>Outside the frame</source>
        <translation>Außerhalb des Rahmens</translation>
    </message>
    <message>
        <source>Along the coast</source>
        <translation>An der Küste entlang</translation>
    </message>
    <message>
        <source>Extraordinary everyday</source>
        <translation>Außergewöhnlicher Alltag</translation>
    </message>
    <message>
        <source>Featured</source>
        <translation>Empfohlen</translation>
    </message>
    <message>
        <source>Discover</source>
        <translation>Entdecken</translation>
    </message>
</context>
<context>
    <name>SearchBox</name>
    <message>
        <source>Clear search</source>
        <translation>Suche löschen</translation>
    </message>
</context>
<context>
    <name>SeasonPicker</name>
    <message>
        <source>Season</source>
        <translation>Staffel</translation>
    </message>
</context>
<context>
    <name>ShellHeader</name>
    <message>
        <source>Open a media file</source>
        <translation>Mediendatei öffnen</translation>
    </message>
    <message>
        <source>Refresh library</source>
        <translation>Bibliothek aktualisieren</translation>
    </message>
</context>
<context>
    <name>Sidebar</name>
    <message>
        <source>Sections</source>
        <translation>Bereiche</translation>
    </message>
    <message>
        <source>PLAYER</source>
        <translation>PLAYER</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
</context>
<context>
    <name>SmallPlayer</name>
    <message>
        <source>Play / pause</source>
        <translation>Wiedergabe / Pause</translation>
    </message>
    <message>
        <source>Back to the window</source>
        <translation>Zurück zum Fenster</translation>
    </message>
    <message>
        <source>Stop playback</source>
        <translation>Wiedergabe beenden</translation>
    </message>
</context>
<context>
    <name>StatusStrip</name>
    <message>
        <source>Loading</source>
        <translation>Wird geladen</translation>
    </message>
</context>
<context>
    <name>TransportBar</name>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Lautstärke</translation>
    </message>
    <message>
        <source>Audio tracks</source>
        <translation>Tonspuren</translation>
    </message>
    <message>
        <source>Subtitles</source>
        <translation>Untertitel</translation>
    </message>
    <message>
        <source>Playback speed</source>
        <translation>Wiedergabegeschwindigkeit</translation>
    </message>
    <message>
        <source>Sound output</source>
        <translation>Tonausgabe</translation>
    </message>
    <message>
        <source>Sound and picture</source>
        <translation>Ton und Bild</translation>
    </message>
</context>
<context>
    <name>VideoOverlay</name>
    <message>
        <source>Video</source>
        <translation>Video</translation>
    </message>
</context>
<context>
    <name>WindowButtons</name>
    <message>
        <source>Menu (F10)</source>
        <translation>Menü (F10)</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Menü</translation>
    </message>
</context>
<context>
    <name>vantor::AppError</name>
    <message>
        <source>The provider could not complete the request. Check your account or try again later.</source>
        <translation>Der Anbieter konnte die Anfrage nicht ausführen. Prüfen Sie Ihr Konto oder versuchen Sie es später erneut.</translation>
    </message>
    <message>
        <source>The provider response is too large.</source>
        <translation>Die Antwort des Anbieters ist zu groß.</translation>
    </message>
    <message>
        <source>The provider response is larger than this preview can safely load.</source>
        <translation>Die Antwort des Anbieters ist größer, als diese Vorschauversion sicher laden kann.</translation>
    </message>
    <message>
        <source>The provider returned an unreadable library.</source>
        <translation>Der Anbieter hat eine unlesbare Bibliothek geliefert.</translation>
    </message>
    <message>
        <source>This show&apos;s episodes could not be read.</source>
        <translation>Die Folgen dieser Serie konnten nicht gelesen werden.</translation>
    </message>
    <message>
        <source>Canceled.</source>
        <translation>Abgebrochen.</translation>
    </message>
    <message>
        <source>Unable to connect. Check your internet connection and provider details, then try again.</source>
        <translation>Verbindung nicht möglich. Prüfen Sie Ihre Internetverbindung und die Angaben zum Anbieter und versuchen Sie es erneut.</translation>
    </message>
    <message>
        <source>Enter a provider address beginning with https:// or http://, without account details in the address.</source>
        <translation>Geben Sie eine Anbieteradresse ein, die mit https:// oder http:// beginnt und keine Kontodaten enthält.</translation>
    </message>
    <message>
        <source>Enter your provider username and password.</source>
        <translation>Geben Sie Benutzernamen und Passwort Ihres Anbieters ein.</translation>
    </message>
    <message>
        <source>This provider item has an invalid playback address.</source>
        <translation>Dieser Eintrag des Anbieters hat eine ungültige Wiedergabeadresse.</translation>
    </message>
    <message>
        <source>Your provider did not accept this account. Check the username, password and subscription status.</source>
        <translation>Ihr Anbieter hat dieses Konto nicht akzeptiert. Prüfen Sie Benutzernamen, Passwort und den Status Ihres Abonnements.</translation>
    </message>
    <message>
        <source>Invalid Vantor TV server configuration.</source>
        <translation>Ungültige Serverkonfiguration von Vantor TV.</translation>
    </message>
    <message>
        <source>The library could not be saved securely.</source>
        <translation>Die Bibliothek konnte nicht sicher gespeichert werden.</translation>
    </message>
    <message>
        <source>Vantor could not read its saved account from Keychain. Allow access and try again.</source>
        <translation>Vantor konnte das gespeicherte Konto nicht aus dem Schlüsselbund lesen. Erlauben Sie den Zugriff und versuchen Sie es erneut.</translation>
    </message>
    <message>
        <source>Vantor could not update its saved Keychain account.</source>
        <translation>Vantor konnte das im Schlüsselbund gespeicherte Konto nicht aktualisieren.</translation>
    </message>
    <message>
        <source>Vantor could not securely save this account in Keychain.</source>
        <translation>Vantor konnte dieses Konto nicht sicher im Schlüsselbund speichern.</translation>
    </message>
    <message>
        <source>The saved account could not be removed from Keychain.</source>
        <translation>Das gespeicherte Konto konnte nicht aus dem Schlüsselbund entfernt werden.</translation>
    </message>
</context>
<context>
    <name>vantor::AppModel</name>
    <message>
        <source>These are sample library entries. Connect your provider or open your own media file to test playback.</source>
        <translation>Dies sind Einträge der Beispielbibliothek. Verbinden Sie Ihren Anbieter oder öffnen Sie eine eigene Mediendatei, um die Wiedergabe zu testen.</translation>
    </message>
    <message>
        <source>The updated server could not be verified. Keeping your saved connection.</source>
        <translation>Der neue Server konnte nicht überprüft werden. Ihre gespeicherte Verbindung bleibt bestehen.</translation>
    </message>
</context>
<context>
    <name>vantor::Assistive</name>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>%1, chosen</source>
        <translation>%1, ausgewählt</translation>
    </message>
    <message>
        <source>%1, playing</source>
        <translation>%1, läuft</translation>
    </message>
    <message>
        <source>%1, on My list</source>
        <translation>%1, in „Meine Liste“</translation>
    </message>
</context>
<context>
    <name>vantor::ChannelBanner</name>
    <message>
        <source>No such channel</source>
        <translation>Diesen Sender gibt es nicht</translation>
    </message>
</context>
<context>
    <name>vantor::ChannelChooser</name>
    <message>
        <source>%1 · “%2”</source>
        <translation>%1 · „%2“</translation>
    </message>
</context>
<context>
    <name>vantor::ChannelGroups</name>
    <message>
        <source>All channels</source>
        <translation>Alle Sender</translation>
    </message>
</context>
<context>
    <name>vantor::ChannelView</name>
    <message>
        <source>Live TV</source>
        <translation>Live-TV</translation>
    </message>
    <message>
        <source>Loading programme information…</source>
        <translation>Programminformationen werden geladen…</translation>
    </message>
    <message>
        <source>Select a channel to see its programme information.</source>
        <translation>Wählen Sie einen Sender, um seine Programminformationen zu sehen.</translation>
    </message>
</context>
<context>
    <name>vantor::Commands</name>
    <message>
        <source>Open Media File…</source>
        <translation>Mediendatei öffnen…</translation>
    </message>
    <message>
        <source>Connect Provider…</source>
        <translation>Anbieter verbinden…</translation>
    </message>
    <message>
        <source>Play / Pause</source>
        <translation>Wiedergabe / Pause</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Stopp</translation>
    </message>
    <message>
        <source>Full Screen</source>
        <translation>Vollbild</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Einstellungen…</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Playback</source>
        <translation>Wiedergabe</translation>
    </message>
    <message>
        <source>Library</source>
        <translation>Bibliothek</translation>
    </message>
</context>
<context>
    <name>vantor::CrashNotice</name>
    <message>
        <source>Vantor Player ended unexpectedly. A report without names and addresses is in %1.</source>
        <translation>Vantor Player wurde unerwartet beendet. Ein Bericht ohne Namen und Adressen liegt in %1.</translation>
    </message>
</context>
<context>
    <name>vantor::DialogFilePanel</name>
    <message>
        <source>Movies and audio</source>
        <translation>Filme und Audio</translation>
    </message>
</context>
<context>
    <name>vantor::EmptyState</name>
    <message>
        <source>Your library starts here</source>
        <translation>Hier beginnt Ihre Bibliothek</translation>
    </message>
    <message>
        <source>No matching titles</source>
        <translation>Keine passenden Titel</translation>
    </message>
    <message>
        <source>Choose another category or refresh your library.</source>
        <translation>Wählen Sie eine andere Kategorie oder aktualisieren Sie Ihre Bibliothek.</translation>
    </message>
    <message>
        <source>Connect your provider or explore the preview library.</source>
        <translation>Verbinden Sie Ihren Anbieter oder erkunden Sie die Beispielbibliothek.</translation>
    </message>
</context>
<context>
    <name>vantor::EpisodeListModel</name>
    <message>
        <source>S%1 · E%2</source>
        <translation>S%1 · F%2</translation>
    </message>
    <message>
        <source>All seasons</source>
        <translation>Alle Staffeln</translation>
    </message>
    <message>
        <source>Season %1</source>
        <translation>Staffel %1</translation>
    </message>
    <message>
        <source>Loading episodes…</source>
        <translation>Folgen werden geladen…</translation>
    </message>
    <message>
        <source>Connect your provider to load this show&apos;s episodes.</source>
        <translation>Verbinden Sie Ihren Anbieter, um die Folgen dieser Serie zu laden.</translation>
    </message>
    <message>
        <source>No episodes returned by this provider.</source>
        <translation>Dieser Anbieter hat keine Folgen geliefert.</translation>
    </message>
</context>
<context>
    <name>vantor::GuideListModel</name>
    <message>
        <source>Preview channel</source>
        <translation>Beispielsender</translation>
    </message>
</context>
<context>
    <name>vantor::IdleInhibitor</name>
    <message>
        <source>A picture is playing</source>
        <translation>Ein Video wird abgespielt</translation>
    </message>
</context>
<context>
    <name>vantor::Libraries</name>
    <message>
        <source>Library loaded, but its saved copy could not be updated. It will remain available while the app is open.</source>
        <translation>Die Bibliothek wurde geladen, aber ihre gespeicherte Kopie konnte nicht aktualisiert werden. Sie bleibt verfügbar, solange das Programm geöffnet ist.</translation>
    </message>
</context>
<context>
    <name>vantor::NextEpisode</name>
    <message>
        <source>Plays in %1 s</source>
        <translation>Beginnt in %1 s</translation>
    </message>
    <message>
        <source>Return plays it</source>
        <translation>Eingabe spielt sie ab</translation>
    </message>
</context>
<context>
    <name>vantor::Playback</name>
    <message>
        <source>This source could not be opened. It may be offline or your provider may be refusing the connection.</source>
        <translation>Diese Quelle konnte nicht geöffnet werden. Möglicherweise ist sie offline oder Ihr Anbieter lehnt die Verbindung ab.</translation>
    </message>
    <message>
        <source>Nothing playing yet</source>
        <translation>Noch keine Wiedergabe</translation>
    </message>
    <message>
        <source>Only what is playing can be recorded.</source>
        <translation>Aufgenommen werden kann nur, was gerade läuft.</translation>
    </message>
    <message>
        <source>Nothing is being recorded.</source>
        <translation>Es läuft keine Aufnahme.</translation>
    </message>
    <message>
        <source>This media file is no longer available.</source>
        <translation>Diese Mediendatei ist nicht mehr verfügbar.</translation>
    </message>
    <message>
        <source>This source did not start within 30 seconds. Retry or choose another item.</source>
        <translation>Diese Quelle hat nicht innerhalb von 30 Sekunden begonnen. Versuchen Sie es erneut oder wählen Sie einen anderen Eintrag.</translation>
    </message>
    <message>
        <source>The source ended before playback could start.</source>
        <translation>Die Quelle endete, bevor die Wiedergabe beginnen konnte.</translation>
    </message>
</context>
<context>
    <name>vantor::PlayerPane</name>
    <message>
        <source>Choose something to watch</source>
        <translation>Wählen Sie etwas zum Ansehen</translation>
    </message>
    <message>
        <source>Opening %1</source>
        <translation>%1 wird geöffnet</translation>
    </message>
    <message>
        <source>Interrupted. Trying again…</source>
        <translation>Unterbrochen. Neuer Versuch…</translation>
    </message>
    <message>
        <source>Playing</source>
        <translation>Läuft</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>Angehalten</translation>
    </message>
</context>
<context>
    <name>vantor::PlayerRemote</name>
    <message>
        <source>Whole picture</source>
        <translation>Ganzes Bild</translation>
    </message>
    <message>
        <source>Fill the screen</source>
        <translation>Bildschirm füllen</translation>
    </message>
    <message>
        <source>Stretch</source>
        <translation>Strecken</translation>
    </message>
    <message>
        <source>Volume %1 %</source>
        <translation>Lautstärke %1 %</translation>
    </message>
    <message>
        <source>Muted</source>
        <translation>Stumm</translation>
    </message>
    <message>
        <source>No other sound</source>
        <translation>Keine andere Tonspur</translation>
    </message>
    <message>
        <source>Sound: %1</source>
        <translation>Ton: %1</translation>
    </message>
    <message>
        <source>No subtitles</source>
        <translation>Keine Untertitel</translation>
    </message>
    <message>
        <source>Subtitles: %1</source>
        <translation>Untertitel: %1</translation>
    </message>
</context>
<context>
    <name>vantor::PosterView</name>
    <message>
        <source>Preview entry</source>
        <translation>Beispieleintrag</translation>
    </message>
    <message>
        <source>A sample title for exploring the Vantor interface. No playable content is included.</source>
        <translation>Ein Beispieltitel zum Erkunden der Vantor-Oberfläche. Er enthält nichts Abspielbares.</translation>
    </message>
    <message>
        <source>Choose a title to watch or save it to My list.</source>
        <translation>Wählen Sie einen Titel zum Ansehen oder speichern Sie ihn in „Meine Liste“.</translation>
    </message>
    <message>
        <source>Episodes</source>
        <translation>Folgen</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Abspielen</translation>
    </message>
    <message>
        <source>Showing 2,500 titles. Choose a category or search to narrow the results.</source>
        <translation>2.500 Titel werden angezeigt. Wählen Sie eine Kategorie oder suchen Sie, um die Ergebnisse einzugrenzen.</translation>
    </message>
</context>
<context>
    <name>vantor::Program</name>
    <message>
        <source>Local playback test</source>
        <translation>Lokaler Wiedergabetest</translation>
    </message>
</context>
<context>
    <name>vantor::Recording</name>
    <message>
        <source>The recording folder could not be created.</source>
        <translation>Der Aufnahmeordner konnte nicht angelegt werden.</translation>
    </message>
    <message>
        <source>This source does not support recording.</source>
        <translation>Diese Quelle kann nicht aufgenommen werden.</translation>
    </message>
    <message>
        <source>Recording the current video. Stop recording before changing sources.</source>
        <translation>Das aktuelle Video wird aufgenommen. Beenden Sie die Aufnahme, bevor Sie die Quelle wechseln.</translation>
    </message>
    <message>
        <source>Saving recording…</source>
        <translation>Aufnahme wird gespeichert…</translation>
    </message>
    <message>
        <source>Recording could not be finalized. Check the recording folder.</source>
        <translation>Die Aufnahme konnte nicht abgeschlossen werden. Sehen Sie im Aufnahmeordner nach.</translation>
    </message>
    <message>
        <source>No recording file was produced. This source may not support recording.</source>
        <translation>Es wurde keine Aufnahmedatei erzeugt. Diese Quelle kann möglicherweise nicht aufgenommen werden.</translation>
    </message>
    <message>
        <source>No video was recorded. Try recording for longer or choose another source.</source>
        <translation>Es wurde kein Video aufgenommen. Nehmen Sie länger auf oder wählen Sie eine andere Quelle.</translation>
    </message>
    <message>
        <source>Recording saved.</source>
        <translation>Aufnahme gespeichert.</translation>
    </message>
    <message>
        <source>Recording saved. Open its folder to view the file.</source>
        <translation>Aufnahme gespeichert. Die Datei finden Sie im Aufnahmeordner.</translation>
    </message>
    <message>
        <source>Stop recording before changing sources.</source>
        <translation>Beenden Sie die Aufnahme, bevor Sie die Quelle wechseln.</translation>
    </message>
</context>
<context>
    <name>vantor::RecordingNotifier</name>
    <message>
        <source>Stop Recording</source>
        <translation>Aufnahme beenden</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Aufnahme</translation>
    </message>
</context>
<context>
    <name>vantor::SettingsView</name>
    <message>
        <source>Your provider and saved libraries</source>
        <translation>Ihr Anbieter und gespeicherte Bibliotheken</translation>
    </message>
    <message>
        <source>Player controls and supported sources</source>
        <translation>Bedienung des Players und unterstützte Quellen</translation>
    </message>
    <message>
        <source>Programme information</source>
        <translation>Programminformationen</translation>
    </message>
    <message>
        <source>Version, support and preview features</source>
        <translation>Version, Hilfe und Vorschaufunktionen</translation>
    </message>
    <message>
        <source>No provider connected</source>
        <translation>Kein Anbieter verbunden</translation>
    </message>
    <message>
        <source>Channels, movies, shows and artwork come directly from your provider. Saved libraries stay available when you change sections.</source>
        <translation>Sender, Filme, Serien und Bilder kommen direkt von Ihrem Anbieter. Gespeicherte Bibliotheken bleiben verfügbar, wenn Sie den Bereich wechseln.</translation>
    </message>
    <message>
        <source>Provider connection limit: %1</source>
        <translation>Höchstzahl der Verbindungen beim Anbieter: %1</translation>
    </message>
    <message>
        <source>Xtream Codes parameters</source>
        <translation>Xtream-Codes-Parameter</translation>
    </message>
    <message>
        <source>Change your provider account</source>
        <translation>Konto beim Anbieter ändern</translation>
    </message>
    <message>
        <source>Refresh playlists</source>
        <translation>Wiedergabelisten aktualisieren</translation>
    </message>
    <message>
        <source>Update TV, Movies and Shows</source>
        <translation>TV, Filme und Serien aktualisieren</translation>
    </message>
    <message>
        <source>Remove saved provider</source>
        <translation>Gespeicherten Anbieter entfernen</translation>
    </message>
    <message>
        <source>Remove this Mac&apos;s saved login and library</source>
        <translation>Anmeldedaten und Bibliothek von diesem Computer löschen</translation>
    </message>
    <message>
        <source>Use the player&apos;s controls for seeking, volume, audio, subtitles and fullscreen when available for the source.</source>
        <translation>Mit den Bedienelementen des Players springen Sie im Video und ändern Lautstärke, Ton, Untertitel und Vollbild, soweit die Quelle es erlaubt.</translation>
    </message>
    <message>
        <source>Open media file</source>
        <translation>Mediendatei öffnen</translation>
    </message>
    <message>
        <source>Play a compatible file saved on your Mac</source>
        <translation>Eine passende Datei auf diesem Computer abspielen</translation>
    </message>
    <message>
        <source>VideoLAN playback is built into Vantor. No external player is required for supported MKV, MP4, HLS and TS sources. Use the controls for volume, seeking, audio tracks, subtitles and speed.</source>
        <translation>Die Wiedergabe von VideoLAN ist in Vantor eingebaut. Für unterstützte Quellen in MKV, MP4, HLS und TS ist kein anderer Player nötig. Mit den Bedienelementen ändern Sie Lautstärke, Position, Tonspuren, Untertitel und Geschwindigkeit.</translation>
    </message>
    <message>
        <source>Space  Play / pause
Ctrl .  Stop
Ctrl O  Open file
Esc  Back to browsing</source>
        <translation>Leertaste  Wiedergabe / Pause
Strg .  Stopp
Strg O  Datei öffnen
Esc  Zurück zur Übersicht</translation>
    </message>
    <message>
        <source>The guide automatically loads your provider&apos;s Now / Next information for visible channels. The highlighted channel stays centered as you browse.</source>
        <translation>Für die sichtbaren Sender lädt das Programm automatisch die Angaben „Jetzt / Danach“ Ihres Anbieters. Der markierte Sender bleibt beim Blättern in der Mitte.</translation>
    </message>
    <message>
        <source>Refresh guide information</source>
        <translation>Programminformationen aktualisieren</translation>
    </message>
    <message>
        <source>Reload the selected channel&apos;s schedule</source>
        <translation>Programm des gewählten Senders neu laden</translation>
    </message>
    <message>
        <source>This version shows Now / Next information.</source>
        <translation>Diese Version zeigt „Jetzt / Danach“.</translation>
    </message>
    <message>
        <source>Vantor Player for Mac
%1 · Preview</source>
        <translation>Vantor Player
%1 · Vorschau</translation>
    </message>
    <message>
        <source>The interface follows the Vantor TV player, adapted for mouse and keyboard, with one video playing at a time. Guide information loads as you browse.</source>
        <translation>Die Oberfläche folgt dem Vantor-TV-Player, angepasst an Maus und Tastatur; es läuft jeweils ein Video. Programminformationen werden beim Blättern geladen.</translation>
    </message>
    <message>
        <source>Sign in using your existing Vantor TV account.</source>
        <translation>Melden Sie sich mit Ihrem bestehenden Vantor-TV-Konto an.</translation>
    </message>
    <message>
        <source>Open-source licenses</source>
        <translation>Open-Source-Lizenzen</translation>
    </message>
    <message>
        <source>VideoLAN playback and acknowledgements</source>
        <translation>VideoLAN-Wiedergabe und Danksagungen</translation>
    </message>
    <message>
        <source>Help &amp; support</source>
        <translation>Hilfe und Support</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Playlists</source>
        <translation>Wiedergabelisten</translation>
    </message>
    <message>
        <source>Playback</source>
        <translation>Wiedergabe</translation>
    </message>
    <message>
        <source>TV guide</source>
        <translation>TV-Programm</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Info</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>↑ ↓ Move   ·   Return Select   ·   Esc Back</source>
        <translation>↑ ↓ Bewegen   ·   Eingabe Auswählen   ·   Esc Zurück</translation>
    </message>
    <message>
        <source>VANTOR TV  /  SETTINGS</source>
        <translation>VANTOR TV  /  EINSTELLUNGEN</translation>
    </message>
    <message>
        <source>Guide information will reload when you select a channel.</source>
        <translation>Die Programminformationen werden neu geladen, wenn Sie einen Sender wählen.</translation>
    </message>
    <message>
        <source>Refresh requested. Your saved library remains available.</source>
        <translation>Aktualisierung angefordert. Ihre gespeicherte Bibliothek bleibt verfügbar.</translation>
    </message>
</context>
<context>
    <name>vantor::Statistics</name>
    <message>
        <source>processor</source>
        <translation>Prozessor</translation>
    </message>
    <message>
        <source>graphics card (VA-API)</source>
        <translation>Grafikkarte (VA-API)</translation>
    </message>
    <message>
        <source>graphics card (VDPAU)</source>
        <translation>Grafikkarte (VDPAU)</translation>
    </message>
    <message>
        <source>%1 pictures a second</source>
        <translation>%1 Bilder pro Sekunde</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <comment>a fact and its value</comment>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Codec</source>
        <translation>Codec</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>%1 × %2, %3 bit</source>
        <translation>%1 × %2, %3 Bit</translation>
    </message>
    <message>
        <source>Decoded by</source>
        <translation>Dekodiert von</translation>
    </message>
    <message>
        <source>In the source</source>
        <translation>In der Quelle</translation>
    </message>
    <message>
        <source>Shown</source>
        <translation>Angezeigt</translation>
    </message>
    <message>
        <source>Lost</source>
        <translation>Verloren</translation>
    </message>
    <message numerus="yes">
        <source>%n pictures</source>
        <translation>
            <numerusform>%n Bild</numerusform>
            <numerusform>%n Bilder</numerusform>
        </translation>
    </message>
    <message>
        <source>Bit rate</source>
        <translation>Bitrate</translation>
    </message>
    <message>
        <source>%1 Mbit/s</source>
        <translation>%1 Mbit/s</translation>
    </message>
    <message>
        <source>Buffer</source>
        <translation>Puffer</translation>
    </message>
    <message>
        <source>%1 ms</source>
        <translation>%1 ms</translation>
    </message>
</context>
<context>
    <name>vantor::StatusView</name>
    <message>
        <source>%1 loaded · %2 of %3 categories</source>
        <translation>%1 geladen · %2 von %3 Kategorien</translation>
    </message>
    <message numerus="yes">
        <source>%n item</source>
        <translation>
            <numerusform>%n Eintrag</numerusform>
            <numerusform>%n Einträge</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n items</source>
        <translation>
            <numerusform>%n Eintrag</numerusform>
            <numerusform>%n Einträge</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>vantor::TVShell</name>
    <message>
        <source>Search</source>
        <translation>Suche</translation>
    </message>
    <message>
        <source>My list</source>
        <translation>Meine Liste</translation>
    </message>
    <message>
        <source>All search</source>
        <translation>Alle Treffer</translation>
    </message>
    <message>
        <source>All my list</source>
        <translation>Gesamte Liste</translation>
    </message>
    <message>
        <source>All tv</source>
        <translation>Alle Sender</translation>
    </message>
    <message>
        <source>All movies</source>
        <translation>Alle Filme</translation>
    </message>
    <message>
        <source>All shows</source>
        <translation>Alle Serien</translation>
    </message>
    <message>
        <source>Live TV</source>
        <translation>Live-TV</translation>
    </message>
    <message>
        <source>Search Search</source>
        <translation>Überall suchen</translation>
    </message>
    <message>
        <source>Search My list</source>
        <translation>In „Meine Liste“ suchen</translation>
    </message>
    <message>
        <source>Search TV</source>
        <translation>In TV suchen</translation>
    </message>
    <message>
        <source>Search Movies</source>
        <translation>In Filmen suchen</translation>
    </message>
    <message>
        <source>Search Shows</source>
        <translation>In Serien suchen</translation>
    </message>
    <message>
        <source>Preview library · No content included</source>
        <translation>Beispielbibliothek · ohne Inhalte</translation>
    </message>
    <message>
        <source>Connect your own provider</source>
        <translation>Verbinden Sie Ihren Anbieter</translation>
    </message>
    <message>
        <source>↑ ↓ ← → Browse   ·   Return Select   ·   Esc Back</source>
        <translation>↑ ↓ ← → Blättern   ·   Eingabe Auswählen   ·   Esc Zurück</translation>
    </message>
    <message>
        <source>Vantor for Mac %1</source>
        <translation>Vantor %1</translation>
    </message>
</context>
<context>
    <name>vantor::TransportControls</name>
    <message>
        <source>Sound with the picture</source>
        <translation>Ton gleichzeitig mit dem Bild</translation>
    </message>
    <message>
        <source>Sound %1 ms after the picture</source>
        <translation>Ton %1 ms nach dem Bild</translation>
    </message>
    <message>
        <source>Sound %1 ms before the picture</source>
        <translation>Ton %1 ms vor dem Bild</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Aus</translation>
    </message>
    <message>
        <source>The system&apos;s choice</source>
        <translation>Auswahl des Systems</translation>
    </message>
</context>
</TS>
