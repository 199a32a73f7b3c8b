// HTTP by hand, since a server library sends nothing but proper answers: here a body is shorter or
// longer than announced, the status line random bytes, and a request is left without an answer.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace sim {

struct Request {
  std::string method;
  // Path and query as sent.
  std::string target;
  // Decoded one by one, so that an escaped slash stays inside its segment.
  std::vector<std::string> segments;
  // Decoded as forms are, "+" being a space; the last of equal names wins.
  std::map<std::string, std::string> query;
  // Names in lower case.
  std::map<std::string, std::string> headers;
  bool keepAlive = true;

  std::string header(const std::string& name) const;
  std::string queryValue(const std::string& name) const;
};

struct Response {
  int status = 200;
  std::string contentType;
  std::shared_ptr<const std::string> body = std::make_shared<const std::string>();
  std::vector<std::pair<std::string, std::string>> headers;
};

Response textResponse(int status, std::string body, std::string contentType);
Response jsonResponse(std::string body);
Response errorResponse(int status);

// Nothing when the head is no request of HTTP/1.
std::optional<Request> parseRequest(std::string_view head);

// Status line and headers with the empty line; an absent length announces none.
std::string responseHead(const Response& response, std::optional<unsigned long long> length,
                         bool keepAlive);

std::string percentDecode(std::string_view text, bool plusIsSpace);
std::string percentEncode(std::string_view text);

}  // namespace sim
