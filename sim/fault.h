#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sim {

// What an action does in place of its proper answer.
enum class Fault {
  none,
  slow,               // answers after 1 s, then in 16 pieces 250 ms apart; channels at a quarter of
                      // their speed
  silent,             // takes the request and never answers
  cutOff,             // closes half-way through the body; channels after their first seconds
  unsteady,           // of two requests one is cut off, the other fails: 503, empty or notHttp
  oversizeAnnounced,  // announces 32 GiB and sends filler
  oversizeUnannounced,  // sends up to 256 MiB of filler without announcing a length
  oversizeGzip,         // gigabytes in a few kilobytes or megabytes, whatever the client accepts
  oversizeDeflate,
  oversizeBrotli,
  oversizeZstd,
  redirectSameOrigin,   // one redirect; the second request gets the proper answer
  redirectOversize,     // the same, announcing a body of 32 GiB
  redirectOtherPort,    // to a port that answers as well
  redirectOtherHost,    // to another name of the same machine
  redirectOtherScheme,  // from http to https or back, on the same port
  redirectLoop,         // same origin, without an end
  status401,
  status403,
  status404,
  status500,
  status503,
  html,             // a log-in page with status 200
  truncatedJson,    // a complete answer whose body stops half-way
  deepNesting,      // 200,000 opening brackets
  expiredAccount,   // sign-in: status "Expired"; everything else as after a wrong password
  connectionLimit,  // sign-in: all connections in use; streams: 403 while one is open
  garbage,          // status 200 with a random body
  notHttp,          // random bytes instead of a status line
  empty,            // status 200 without a body
  wrongShape,       // an object where a list belongs, a list where an object belongs
  invalidUtf8,      // texts with bytes that are no UTF-8, and NUL escapes
  ignoresCategory,  // all entries of a library, whatever category is asked for
  hugeImage,        // a small PNG of 30,000 by 30,000 pixels
};

// Where an answer breaks off.
enum class Moment { beforeHead, inHead, inBody, beforeLastByte };

// Whether the client hears that nothing more comes.
enum class Ending { closed, silent };

// Whatever the answer is, this is how much of it comes.
struct BreakOff {
  Moment moment;
  Ending ending;
};

// Name as in the enumeration, such as "cutOff".
std::string_view faultName(Fault fault);
std::optional<Fault> faultNamed(std::string_view name);
std::vector<std::string_view> faultNames();

}  // namespace sim
