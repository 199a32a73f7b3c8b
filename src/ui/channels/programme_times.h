#pragma once

#include <QString>

#include "library/guide_entry.h"

namespace vantor {

/// "20:15–21:45", in the user's time zone and notation.
QString programmeTimes(const GuideEntry& entry);

}  // namespace vantor
