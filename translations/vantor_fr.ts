<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>BookmarkButton</name>
    <message>
        <source>Add / remove from My list</source>
        <translation>Ajouter à / retirer de Ma liste</translation>
    </message>
</context>
<context>
    <name>CategoryRail</name>
    <message>
        <source>CATEGORIES</source>
        <translation>CATÉGORIES</translation>
    </message>
</context>
<context>
    <name>ChannelChooserPanel</name>
    <message>
        <source>No channels in this group</source>
        <translation>Aucune chaîne dans ce groupe</translation>
    </message>
    <message>
        <source>Previous group</source>
        <translation>Groupe précédent</translation>
    </message>
    <message>
        <source>Next group</source>
        <translation>Groupe suivant</translation>
    </message>
</context>
<context>
    <name>ConnectSheet</name>
    <message>
        <source>Sign in</source>
        <translation>Connexion</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Sign in with your existing Vantor TV account.</source>
        <translation>Connectez-vous avec votre compte Vantor TV existant.</translation>
    </message>
    <message>
        <source>Username</source>
        <translation>Nom d’utilisateur</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Mot de passe</translation>
    </message>
    <message>
        <source>Your login is stored securely in this Mac&apos;s Keychain.</source>
        <translation>Vos identifiants sont conservés en sécurité dans le trousseau de clés de cet ordinateur.</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>Se connecter</translation>
    </message>
    <message>
        <source>Signing in</source>
        <translation>Connexion en cours</translation>
    </message>
</context>
<context>
    <name>EmptyStateCard</name>
    <message>
        <source>Connect provider</source>
        <translation>Connecter un fournisseur</translation>
    </message>
</context>
<context>
    <name>EntryMenu</name>
    <message>
        <source>Add / remove from My list</source>
        <translation>Ajouter à / retirer de Ma liste</translation>
    </message>
    <message>
        <source>Remove from Continue watching</source>
        <translation>Retirer de «&#xa0;Reprendre&#xa0;»</translation>
    </message>
</context>
<context>
    <name>EpisodeBrowser</name>
    <message>
        <source>Episodes</source>
        <translation>Épisodes</translation>
    </message>
</context>
<context>
    <name>ExpandedPlayer</name>
    <message>
        <source>Back to browsing</source>
        <translation>Retour à la navigation</translation>
    </message>
    <message>
        <source>Start over</source>
        <translation>Reprendre au début</translation>
    </message>
</context>
<context>
    <name>FailureCard</name>
    <message>
        <source>Retry</source>
        <translation>Réessayer</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
</context>
<context>
    <name>FrameButtons</name>
    <message>
        <source>Minimize</source>
        <translation>Réduire</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Restaurer</translation>
    </message>
    <message>
        <source>Maximize</source>
        <translation>Agrandir</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
</context>
<context>
    <name>GroupPicker</name>
    <message>
        <source>Group</source>
        <translation>Groupe</translation>
    </message>
</context>
<context>
    <name>Guide</name>
    <message>
        <source>Guide unavailable</source>
        <translation>Guide indisponible</translation>
    </message>
    <message>
        <source>No programme information</source>
        <translation>Aucune information</translation>
    </message>
    <message>
        <source>Loading guide…</source>
        <translation>Chargement du guide…</translation>
    </message>
</context>
<context>
    <name>GuideHeading</name>
    <message>
        <source>CHANNEL GUIDE</source>
        <translation>GUIDE DES CHAÎNES</translation>
    </message>
    <message>
        <source>Loading</source>
        <translation>Chargement en cours</translation>
    </message>
    <message>
        <source>Group</source>
        <translation>Groupe</translation>
    </message>
    <message>
        <source>Now / Next</source>
        <translation>En cours / À suivre</translation>
    </message>
</context>
<context>
    <name>GuideList</name>
    <message>
        <source>Watch channel</source>
        <translation>Regarder la chaîne</translation>
    </message>
</context>
<context>
    <name>HeroPanel</name>
    <message>
        <source>All shows</source>
        <translation>Toutes les séries</translation>
    </message>
</context>
<context>
    <name>InterruptionStrip</name>
    <message>
        <source>Stop trying</source>
        <translation>Abandonner</translation>
    </message>
