#pragma once

#include <QList>
#include <QString>
#include <utility>

namespace vantor {

/// Names and values: the program, its libraries, the system it runs on. Of the user only their
/// desktop and language.
QList<std::pair<QString, QString>> versions();

}  // namespace vantor
