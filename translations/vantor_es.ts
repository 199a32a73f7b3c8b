<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>BookmarkButton</name>
    <message>
        <source>Add / remove from My list</source>
        <translation>Añadir a Mi lista o quitar</translation>
    </message>
</context>
<context>
    <name>CategoryRail</name>
    <message>
        <source>CATEGORIES</source>
        <translation>CATEGORÍAS</translation>
    </message>
</context>
<context>
    <name>ChannelChooserPanel</name>
    <message>
        <source>No channels in this group</source>
        <translation>No hay canales en este grupo</translation>
    </message>
    <message>
        <source>Previous group</source>
        <translation>Grupo anterior</translation>
    </message>
    <message>
        <source>Next group</source>
        <translation>Grupo siguiente</translation>
    </message>
</context>
<context>
    <name>ConnectSheet</name>
    <message>
        <source>Sign in</source>
        <translation>Iniciar sesión</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>Sign in with your existing Vantor TV account.</source>
        <translation>Inicie sesión con su cuenta de Vantor TV.</translation>
    </message>
    <message>
        <source>Username</source>
        <translation>Nombre de usuario</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Contraseña</translation>
    </message>
    <message>
        <source>Your login is stored securely in this Mac&apos;s Keychain.</source>
        <translation>Sus datos de acceso se guardan de forma segura en el llavero de este equipo.</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>Conectar</translation>
    </message>
    <message>
        <source>Signing in</source>
        <translation>Iniciando sesión</translation>
    </message>
</context>
<context>
    <name>EmptyStateCard</name>
    <message>
        <source>Connect provider</source>
        <translation>Conectar proveedor</translation>
    </message>
</context>
<context>
    <name>EntryMenu</name>
    <message>
        <source>Add / remove from My list</source>
        <translation>Añadir a Mi lista o quitar</translation>
    </message>
    <message>
        <source>Remove from Continue watching</source>
        <translation>Quitar de Seguir viendo</translation>
    </message>
</context>
<context>
    <name>EpisodeBrowser</name>
    <message>
        <source>Episodes</source>
        <translation>Episodios</translation>
    </message>
</context>
<context>
    <name>ExpandedPlayer</name>
    <message>
        <source>Back to browsing</source>
        <translation>Volver a explorar</translation>
    </message>
    <message>
        <source>Start over</source>
        <translation>Ver desde el principio</translation>
    </message>
</context>
<context>
    <name>FailureCard</name>
    <message>
        <source>Retry</source>
        <translation>Reintentar</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
</context>
<context>
    <name>FrameButtons</name>
    <message>
        <source>Minimize</source>
        <translation>Minimizar</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Restaurar</translation>
    </message>
    <message>
        <source>Maximize</source>
        <translation>Maximizar</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
</context>
<context>
    <name>GroupPicker</name>
    <message>
        <source>Group</source>
        <translation>Grupo</translation>
    </message>
</context>
<context>
    <name>Guide</name>
    <message>
        <source>Guide unavailable</source>
        <translation>Guía no disponible</translation>
    </message>
    <message>
        <source>No programme information</source>
        <translation>Sin información</translation>
    </message>
    <message>
        <source>Loading guide…</source>
        <translation>Cargando la guía…</translation>
    </message>
</context>
<context>
    <name>GuideHeading</name>
    <message>
        <source>CHANNEL GUIDE</source>
        <translation>GUÍA DE CANALES</translation>
    </message>
    <message>
        <source>Loading</source>
        <translation>Cargando</translation>
    </message>
    <message>
        <source>Group</source>
        <translation>Grupo</translation>
    </message>
    <message>
        <source>Now / Next</source>
        <translation>Ahora / Después</translation>
    </message>
</context>
<context>
    <name>GuideList</name>
    <message>
        <source>Watch channel</source>
        <translation>Ver canal</translation>
    </message>
</context>
<context>
    <name>HeroPanel</name>
    <message>
        <source>All shows</source>
        <translation>Todas las series</translation>
    </message>
</context>
<context>
    <name>InterruptionStrip</name>
    <message>
        <source>Stop trying</source>
        <translation>Dejar de intentarlo</translation>
    </message>
