#include "windows/invoice/payment_code.h"

#include <gtest/gtest.h>

#include <optional>
#include <ostream>
#include <string>

#include "tests/support/day.h"

namespace velta {
namespace {

struct AccountCase {
  const char* name;
  const char* text;
  const char* iban;  // nullptr: none

  friend void PrintTo(const AccountCase& tested, std::ostream* out) { *out << tested.name; }
};

class IbanInTest : public ::testing::TestWithParam<AccountCase> {};

TEST_P(IbanInTest, IsTheAccountsOrNone) {
  const std::optional<std::string> iban = IbanIn(GetParam().text);
  EXPECT_EQ(iban.value_or("none"), GetParam().iban == nullptr ? "none" : GetParam().iban);
}

// The check digits of the IBANs are worked out by hand: 98 less the remainder by 97 of the bank,
// the prefix, the number and 123500 written as one number. 0800 000019 2000145399 leaves 33, so 65.
INSTANTIATE_TEST_SUITE_P(
    RightAccounts, IbanInTest,
    ::testing::Values(
        AccountCase{"WithPrefix", "19-2000145399/0800", "CZ6508000000192000145399"},
        AccountCase{"WithoutPrefix", "1265098001/5500", "CZ5855000000001265098001"},
        AccountCase{"LeadingZeros", "000019-2000145399/0800", "CZ6508000000192000145399"},
        AccountCase{"PrefixOfZeros", "000000-1265098001/5500", "CZ5855000000001265098001"},
        AccountCase{"ShortNumber", "222885/5500", "CZ1355000000000000222885"},
        AccountCase{"ShortestNumber", "86/0710", "CZ8607100000000000000086"},
        AccountCase{"LongestPrefix", "178124-4159/0710", "CZ6907101781240000004159"},
        AccountCase{"BlanksAround", "  19 - 2000145399 / 0800 ", "CZ6508000000192000145399"},
        AccountCase{"UnbreakableBlank", "19-2000145399\u00A0/\u00A00800",
                    "CZ6508000000192000145399"},
        AccountCase{"AmongWords", "č. ú. 19-2000145399/0800, Česká spořitelna",
                    "CZ6508000000192000145399"},
        AccountCase{"HyphenWithBlanksAmongWords", "Česká spořitelna 19 - 2000145399 / 0800",
                    "CZ6508000000192000145399"},
        AccountCase{"Dash", "Česká spořitelna, 19\u20132000145399/0800",
                    "CZ6508000000192000145399"},
        AccountCase{"DashWithBlanks", "19 \u2013 2000145399/0800", "CZ6508000000192000145399"},
        AccountCase{"DashBeforeIt", "Česká spořitelna \u2013 19-2000145399/0800",
                    "CZ6508000000192000145399"},
        AccountCase{"NextToPunctuation", "Spořitelna (č.ú.:19-2000145399/0800).",
                    "CZ6508000000192000145399"},
        AccountCase{"AfterAnotherNumber", "Praha 4, č. p. 12 (19-2000145399/0800)",
                    "CZ6508000000192000145399"},
        AccountCase{"OnItsOwnLine", "Banka\r\n19-2000145399/0800\r\nBrno",
                    "CZ6508000000192000145399"},
        AccountCase{"TwiceTheSame", "19-2000145399/0800; CZ6508000000192000145399",
                    "CZ6508000000192000145399"},
        AccountCase{"Iban", "CZ6508000000192000145399", "CZ6508000000192000145399"},
        AccountCase{"IbanInGroups", "cz65 0800 0000 1920 0014 5399", "CZ6508000000192000145399"},
        AccountCase{"IbanWithItsName", "IBAN: CZ65 0800 0000 1920 0014 5399",
                    "CZ6508000000192000145399"},
        AccountCase{"IbanAmongWords", "Tatra banka SK3112000000198742637541 EUR",
                    "SK3112000000198742637541"},
        AccountCase{"IbanWithLetters", "GB29 NWBK 6016 1331 9268 19", "GB29NWBK60161331926819"}),
    [](const auto& row) { return std::string(row.param.name); });

INSTANTIATE_TEST_SUITE_P(
    NoAccounts, IbanInTest,
    ::testing::Values(AccountCase{"Nothing", "", nullptr},
                      AccountCase{"FirstRunsText", "Číslo účtu a kód banky", nullptr},
                      // 1·9 + 2·8 + 4·7 + 8·6 + 5·5 + 10·4 + 9·3 + 7·2 + 3·1 = 210, by 11 leaves 1
                      AccountCase{"WrongNumber", "123456789/0100", nullptr},
                      AccountCase{"WrongPrefix", "18-2000145399/0800", nullptr},
                      AccountCase{"PrefixOfSevenDigits", "0000019-2000145399/0800", nullptr},
                      AccountCase{"NumberOfElevenDigits", "02000145399/0800", nullptr},
                      AccountCase{"NumberOfOneDigit", "0/0800", nullptr},
                      AccountCase{"OnlyZeros", "0000000000/0800", nullptr},
                      AccountCase{"BankOfThreeDigits", "19-2000145399/080", nullptr},
                      AccountCase{"BankOfFiveDigits", "19-2000145399/08000", nullptr},
                      AccountCase{"NoBank", "19-2000145399", nullptr},
                      AccountCase{"TwoHyphens", "0-19-2000145399/0800", nullptr},
                      // The end of each is the right number of another account.
                      AccountCase{"BlankForAHyphen", "19 2000145399/0800", nullptr},
                      AccountCase{"NumberInGroups", "č. ú. 12650 98001/5500", nullptr},
                      AccountCase{"NumberInGroupsByDots", "č. ú. 12650.98001/5500", nullptr},
                      AccountCase{"LongDash", "19 \u2014 2000145399/0800", nullptr},
                      AccountCase{"WrongPrefixWithBlanks", "18 - 2000145399/0800", nullptr},
                      AccountCase{"Letters", "19-20001453a9/0800", nullptr},
                      AccountCase{"TwoAccounts", "19-2000145399/0800, 1265098001/5500", nullptr},
                      AccountCase{"IbanWithAWrongDigit", "CZ6508000000192000145398", nullptr},
                      AccountCase{"CzechIbanTooShort", "CZ650800000019200014539", nullptr},
                      AccountCase{"NoCountry", "6565080000001920001453", nullptr},
                      AccountCase{"IbanWithOtherCharacters", "GB29.NWBK.60161331926819", nullptr}),
    [](const auto& row) { return std::string(row.param.name); });

constexpr const char* kAccount = "19-2000145399/0800";
const std::string kBegin = "SPD*1.0*ACC:CZ6508000000192000145399*AM:1234.50*CC:CZK";
const std::string kEnd = "*DT:20260129*MSG:PENALIZACNI FAKTURA";

std::string CodeOf(const std::string& number) {
  return PaymentCode(kAccount, "1234.50", Day(2026, 1, 29), number).value_or("none");
}

TEST(PaymentCodeTest, HoldsAccountAmountSymbolDayAndMessage) {
  EXPECT_EQ(CodeOf("2026001"), kBegin + "*X-VS:2026001" + kEnd + " 2026001");
  EXPECT_EQ(PaymentCode("222885/5500", "9999999.99", Day(999, 12, 31), "1"),
            "SPD*1.0*ACC:CZ1355000000000000222885*AM:9999999.99*CC:CZK*X-VS:1*DT:09991231*MSG:"
            "PENALIZACNI FAKTURA 1");
}

TEST(PaymentCodeTest, NumberThatIsNoSymbolIsInTheMessageOnly) {
  EXPECT_EQ(CodeOf(""), kBegin + kEnd);
  EXPECT_EQ(CodeOf("1234567890"), kBegin + "*X-VS:1234567890" + kEnd + " 1234567890");
  EXPECT_EQ(CodeOf("12345678901"), kBegin + kEnd + " 12345678901");
  EXPECT_EQ(CodeOf("PF-2026/001"), kBegin + kEnd + " PF-2026/001");
}

TEST(PaymentCodeTest, MessageIsInCapitalsWithoutAccents) {
  EXPECT_EQ(CodeOf("žluť 5 č. 東 1"), kBegin + kEnd + " ZLUT 5 C.  1");
}

TEST(PaymentCodeTest, CharactersOfTheFormatAreEscaped) {
  EXPECT_EQ(CodeOf("1*2%3"), kBegin + kEnd + " 1%2A2%253");
}

TEST(PaymentCodeTest, MessageHasSixtyCharactersAndNoHalfOfAnEscape) {
  const std::string message = " " + std::string(40, 'A');  // with the words before it sixty
  EXPECT_EQ(CodeOf(message.substr(1)), kBegin + kEnd + message);
  EXPECT_EQ(CodeOf(message.substr(1) + "B"), kBegin + kEnd + message);
  EXPECT_EQ(CodeOf(std::string(37, 'A') + "*"), kBegin + kEnd + " " + std::string(37, 'A') + "%2A");
  EXPECT_EQ(CodeOf(std::string(38, 'A') + "*"), kBegin + kEnd + " " + std::string(38, 'A'));
  EXPECT_EQ(CodeOf(std::string(39, 'A') + "*"), kBegin + kEnd + " " + std::string(39, 'A'));
}

TEST(PaymentCodeTest, WhatCannotBePaidHasNone) {
  for (const char* amount : {"0.00", "-0.10", "-1234.50", "10000000.00"}) {
    EXPECT_EQ(PaymentCode(kAccount, amount, Day(2026, 1, 29), "1"), std::nullopt) << amount;
  }
  EXPECT_EQ(PaymentCode("", "1.00", Day(2026, 1, 29), "1"), std::nullopt);
}

}  // namespace
}  // namespace velta
