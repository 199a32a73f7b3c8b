#include "library/name_search.h"

#include <gtest/gtest.h>

#include "library/catalog_builder.h"
#include "library/folded_text.h"

namespace vantor::test {
namespace {

using namespace Qt::StringLiterals;
using Rows = std::vector<std::uint32_t>;

/// Names of few letters, so that texts are nearly in them, and of every length around what is
/// compared at once; the last ones end where nothing may be read any more.
std::vector<std::string> awkwardNames() {
  std::vector<std::string> names{
      "\xC3\xA9t\xC3\xA9",    "Stra\xC3\x9F\x65",   "E\xCC\x81", "\xD0\x90",
      std::string("a\0b", 3), "\xF0\x9F\x8E\x84 a", "Ab",        "aB"};
  std::uint32_t random = 1;
  for (int round = 0; round < 12; ++round)
    for (std::size_t length = 0; length < 80; ++length) {
      std::string name;
      while (name.size() < length) {
        random = random * 1'664'525 + 1'013'904'223;
        name += "abA \xC3\xA9"[random >> 29 & 3];
      }
      names.push_back(name);
    }
  names.insert(names.end(), {"ab", "", "a", "abab"});
  return names;
}

TEST(NameSearch, FindsWhatALookAtEachNameFinds) {
  const std::vector<std::string> names = awkwardNames();
  CatalogBuilder builder;
  for (std::size_t i = 0; i < names.size(); ++i)
    builder.add(
        {.providerID = std::to_string(i), .name = names[i], .category = i % 3 == 0 ? "x" : "y"});
  const Catalog catalog = builder.build(Catalog::Time());
  const auto expected = [&](const std::string& text, bool onlyX) {
    Rows rows;
    for (std::uint32_t i = 0; i < names.size(); ++i)
      if ((!onlyX || i % 3 == 0) && folded(names[i]).find(text) != std::string::npos)
        rows.push_back(i);
    return rows;
  };
  std::vector<std::string> texts{"\xC3\xA9",
                                 "ss",
                                 "e",
                                 "\xD0\xB0",
                                 std::string("\0b", 2),
                                 "bab abab",
                                 "z",
                                 std::string(40, 'a'),
                                 std::string(200, 'b')};
  for (const char* first : {"a", "b", " ", "ab", "ba", "a a"})
    for (const char* next : {"", "a", "bb", " a", "aab", "b a b", "a aa aa"})
      texts.push_back(std::string(first) + next);
  std::size_t found = 0;
  for (const std::string& text : texts) {
    Rows rows;
    catalog.match({QString(), text}, rows);
    ASSERT_EQ(rows, expected(text, false)) << text;
    found += rows.size();
    Rows inCategory;
    catalog.match({u"x"_s, text}, inCategory);
    ASSERT_EQ(inCategory, expected(text, true)) << text;
    for (std::size_t length = 1; length < text.size(); ++length) {
      constexpr std::uint32_t base = 1u << 30;
      Rows before = expected(text.substr(0, length), false);
      for (std::uint32_t& row : before) row += base;
      Rows kept{7};
      catalog.narrow(before, base, text, kept);
      for (std::size_t i = 1; i < kept.size(); ++i) kept[i] -= base;
      kept.erase(kept.begin());
      ASSERT_EQ(kept, rows) << text << " after " << length;
    }
  }
  EXPECT_GT(found, names.size());
}

}  // namespace
}  // namespace vantor::test