</context>
<context>
    <name>KeyList</name>
    <message>
        <source>Full screen</source>
        <translation>Pantalla completa</translation>
    </message>
    <message>
        <source>Small window, above the others</source>
        <translation>Ventana pequeña, sobre las demás</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Espacio</translation>
    </message>
    <message>
        <source>Pause and go on</source>
        <translation>Pausar y continuar</translation>
    </message>
    <message>
        <source>↑  ↓   Page ↑  Page ↓</source>
        <translation>↑  ↓   Re Pág  Av Pág</translation>
    </message>
    <message>
        <source>Next and previous channel</source>
        <translation>Canal siguiente y anterior</translation>
    </message>
    <message>
        <source>Channel by its number</source>
        <translation>Canal por su número</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Retroceso</translation>
    </message>
    <message>
        <source>The channel before, and back</source>
        <translation>Último canal, y de vuelta</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>Intro</translation>
    </message>
    <message>
        <source>List of channels</source>
        <translation>Lista de canales</translation>
    </message>
    <message>
        <source>What is on now and next</source>
        <translation>Qué se emite ahora y después</translation>
    </message>
    <message>
        <source>10 seconds back and on</source>
        <translation>10 segundos atrás y adelante</translation>
    </message>
    <message>
        <source>Shift ←  Shift →</source>
        <translation>Mayús ←  Mayús →</translation>
    </message>
    <message>
        <source>60 seconds back and on</source>
        <translation>60 segundos atrás y adelante</translation>
    </message>
    <message>
        <source>Next episode</source>
        <translation>Siguiente episodio</translation>
    </message>
    <message>
        <source>Mute, volume</source>
        <translation>Silencio, volumen</translation>
    </message>
    <message>
        <source>Ctrl +   Ctrl −</source>
        <translation>Ctrl +   Ctrl −</translation>
    </message>
    <message>
        <source>Sound later, earlier</source>
        <translation>Sonido más tarde, antes</translation>
    </message>
    <message>
        <source>Sound, subtitles</source>
        <translation>Sonido, subtítulos</translation>
    </message>
    <message>
        <source>Shape of the picture</source>
        <translation>Formato de imagen</translation>
    </message>
    <message>
        <source>Ctrl I</source>
        <translation>Ctrl I</translation>
    </message>
    <message>
        <source>About the picture</source>
        <translation>Información de la imagen</translation>
    </message>
    <message>
        <source>Ctrl .</source>
        <translation>Ctrl .</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Detener</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>Explorar</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>Seleccionar</translation>
    </message>
    <message>
        <source>Menu   Shift F10</source>
        <translation>Menú   Mayús F10</translation>
    </message>
    <message>
        <source>What can be done with an entry</source>
        <translation>Acciones para un elemento</translation>
    </message>
    <message>
        <source>Esc</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Atrás</translation>
    </message>
    <message>
        <source>Ctrl 1   Ctrl 2   Ctrl 3</source>
        <translation>Ctrl 1   Ctrl 2   Ctrl 3</translation>
    </message>
    <message>
        <source>TV, Movies, Shows</source>
        <translation>TV, Películas, Series</translation>
    </message>
    <message>
        <source>Ctrl O</source>
        <translation>Ctrl O</translation>
    </message>
    <message>
        <source>Open a media file</source>
        <translation>Abrir un archivo multimedia</translation>
    </message>
    <message>
        <source>Ctrl K</source>
        <translation>Ctrl K</translation>
    </message>
    <message>
        <source>Connect a provider</source>
        <translation>Conectar un proveedor</translation>
    </message>
    <message>
        <source>Ctrl ,</source>
        <translation>Ctrl ,</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Ajustes</translation>
    </message>
    <message>
        <source>Ctrl Q</source>
        <translation>Ctrl Q</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Salir</translation>
    </message>
    <message>
        <source>This list</source>
        <translation>Esta lista</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Teclas</translation>
    </message>
</context>
<context>
    <name>Library</name>
    <message>
        <source>Untitled</source>
        <translation>Sin título</translation>
    </message>
    <message>
        <source>TV</source>
        <translation>TV</translation>
    </message>
    <message>
        <source>Movies</source>
        <translation>Películas</translation>
    </message>
    <message>
        <source>Shows</source>
        <translation>Series</translation>
    </message>
    <message>
        <source>Continue watching</source>
        <translation>Seguir viendo</translation>
    </message>
</context>
<context>
    <name>MediaFileDialog</name>
    <message>
        <source>Open a media file</source>
        <translation>Abrir un archivo multimedia</translation>
    </message>
</context>
<context>
    <name>NextEpisodeCard</name>
    <message>
        <source>Next episode</source>
        <translation>Siguiente episodio</translation>
    </message>
    <message>
        <source>Play now</source>
        <translation>Ver ahora</translation>
    </message>
    <message>
        <source>Not now</source>
        <translation>Ahora no</translation>
    </message>
</context>
<context>
    <name>NoticeBanner</name>
    <message>
        <source>Dismiss</source>
        <translation>Descartar</translation>
    </message>
</context>
<context>
    <name>PlayerBar</name>
    <message>
        <source>Play / pause</source>
        <translation>Reproducir / pausar</translation>
    </message>
    <message>
        <source>Expand player</source>
        <translation>Ampliar el reproductor</translation>
    </message>
    <message>
        <source>List of channels</source>
        <translation>Lista de canales</translation>
    </message>
    <message>
        <source>Small window</source>
        <translation>Ventana pequeña</translation>
    </message>
    <message>
        <source>Full screen</source>
        <translation>Pantalla completa</translation>
    </message>
    <message>
        <source>Stop playback</source>
        <translation>Detener la reproducción</translation>
    </message>
