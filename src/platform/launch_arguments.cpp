#include "platform/launch_arguments.h"

namespace vantor {

LaunchArguments LaunchArguments::read(const QStringList& arguments,
                                      const QString& bundleIdentifier) {
  const bool testBundle = bundleIdentifier.endsWith(QLatin1String(".qa"));
  const qsizetype smoke = arguments.indexOf(QLatin1String("--smoke-test"));
  LaunchArguments launch;
  launch.demo = testBundle || arguments.contains(QLatin1String("--demo"));
  launch.isolated = launch.demo || smoke >= 0;
  if (smoke >= 0 && smoke + 1 < arguments.size()) launch.smokeTest = arguments.at(smoke + 1);
  return launch;
}

}  // namespace vantor