</context>
<context>
    <name>KeyList</name>
    <message>
        <source>Full screen</source>
        <translation>Plein écran</translation>
    </message>
    <message>
        <source>Small window, above the others</source>
        <translation>Petite fenêtre, au-dessus des autres</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Espace</translation>
    </message>
    <message>
        <source>Pause and go on</source>
        <translation>Mettre en pause et reprendre</translation>
    </message>
    <message>
        <source>↑  ↓   Page ↑  Page ↓</source>
        <translation>↑  ↓   Page ↑  Page ↓</translation>
    </message>
    <message>
        <source>Next and previous channel</source>
        <translation>Chaîne suivante et précédente</translation>
    </message>
    <message>
        <source>Channel by its number</source>
        <translation>Chaîne par son numéro</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Retour arrière</translation>
    </message>
    <message>
        <source>The channel before, and back</source>
        <translation>Dernière chaîne, et retour</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>Entrée</translation>
    </message>
    <message>
        <source>List of channels</source>
        <translation>Liste des chaînes</translation>
    </message>
    <message>
        <source>What is on now and next</source>
        <translation>Programmes en cours et à suivre</translation>
    </message>
    <message>
        <source>10 seconds back and on</source>
        <translation>10 secondes en arrière et en avant</translation>
    </message>
    <message>
        <source>Shift ←  Shift →</source>
        <translation>Maj ←  Maj →</translation>
    </message>
    <message>
        <source>60 seconds back and on</source>
        <translation>60 secondes en arrière et en avant</translation>
    </message>
    <message>
        <source>Next episode</source>
        <translation>Épisode suivant</translation>
    </message>
    <message>
        <source>Mute, volume</source>
        <translation>Muet, volume</translation>
    </message>
    <message>
        <source>Ctrl +   Ctrl −</source>
        <translation>Ctrl +   Ctrl −</translation>
    </message>
    <message>
        <source>Sound later, earlier</source>
        <translation>Son plus tard, plus tôt</translation>
    </message>
    <message>
        <source>Sound, subtitles</source>
        <translation>Son, sous-titres</translation>
    </message>
    <message>
        <source>Shape of the picture</source>
        <translation>Format de l’image</translation>
    </message>
    <message>
        <source>Ctrl I</source>
        <translation>Ctrl I</translation>
    </message>
    <message>
        <source>About the picture</source>
        <translation>Informations sur l’image</translation>
    </message>
    <message>
        <source>Ctrl .</source>
        <translation>Ctrl .</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Arrêter</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>Parcourir</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>Sélectionner</translation>
    </message>
    <message>
        <source>Menu   Shift F10</source>
        <translation>Menu   Maj F10</translation>
    </message>
    <message>
        <source>What can be done with an entry</source>
        <translation>Actions possibles sur un élément</translation>
    </message>
    <message>
        <source>Esc</source>
        <translation>Échap</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Retour</translation>
    </message>
    <message>
        <source>Ctrl 1   Ctrl 2   Ctrl 3</source>
        <translation>Ctrl 1   Ctrl 2   Ctrl 3</translation>
    </message>
    <message>
        <source>TV, Movies, Shows</source>
        <translation>TV, Films, Séries</translation>
    </message>
    <message>
        <source>Ctrl O</source>
        <translation>Ctrl O</translation>
    </message>
    <message>
        <source>Open a media file</source>
        <translation>Ouvrir un fichier multimédia</translation>
    </message>
    <message>
        <source>Ctrl K</source>
        <translation>Ctrl K</translation>
    </message>
    <message>
        <source>Connect a provider</source>
        <translation>Connecter un fournisseur</translation>
    </message>
    <message>
        <source>Ctrl ,</source>
        <translation>Ctrl ,</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Paramètres</translation>
    </message>
    <message>
        <source>Ctrl Q</source>
        <translation>Ctrl Q</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Quitter</translation>
    </message>
    <message>
        <source>This list</source>
        <translation>Cette liste</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Touches</translation>
    </message>
</context>
<context>
    <name>Library</name>
    <message>
        <source>Untitled</source>
        <translation>Sans titre</translation>
    </message>
    <message>
        <source>TV</source>
        <translation>TV</translation>
    </message>
    <message>
        <source>Movies</source>
        <translation>Films</translation>
    </message>
    <message>
        <source>Shows</source>
        <translation>Séries</translation>
    </message>
    <message>
        <source>Continue watching</source>
        <translation>Reprendre</translation>
    </message>
</context>
<context>
    <name>MediaFileDialog</name>
    <message>
        <source>Open a media file</source>
        <translation>Ouvrir un fichier multimédia</translation>
    </message>
</context>
<context>
    <name>NextEpisodeCard</name>
    <message>
        <source>Next episode</source>
        <translation>Épisode suivant</translation>
    </message>
    <message>
        <source>Play now</source>
        <translation>Lire maintenant</translation>
    </message>
    <message>
        <source>Not now</source>
        <translation>Pas maintenant</translation>
    </message>
</context>
<context>
    <name>NoticeBanner</name>
    <message>
        <source>Dismiss</source>
        <translation>Masquer</translation>
    </message>
</context>
<context>
    <name>PlayerBar</name>
    <message>
        <source>Play / pause</source>
        <translation>Lecture / pause</translation>
    </message>
    <message>
        <source>Expand player</source>
        <translation>Agrandir le lecteur</translation>
    </message>
    <message>
        <source>List of channels</source>
        <translation>Liste des chaînes</translation>
    </message>
    <message>
        <source>Small window</source>
        <translation>Petite fenêtre</translation>
    </message>
    <message>
        <source>Full screen</source>
        <translation>Plein écran</translation>
    </message>
    <message>
        <source>Stop playback</source>
        <translation>Arrêter la lecture</translation>
    </message>
</context>
<context>
    <name>PosterGrid</name>
    <message>
        <source>Play</source>
        <translation>Lire</translation>
    </message>
