#pragma once

#include "platform/folders.h"
#include "platform/launch_arguments.h"

namespace vantor {

class Clock;
class FilePanel;
class HTTPTransport;
class Preferences;
class SecureStore;
class VantorConfiguration;
class Worker;

/// What the model builds on; all of it outlives the model.
struct AppServices {
  Clock& clock;
  Worker& worker;   // parsing
  Worker& secrets;  // calls of the credential store, which may wait for the user
  const SecureStore& secureStore;
  Preferences& preferences;
  HTTPTransport& transport;
  VantorConfiguration& configuration;
  FilePanel& filePanel;
  Folders folders;
  LaunchArguments launch;
};

}  // namespace vantor
