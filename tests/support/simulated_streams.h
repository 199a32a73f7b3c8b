#pragma once

#include <QUrl>

#include "sim/library.h"
#include "sim/server.h"

namespace vantor::test {

using namespace Qt::StringLiterals;

/// A simulated provider's options, with media for whoever signs in as "viewer".
inline sim::Options simulated(const std::string& password) {
  return {.username = "viewer",
          .password = password,
          .mediaFolder = qEnvironmentVariable("VANTOR_SIM_MEDIA").toStdString()};
}

/// The address of its stream of that kind and id.
inline QUrl streamOf(const sim::Server& server, const sim::Options& options, sim::Kind kind,
                     long long id, const QString& extension) {
  return QUrl(QString::fromStdString(server.url()) +
              u"/%1/viewer/%2/%3.%4"_s
                  .arg(QString::fromLatin1(sim::kindName(kind).data()),
                       QString::fromStdString(options.password))
                  .arg(id)
                  .arg(extension));
}

}  // namespace vantor::test