</context>
<context>
    <name>PosterGrid</name>
    <message>
        <source>Play</source>
        <translation>Reproducir</translation>
    </message>
</context>
<context>
    <name>ProgrammePanel</name>
    <message>
        <source>Watch channel</source>
        <translation>Ver canal</translation>
    </message>
</context>
<context>
    <name>RemovalConfirmation</name>
    <message>
        <source>Remove this provider from the Mac?</source>
        <translation>¿Eliminar este proveedor de este equipo?</translation>
    </message>
    <message>
        <source>This removes its saved login and libraries. It does not cancel your subscription.</source>
        <translation>Se eliminarán los datos de acceso y las bibliotecas guardados. Su suscripción no se cancelará.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Remove provider</source>
        <translation>Eliminar proveedor</translation>
    </message>
</context>
<context>
    <name>SampleLibrary</name>
    <message>
        <source>World window</source>
        <translation>Ventana al mundo</translation>
    </message>
    <message>
        <source>The outdoors</source>
        <translation>Al aire libre</translation>
    </message>
    <message>
        <source>Studio sessions</source>
        <translation>Sesiones de estudio</translation>
    </message>
    <message>
        <source>At the table</source>
        <translation>A la mesa</translation>
    </message>
    <message>
        <source>City stories</source>
        <translation>Historias de ciudad</translation>
    </message>
    <message>
        <source>The quiet hour</source>
        <translation>La hora tranquila</translation>
    </message>
    <message>
        <source>Across the valley</source>
        <translation>Al otro lado del valle</translation>
    </message>
    <message>
        <source>The long way home</source>
        <translation>El largo camino a casa</translation>
    </message>
    <message>
        <source>After the rain</source>
        <translation>Después de la lluvia</translation>
    </message>
    <message>
        <source>A place to begin</source>
        <translation>Un lugar para empezar</translation>
    </message>
    <message>
        <source>The night garden</source>
        <translation>El jardín nocturno</translation>
    </message>
    <message>
        <source>Open horizons</source>
        <translation>Horizontes abiertos</translation>
    </message>
    <message>
        <source>Wild places</source>
        <translation>Lugares salvajes</translation>
    </message>
    <message>
        <source>Made by hand</source>
        <translation>Hecho a mano</translation>
    </message>
    <message>
        <source>The art of living</source>
        <translation>El arte de vivir</translation>
    </message>
    <message>
        <source>Outside the frame</source>
        <translation>Fuera de cuadro</translation>
    </message>
    <message>
        <source>Along the coast</source>
        <translation>Por la costa</translation>
    </message>
    <message>
        <source>Extraordinary everyday</source>
        <translation>Lo extraordinario de cada día</translation>
    </message>
    <message>
        <source>Featured</source>
        <translation>Destacados</translation>
    </message>
    <message>
        <source>Discover</source>
        <translation>Descubrir</translation>
    </message>
</context>
<context>
    <name>SearchBox</name>
    <message>
        <source>Clear search</source>
        <translation>Borrar la búsqueda</translation>
    </message>
</context>
<context>
    <name>SeasonPicker</name>
    <message>
        <source>Season</source>
        <translation>Temporada</translation>
    </message>
</context>
<context>
    <name>ShellHeader</name>
    <message>
        <source>Open a media file</source>
        <translation>Abrir un archivo multimedia</translation>
    </message>
    <message>
        <source>Refresh library</source>
        <translation>Actualizar la biblioteca</translation>
    </message>
</context>
<context>
    <name>Sidebar</name>
    <message>
        <source>Sections</source>
        <translation>Secciones</translation>
    </message>
    <message>
        <source>PLAYER</source>
        <translation>PLAYER</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Ajustes</translation>
    </message>
</context>
<context>
    <name>SmallPlayer</name>
    <message>
        <source>Play / pause</source>
        <translation>Reproducir / pausar</translation>
    </message>
    <message>
        <source>Back to the window</source>
        <translation>Volver a la ventana</translation>
    </message>
    <message>
        <source>Stop playback</source>
        <translation>Detener la reproducción</translation>
    </message>
</context>
<context>
    <name>StatusStrip</name>
    <message>
        <source>Loading</source>
        <translation>Cargando</translation>
    </message>
</context>
<context>
    <name>TransportBar</name>
    <message>
        <source>Position</source>
        <translation>Posición</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Volumen</translation>
    </message>
    <message>
        <source>Audio tracks</source>
        <translation>Pistas de audio</translation>
    </message>
    <message>
        <source>Subtitles</source>
        <translation>Subtítulos</translation>
    </message>
    <message>
        <source>Playback speed</source>
        <translation>Velocidad de reproducción</translation>
    </message>
    <message>
        <source>Sound output</source>
        <translation>Salida de sonido</translation>
    </message>
    <message>
        <source>Sound and picture</source>
        <translation>Sonido e imagen</translation>
    </message>
</context>
<context>
    <name>VideoOverlay</name>
    <message>
        <source>Video</source>
        <translation>Vídeo</translation>
    </message>
