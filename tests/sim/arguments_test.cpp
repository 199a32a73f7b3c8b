#include "sim/arguments.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace sim {
namespace {

TEST(SimArguments, LaterOptionsRefineEarlierOnes) {
  const auto arguments = parseArguments({"--size", "500", "--shows=7", "--password", "a=b", "--tls",
                                         "--fault=sign-in=slow", "--fault", "live=cutOff"});
  EXPECT_EQ(arguments.options.movies, 500);
  EXPECT_EQ(arguments.options.shows, 7);
  EXPECT_EQ(arguments.options.password, "a=b");
  EXPECT_TRUE(arguments.options.tls);
  EXPECT_EQ(arguments.faults, (std::vector<std::pair<std::string, Fault>>{
                                  {"", Fault::slow}, {"live", Fault::cutOff}}));
  EXPECT_EQ(arguments.answer, "");
  EXPECT_NE(parseArguments({"--tls", "--help"}).answer.find("--fault ACTION=FAULT"),
            std::string::npos);
}

TEST(SimArguments, MistakesAreRefusedWithAHint) {
  const std::pair<std::vector<std::string>, const char*> mistakes[] = {
      {{"--port"}, "--help"},
      {{"--port", "70000"}, "from 0 to 65535"},
      {{"--size", "many"}, "from 0 to 1000000"},
      {{"--fault", "live"}, "ACTION=FAULT"},
      {{"--fault", "live=odd"}, "ACTION=FAULT"},
      {{"--base-path", "base"}, "slash"},
      {{"--tls=yes"}, "--help"},
      {{"--tsl"}, "--help"},
      {{"stray"}, "--help"}};
  for (const auto& [words, hint] : mistakes)
    EXPECT_THAT([&] { parseArguments(words); },
                testing::ThrowsMessage<std::runtime_error>(testing::HasSubstr(hint)))
        << words.back();
}

}  // namespace
}  // namespace sim
