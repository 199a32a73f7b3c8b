#pragma once

#include <gtest/gtest.h>
#include <httplib.h>
#include <rapidjson/document.h>

#include <string>

#include "sim/http.h"
#include "sim/server.h"

namespace sim {

inline httplib::Client clientOf(const Server& server) {
  httplib::Client client("127.0.0.1", server.port());
  // Addresses go out exactly as written here.
  client.set_url_encode(false);
  // Under a sanitizer the largest library takes its time.
  client.set_read_timeout(30);
  return client;
}

inline httplib::Result get(const Server& server, const std::string& target) {
  return clientOf(server).Get(target);
}

inline std::string apiTarget(const std::string& actionAndMore = "",
                             const std::string& username = Options().username,
                             const std::string& password = Options().password) {
  return "/player_api.php?username=" + percentEncode(username) +
         "&password=" + percentEncode(password) +
         (actionAndMore.empty() ? "" : "&action=" + actionAndMore);
}

inline std::string streamTarget(const std::string& kind, const std::string& file) {
  return "/" + kind + "/demo/" + percentEncode(Options().password) + "/" + file;
}

inline rapidjson::Document getJson(const Server& server, const std::string& target) {
  const auto answer = get(server, target);
  rapidjson::Document document;
  if (answer) document.Parse(answer->body.c_str(), answer->body.size());
  return document;
}

}  // namespace sim
