#pragma once

#include <string>
#include <string_view>

namespace vantor {

/// Appends `utf8` to `folded` in the form in which names are compared: letter case folded by the
/// rules of the user's language, canonically equivalent spellings made equal. UTF-8 in and out.
void appendFolded(std::string_view utf8, std::string& folded);

std::string folded(std::string_view utf8);

}  // namespace vantor
