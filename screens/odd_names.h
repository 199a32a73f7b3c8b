#pragma once

#include <string>

#include "sim/library.h"

namespace vantor::screens {

/// A library whose names are very long, right to left, made of emoji, or look like markup;
/// channels, movies and shows alike. Artwork is at `base`.
std::string oddRows(sim::Kind kind, const std::string& base);

}  // namespace vantor::screens
