#pragma once

#include <optional>
#include <string>

#include "sim/connection.h"
#include "sim/fault.h"
#include "sim/http.h"

namespace sim {

// Where redirects lead: scheme, host and port.
struct Origins {
  std::string own;
  std::string otherPort;
  std::string otherHost;
  std::string otherScheme;
};

// What happens to a response on its way.
struct Trouble {
  Fault fault = Fault::none;
  std::optional<BreakOff> breakOff;
};

// Sends the response, the part of it that a Range header asks for, or what the trouble makes of it.
// False when the connection cannot be used for another request.
bool deliver(Connection& connection, const Request& request, const Response& response,
             const Trouble& trouble, const Origins& origins);

// Takes the request and says nothing until the client goes.
void staySilent(Connection& connection);

// Whether a redirect that was asked for has been followed already.
bool wasRedirected(const Request& request);

}  // namespace sim