</context>
<context>
    <name>WindowButtons</name>
    <message>
        <source>Menu (F10)</source>
        <translation>Menú (F10)</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Menú</translation>
    </message>
</context>
<context>
    <name>vantor::AppError</name>
    <message>
        <source>The provider could not complete the request. Check your account or try again later.</source>
        <translation>El proveedor no pudo completar la solicitud. Compruebe su cuenta o vuelva a intentarlo más tarde.</translation>
    </message>
    <message>
        <source>The provider response is too large.</source>
        <translation>La respuesta del proveedor es demasiado grande.</translation>
    </message>
    <message>
        <source>The provider response is larger than this preview can safely load.</source>
        <translation>La respuesta del proveedor es mayor de lo que esta versión preliminar puede cargar con seguridad.</translation>
    </message>
    <message>
        <source>The provider returned an unreadable library.</source>
        <translation>El proveedor devolvió una biblioteca ilegible.</translation>
    </message>
    <message>
        <source>This show&apos;s episodes could not be read.</source>
        <translation>No se pudieron leer los episodios de esta serie.</translation>
    </message>
    <message>
        <source>Canceled.</source>
        <translation>Cancelado.</translation>
    </message>
    <message>
        <source>Unable to connect. Check your internet connection and provider details, then try again.</source>
        <translation>No se puede conectar. Compruebe su conexión a Internet y los datos del proveedor e inténtelo de nuevo.</translation>
    </message>
    <message>
        <source>Enter a provider address beginning with https:// or http://, without account details in the address.</source>
        <translation>Introduzca una dirección de proveedor que empiece por https:// o http://, sin datos de la cuenta en la dirección.</translation>
    </message>
    <message>
        <source>Enter your provider username and password.</source>
        <translation>Introduzca el nombre de usuario y la contraseña de su proveedor.</translation>
    </message>
    <message>
        <source>This provider item has an invalid playback address.</source>
        <translation>Este elemento del proveedor tiene una dirección de reproducción no válida.</translation>
    </message>
    <message>
        <source>Your provider did not accept this account. Check the username, password and subscription status.</source>
        <translation>Su proveedor no aceptó esta cuenta. Compruebe el nombre de usuario, la contraseña y el estado de la suscripción.</translation>
    </message>
    <message>
        <source>Invalid Vantor TV server configuration.</source>
        <translation>La configuración del servidor de Vantor TV no es válida.</translation>
    </message>
    <message>
        <source>The library could not be saved securely.</source>
        <translation>La biblioteca no se pudo guardar de forma segura.</translation>
    </message>
    <message>
        <source>Vantor could not read its saved account from Keychain. Allow access and try again.</source>
        <translation>Vantor no pudo leer la cuenta guardada en el llavero. Permita el acceso e inténtelo de nuevo.</translation>
    </message>
    <message>
        <source>Vantor could not update its saved Keychain account.</source>
        <translation>Vantor no pudo actualizar la cuenta guardada en el llavero.</translation>
    </message>
    <message>
        <source>Vantor could not securely save this account in Keychain.</source>
        <translation>Vantor no pudo guardar esta cuenta de forma segura en el llavero.</translation>
    </message>
    <message>
        <source>The saved account could not be removed from Keychain.</source>
        <translation>No se pudo eliminar del llavero la cuenta guardada.</translation>
    </message>
</context>
<context>
    <name>vantor::AppModel</name>
    <message>
        <source>These are sample library entries. Connect your provider or open your own media file to test playback.</source>
        <translation>Estos son elementos de la biblioteca de muestra. Conecte su proveedor o abra un archivo multimedia propio para probar la reproducción.</translation>
    </message>
    <message>
        <source>The updated server could not be verified. Keeping your saved connection.</source>
        <translation>No se pudo verificar el nuevo servidor. Se mantiene su conexión guardada.</translation>
    </message>
</context>
<context>
    <name>vantor::Assistive</name>
    <message>
        <source>%1 of %2</source>
        <translation>%1 de %2</translation>
    </message>
    <message>
        <source>%1, chosen</source>
        <translation>%1, opción actual</translation>
    </message>
    <message>
        <source>%1, playing</source>
        <translation>%1, en reproducción</translation>
    </message>
    <message>
        <source>%1, on My list</source>
        <translation>%1, en Mi lista</translation>
    </message>
</context>
<context>
    <name>vantor::ChannelBanner</name>
    <message>
        <source>No such channel</source>
        <translation>No existe ese canal</translation>
    </message>
</context>
<context>
    <name>vantor::ChannelChooser</name>
    <message>
        <source>%1 · “%2”</source>
        <translation>%1 · «%2»</translation>
    </message>
</context>
<context>
    <name>vantor::ChannelGroups</name>
    <message>
        <source>All channels</source>
        <translation>Todos los canales</translation>
    </message>