</context>
<context>
    <name>ProgrammePanel</name>
    <message>
        <source>Watch channel</source>
        <translation>Regarder la chaîne</translation>
    </message>
</context>
<context>
    <name>RemovalConfirmation</name>
    <message>
        <source>Remove this provider from the Mac?</source>
        <translation>Supprimer ce fournisseur de cet ordinateur&#xa0;?</translation>
    </message>
    <message>
        <source>This removes its saved login and libraries. It does not cancel your subscription.</source>
        <translation>Les identifiants et les bibliothèques enregistrés seront supprimés. Votre abonnement ne sera pas résilié.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Remove provider</source>
        <translation>Supprimer le fournisseur</translation>
    </message>
</context>
<context>
    <name>SampleLibrary</name>
    <message>
        <source>World window</source>
        <translation>Fenêtre sur le monde</translation>
    </message>
    <message>
        <source>The outdoors</source>
        <translation>Le grand air</translation>
    </message>
    <message>
        <source>Studio sessions</source>
        <translation>Sessions en studio</translation>
    </message>
    <message>
        <source>At the table</source>
        <translation>À table</translation>
    </message>
    <message>
        <source>City stories</source>
        <translation>Histoires de ville</translation>
    </message>
    <message>
        <source>The quiet hour</source>
        <translation>L’heure calme</translation>
    </message>
    <message>
        <source>Across the valley</source>
        <translation>De l’autre côté de la vallée</translation>
    </message>
    <message>
        <source>The long way home</source>
        <translation>Le long chemin du retour</translation>
    </message>
    <message>
        <source>After the rain</source>
        <translation>Après la pluie</translation>
    </message>
    <message>
        <source>A place to begin</source>
        <translation>Un lieu pour commencer</translation>
    </message>
    <message>
        <source>The night garden</source>
        <translation>Le jardin de nuit</translation>
    </message>
    <message>
        <source>Open horizons</source>
        <translation>Horizons ouverts</translation>
    </message>
    <message>
        <source>Wild places</source>
        <translation>Lieux sauvages</translation>
    </message>
    <message>
        <source>Made by hand</source>
        <translation>Fait main</translation>
    </message>
    <message>
        <source>The art of living</source>
        <translation>L’art de vivre</translation>
    </message>
    <message>
        <source>Outside the frame</source>
        <translation>Hors cadre</translation>
    </message>
    <message>
        <source>Along the coast</source>
        <translation>Le long de la côte</translation>
    </message>
    <message>
        <source>Extraordinary everyday</source>
        <translation>Un quotidien extraordinaire</translation>
    </message>
    <message>
        <source>Featured</source>
        <translation>À la une</translation>
    </message>
    <message>
        <source>Discover</source>
        <translation>À découvrir</translation>
    </message>
</context>
<context>
    <name>SearchBox</name>
    <message>
        <source>Clear search</source>
        <translation>Effacer la recherche</translation>
    </message>
</context>
<context>
    <name>SeasonPicker</name>
    <message>
        <source>Season</source>
        <translation>Saison</translation>
    </message>
</context>
<context>
    <name>ShellHeader</name>
    <message>
        <source>Open a media file</source>
        <translation>Ouvrir un fichier multimédia</translation>
    </message>
    <message>
        <source>Refresh library</source>
        <translation>Actualiser la bibliothèque</translation>
    </message>
</context>
<context>
    <name>Sidebar</name>
    <message>
        <source>Sections</source>
        <translation>Rubriques</translation>
    </message>
    <message>
        <source>PLAYER</source>
        <translation>PLAYER</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Paramètres</translation>
    </message>
</context>
<context>
    <name>SmallPlayer</name>
    <message>
        <source>Play / pause</source>
        <translation>Lecture / pause</translation>
    </message>
    <message>
        <source>Back to the window</source>
        <translation>Revenir à la fenêtre</translation>
    </message>
    <message>
        <source>Stop playback</source>
        <translation>Arrêter la lecture</translation>
    </message>
</context>
<context>
    <name>StatusStrip</name>
    <message>
        <source>Loading</source>
        <translation>Chargement en cours</translation>
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
        <translation>Volume</translation>
    </message>
    <message>
        <source>Audio tracks</source>
        <translation>Pistes audio</translation>
    </message>
    <message>
        <source>Subtitles</source>
        <translation>Sous-titres</translation>
    </message>
    <message>
        <source>Playback speed</source>
        <translation>Vitesse de lecture</translation>
    </message>
    <message>
        <source>Sound output</source>
        <translation>Sortie audio</translation>
    </message>
    <message>
        <source>Sound and picture</source>
        <translation>Son et image</translation>
    </message>
</context>
<context>
    <name>VideoOverlay</name>
    <message>
        <source>Video</source>
        <translation>Vidéo</translation>
    </message>
</context>
<context>
    <name>WindowButtons</name>
    <message>
        <source>Menu (F10)</source>
        <translation>Menu (F10)</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Menu</translation>
    </message>
