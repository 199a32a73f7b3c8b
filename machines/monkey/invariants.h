#pragma once

#include <QStringList>

namespace vantor::monkey {

class Subject;

/// What holds after every step, as sentences about what does not; each begins with what it is
/// about, and a colon.
QStringList broken(Subject& on);
/// What holds once the program has been signed out of and is gone, which it is afterwards.
QStringList left(Subject& on);

}  // namespace vantor::monkey