</context>
<context>
    <name>vantor::ChannelView</name>
    <message>
        <source>Live TV</source>
        <translation>TV en directo</translation>
    </message>
    <message>
        <source>Loading programme information…</source>
        <translation>Cargando información del programa…</translation>
    </message>
    <message>
        <source>Select a channel to see its programme information.</source>
        <translation>Seleccione un canal para ver la información de su programación.</translation>
    </message>
</context>
<context>
    <name>vantor::Commands</name>
    <message>
        <source>Open Media File…</source>
        <translation>Abrir archivo multimedia…</translation>
    </message>
    <message>
        <source>Connect Provider…</source>
        <translation>Conectar proveedor…</translation>
    </message>
    <message>
        <source>Play / Pause</source>
        <translation>Reproducir / pausar</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Detener</translation>
    </message>
    <message>
        <source>Full Screen</source>
        <translation>Pantalla completa</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Ajustes…</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Salir</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Archivo</translation>
    </message>
    <message>
        <source>Playback</source>
        <translation>Reproducción</translation>
    </message>
    <message>
        <source>Library</source>
        <translation>Biblioteca</translation>
    </message>
</context>
<context>
    <name>vantor::CrashNotice</name>
    <message>
        <source>Vantor Player ended unexpectedly. A report without names and addresses is in %1.</source>
        <translation>Vantor Player se cerró inesperadamente. Hay un informe sin nombres ni direcciones en %1.</translation>
    </message>
</context>
<context>
    <name>vantor::DialogFilePanel</name>
    <message>
        <source>Movies and audio</source>
        <translation>Películas y audio</translation>
    </message>
</context>
<context>
    <name>vantor::EmptyState</name>
    <message>
        <source>Your library starts here</source>
        <translation>Su biblioteca empieza aquí</translation>
    </message>
    <message>
        <source>No matching titles</source>
        <translation>No hay títulos que coincidan</translation>
    </message>
    <message>
        <source>Choose another category or refresh your library.</source>
        <translation>Elija otra categoría o actualice su biblioteca.</translation>
    </message>
    <message>
        <source>Connect your provider or explore the preview library.</source>
        <translation>Conecte su proveedor o explore la biblioteca de muestra.</translation>
    </message>
</context>
<context>
    <name>vantor::EpisodeListModel</name>
    <message>
        <source>S%1 · E%2</source>
        <translation>T%1 · E%2</translation>
    </message>
    <message>
        <source>All seasons</source>
        <translation>Todas las temporadas</translation>
    </message>
    <message>
        <source>Season %1</source>
        <translation>Temporada %1</translation>
    </message>
    <message>
        <source>Loading episodes…</source>
        <translation>Cargando episodios…</translation>
    </message>
    <message>
        <source>Connect your provider to load this show&apos;s episodes.</source>
        <translation>Conecte su proveedor para cargar los episodios de esta serie.</translation>
    </message>
    <message>
        <source>No episodes returned by this provider.</source>
        <translation>Este proveedor no devolvió ningún episodio.</translation>
    </message>
</context>
<context>
    <name>vantor::GuideListModel</name>
    <message>
        <source>Preview channel</source>
        <translation>Canal de muestra</translation>
    </message>
</context>
<context>
    <name>vantor::IdleInhibitor</name>
    <message>
        <source>A picture is playing</source>
        <translation>Se está reproduciendo un vídeo</translation>
    </message>
</context>
<context>
    <name>vantor::Libraries</name>
    <message>
        <source>Library loaded, but its saved copy could not be updated. It will remain available while the app is open.</source>
        <translation>La biblioteca se ha cargado, pero no se pudo actualizar su copia guardada. Seguirá disponible mientras la aplicación esté abierta.</translation>
    </message>
</context>
<context>
    <name>vantor::NextEpisode</name>
    <message>
        <source>Plays in %1 s</source>
        <translation>Comienza en %1 s</translation>
    </message>
    <message>
        <source>Return plays it</source>
        <translation>Intro para reproducirlo</translation>
    </message>
</context>
<context>
    <name>vantor::Playback</name>
    <message>
        <source>This source could not be opened. It may be offline or your provider may be refusing the connection.</source>
        <translation>No se pudo abrir esta fuente. Puede que esté desconectada o que su proveedor rechace la conexión.</translation>
    </message>
    <message>
        <source>Nothing playing yet</source>
        <translation>Aún no se reproduce nada</translation>
    </message>
    <message>
        <source>Only what is playing can be recorded.</source>
        <translation>Solo se puede grabar lo que se está reproduciendo.</translation>
    </message>
    <message>
        <source>Nothing is being recorded.</source>
        <translation>No se está grabando nada.</translation>
    </message>
    <message>
        <source>This media file is no longer available.</source>
        <translation>Este archivo multimedia ya no está disponible.</translation>
    </message>
    <message>
        <source>This source did not start within 30 seconds. Retry or choose another item.</source>
        <translation>Esta fuente no se inició en 30 segundos. Reinténtelo o elija otro elemento.</translation>
    </message>
    <message>
        <source>The source ended before playback could start.</source>
        <translation>La fuente terminó antes de que pudiera empezar la reproducción.</translation>
    </message>
