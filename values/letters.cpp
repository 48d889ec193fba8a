#include "values/letters.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace velta {

namespace {

/// Takes the character off that `text` begins with.
std::string_view TakeCharacter(std::string_view& text) {
  std::size_t length = 1;
  while (length < text.size() && (static_cast<unsigned char>(text[length]) & 0xC0U) == 0x80U) {
    ++length;
  }
  const std::string_view character = text.substr(0, length);
  text.remove_prefix(length);
  return character;
}

/// Whether the character has no place of its own: it is drawn onto the one before it.
bool IsCombiningMark(std::string_view character) {
  struct Range {
    std::string_view first;
    std::string_view last;
  };
  // UTF-8 sorts as the characters do.
  static constexpr std::array<Range, 5> kMarks = {{{"\u0300", "\u036F"},
                                                   {"\u1AB0", "\u1AFF"},
                                                   {"\u1DC0", "\u1DFF"},
                                                   {"\u20D0", "\u20FF"},
                                                   {"\uFE20", "\uFE2F"}}};
  return std::any_of(kMarks.begin(), kMarks.end(), [&](const Range& marks) {
    return marks.first <= character && character <= marks.last;
  });
}

/// A combining mark, the letters that it goes with and what they become.
struct Accent {
  std::string_view mark;
  std::string_view letters;
  std::string_view composed;  // as many characters, in the same order
};
constexpr std::array<Accent, 14> kAccents = {{
    {"\u0300", "aeinouAEINOU", "àèìǹòùÀÈÌǸÒÙ"},
    {"\u0301", "aceilnorsuyzACEILNORSUYZ", "áćéíĺńóŕśúýźÁĆÉÍĹŃÓŔŚÚÝŹ"},
    {"\u0302", "aceghijosuwyACEGHIJOSUWY", "âĉêĝĥîĵôŝûŵŷÂĈÊĜĤÎĴÔŜÛŴŶ"},
    {"\u0303", "ainouAINOU", "ãĩñõũÃĨÑÕŨ"},
    {"\u0304", "aeiouAEIOU", "āēīōūĀĒĪŌŪ"},
    {"\u0306", "aegiouAEGIOU", "ăĕğĭŏŭĂĔĞĬŎŬ"},
    {"\u0307", "cegzCEGIZ", "ċėġżĊĖĠİŻ"},
    {"\u0308", "aeiouyAEIOUY", "äëïöüÿÄËÏÖÜŸ"},
    {"\u030A", "auAU", "åůÅŮ"},
    {"\u030B", "ouOU", "őűŐŰ"},
    {"\u030C", "cdelnrstzCDELNRSTZ", "čďěľňřšťžČĎĚĽŇŘŠŤŽ"},
    {"\u0326", "stST", "șțȘȚ"},
    {"\u0327", "cgklnrstCGKLNRST", "çģķļņŗşţÇĢĶĻŅŖŞŢ"},
    {"\u0328", "aeiuAEIU", "ąęįųĄĘĮŲ"},
}};

/// Each of these letters has two bytes.
std::string_view ComposedAt(const Accent& accent, std::size_t letter) {
  return accent.composed.substr(2 * letter, 2);
}

/// The letter with the first of its marks; empty where there is no such character.
std::string_view ComposedLetter(std::string_view cell) {
  for (const Accent& accent : kAccents) {
    if (!cell.substr(1).starts_with(accent.mark)) continue;
    const std::size_t letter = accent.letters.find(cell.front());
    return letter == std::string_view::npos ? "" : ComposedAt(accent, letter);
  }
  return "";
}

/// The ASCII character under an accent; empty where there is none.
std::string_view BareLetter(std::string_view character) {
  for (const Accent& accent : kAccents) {
    for (std::size_t i = 0; i < accent.letters.size(); ++i) {
      if (ComposedAt(accent, i) == character) return accent.letters.substr(i, 1);
    }
  }
  return "";
}

bool IsAscii(char c) { return static_cast<unsigned char>(c) < 0x80U; }

}  // namespace

std::vector<std::string_view> Cells(std::string_view text) {
  std::vector<std::string_view> cells;
  while (!text.empty()) {
    const std::string_view character = TakeCharacter(text);
    if (cells.empty() || !IsCombiningMark(character)) {
      cells.push_back(character);
    } else {
      cells.back() = {cells.back().data(), cells.back().size() + character.size()};
    }
  }
  return cells;
}

std::string Composed(std::string_view text) {
  constexpr std::size_t kMarkLength = 2;
  std::string composed;
  for (std::string_view cell : Cells(text)) {
    if (const std::string_view letter = ComposedLetter(cell); !letter.empty()) {
      composed += letter;
      cell.remove_prefix(1 + kMarkLength);
    }
    composed += cell;
  }
  return composed;
}

std::string PlainAscii(std::string_view text) {
  std::string plain;
  const std::string composed = Composed(text);
  for (const std::string_view cell : Cells(composed)) {
    plain += IsAscii(cell.front()) ? cell.substr(0, 1) : BareLetter(cell.substr(0, 2));
  }
  return plain;
}

}  // namespace velta
