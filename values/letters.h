#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Characters and letters with accents, in UTF-8.
namespace velta {

/// The cells of a line, as it is printed: each a character with the combining marks that follow it.
std::vector<std::string_view> Cells(std::string_view text);

/// The text with each letter and the mark that follows it made into one character, where there is
/// such a one in the European languages: some programs hand over "e" and U+030C for "ě".
std::string Composed(std::string_view text);

/// The text without accents and without what is not ASCII even so: "Žluťoučký kůň 5 €" is
/// "Zlutoucky kun 5 ".
std::string PlainAscii(std::string_view text);

}  // namespace velta
