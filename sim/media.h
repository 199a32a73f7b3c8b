#pragma once

#include <string>

namespace sim {

// Where media is kept when nothing else is said: under $XDG_CACHE_HOME, else under ~/.cache.
std::string defaultMediaFolder();

// Makes the media below `folder` with the program ffmpeg unless it is there already, and returns
// the folder that holds exactly these files (several processes may ask at once):
//   channel0.ts … channel3.ts  16 s, 1280x720 at 25 pictures a second, a key picture each second,
//                              meant to be looped
//   movie.mkv, movie.mp4       60 s, 1280x720, audio and subtitles in English and German
//   episode.mkv, episode.mp4   60 s, 640x360, the same tracks
//   audio.m4a                  60 s of sound without a picture
// Throws std::runtime_error when ffmpeg is missing or fails.
std::string prepareMedia(const std::string& folder);

}  // namespace sim