</context>
<context>
    <name>vantor::AppError</name>
    <message>
        <source>The provider could not complete the request. Check your account or try again later.</source>
        <translation>Le fournisseur n’a pas pu traiter la demande. Vérifiez votre compte ou réessayez plus tard.</translation>
    </message>
    <message>
        <source>The provider response is too large.</source>
        <translation>La réponse du fournisseur est trop volumineuse.</translation>
    </message>
    <message>
        <source>The provider response is larger than this preview can safely load.</source>
        <translation>La réponse du fournisseur dépasse ce que cette version préliminaire peut charger sans risque.</translation>
    </message>
    <message>
        <source>The provider returned an unreadable library.</source>
        <translation>Le fournisseur a renvoyé une bibliothèque illisible.</translation>
    </message>
    <message>
        <source>This show&apos;s episodes could not be read.</source>
        <translation>Impossible de lire les épisodes de cette série.</translation>
    </message>
    <message>
        <source>Canceled.</source>
        <translation>Annulé.</translation>
    </message>
    <message>
        <source>Unable to connect. Check your internet connection and provider details, then try again.</source>
        <translation>Connexion impossible. Vérifiez votre connexion Internet et les informations du fournisseur, puis réessayez.</translation>
    </message>
    <message>
        <source>Enter a provider address beginning with https:// or http://, without account details in the address.</source>
        <translation>Saisissez une adresse de fournisseur commençant par https:// ou http://, sans informations de compte dans l’adresse.</translation>
    </message>
    <message>
        <source>Enter your provider username and password.</source>
        <translation>Saisissez le nom d’utilisateur et le mot de passe de votre fournisseur.</translation>
    </message>
    <message>
        <source>This provider item has an invalid playback address.</source>
        <translation>L’adresse de lecture de cet élément du fournisseur n’est pas valide.</translation>
    </message>
    <message>
        <source>Your provider did not accept this account. Check the username, password and subscription status.</source>
        <translation>Votre fournisseur n’a pas accepté ce compte. Vérifiez le nom d’utilisateur, le mot de passe et l’état de l’abonnement.</translation>
    </message>
    <message>
        <source>Invalid Vantor TV server configuration.</source>
        <translation>Configuration du serveur Vantor TV non valide.</translation>
    </message>
    <message>
        <source>The library could not be saved securely.</source>
        <translation>La bibliothèque n’a pas pu être enregistrée de manière sécurisée.</translation>
    </message>
    <message>
        <source>Vantor could not read its saved account from Keychain. Allow access and try again.</source>
        <translation>Vantor n’a pas pu lire le compte enregistré dans le trousseau de clés. Autorisez l’accès et réessayez.</translation>
    </message>
    <message>
        <source>Vantor could not update its saved Keychain account.</source>
        <translation>Vantor n’a pas pu mettre à jour le compte enregistré dans le trousseau de clés.</translation>
    </message>
    <message>
        <source>Vantor could not securely save this account in Keychain.</source>
        <translation>Vantor n’a pas pu enregistrer ce compte en sécurité dans le trousseau de clés.</translation>
    </message>
    <message>
        <source>The saved account could not be removed from Keychain.</source>
        <translation>Le compte enregistré n’a pas pu être supprimé du trousseau de clés.</translation>
    </message>
</context>
<context>
    <name>vantor::AppModel</name>
    <message>
        <source>These are sample library entries. Connect your provider or open your own media file to test playback.</source>
        <translation>Ces éléments appartiennent à la bibliothèque d’exemple. Connectez votre fournisseur ou ouvrez un de vos fichiers multimédias pour tester la lecture.</translation>
    </message>
    <message>
        <source>The updated server could not be verified. Keeping your saved connection.</source>
        <translation>Le nouveau serveur n’a pas pu être vérifié. Votre connexion enregistrée est conservée.</translation>
    </message>
</context>
<context>
    <name>vantor::Assistive</name>
    <message>
        <source>%1 of %2</source>
        <translation>%1 sur %2</translation>
    </message>
    <message>
        <source>%1, chosen</source>
        <translation>%1, choix actuel</translation>
    </message>
    <message>
        <source>%1, playing</source>
        <translation>%1, en lecture</translation>
    </message>
    <message>
        <source>%1, on My list</source>
        <translation>%1, dans Ma liste</translation>
    </message>
</context>
<context>
    <name>vantor::ChannelBanner</name>
    <message>
        <source>No such channel</source>
        <translation>Cette chaîne n’existe pas</translation>
    </message>
</context>
<context>
    <name>vantor::ChannelChooser</name>
    <message>
        <source>%1 · “%2”</source>
        <translation>%1 · «&#xa0;%2&#xa0;»</translation>
    </message>
</context>
<context>
    <name>vantor::ChannelGroups</name>
    <message>
        <source>All channels</source>
        <translation>Toutes les chaînes</translation>
    </message>
</context>
<context>
    <name>vantor::ChannelView</name>
    <message>
        <source>Live TV</source>
        <translation>TV en direct</translation>
    </message>
    <message>
        <source>Loading programme information…</source>
        <translation>Chargement des informations sur le programme…</translation>
    </message>
    <message>
        <source>Select a channel to see its programme information.</source>
        <translation>Sélectionnez une chaîne pour voir les informations sur son programme.</translation>
    </message>
