#include <signal.h>

#include <exception>
#include <iostream>
#include <stdexcept>

#include "sim/arguments.h"
#include "sim/media.h"

namespace {

sigset_t endingSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGINT);
  sigaddset(&signals, SIGTERM);
  return signals;
}

void run(const sim::Arguments& arguments) {
  // Until the streams are made the signals end the program by themselves.
  if (arguments.options.streams) sim::prepareMedia(sim::mediaFolder(arguments.options));
  const auto signals = endingSignals();
  pthread_sigmask(SIG_BLOCK, &signals, nullptr);

  sim::Server server(arguments.options);
  for (const auto& [action, fault] : arguments.faults) server.setFault(action, fault);
  std::cout << "Address:        " << server.url() << "\nConfiguration:  " << server.configUrl()
            << "\nUser name:      " << arguments.options.username
            << "\nPassword:       " << arguments.options.password << "\nCtrl-C ends it."
            << std::endl;
  int signal = 0;
  sigwait(&signals, &signal);
}

}  // namespace

int main(int count, char** words) {
  try {
    const auto arguments = sim::parseArguments({words + 1, words + count});
    if (arguments.answer.empty()) {
      run(arguments);
    } else {
      std::cout << arguments.answer << std::flush;
      if (!std::cout) throw std::runtime_error("the answer could not be written");
    }
    return 0;
  } catch (const std::exception& error) {
    std::cerr << "vantor-sim: " << error.what() << "\n";
    return 1;
  }
}