</context>
<context>
    <name>vantor::PlayerPane</name>
    <message>
        <source>Choose something to watch</source>
        <translation>Elija algo para ver</translation>
    </message>
    <message>
        <source>Opening %1</source>
        <translation>Abriendo %1</translation>
    </message>
    <message>
        <source>Interrupted. Trying again…</source>
        <translation>Interrumpido. Reintentando…</translation>
    </message>
    <message>
        <source>Playing</source>
        <translation>En reproducción</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>En pausa</translation>
    </message>
</context>
<context>
    <name>vantor::PlayerRemote</name>
    <message>
        <source>Whole picture</source>
        <translation>Imagen completa</translation>
    </message>
    <message>
        <source>Fill the screen</source>
        <translation>Llenar la pantalla</translation>
    </message>
    <message>
        <source>Stretch</source>
        <translation>Estirar</translation>
    </message>
    <message>
        <source>Volume %1 %</source>
        <translation>Volumen %1 %</translation>
    </message>
    <message>
        <source>Muted</source>
        <translation>Silenciado</translation>
    </message>
    <message>
        <source>No other sound</source>
        <translation>No hay otra pista de audio</translation>
    </message>
    <message>
        <source>Sound: %1</source>
        <translation>Sonido: %1</translation>
    </message>
    <message>
        <source>No subtitles</source>
        <translation>Sin subtítulos</translation>
    </message>
    <message>
        <source>Subtitles: %1</source>
        <translation>Subtítulos: %1</translation>
    </message>
</context>
<context>
    <name>vantor::PosterView</name>
    <message>
        <source>Preview entry</source>
        <translation>Elemento de muestra</translation>
    </message>
    <message>
        <source>A sample title for exploring the Vantor interface. No playable content is included.</source>
        <translation>Un título de muestra para explorar la interfaz de Vantor. No incluye contenido reproducible.</translation>
    </message>
    <message>
        <source>Choose a title to watch or save it to My list.</source>
        <translation>Elija un título para verlo o guárdelo en Mi lista.</translation>
    </message>
    <message>
        <source>Episodes</source>
        <translation>Episodios</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Reproducir</translation>
    </message>
    <message>
        <source>Showing 2,500 titles. Choose a category or search to narrow the results.</source>
        <translation>Se muestran 2500 títulos. Elija una categoría o busque para acotar los resultados.</translation>
    </message>
</context>
<context>
    <name>vantor::Program</name>
    <message>
        <source>Local playback test</source>
        <translation>Prueba de reproducción local</translation>
    </message>
</context>
<context>
    <name>vantor::Recording</name>
    <message>
        <source>The recording folder could not be created.</source>
        <translation>No se pudo crear la carpeta de grabaciones.</translation>
    </message>
    <message>
        <source>This source does not support recording.</source>
        <translation>Esta fuente no admite grabaciones.</translation>
    </message>
    <message>
        <source>Recording the current video. Stop recording before changing sources.</source>
        <translation>Grabando el vídeo actual. Detenga la grabación antes de cambiar de fuente.</translation>
    </message>
    <message>
        <source>Saving recording…</source>
        <translation>Guardando la grabación…</translation>
    </message>
    <message>
        <source>Recording could not be finalized. Check the recording folder.</source>
        <translation>No se pudo finalizar la grabación. Compruebe la carpeta de grabaciones.</translation>
    </message>
    <message>
        <source>No recording file was produced. This source may not support recording.</source>
        <translation>No se generó ningún archivo de grabación. Puede que esta fuente no admita grabaciones.</translation>
    </message>
    <message>
        <source>No video was recorded. Try recording for longer or choose another source.</source>
        <translation>No se grabó ningún vídeo. Grabe durante más tiempo o elija otra fuente.</translation>
    </message>
    <message>
        <source>Recording saved.</source>
        <translation>Grabación guardada.</translation>
    </message>
    <message>
        <source>Recording saved. Open its folder to view the file.</source>
        <translation>Grabación guardada. Abra su carpeta para ver el archivo.</translation>
    </message>
    <message>
        <source>Stop recording before changing sources.</source>
        <translation>Detenga la grabación antes de cambiar de fuente.</translation>
    </message>
</context>
<context>
    <name>vantor::RecordingNotifier</name>
    <message>
        <source>Stop Recording</source>
        <translation>Detener la grabación</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Grabación</translation>
    </message>