</context>
<context>
    <name>vantor::Commands</name>
    <message>
        <source>Open Media File…</source>
        <translation>Ouvrir un fichier multimédia…</translation>
    </message>
    <message>
        <source>Connect Provider…</source>
        <translation>Connecter un fournisseur…</translation>
    </message>
    <message>
        <source>Play / Pause</source>
        <translation>Lecture / pause</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Arrêter</translation>
    </message>
    <message>
        <source>Full Screen</source>
        <translation>Plein écran</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Paramètres…</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Quitter</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Fichier</translation>
    </message>
    <message>
        <source>Playback</source>
        <translation>Lecture</translation>
    </message>
    <message>
        <source>Library</source>
        <translation>Bibliothèque</translation>
    </message>
</context>
<context>
    <name>vantor::CrashNotice</name>
    <message>
        <source>Vantor Player ended unexpectedly. A report without names and addresses is in %1.</source>
        <translation>Vantor Player s’est arrêté de façon inattendue. Un rapport sans noms ni adresses se trouve dans %1.</translation>
    </message>
</context>
<context>
    <name>vantor::DialogFilePanel</name>
    <message>
        <source>Movies and audio</source>
        <translation>Films et audio</translation>
    </message>
</context>
<context>
    <name>vantor::EmptyState</name>
    <message>
        <source>Your library starts here</source>
        <translation>Votre bibliothèque commence ici</translation>
    </message>
    <message>
        <source>No matching titles</source>
        <translation>Aucun titre correspondant</translation>
    </message>
    <message>
        <source>Choose another category or refresh your library.</source>
        <translation>Choisissez une autre catégorie ou actualisez votre bibliothèque.</translation>
    </message>
    <message>
        <source>Connect your provider or explore the preview library.</source>
        <translation>Connectez votre fournisseur ou explorez la bibliothèque d’exemple.</translation>
    </message>
</context>
<context>
    <name>vantor::EpisodeListModel</name>
    <message>
        <source>S%1 · E%2</source>
        <translation>S%1 · É%2</translation>
    </message>
    <message>
        <source>All seasons</source>
        <translation>Toutes les saisons</translation>
    </message>
    <message>
        <source>Season %1</source>
        <translation>Saison %1</translation>
    </message>
    <message>
        <source>Loading episodes…</source>
        <translation>Chargement des épisodes…</translation>
    </message>
    <message>
        <source>Connect your provider to load this show&apos;s episodes.</source>
        <translation>Connectez votre fournisseur pour charger les épisodes de cette série.</translation>
    </message>
    <message>
        <source>No episodes returned by this provider.</source>
        <translation>Ce fournisseur n’a renvoyé aucun épisode.</translation>
    </message>
</context>
<context>
    <name>vantor::GuideListModel</name>
    <message>
        <source>Preview channel</source>
        <translation>Chaîne d’exemple</translation>
    </message>
</context>
<context>
    <name>vantor::IdleInhibitor</name>
    <message>
        <source>A picture is playing</source>
        <translation>Une vidéo est en cours de lecture</translation>
    </message>
</context>
<context>
    <name>vantor::Libraries</name>
    <message>
        <source>Library loaded, but its saved copy could not be updated. It will remain available while the app is open.</source>
        <translation>La bibliothèque est chargée, mais sa copie enregistrée n’a pas pu être mise à jour. Elle reste disponible tant que l’application est ouverte.</translation>
    </message>
</context>
<context>
    <name>vantor::NextEpisode</name>
    <message>
        <source>Plays in %1 s</source>
        <translation>Lecture dans %1&#xa0;s</translation>
    </message>
    <message>
        <source>Return plays it</source>
        <translation>Entrée pour la lecture</translation>
    </message>
</context>
<context>
    <name>vantor::Playback</name>
    <message>
        <source>This source could not be opened. It may be offline or your provider may be refusing the connection.</source>
        <translation>Impossible d’ouvrir cette source. Elle est peut-être hors ligne ou votre fournisseur refuse la connexion.</translation>
    </message>
    <message>
        <source>Nothing playing yet</source>
        <translation>Aucune lecture en cours</translation>
    </message>
    <message>
        <source>Only what is playing can be recorded.</source>
        <translation>Seul ce qui est en cours de lecture peut être enregistré.</translation>
    </message>
    <message>
        <source>Nothing is being recorded.</source>
        <translation>Aucun enregistrement en cours.</translation>
    </message>
    <message>
        <source>This media file is no longer available.</source>
        <translation>Ce fichier multimédia n’est plus disponible.</translation>
    </message>
    <message>
        <source>This source did not start within 30 seconds. Retry or choose another item.</source>
        <translation>Cette source n’a pas démarré en 30 secondes. Réessayez ou choisissez un autre élément.</translation>
    </message>
    <message>
        <source>The source ended before playback could start.</source>
        <translation>La source s’est terminée avant le début de la lecture.</translation>
    </message>
