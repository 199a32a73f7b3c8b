#pragma once

#include "machines/monkey/steps.h"

namespace vantor::monkey {

class Subject;

void perform(Subject& on, const Step& step);

}  // namespace vantor::monkey