</context>
<context>
    <name>vantor::SettingsView</name>
    <message>
        <source>Your provider and saved libraries</source>
        <translation>Su proveedor y las bibliotecas guardadas</translation>
    </message>
    <message>
        <source>Player controls and supported sources</source>
        <translation>Controles del reproductor y fuentes compatibles</translation>
    </message>
    <message>
        <source>Programme information</source>
        <translation>Información de programación</translation>
    </message>
    <message>
        <source>Version, support and preview features</source>
        <translation>Versión, asistencia y funciones preliminares</translation>
    </message>
    <message>
        <source>No provider connected</source>
        <translation>Ningún proveedor conectado</translation>
    </message>
    <message>
        <source>Channels, movies, shows and artwork come directly from your provider. Saved libraries stay available when you change sections.</source>
        <translation>Los canales, las películas, las series y las imágenes proceden directamente de su proveedor. Las bibliotecas guardadas siguen disponibles al cambiar de sección.</translation>
    </message>
    <message>
        <source>Provider connection limit: %1</source>
        <translation>Límite de conexiones del proveedor: %1</translation>
    </message>
    <message>
        <source>Xtream Codes parameters</source>
        <translation>Parámetros de Xtream Codes</translation>
    </message>
    <message>
        <source>Change your provider account</source>
        <translation>Cambiar la cuenta del proveedor</translation>
    </message>
    <message>
        <source>Refresh playlists</source>
        <translation>Actualizar las listas de reproducción</translation>
    </message>
    <message>
        <source>Update TV, Movies and Shows</source>
        <translation>Actualizar TV, Películas y Series</translation>
    </message>
    <message>
        <source>Remove saved provider</source>
        <translation>Eliminar el proveedor guardado</translation>
    </message>
    <message>
        <source>Remove this Mac&apos;s saved login and library</source>
        <translation>Eliminar el acceso y la biblioteca guardados en este equipo</translation>
    </message>
    <message>
        <source>Use the player&apos;s controls for seeking, volume, audio, subtitles and fullscreen when available for the source.</source>
        <translation>Use los controles del reproductor para la posición, el volumen, el audio, los subtítulos y la pantalla completa, si la fuente lo permite.</translation>
    </message>
    <message>
        <source>Open media file</source>
        <translation>Abrir archivo multimedia</translation>
    </message>
    <message>
        <source>Play a compatible file saved on your Mac</source>
        <translation>Reproducir un archivo compatible guardado en este equipo</translation>
    </message>
    <message>
        <source>VideoLAN playback is built into Vantor. No external player is required for supported MKV, MP4, HLS and TS sources. Use the controls for volume, seeking, audio tracks, subtitles and speed.</source>
        <translation>La reproducción de VideoLAN está integrada en Vantor. No se necesita un reproductor externo para las fuentes MKV, MP4, HLS y TS compatibles. Use los controles para el volumen, la posición, las pistas de audio, los subtítulos y la velocidad.</translation>
    </message>
    <message>
        <source>Space  Play / pause
Ctrl .  Stop
Ctrl O  Open file
Esc  Back to browsing</source>
        <translation>Espacio  Reproducir / pausar
Ctrl .  Detener
Ctrl O  Abrir archivo
Esc  Volver a explorar</translation>
    </message>
    <message>
        <source>The guide automatically loads your provider&apos;s Now / Next information for visible channels. The highlighted channel stays centered as you browse.</source>
        <translation>La guía carga automáticamente la información «Ahora / Después» de su proveedor para los canales visibles. El canal resaltado permanece centrado mientras explora.</translation>
    </message>
    <message>
        <source>Refresh guide information</source>
        <translation>Actualizar la información de la guía</translation>
    </message>
    <message>
        <source>Reload the selected channel&apos;s schedule</source>
        <translation>Volver a cargar la programación del canal seleccionado</translation>
    </message>
    <message>
        <source>This version shows Now / Next information.</source>
        <translation>Esta versión muestra la información «Ahora / Después».</translation>
    </message>
    <message>
        <source>Vantor Player for Mac
%1 · Preview</source>
        <translation>Vantor Player
%1 · Versión preliminar</translation>
    </message>
    <message>
        <source>The interface follows the Vantor TV player, adapted for mouse and keyboard, with one video playing at a time. Guide information loads as you browse.</source>
        <translation>La interfaz sigue la del reproductor de Vantor TV, adaptada a ratón y teclado, con un solo vídeo a la vez. La información de la guía se carga mientras explora.</translation>
    </message>
    <message>
        <source>Sign in using your existing Vantor TV account.</source>
        <translation>Inicie sesión con su cuenta de Vantor TV.</translation>
    </message>
    <message>
        <source>Open-source licenses</source>
        <translation>Licencias de código abierto</translation>
    </message>
    <message>
        <source>VideoLAN playback and acknowledgements</source>
        <translation>Reproducción de VideoLAN y agradecimientos</translation>
    </message>
    <message>
        <source>Help &amp; support</source>
        <translation>Ayuda y asistencia</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Ajustes</translation>
    </message>
    <message>
        <source>Playlists</source>
        <translation>Listas de reproducción</translation>
    </message>
    <message>
        <source>Playback</source>
        <translation>Reproducción</translation>
    </message>
    <message>
        <source>TV guide</source>
        <translation>Guía de TV</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Acerca de</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Listo</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Atrás</translation>
    </message>
    <message>
        <source>↑ ↓ Move   ·   Return Select   ·   Esc Back</source>
        <translation>↑ ↓ Mover   ·   Intro Seleccionar   ·   Esc Atrás</translation>
    </message>
    <message>
        <source>VANTOR TV  /  SETTINGS</source>
        <translation>VANTOR TV  /  AJUSTES</translation>
    </message>
    <message>
        <source>Guide information will reload when you select a channel.</source>
        <translation>La información de la guía se volverá a cargar cuando seleccione un canal.</translation>
    </message>
    <message>
        <source>Refresh requested. Your saved library remains available.</source>
        <translation>Actualización solicitada. Su biblioteca guardada sigue disponible.</translation>
    </message>