</context>
<context>
    <name>vantor::PlayerPane</name>
    <message>
        <source>Choose something to watch</source>
        <translation>Choisissez un programme à regarder</translation>
    </message>
    <message>
        <source>Opening %1</source>
        <translation>Ouverture de %1</translation>
    </message>
    <message>
        <source>Interrupted. Trying again…</source>
        <translation>Interruption. Nouvelle tentative…</translation>
    </message>
    <message>
        <source>Playing</source>
        <translation>En lecture</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>En pause</translation>
    </message>
</context>
<context>
    <name>vantor::PlayerRemote</name>
    <message>
        <source>Whole picture</source>
        <translation>Image entière</translation>
    </message>
    <message>
        <source>Fill the screen</source>
        <translation>Remplir l’écran</translation>
    </message>
    <message>
        <source>Stretch</source>
        <translation>Étirer</translation>
    </message>
    <message>
        <source>Volume %1 %</source>
        <translation>Volume %1&#xa0;%</translation>
    </message>
    <message>
        <source>Muted</source>
        <translation>Muet</translation>
    </message>
    <message>
        <source>No other sound</source>
        <translation>Aucune autre piste audio</translation>
    </message>
    <message>
        <source>Sound: %1</source>
        <translation>Son&#xa0;: %1</translation>
    </message>
    <message>
        <source>No subtitles</source>
        <translation>Aucun sous-titre</translation>
    </message>
    <message>
        <source>Subtitles: %1</source>
        <translation>Sous-titres&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>vantor::PosterView</name>
    <message>
        <source>Preview entry</source>
        <translation>Élément d’exemple</translation>
    </message>
    <message>
        <source>A sample title for exploring the Vantor interface. No playable content is included.</source>
        <translation>Un titre d’exemple pour découvrir l’interface de Vantor. Il ne contient rien à lire.</translation>
    </message>
    <message>
        <source>Choose a title to watch or save it to My list.</source>
        <translation>Choisissez un titre à regarder ou enregistrez-le dans Ma liste.</translation>
    </message>
    <message>
        <source>Episodes</source>
        <translation>Épisodes</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Lire</translation>
    </message>
    <message>
        <source>Showing 2,500 titles. Choose a category or search to narrow the results.</source>
        <translation>2&#xa0;500 titres affichés. Choisissez une catégorie ou lancez une recherche pour affiner les résultats.</translation>
    </message>
</context>
<context>
    <name>vantor::Program</name>
    <message>
        <source>Local playback test</source>
        <translation>Test de lecture locale</translation>
    </message>
</context>
<context>
    <name>vantor::Recording</name>
    <message>
        <source>The recording folder could not be created.</source>
        <translation>Le dossier d’enregistrement n’a pas pu être créé.</translation>
    </message>
    <message>
        <source>This source does not support recording.</source>
        <translation>Cette source ne permet pas l’enregistrement.</translation>
    </message>
    <message>
        <source>Recording the current video. Stop recording before changing sources.</source>
        <translation>Enregistrement de la vidéo en cours. Arrêtez l’enregistrement avant de changer de source.</translation>
    </message>
    <message>
        <source>Saving recording…</source>
        <translation>Sauvegarde de l’enregistrement…</translation>
    </message>
    <message>
        <source>Recording could not be finalized. Check the recording folder.</source>
        <translation>L’enregistrement n’a pas pu être finalisé. Vérifiez le dossier d’enregistrement.</translation>
    </message>
    <message>
        <source>No recording file was produced. This source may not support recording.</source>
        <translation>Aucun fichier n’a été produit. Cette source ne permet peut-être pas l’enregistrement.</translation>
    </message>
    <message>
        <source>No video was recorded. Try recording for longer or choose another source.</source>
        <translation>Aucune vidéo n’a été enregistrée. Enregistrez plus longtemps ou choisissez une autre source.</translation>
    </message>
    <message>
        <source>Recording saved.</source>
        <translation>Enregistrement sauvegardé.</translation>
    </message>
    <message>
        <source>Recording saved. Open its folder to view the file.</source>
        <translation>Enregistrement sauvegardé. Ouvrez son dossier pour voir le fichier.</translation>
    </message>
    <message>
        <source>Stop recording before changing sources.</source>
        <translation>Arrêtez l’enregistrement avant de changer de source.</translation>
    </message>
</context>
<context>
    <name>vantor::RecordingNotifier</name>
    <message>
        <source>Stop Recording</source>
        <translation>Arrêter l’enregistrement</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Enregistrement</translation>
    </message>
