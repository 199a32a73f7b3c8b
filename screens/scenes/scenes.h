#pragma once

#include "screens/stage.h"

namespace vantor::screens {

// Each shows one screen in every state it has.
void signIn(Album& album);
void shell(Album& album);
void channelGuide(Album& album);
void player(Album& album);
void posters(Album& album);
void episodes(Album& album);
void searchAndList(Album& album);
void settings(Album& album);

}  // namespace vantor::screens
