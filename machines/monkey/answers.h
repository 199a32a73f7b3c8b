#pragma once

#include "support/fake_transport.h"

namespace vantor::monkey {

/// Ends a request: `choice` says with what, from a good answer of some length to a failure.
void end(test::FakeTransport::Exchange& exchange, std::uint32_t choice);
/// With the answer of a provider where all is well and a library has `rows` entries.
void endWell(test::FakeTransport::Exchange& exchange, int rows);
/// Whether the request is for a stream itself.
bool isForStream(const test::FakeTransport::Exchange& exchange);

}  // namespace vantor::monkey
