#pragma once

#include <QString>

#include "core/app_model.h"

namespace vantor::machine {

/// What does not fit together in what anyone can read of the model now, in signals as well; empty
/// when everything does.
QString faultIn(const AppModel& model);

}  // namespace vantor::machine
