#include "provider/folded_text.h"

#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/locid.h>
#include <unicode/normalizer2.h>
#include <unicode/stringpiece.h>

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
  icu::StringByteSink<std::string> sink(&folded);
  nfc->normalizeUTF8(0, cased, sink, nullptr, status);
}

std::string folded(std::string_view utf8) {
  std::string result;
  appendFolded(utf8, result);
  return result;
}

}  // namespace vantor
