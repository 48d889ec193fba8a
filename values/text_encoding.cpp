#include "values/text_encoding.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace velta {

namespace {

constexpr unsigned kFirstBeyondAscii = 0x80;

// Windows-1250 from 0x80 on. The table is our own, for not every build of Qt knows that encoding.
constexpr std::array<std::string_view, 128> kWindows1250 = {
    "€",      "\uFFFD", "‚", "\uFFFD", "„", "…",      "†", "‡",  //
    "\uFFFD", "‰",      "Š", "‹",      "Ś", "Ť",      "Ž", "Ź",  //
    "\uFFFD", "‘",      "’", "“",      "”", "•",      "–", "—",  //
    "\uFFFD", "™",      "š", "›",      "ś", "ť",      "ž", "ź",  //
    "\u00A0", "ˇ",      "˘", "Ł",      "¤", "Ą",      "¦", "§",  //
    "¨",      "©",      "Ş", "«",      "¬", "\u00AD", "®", "Ż",  //
    "°",      "±",      "˛", "ł",      "´", "µ",      "¶", "·",  //
    "¸",      "ą",      "ş", "»",      "Ľ", "˝",      "ľ", "ż",  //
    "Ŕ",      "Á",      "Â", "Ă",      "Ä", "Ĺ",      "Ć", "Ç",  //
    "Č",      "É",      "Ę", "Ë",      "Ě", "Í",      "Î", "Ď",  //
    "Đ",      "Ń",      "Ň", "Ó",      "Ô", "Ő",      "Ö", "×",  //
    "Ř",      "Ů",      "Ú", "Ű",      "Ü", "Ý",      "Ţ", "ß",  //
    "ŕ",      "á",      "â", "ă",      "ä", "ĺ",      "ć", "ç",  //
    "č",      "é",      "ę", "ë",      "ě", "í",      "î", "ď",  //
    "đ",      "ń",      "ň", "ó",      "ô", "ő",      "ö", "÷",  //
    "ř",      "ů",      "ú", "ű",      "ü", "ý",      "ţ", "˙",  //
};

/// How many bytes the UTF-8 character has that `text` begins with; 0 where that is none.
std::size_t CharacterLength(std::string_view text) {
  const auto byte = [&](std::size_t i) -> unsigned { return static_cast<unsigned char>(text[i]); };
  const unsigned first = byte(0);
  if (first < kFirstBeyondAscii) return 1;
  const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
  if (first < 0xC2 || first > 0xF4 || text.size() < length) return 0;
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xC0U) != 0x80U) return 0;
  }
  // Longer than need be, a half of a UTF-16 pair, or beyond the last character.
  const unsigned second = byte(1);
  if ((first == 0xE0 && second < 0xA0) || (first == 0xED && second >= 0xA0) ||
      (first == 0xF0 && second < 0x90) || (first == 0xF4 && second >= 0x90)) {
    return 0;
  }
  return length;
}

}  // namespace

bool IsUtf8(std::string_view bytes) {
  while (!bytes.empty()) {
    // Most texts are mostly ASCII, of which eight characters are told at once.
    std::uint64_t next = 0;
    if (bytes.size() >= sizeof next) {
      std::memcpy(&next, bytes.data(), sizeof next);
      if ((next & 0x8080808080808080U) == 0) {
        bytes.remove_prefix(sizeof next);
        continue;
      }
    }
    const std::size_t length = CharacterLength(bytes);
    if (length == 0) return false;
    bytes.remove_prefix(length);
  }
  return true;
}

std::string FromWindows1250(std::string_view bytes) {
  std::string text;
  for (const char byte : bytes) {
    const auto code = static_cast<unsigned char>(byte);
    if (code < kFirstBeyondAscii) {
      text += byte;
    } else {
      text += kWindows1250.at(code - kFirstBeyondAscii);
    }
  }
  return text;
}

std::string DecodedText(std::string_view bytes) {
  return IsUtf8(bytes) ? std::string(bytes) : FromWindows1250(bytes);
}

}  // namespace velta
