#include "sim/http.h"

#include <algorithm>
#include <cctype>
#include <charconv>

namespace sim {
namespace {

std::string lowerCase(std::string_view text) {
  std::string lower(text);
  std::ranges::transform(lower, lower.begin(),
                         [](unsigned char letter) { return std::tolower(letter); });
  return lower;
}

std::string_view trim(std::string_view text) {
  while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
  while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) text.remove_suffix(1);
  return text;
}

std::vector<std::string_view> split(std::string_view text, char separator) {
  std::vector<std::string_view> pieces;
  while (true) {
    const auto end = text.find(separator);
    pieces.push_back(text.substr(0, end));
    if (end == std::string_view::npos) return pieces;
    text.remove_prefix(end + 1);
  }
}

std::string_view reason(int status) {
  switch (status) {
    case 200:
      return "OK";
    case 206:
      return "Partial Content";
    case 302:
      return "Found";
    case 401:
      return "Unauthorized";
    case 403:
      return "Forbidden";
    case 404:
      return "Not Found";
    case 405:
      return "Method Not Allowed";
    case 416:
      return "Range Not Satisfiable";
    case 503:
      return "Service Unavailable";
    default:
      return "Internal Server Error";
  }
}

void parseTarget(Request& request) {
  std::string_view path = request.target;
  const auto question = path.find('?');
  if (question != std::string_view::npos) {
    for (const auto pair : split(path.substr(question + 1), '&')) {
      if (pair.empty()) continue;
      const auto equals = pair.find('=');
      const auto value =
          equals == std::string_view::npos ? std::string_view() : pair.substr(equals + 1);
      request.query[percentDecode(pair.substr(0, equals), true)] = percentDecode(value, true);
    }
    path = path.substr(0, question);
  }
  path.remove_prefix(1);
  for (const auto segment : split(path, '/')) {
    request.segments.push_back(percentDecode(segment, false));
  }
}

}  // namespace

std::string Request::header(const std::string& name) const {
  const auto found = headers.find(name);
  return found == headers.end() ? std::string() : found->second;
}

std::string Request::queryValue(const std::string& name) const {
  const auto found = query.find(name);
  return found == query.end() ? std::string() : found->second;
}

Response textResponse(int status, std::string body, std::string contentType) {
  return {.status = status,
          .contentType = std::move(contentType),
          .body = std::make_shared<const std::string>(std::move(body))};
}

Response jsonResponse(std::string body) {
  return textResponse(200, std::move(body), "application/json");
}

Response errorResponse(int status) {
  const auto text = std::to_string(status) + " " + std::string(reason(status));
  return textResponse(status, "<html><body><h1>" + text + "</h1></body></html>\n", "text/html");
}

std::optional<Request> parseRequest(std::string_view head) {
  const auto lines = split(head, '\n');
  const auto words = split(trim(lines[0].substr(0, lines[0].find('\r'))), ' ');
  if (words.size() != 3 || !words[2].starts_with("HTTP/1.") || !words[1].starts_with('/')) {
    return std::nullopt;
  }
  Request request;
  request.method = words[0];
  request.target = words[1];
  for (std::size_t i = 1; i < lines.size(); ++i) {
    const auto line = lines[i].substr(0, lines[i].find('\r'));
    const auto colon = line.find(':');
    if (colon == std::string_view::npos) continue;
    request.headers[lowerCase(line.substr(0, colon))] = trim(line.substr(colon + 1));
  }
  const auto connection = lowerCase(request.header("connection"));
  request.keepAlive = words[2] == "HTTP/1.0" ? connection == "keep-alive" : connection != "close";
  parseTarget(request);
  return request;
}

std::string responseHead(const Response& response, std::optional<unsigned long long> length,
                         bool keepAlive) {
  std::string head = "HTTP/1.1 " + std::to_string(response.status) + " ";
  head += reason(response.status);
  head += "\r\nServer: sim\r\n";
  if (!response.contentType.empty()) head += "Content-Type: " + response.contentType + "\r\n";
  if (length) head += "Content-Length: " + std::to_string(*length) + "\r\n";
  for (const auto& [name, value] : response.headers) head += name + ": " + value + "\r\n";
  head += keepAlive ? "Connection: keep-alive\r\n\r\n" : "Connection: close\r\n\r\n";
  return head;
}

std::string percentDecode(std::string_view text, bool plusIsSpace) {
  std::string decoded;
  for (std::size_t i = 0; i < text.size(); ++i) {
    unsigned value = 0;
    const auto* digits = text.data() + i + 1;
    if (text[i] == '%' && i + 2 < text.size() &&
        std::from_chars(digits, digits + 2, value, 16).ptr == digits + 2) {
      decoded += static_cast<char>(value);
      i += 2;
    } else {
      decoded += plusIsSpace && text[i] == '+' ? ' ' : text[i];
    }
  }
  return decoded;
}

std::string percentEncode(std::string_view text) {
  constexpr std::string_view hexDigits = "0123456789ABCDEF";
  std::string encoded;
  for (const unsigned char byte : text) {
    if (std::isalnum(byte) || byte == '-' || byte == '.' || byte == '_' || byte == '~') {
      encoded += static_cast<char>(byte);
    } else {
      encoded += {'%', hexDigits[byte >> 4], hexDigits[byte & 15]};
    }
  }
  return encoded;
}

}  // namespace sim