</context>
<context>
    <name>vantor::Statistics</name>
    <message>
        <source>processor</source>
        <translation>procesador</translation>
    </message>
    <message>
        <source>graphics card (VA-API)</source>
        <translation>tarjeta gráfica (VA-API)</translation>
    </message>
    <message>
        <source>graphics card (VDPAU)</source>
        <translation>tarjeta gráfica (VDPAU)</translation>
    </message>
    <message>
        <source>%1 pictures a second</source>
        <translation>%1 imágenes por segundo</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <comment>a fact and its value</comment>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Codec</source>
        <translation>Códec</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>Imagen</translation>
    </message>
    <message>
        <source>%1 × %2, %3 bit</source>
        <translation>%1 × %2, %3 bits</translation>
    </message>
    <message>
        <source>Decoded by</source>
        <translation>Decodificado por</translation>
    </message>
    <message>
        <source>In the source</source>
        <translation>En la fuente</translation>
    </message>
    <message>
        <source>Shown</source>
        <translation>Mostradas</translation>
    </message>
    <message>
        <source>Lost</source>
        <translation>Perdidas</translation>
    </message>
    <message numerus="yes">
        <source>%n pictures</source>
        <translation>
            <numerusform>%n imagen</numerusform>
            <numerusform>%n imágenes</numerusform>
        </translation>
    </message>
    <message>
        <source>Bit rate</source>
        <translation>Tasa de bits</translation>
    </message>
    <message>
        <source>%1 Mbit/s</source>
        <translation>%1 Mbit/s</translation>
    </message>
    <message>
        <source>Buffer</source>
        <translation>Búfer</translation>
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
        <translation>%1 cargados · %2 de %3 categorías</translation>
    </message>
    <message numerus="yes">
        <source>%n item</source>
        <translation>
            <numerusform>%n elemento</numerusform>
            <numerusform>%n elementos</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n items</source>
        <translation>
            <numerusform>%n elemento</numerusform>
            <numerusform>%n elementos</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>vantor::TVShell</name>
    <message>
        <source>Search</source>
        <translation>Buscar</translation>
    </message>
    <message>
        <source>My list</source>
        <translation>Mi lista</translation>
    </message>
    <message>
        <source>All search</source>
        <translation>Todos los resultados</translation>
    </message>
    <message>
        <source>All my list</source>
        <translation>Toda mi lista</translation>
    </message>
    <message>
        <source>All tv</source>
        <translation>Todos los canales</translation>
    </message>
    <message>
        <source>All movies</source>
        <translation>Todas las películas</translation>
    </message>
    <message>
        <source>All shows</source>
        <translation>Todas las series</translation>
    </message>
    <message>
        <source>Live TV</source>
        <translation>TV en directo</translation>
    </message>
    <message>
        <source>Search Search</source>
        <translation>Buscar en todo</translation>
    </message>
    <message>
        <source>Search My list</source>
        <translation>Buscar en Mi lista</translation>
    </message>
    <message>
        <source>Search TV</source>
        <translation>Buscar en TV</translation>
    </message>
    <message>
        <source>Search Movies</source>
        <translation>Buscar en Películas</translation>
    </message>
    <message>
        <source>Search Shows</source>
        <translation>Buscar en Series</translation>
    </message>
    <message>
        <source>Preview library · No content included</source>
        <translation>Biblioteca de muestra · sin contenido</translation>
    </message>
    <message>
        <source>Connect your own provider</source>
        <translation>Conecte su proveedor</translation>
    </message>
    <message>
        <source>↑ ↓ ← → Browse   ·   Return Select   ·   Esc Back</source>
        <translation>↑ ↓ ← → Explorar   ·   Intro Seleccionar   ·   Esc Atrás</translation>
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
        <translation>Sonido a la vez que la imagen</translation>
    </message>
    <message>
        <source>Sound %1 ms after the picture</source>
        <translation>Sonido %1 ms después de la imagen</translation>
    </message>
    <message>
        <source>Sound %1 ms before the picture</source>
        <translation>Sonido %1 ms antes de la imagen</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Desactivados</translation>
    </message>
    <message>
        <source>The system&apos;s choice</source>
        <translation>Elección del sistema</translation>
    </message>
</context>
</TS>
