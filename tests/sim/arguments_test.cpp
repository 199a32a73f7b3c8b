#include "sim/arguments.h"

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
  ASSERT_EQ(arguments.faults.size(), 2u);
  EXPECT_EQ(arguments.faults[0], std::pair(std::string(), Fault::slow));
  EXPECT_EQ(arguments.faults[1], std::pair(std::string("live"), Fault::cutOff));
}

TEST(SimArguments, MistakesAreRefused) {
  for (const auto& words : {std::vector<std::string>{"--port"},
                            {"--port", "70000"},
                            {"--size", "many"},
                            {"--fault", "live"},
                            {"--fault", "live=odd"},
                            {"--base-path", "base"},
                            {"--tsl"},
                            {"stray"}}) {
    EXPECT_THROW(parseArguments(words), std::runtime_error) << words.front();
  }
}

}  // namespace
}  // namespace sim