</context>
<context>
    <name>vantor::SettingsView</name>
    <message>
        <source>Your provider and saved libraries</source>
        <translation>Votre fournisseur et vos bibliothèques enregistrées</translation>
    </message>
    <message>
        <source>Player controls and supported sources</source>
        <translation>Commandes du lecteur et sources prises en charge</translation>
    </message>
    <message>
        <source>Programme information</source>
        <translation>Informations sur les programmes</translation>
    </message>
    <message>
        <source>Version, support and preview features</source>
        <translation>Version, assistance et fonctions préliminaires</translation>
    </message>
    <message>
        <source>No provider connected</source>
        <translation>Aucun fournisseur connecté</translation>
    </message>
    <message>
        <source>Channels, movies, shows and artwork come directly from your provider. Saved libraries stay available when you change sections.</source>
        <translation>Les chaînes, les films, les séries et les illustrations proviennent directement de votre fournisseur. Les bibliothèques enregistrées restent disponibles lorsque vous changez de rubrique.</translation>
    </message>
    <message>
        <source>Provider connection limit: %1</source>
        <translation>Nombre maximal de connexions du fournisseur&#xa0;: %1</translation>
    </message>
    <message>
        <source>Xtream Codes parameters</source>
        <translation>Paramètres Xtream Codes</translation>
    </message>
    <message>
        <source>Change your provider account</source>
        <translation>Changer de compte fournisseur</translation>
    </message>
    <message>
        <source>Refresh playlists</source>
        <translation>Actualiser les listes de lecture</translation>
    </message>
    <message>
        <source>Update TV, Movies and Shows</source>
        <translation>Mettre à jour TV, Films et Séries</translation>
    </message>
    <message>
        <source>Remove saved provider</source>
        <translation>Supprimer le fournisseur enregistré</translation>
    </message>
    <message>
        <source>Remove this Mac&apos;s saved login and library</source>
        <translation>Supprimer les identifiants et la bibliothèque de cet ordinateur</translation>
    </message>
    <message>
        <source>Use the player&apos;s controls for seeking, volume, audio, subtitles and fullscreen when available for the source.</source>
        <translation>Utilisez les commandes du lecteur pour la position, le volume, l’audio, les sous-titres et le plein écran, si la source le permet.</translation>
    </message>
    <message>
        <source>Open media file</source>
        <translation>Ouvrir un fichier multimédia</translation>
    </message>
    <message>
        <source>Play a compatible file saved on your Mac</source>
        <translation>Lire un fichier compatible enregistré sur cet ordinateur</translation>
    </message>
    <message>
        <source>VideoLAN playback is built into Vantor. No external player is required for supported MKV, MP4, HLS and TS sources. Use the controls for volume, seeking, audio tracks, subtitles and speed.</source>
        <translation>La lecture VideoLAN est intégrée à Vantor. Aucun lecteur externe n’est nécessaire pour les sources MKV, MP4, HLS et TS prises en charge. Utilisez les commandes pour le volume, la position, les pistes audio, les sous-titres et la vitesse.</translation>
    </message>
    <message>
        <source>Space  Play / pause
Ctrl .  Stop
Ctrl O  Open file
Esc  Back to browsing</source>
        <translation>Espace  Lecture / pause
Ctrl .  Arrêter
Ctrl O  Ouvrir un fichier
Échap  Retour à la navigation</translation>
    </message>
    <message>
        <source>The guide automatically loads your provider&apos;s Now / Next information for visible channels. The highlighted channel stays centered as you browse.</source>
        <translation>Le guide charge automatiquement les informations «&#xa0;En cours / À suivre&#xa0;» de votre fournisseur pour les chaînes visibles. La chaîne en surbrillance reste au centre pendant la navigation.</translation>
    </message>
    <message>
        <source>Refresh guide information</source>
        <translation>Actualiser les informations du guide</translation>
    </message>
    <message>
        <source>Reload the selected channel&apos;s schedule</source>
        <translation>Recharger la grille de la chaîne sélectionnée</translation>
    </message>
    <message>
        <source>This version shows Now / Next information.</source>
        <translation>Cette version affiche les informations «&#xa0;En cours / À suivre&#xa0;».</translation>
    </message>
    <message>
        <source>Vantor Player for Mac
%1 · Preview</source>
        <translation>Vantor Player
%1 · Version préliminaire</translation>
    </message>
    <message>
        <source>The interface follows the Vantor TV player, adapted for mouse and keyboard, with one video playing at a time. Guide information loads as you browse.</source>
        <translation>L’interface reprend celle du lecteur Vantor TV, adaptée à la souris et au clavier, avec une seule vidéo à la fois. Les informations du guide se chargent pendant la navigation.</translation>
    </message>
    <message>
        <source>Sign in using your existing Vantor TV account.</source>
        <translation>Connectez-vous avec votre compte Vantor TV existant.</translation>
    </message>
    <message>
        <source>Open-source licenses</source>
        <translation>Licences open source</translation>
    </message>
    <message>
        <source>VideoLAN playback and acknowledgements</source>
        <translation>Lecture VideoLAN et remerciements</translation>
    </message>
    <message>
        <source>Help &amp; support</source>
        <translation>Aide et assistance</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Paramètres</translation>
    </message>
    <message>
        <source>Playlists</source>
        <translation>Listes de lecture</translation>
    </message>
    <message>
        <source>Playback</source>
        <translation>Lecture</translation>
    </message>
    <message>
        <source>TV guide</source>
        <translation>Guide TV</translation>
    </message>
    <message>
        <source>About</source>
        <translation>À propos</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Terminé</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Retour</translation>
    </message>
    <message>
        <source>↑ ↓ Move   ·   Return Select   ·   Esc Back</source>
        <translation>↑ ↓ Déplacer   ·   Entrée Sélectionner   ·   Échap Retour</translation>
    </message>
    <message>
        <source>VANTOR TV  /  SETTINGS</source>
        <translation>VANTOR TV  /  PARAMÈTRES</translation>
    </message>
    <message>
        <source>Guide information will reload when you select a channel.</source>
        <translation>Les informations du guide seront rechargées lorsque vous sélectionnerez une chaîne.</translation>
    </message>
    <message>
        <source>Refresh requested. Your saved library remains available.</source>
        <translation>Actualisation demandée. Votre bibliothèque enregistrée reste disponible.</translation>
    </message>
