#include "library/folded_text.h"

#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/locid.h>
#include <unicode/normalizer2.h>
#include <unicode/stringpiece.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <cstring>

namespace vantor {
namespace {

/// Turkish and Azeri tell dotted and dotless i apart.
bool dotlessLanguage() {
  static const bool dotless = [] {
    const char* language = icu::Locale::getDefault().getLanguage();
    return std::strcmp(language, "tr") == 0 || std::strcmp(language, "az") == 0;
  }();
  return dotless;
}

bool isASCII(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return static_cast<signed char>(c) >= 0; });
}

/// Leaves out marks that follow each other without end: putting a run of them into its order takes
/// time that grows with the square of its length. No writing has as many as Unicode's stream-safe
/// format allows, which is as many as are kept.
void boundRunsOfMarks(std::string& utf8, const icu::Normalizer2& normalizer) {
  constexpr int longestRun = 30;
  constexpr std::size_t bytesOfMark = 2;  // at least
  if (utf8.size() <= longestRun * bytesOfMark) return;
  const auto size = static_cast<int32_t>(utf8.size());
  int32_t read = 0;
  int32_t kept = 0;
  int run = 0;
  while (read < size) {
    const int32_t begin = read;
    UChar32 code = 0;
    U8_NEXT(utf8.data(), read, size, code);
    run = code < 0 || normalizer.hasBoundaryBefore(code) ? 0 : run + 1;
    if (run > longestRun) continue;
    std::memmove(&utf8[static_cast<std::size_t>(kept)], &utf8[static_cast<std::size_t>(begin)],
                 static_cast<std::size_t>(read - begin));
    kept += read - begin;
  }
  utf8.resize(static_cast<std::size_t>(kept));
}

}  // namespace

void appendFolded(std::string_view utf8, std::string& folded) {
  if (isASCII(utf8) && !dotlessLanguage()) {
    const std::size_t start = folded.size();
    folded.append(utf8);
    for (std::size_t i = start; i < folded.size(); ++i) {
      const char c = folded[i];
      folded[i] = static_cast<char>(c | (static_cast<unsigned char>(c - 'A') < 26 ? 0x20 : 0));
    }
    return;
  }
  UErrorCode status = U_ZERO_ERROR;
  const icu::Normalizer2* nfc = icu::Normalizer2::getNFCInstance(status);
  if (U_FAILURE(status)) {
    folded.append(utf8);
    return;
  }
  const std::uint32_t options =
      dotlessLanguage() ? U_FOLD_CASE_EXCLUDE_SPECIAL_I : U_FOLD_CASE_DEFAULT;
  std::string cased;
  icu::StringByteSink<std::string> casedSink(&cased);
  icu::CaseMap::utf8Fold(options, icu::StringPiece(utf8.data(), static_cast<int32_t>(utf8.size())),
                         casedSink, nullptr, status);
  boundRunsOfMarks(cased, *nfc);
  icu::StringByteSink<std::string> sink(&folded);
  nfc->normalizeUTF8(0, cased, sink, nullptr, status);
}

std::string folded(std::string_view utf8) {
  std::string result;
  appendFolded(utf8, result);
  return result;
}

}  // namespace vantor
