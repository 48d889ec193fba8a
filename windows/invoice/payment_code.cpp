#include "windows/invoice/payment_code.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <regex>

#include "values/blanks.h"
#include "values/letters.h"

namespace velta {

namespace {

bool IsDigit(char c) { return '0' <= c && c <= '9'; }
bool IsCapital(char c) { return 'A' <= c && c <= 'Z'; }

bool AreDigits(std::string_view text, std::size_t least, std::size_t most) {
  return least <= text.size() && text.size() <= most &&
         std::all_of(text.begin(), text.end(), IsDigit);
}

std::string InCapitals(std::string text) {
  for (char& c : text) {
    if ('a' <= c && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return text;
}

std::string Padded(std::string_view digits, std::size_t length) {
  return std::string(length - digits.size(), '0').append(digits);
}

/// The remainder of an IBAN by 97, as its check counts: the country and the check digits stand at
/// the end, and a letter is a number of two digits, A 10 and Z 35. A right IBAN leaves 1.
int Remainder97(std::string_view iban) {
  constexpr std::size_t kHead = 4;
  int remainder = 0;
  const std::string turned = std::string(iban.substr(kHead)).append(iban.substr(0, kHead));
  for (const char c : turned) {
    remainder = IsDigit(c) ? remainder * 10 + (c - '0') : remainder * 100 + (c - 'A' + 10);
    remainder %= 97;
  }
  return remainder;
}

std::optional<std::string> RightIban(std::string_view text) {
  constexpr std::size_t kShortest = 15;
  constexpr std::size_t kLongest = 34;
  constexpr std::size_t kCzech = 24;
  const std::string iban = InCapitals(std::string(text));
  if (iban.size() < kShortest || iban.size() > kLongest) return std::nullopt;
  if (!IsCapital(iban[0]) || !IsCapital(iban[1]) || !AreDigits(iban.substr(2, 2), 2, 2) ||
      !std::all_of(iban.begin(), iban.end(), [](char c) { return IsDigit(c) || IsCapital(c); })) {
    return std::nullopt;
  }
  if (iban.starts_with("CZ") && !AreDigits(iban.substr(2), kCzech - 2, kCzech - 2)) {
    return std::nullopt;
  }
  return Remainder97(iban) == 1 ? std::optional(iban) : std::nullopt;
}

/// The check of Czech account numbers and of their prefixes: the digits, weighted from the last
/// one, add up to a multiple of 11.
bool HasRightCheck(std::string_view digits) {
  constexpr std::array<int, 10> kWeights = {1, 2, 4, 8, 5, 10, 9, 7, 3, 6};
  int sum = 0;
  for (std::size_t i = 0; i < digits.size(); ++i) {
    sum += kWeights.at(i) * (digits[digits.size() - 1 - i] - '0');
  }
  return sum % 11 == 0;
}

/// The IBAN of a Czech account number; nullopt where the text is no right one.
std::optional<std::string> IbanOfNumber(std::string_view text) {
  constexpr std::size_t kPrefix = 6;
  constexpr std::size_t kNumber = 10;
  constexpr std::size_t kBank = 4;
  const std::size_t slash = text.find('/');
  if (slash == std::string_view::npos) return std::nullopt;
  const std::string_view bank = text.substr(slash + 1);
  std::string_view number = text.substr(0, slash);
  std::string_view prefix = "0";
  if (const std::size_t hyphen = number.find('-'); hyphen != std::string_view::npos) {
    prefix = number.substr(0, hyphen);
    number.remove_prefix(hyphen + 1);
  }
  if (!AreDigits(prefix, 1, kPrefix) || !AreDigits(number, 2, kNumber) ||
      !AreDigits(bank, kBank, kBank) || !HasRightCheck(prefix) || !HasRightCheck(number)) {
    return std::nullopt;
  }
  // Nothing but zeros would pass the check; two digits at least must be others.
  if (std::count(number.begin(), number.end(), '0') + 2 > std::ssize(number)) return std::nullopt;
  std::string iban = "CZ00" + std::string(bank) + Padded(prefix, kPrefix) + Padded(number, kNumber);
  iban.replace(2, 2, Padded(std::to_string(98 - Remainder97(iban)), 2));
  return iban;
}

std::optional<std::string> Iban(std::string_view text) {
  const auto iban = IbanOfNumber(text);
  return iban ? iban : RightIban(text);
}

/// The text with ordinary blanks and hyphens alone: banks' web pages have unbreakable ones, word
/// processors make a dash of a hyphen. Those of a number lose their blanks: "19 - 2000145399".
std::string InOneForm(std::string_view text) {
  constexpr std::array<std::string_view, 5> kDashes = {"\u2010", "\u2011", "\u2012", "\u2013",
                                                       "\u2212"};
  std::string form;
  while (!text.empty()) {
    const std::string_view rest = SkipBlanks(text);
    if (rest.size() < text.size()) {
      form += ' ';
      text = rest;
      continue;
    }
    const auto* const dash =
        std::find_if(kDashes.begin(), kDashes.end(),
                     [&](std::string_view sign) { return text.starts_with(sign); });
    form += dash == kDashes.end() ? text.front() : '-';
    text.remove_prefix(dash == kDashes.end() ? 1 : dash->size());
  }
  static const std::regex kWithinNumber("([0-9]) ?([-/]) ?(?=[0-9])");
  return std::regex_replace(form, kWithinNumber, "$1$2");
}

/// The text without its blanks and without "IBAN" before it.
std::string WithoutBlanks(std::string text) {
  std::erase(text, ' ');
  for (const std::string_view title : {"IBAN:", "IBAN"}) {
    if (text.starts_with(title)) return text.substr(title.size());
  }
  return text;
}

/// Whether a number may have begun before a word, written in groups or with an odd hyphen, and only
/// end in it. Such a word is no account: by itself it may be the right number of somebody else's.
bool MayGoOnIn(std::string_view before) {
  const std::size_t digit = before.find_last_of("0123456789");
  if (digit == std::string_view::npos) return false;
  const std::string between = InCapitals(std::string(before.substr(digit)));
  return std::none_of(between.begin(), between.end(), [](char c) {
    return IsCapital(c) || std::string_view(",;:()\r\n").find(c) != std::string_view::npos;
  });
}

/// The text as the code may carry it: capitals, no accents, and no character that means something
/// to the code.
std::string Escaped(std::string_view text) {
  std::string escaped;
  for (const char c : InCapitals(PlainAscii(text))) {
    if (c == '*') {
      escaped += "%2A";
    } else if (c == '%') {
      escaped += "%25";
    } else if (' ' <= c && c <= '~') {
      escaped += c;
    }
  }
  return escaped;
}

std::string Message(std::string_view invoice_number) {
  constexpr std::size_t kLongest = 60;
  std::string message = "PENALIZACNI FAKTURA";
  if (!invoice_number.empty()) message += " " + Escaped(invoice_number);
  if (message.size() <= kLongest) return message;
  // Never cut through an escaped character: a piece of "%2A" would spoil the code.
  const std::size_t escape = message.find('%', kLongest - 2);
  return message.substr(0, std::min(escape, kLongest));
}

std::string Day(Date date) {
  const std::chrono::year_month_day day(date);
  return Padded(std::to_string(static_cast<int>(day.year())), 4) +
         Padded(std::to_string(static_cast<unsigned>(day.month())), 2) +
         Padded(std::to_string(static_cast<unsigned>(day.day())), 2);
}

}  // namespace

std::optional<std::string> IbanIn(std::string_view text) {
  const std::string form = InOneForm(text);
  if (auto iban = Iban(WithoutBlanks(form))) return iban;

  std::optional<std::string> found;
  const std::string_view words = form;
  for (std::size_t begin = 0, end = 0; begin < words.size(); begin = end + 1) {
    end = std::min(words.find_first_of(" .,;:()\t\r\n", begin), words.size());
    const std::string_view word = words.substr(begin, end - begin);
    const auto iban = MayGoOnIn(words.substr(0, begin)) ? RightIban(word) : Iban(word);
    if (!iban) continue;
    if (found && found != iban) return std::nullopt;
    found = iban;
  }
  return found;
}

std::optional<std::string> PaymentCode(std::string_view account, std::string_view amount, Date due,
                                       std::string_view invoice_number) {
  constexpr std::size_t kLongestAmount = 10;
  constexpr std::size_t kLongestSymbol = 10;
  const auto iban = IbanIn(account);
  if (!iban || amount.starts_with('-') || amount == "0.00" || amount.size() > kLongestAmount) {
    return std::nullopt;
  }
  std::string code = "SPD*1.0*ACC:" + *iban;
  code.append("*AM:").append(amount).append("*CC:CZK");
  if (AreDigits(invoice_number, 1, kLongestSymbol)) code.append("*X-VS:").append(invoice_number);
  return code.append("*DT:").append(Day(due)).append("*MSG:").append(Message(invoice_number));
}

}  // namespace velta