</context>
<context>
    <name>vantor::Statistics</name>
    <message>
        <source>processor</source>
        <translation>processeur</translation>
    </message>
    <message>
        <source>graphics card (VA-API)</source>
        <translation>carte graphique (VA-API)</translation>
    </message>
    <message>
        <source>graphics card (VDPAU)</source>
        <translation>carte graphique (VDPAU)</translation>
    </message>
    <message>
        <source>%1 pictures a second</source>
        <translation>%1 images par seconde</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <comment>a fact and its value</comment>
        <translation>%1&#xa0;: %2</translation>
    </message>
    <message>
        <source>Codec</source>
        <translation>Codec</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>Image</translation>
    </message>
    <message>
        <source>%1 × %2, %3 bit</source>
        <translation>%1 × %2, %3 bits</translation>
    </message>
    <message>
        <source>Decoded by</source>
        <translation>Décodage par</translation>
    </message>
    <message>
        <source>In the source</source>
        <translation>Dans la source</translation>
    </message>
    <message>
        <source>Shown</source>
        <translation>Affichées</translation>
    </message>
    <message>
        <source>Lost</source>
        <translation>Perdues</translation>
    </message>
    <message numerus="yes">
        <source>%n pictures</source>
        <translation>
            <numerusform>%n image</numerusform>
            <numerusform>%n images</numerusform>
        </translation>
    </message>
    <message>
        <source>Bit rate</source>
        <translation>Débit</translation>
    </message>
    <message>
        <source>%1 Mbit/s</source>
        <translation>%1 Mbit/s</translation>
    </message>
    <message>
        <source>Buffer</source>
        <translation>Tampon</translation>
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
        <translation>%1 chargés · %2 catégories sur %3</translation>
    </message>
    <message numerus="yes">
        <source>%n item</source>
        <translation>
            <numerusform>%n élément</numerusform>
            <numerusform>%n éléments</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n items</source>
        <translation>
            <numerusform>%n élément</numerusform>
            <numerusform>%n éléments</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>vantor::TVShell</name>
    <message>
        <source>Search</source>
        <translation>Recherche</translation>
    </message>
    <message>
        <source>My list</source>
        <translation>Ma liste</translation>
    </message>
    <message>
        <source>All search</source>
        <translation>Tous les résultats</translation>
    </message>
    <message>
        <source>All my list</source>
        <translation>Toute ma liste</translation>
    </message>
    <message>
        <source>All tv</source>
        <translation>Toutes les chaînes</translation>
    </message>
    <message>
        <source>All movies</source>
        <translation>Tous les films</translation>
    </message>
    <message>
        <source>All shows</source>
        <translation>Toutes les séries</translation>
    </message>
    <message>
        <source>Live TV</source>
        <translation>TV en direct</translation>
    </message>
    <message>
        <source>Search Search</source>
        <translation>Rechercher partout</translation>
    </message>
    <message>
        <source>Search My list</source>
        <translation>Rechercher dans Ma liste</translation>
    </message>
    <message>
        <source>Search TV</source>
        <translation>Rechercher dans TV</translation>
    </message>
    <message>
        <source>Search Movies</source>
        <translation>Rechercher dans Films</translation>
    </message>
    <message>
        <source>Search Shows</source>
        <translation>Rechercher dans Séries</translation>
    </message>
    <message>
        <source>Preview library · No content included</source>
        <translation>Bibliothèque d’exemple · sans contenu</translation>
    </message>
    <message>
        <source>Connect your own provider</source>
        <translation>Connectez votre fournisseur</translation>
    </message>
    <message>
        <source>↑ ↓ ← → Browse   ·   Return Select   ·   Esc Back</source>
        <translation>↑ ↓ ← → Parcourir   ·   Entrée Sélectionner   ·   Échap Retour</translation>
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
        <translation>Son synchronisé avec l’image</translation>
    </message>
    <message>
        <source>Sound %1 ms after the picture</source>
        <translation>Son %1 ms après l’image</translation>
    </message>
    <message>
        <source>Sound %1 ms before the picture</source>
        <translation>Son %1 ms avant l’image</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Désactivés</translation>
    </message>
    <message>
        <source>The system&apos;s choice</source>
        <translation>Choix du système</translation>
    </message>
</context>
</TS>
