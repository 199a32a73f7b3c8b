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
  for (const auto& [words, hint] : mistakes) {
    try {
      parseArguments(words);
      ADD_FAILURE() << words.back() << " is taken";
    } catch (const std::runtime_error& error) {
      EXPECT_NE(std::string(error.what()).find(hint), std::string::npos) << error.what();
    }
  }
}

TEST(SimArguments, HelpNamesOptionsAndFaultsAndVersionTheProgram) {
  EXPECT_EQ(parseArguments({"--tls"}).answer, "");
  const auto help = parseArguments({"--tls", "--help"}).answer;
  for (const char* word : {"--port NUMBER", "--fault ACTION=FAULT", "--help", "cutOff"}) {
    EXPECT_NE(help.find(word), std::string::npos) << word;
  }
  EXPECT_TRUE(parseArguments({"--version"}).answer.starts_with("vantor-sim "));
}

}  // namespace
}  // namespace sim
