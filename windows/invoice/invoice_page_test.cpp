#include "windows/invoice/invoice_page.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/day.h"
#include "values/letters.h"

namespace velta {
namespace {

using ::testing::Contains;
using ::testing::ElementsAreArray;

using Lines = std::vector<std::string>;

// --- the expected page, in its parts -----------------------------------------------------------

const Lines kHead = {
    // clang-format off
    "",
    "",
    "        Penalizační faktura číslo : 2026001",
    "    |------------------------------------------------------------------------------------|",
    "    |   Variabilní symbol    2026001                                                     |",
    "    |   Datum vystavení      15.1.2026                                                   |",
    "    |   Datum splatnosti     29.1.2026                                                   |",
    "    |------------------------------------------------------------------------------------|",
    "    |   Dodavatel        IČO 12345678          |  Odběratel       IČO 87654321           |",
    "    |          DIČ CZ12345678                  |          DIČ CZ87654321                 |",
    "    |          Novák a syn, s. r. o.           |          Dlužník Praha, a. s.           |",
    "    |          Dlouhá 12                       |          Krátká 3                       |",
    "    |   602 00 Brno                            |  110 00  Praha 1                        |",
    "    |------------------------------------------------------------------------------------|",
    "    |Zapsán u KS v Brně, oddíl C, vložka 1                                               |",
    "    |------------------------------------------------------------------------------------|",
    "    |Položka - popis                                                     Částka v Kč     |",
    "    |------------------------------------------------------------------------------------|",
    "    |                                                                                    |",
    "    |                                                                                    |",
    // clang-format on
};
const Lines kUnderItem = {
    // clang-format off
    "    |                                                                                    |",
    "    |                                                                                    |",
    "    |------------------------------------------------------------------------------------|",
    "    |                                                                                    |",
    // clang-format on
};
const Lines kAccount = {
    // clang-format off
    "    |                                                                                    |",
    "    |                                                                                    |",
    "    |Úhradu proveďte na číslo účtu                                                       |",
    "    |123456789/0100                                                                      |",
    // clang-format on
};
const Lines kFoot = {
    // clang-format off
    "    |                                                                                    |",
    "    |                                                                                    |",
    "    |                                                                                    |",
    "    |Fakturoval                  -------------------------------------------             |",
    "    |                            Razítko a podpis                                        |",
    "    |                                                                                    |",
    "    |                                                                                    |",
    "    |                                                                                    |",
    "    |Děkujeme za úhradu.                                                                 |",
    "    |Novák a syn                                                                         |",
    "    |váš dodavatel                                                                       |",
    "    |                                                                                    |",
    "    |                                                                                    |",
    "    |------------------------------------------------------------------------------------|",
    "     Faktura byla vystavena v programu Velta, kontakt https://velta.example/",
    // clang-format on
};
const Lines kSingleBody = {
    // clang-format off
    "    |Faktura číslo                                                       2025117         |",
    "    |Na částku                                                           10 000,00 Kč    |",
    "    |Splatná dne                                                         10.3.2005       |",
    "    |Uhrazená dne                                                        20.6.2005       |",
    "    |Počet dnů prodlení                                                 102              |",
    "    |Úroková sazba                                                       8,5 % ročně     |",
    // clang-format on
};
const Lines kProgressiveBody = {
    // clang-format off
    "    |Faktura číslo                                                       2025117         |",
    "    |Splatná dne                                                         1.1.2004        |",
    "    |Úroková sazba                                                      10 % ročně       |",
    "    |                                                                                    |",
    "    |Datum úhrady        Výše úhrady         Zůstatek dluhu              Úrok z prod.    |",
    "    |31.1.2004           5 000,00 Kč         5 000,00 Kč                 41,10 Kč        |",
    "    |1.3.2004            5 000,00 Kč         0,00 Kč                     82,19 Kč        |",
    // clang-format on
};
const std::string kEmpty = "    |" + std::string(84, ' ') + "|";

/// A boxed line with texts from column 6 and from `column`; the widths are those of the texts in
/// characters.
std::string Row(const std::string& left, int left_width, int column, const std::string& right,
                int right_width) {
  const auto blanks = [](int count) { return std::string(static_cast<std::size_t>(count), ' '); };
  return "    |" + left + blanks(column - 6 - left_width) + right +
         blanks(90 - column - right_width) + "|";
}

// --- what is printed ---------------------------------------------------------------------------

Invoice FilledInvoice() {
  return {"2026001",
          "2025117",
          {"Novák a syn, s. r. o.", "Dlouhá 12", "Brno", "602 00", "12345678", "CZ12345678"},
          {"Dlužník Praha, a. s.", "Krátká 3", "Praha 1", "110 00", "87654321", "CZ87654321"},
          Day(2026, 1, 15),
          Day(2026, 1, 29)};
}

/// The firm's address differs from the invoice's supplier, which may have been changed by hand.
ProgramSettings Firm() {
  return {"Jiná firma",
          "Jiná",
          "000 00",
          "Jinde",
          "0",
          "0",
          "123456789/0100",
          "Zapsán u KS v Brně, oddíl C, vložka 1",
          "Fakturujeme Vám úroky z prodlení dle výpočtu",
          "Děkujeme za úhradu.",
          "Novák a syn",
          "váš dodavatel",
          "NE"};
}

/// 10 000 × 8,5 ÷ 100 × 102 ÷ 365 = 237,534…
SingleResult Single(RateKind kind = RateKind::kPercentYearly, Rate rate = 8.5F) {
  return {Day(2005, 3, 10),
          Day(2005, 6, 20),
          102,
          Money::FromUnits(100'000'000),
          kind,
          rate,
          {},
          237.53424657534246,
          Money::FromUnits(102'375'342)};
}

/// 5 000 × 10 ÷ 100 × 30 ÷ 365 = 41,0958…, for 60 days 82,1917…
ProgressiveResult Progressive() {
  ProgressiveResult result;
  result.due_date = Day(2004, 1, 1);
  result.kind = RateKind::kPercentYearly;
  result.kind_text = "% ročně";
  result.rate = 10;
  result.payments = {{Day(2004, 1, 31),
                      30,
                      Money::FromUnits(50'000'000),
                      Money::FromUnits(50'000'000),
                      41.1,
                      {},
                      Money::FromUnits(411'000)},
                     {Day(2004, 3, 1),
                      60,
                      Money::FromUnits(50'000'000),
                      Money(),
                      82.19,
                      {},
                      Money::FromUnits(821'900)}};
  result.total = Money::FromUnits(1'232'900);
  return result;
}

ProgressiveResult WithPayments(std::size_t count) {
  ProgressiveResult result = Progressive();
  const Payment payment = result.payments.front();
  result.payments.assign(count, payment);
  return result;
}

Lines Printed(const Invoice& invoice, const ProgramSettings& settings,
              const FinishedCalculation& calculation, const LocaleFormat& locale = {}) {
  Lines lines;
  for (const ui::PrintedLine& line : InvoicePage(invoice, settings, calculation, locale).lines) {
    EXPECT_FALSE(line.bold);
    lines.push_back(line.text);
  }
  return lines;
}
Lines Printed(const SingleResult& result) { return Printed(FilledInvoice(), Firm(), &result); }
Lines Printed(const ProgressiveResult& result) { return Printed(FilledInvoice(), Firm(), &result); }
Lines Printed(const Invoice& invoice) {
  const SingleResult result = Single();
  return Printed(invoice, Firm(), &result);
}
Lines Printed(const ProgramSettings& settings) {
  const SingleResult result = Single();
  return Printed(FilledInvoice(), settings, &result);
}

/// The line that begins so, and the one below it.
Lines TwoLinesFrom(const Lines& lines, std::string_view beginning) {
  const auto at = std::find_if(lines.begin(), lines.end(), [&](const std::string& line) {
    return line.starts_with(beginning);
  });
  if (at == lines.end()) return {};
  return {*at, *(at + 1)};
}

std::string LineOf(const Lines& lines, std::string_view beginning) {
  const Lines found = TwoLinesFrom(lines, beginning);
  return found.empty() ? "" : found.front();
}

std::string RateLine(const Lines& lines) { return LineOf(lines, "    |Úroková sazba "); }

Lines Joined(std::initializer_list<Lines> parts) {
  Lines lines;
  for (const Lines& part : parts) lines.insert(lines.end(), part.begin(), part.end());
  return lines;
}

// --- the pages ---------------------------------------------------------------------------------

TEST(InvoicePageTest, SingleCalculation) {
  const SingleResult result = Single();
  EXPECT_THAT(Printed(result),
              ElementsAreArray(Joined(
                  {kHead,
                   {Row("Fakturujeme Vám úroky z prodlení dle výpočtu", 44, 74, "237,53 Kč", 9)},
                   kUnderItem,
                   kSingleBody,
                   kAccount,
                   Lines(15, kEmpty),
                   kFoot})));
  const ui::PrintedDocument document = InvoicePage(FilledInvoice(), Firm(), &result, {});
  EXPECT_EQ(document.font, "Courier New CE");
  EXPECT_EQ(document.point_size, 10);
}

TEST(InvoicePageTest, ProgressiveCalculation) {
  EXPECT_THAT(Printed(Progressive()),
              ElementsAreArray(Joined(
                  {kHead,
                   {Row("Fakturujeme Vám úroky z prodlení dle výpočtu", 44, 74, "123,29 Kč", 9)},
                   kUnderItem,
                   kProgressiveBody,
                   kAccount,
                   Lines(14, kEmpty),
                   kFoot})));
}

TEST(InvoicePageTest, RuleIsNinetyColumnsWide) {
  EXPECT_EQ(kHead[3], "    |" + std::string(84, '-') + "|");
  EXPECT_EQ(kHead[3].size(), 90U);
}

TEST(InvoicePageTest, EmptyFieldsLeaveTheBoxAsItIs) {
  Invoice invoice = FilledInvoice();
  invoice.number = "";
  invoice.original_number = "";
  invoice.supplier = {};
  invoice.customer = {"Dlužník", "Krátká 3", "Praha", "", "", ""};
  const Lines lines = Printed(invoice);
  EXPECT_EQ(lines[2], "        Penalizační faktura číslo : ");
  EXPECT_EQ(lines[8], "    |   Dodavatel        IČO " + std::string(18, ' ') +
                          "|  Odběratel       IČO " + std::string(19, ' ') + "|");
  EXPECT_EQ(lines[12],
            "    |" + std::string(42, ' ') + "|          Praha" + std::string(26, ' ') + "|");
  EXPECT_EQ(lines.size(), 65U);
}

TEST(InvoicePageTest, UsersOwnNumbersAndDates) {
  const SingleResult result = Single();
  const Lines lines = Printed(FilledInvoice(), Firm(), &result, {".", ",", "M/d/yyyy"});
  EXPECT_THAT(lines, Contains(Row("Na částku ", 10, 74, "10,000.00 Kč", 12)));
  EXPECT_THAT(lines, Contains(Row("Splatná dne ", 12, 74, "3/10/2005", 9)));
  EXPECT_EQ(RateLine(lines), Row("Úroková sazba ", 14, 74, "8.5 % ročně", 11));
}

// --- the rate ----------------------------------------------------------------------------------

struct RateCase {
  const char* name;
  RateKind kind;
  Rate rate;
  const char* single;
  int single_width;
  const char* progressive;
  int progressive_column;
  int progressive_width;
};

class InvoiceRateTest : public ::testing::TestWithParam<RateCase> {};

TEST_P(InvoiceRateTest, StandsInItsColumn) {
  const RateCase& c = GetParam();
  EXPECT_EQ(RateLine(Printed(Single(c.kind, c.rate))),
            Row("Úroková sazba ", 14, 74, c.single, c.single_width));
  ProgressiveResult result = Progressive();
  result.kind = c.kind;
  result.kind_text = std::string(Text(c.kind));
  result.rate = c.rate;
  EXPECT_EQ(RateLine(Printed(result)),
            Row("Úroková sazba ", 14, c.progressive_column, c.progressive, c.progressive_width));
}

INSTANTIATE_TEST_SUITE_P(Kinds, InvoiceRateTest,
                         ::testing::Values(RateCase{"PercentDaily", RateKind::kPercentDaily, 0.05F,
                                                    "0,05 % denně", 12, "0,05 % denně", 73, 12},
                                           RateCase{"PercentYearly", RateKind::kPercentYearly, 9,
                                                    "9 % ročně", 9, "9 % ročně", 73, 9},
                                           RateCase{"PerMilleDaily", RateKind::kPerMilleDaily, 0.5F,
                                                    "0,5 ‰ denně", 11, "0,5 ‰ denně", 73, 11},
                                           RateCase{"PerMilleYearly", RateKind::kPerMilleYearly, 85,
                                                    "85 ‰ ročně", 10, "85 ‰ ročně", 73, 10},
                                           RateCase{"Discount", RateKind::kDiscount, 2.5F, "2,5 %",
                                                    5, "2*diskontní ČNB", 74, 15},
                                           RateCase{"Repo", RateKind::kRepo, 0, "2T REPO + 7 %", 13,
                                                    "2T REPO ČNB + 7%", 74, 16}),
                         [](const auto& tested) { return std::string(tested.param.name); });

TEST(InvoicePageTest, TypedKindsOfAProgressiveCalculationPrintTheirText) {
  ProgressiveResult result = Progressive();
  result.kind = RateKind::kCrownsDaily;
  result.kind_text = "částka Kč denně";
  result.rate = 12.5F;
  EXPECT_EQ(RateLine(Printed(result)), Row("Úroková sazba ", 14, 70, "12,5 částka Kč denně", 20))
      << "too wide for its column, it reaches up to the edge";
  result.kind_text = "procent z dlužné částky za každý i jen započatý den prodlení";
  EXPECT_EQ(TwoLinesFrom(Printed(result), "    |Úroková"),
            (Lines{Row("Úroková sazba ", 14, 26,
                       "12,5 procent z dlužné částky za každý i jen započatý den", 56),
                   Row("", 0, 26, "prodlení", 8)}));
}

// --- payments ----------------------------------------------------------------------------------

TEST(InvoicePageTest, RepoPaymentIsOneRowWithTheSumOfItsPeriods) {
  ProgressiveResult result = Progressive();
  result.kind = RateKind::kRepo;
  // 26,0274 + 23,9726 = 50,0000 and 102,7397; the total is 152,7397.
  result.payments[0].periods.resize(2);
  result.payments[0].interest = 50.1;
  result.payments[0].interest_sum = Money::FromUnits(500'000);
  result.payments[1].periods.resize(1);
  result.payments[1].interest = 102.8;
  result.payments[1].interest_sum = Money::FromUnits(1'027'397);
  result.total = Money::FromUnits(1'527'397);
  const Lines lines = Printed(result);
  EXPECT_EQ(LineOf(lines, "    |31.1.2004"),
            "    |31.1.2004           5 000,00 Kč         5 000,00 Kč                 50,00 Kč"
            "        |");
  EXPECT_EQ(LineOf(lines, "    |1.3.2004"),
            "    |1.3.2004            5 000,00 Kč         0,00 Kč                     102,74 Kč"
            "       |");
  EXPECT_EQ(LineOf(lines, "    |Fakturujeme"),
            Row("Fakturujeme Vám úroky z prodlení dle výpočtu", 44, 74, "152,74 Kč", 9));
}

TEST(InvoicePageTest, LargeAmountsOfARowMoveLeftAndNeverTouch) {
  ProgressiveResult result = Progressive();
  result.payments[0].amount = Money::FromUnits(123'456'789'010'000);  // twenty characters: it fits
  EXPECT_EQ(LineOf(Printed(result), "    |31.1.2004"),
            "    |31.1.2004           12 345 678 901,00 Kč5 000,00 Kč                 41,10 Kč"
            "        |");
  result.payments[0].amount = Money::FromUnits(1'234'567'890'120'000);
  EXPECT_EQ(LineOf(Printed(result), "    |31.1.2004"),
            "    |31.1.2004         123 456 789 012,00 Kč 5 000,00 Kč                 41,10 Kč"
            "        |");
  result.payments[0].interest_sum = Money::FromUnits(1'234'567'890'120'000);
  EXPECT_EQ(LineOf(Printed(result), "    |31.1.2004"),
            "    |31.1.2004         123 456 789 012,00 Kč 5 000,00 Kč            "
            "123 456 789 012,00 Kč|");
}

TEST(InvoicePageTest, LargestAmountsOfARowTakeTwoLines) {
  constexpr auto kLargest = Money::FromUnits(9'223'372'036'854'775'807);
  ProgressiveResult result = Progressive();
  result.payments[0].amount = kLargest;
  result.payments[0].balance = kLargest;
  result.payments[0].interest_sum = kLargest;
  EXPECT_EQ(
      TwoLinesFrom(Printed(result), "    |31.1.2004"),
      (Lines{"    |31.1.2004           922 337 203 685 477,58 Kč" + std::string(39, ' ') + "|",
             "    |" + std::string(33, ' ') +
                 "922 337 203 685 477,58 Kč 922 337 203 685 477,58 Kč|"}));
}

// --- texts that are too long -------------------------------------------------------------------

TEST(InvoicePageTest, NamesReachUpToTheirBars) {
  Invoice invoice = FilledInvoice();
  invoice.supplier.name = std::string(31, 'a') + "ž";
  invoice.customer.name = std::string(30, 'b') + "ž";
  EXPECT_EQ(
      LineOf(Printed(invoice), "    |          aaa"),
      "    |          " + invoice.supplier.name + "|          " + invoice.customer.name + "|");
}

TEST(InvoicePageTest, LongNamesGoOnBesideEachOtherWithinTheirBars) {
  Invoice invoice = FilledInvoice();
  invoice.supplier.name = "Novák a syn, společnost s ručením omezeným, v likvidaci";
  invoice.customer.name = "Dlužník Praha, akciová společnost";
  const Lines lines = Printed(invoice);
  EXPECT_THAT(Lines(lines.begin() + 10, lines.begin() + 13),
              ElementsAreArray(Lines{
                  // clang-format off
          "    |          Novák a syn, společnost s       |          Dlužník Praha, akciová         |",
          "    |          ručením omezeným, v likvidaci   |          společnost                     |",
          "    |          Dlouhá 12                       |          Krátká 3                       |",
                  // clang-format on
              }));
  EXPECT_EQ(lines.size(), 65U) << "fewer empty lines stand between";
}

TEST(InvoicePageTest, EveryTextOfThePartiesKeepsToItsColumn) {
  Invoice invoice = FilledInvoice();
  invoice.supplier.postcode = "CZ 602 00";
  invoice.supplier.company_number = "12345678 podle zápisu v registru";
  invoice.customer.company_number = "87654321, dříve 1122334";
  const Lines lines = Printed(invoice);
  EXPECT_EQ(
      TwoLinesFrom(lines, "    |   Dodavatel"),
      (Lines{"    |   Dodavatel        IČO 12345678 podle    |  Odběratel       IČO 87654321, "
             "dříve    |",
             "    |                    zápisu v registru     |                      1122334"
             "            |"}));
  EXPECT_EQ(TwoLinesFrom(lines, "    |   CZ"),
            (Lines{"    |   CZ 602 Brno                            |  110 00  Praha 1"
                   "                        |",
                   "    |   00                                     |"
                   "                                         |"}));
}

TEST(InvoicePageTest, WordWiderThanItsPlaceIsBroken) {
  Invoice invoice = FilledInvoice();
  invoice.customer.name = std::string(31, 'a') + std::string(31, 'b') + "c";
  const Lines lines = Printed(invoice);
  EXPECT_TRUE(lines[10].ends_with(std::string(31, 'a') + "|"));
  EXPECT_TRUE(lines[11].ends_with(std::string(31, 'b') + "|"));
  EXPECT_TRUE(lines[12].ends_with("c" + std::string(30, ' ') + "|"));
}

TEST(InvoicePageTest, LineEndInAStoredTextEndsThePrintedLine) {
  ProgramSettings settings = Firm();
  settings.Banka = "Banka v Brně\r\n123456789/0100";
  settings.Dovetek1 = "Novák\na syn";
  const Lines lines = Printed(settings);
  EXPECT_EQ(TwoLinesFrom(lines, "    |Banka"),
            (Lines{Row("Banka v Brně", 12, 80, "", 0), Row("123456789/0100", 14, 80, "", 0)}));
  EXPECT_EQ(TwoLinesFrom(lines, "    |Novák"),
            (Lines{Row("Novák", 5, 80, "", 0), Row("a syn", 5, 80, "", 0)}));
  EXPECT_EQ(lines.size(), 65U);
}

TEST(InvoicePageTest, PastedAccentsOfTheirOwnTakeNoCell) {
  Invoice invoice = FilledInvoice();
  invoice.customer.name = "Dluz\u030Cni\u0301k Praha, a. s.";
  EXPECT_EQ(Printed(invoice), Printed(FilledInvoice()));
}

TEST(InvoicePageTest, TotalReachesUpToTheEdgeAndThenMovesLeft) {
  SingleResult result = Single();
  const std::string item = "    |Fakturujeme Vám úroky z prodlení dle výpočtu";
  result.interest = 12'345'678.12;  // sixteen characters
  EXPECT_EQ(LineOf(Printed(result), item), item + std::string(24, ' ') + "12 345 678,12 Kč|");
  result.interest = 123'456'789.12;  // seventeen
  EXPECT_EQ(LineOf(Printed(result), item), item + std::string(23, ' ') + "123 456 789,12 Kč|");
  result.interest = 922'337'203'685'477;
  EXPECT_EQ(LineOf(Printed(result), item),
            item + std::string(15, ' ') + "922 337 203 685 477,00 Kč|");
}

TEST(InvoicePageTest, LongItemGoesOnBelowAndNeverTouchesItsAmount) {
  ProgramSettings settings = Firm();
  const auto item = [&] { return TwoLinesFrom(Printed(settings), "    |Úroky"); };
  settings.TextRadku = "Úroky " + std::string(62, 't');  // up to the amount's column
  EXPECT_EQ(item()[0], "    |" + settings.TextRadku + "237,53 Kč       |");
  EXPECT_EQ(item()[1], kEmpty);
  settings.TextRadku = "Úroky " + std::string(54, 't') + " 2025 a 2026";
  EXPECT_EQ(item(), (Lines{Row("Úroky " + std::string(54, 't') + " 2025 a", 67, 74, "237,53 Kč", 9),
                           Row("2026", 4, 74, "", 0)}));
  settings.TextRadku = "Úroky " + std::string(56, 't') + " 2025 a 2026";
  EXPECT_EQ(item()[0], Row("Úroky " + std::string(56, 't') + " 2025", 67, 74, "237,53 Kč", 9));
}

TEST(InvoicePageTest, InvoiceNumberHasItsPlaceUpToColumnFifty) {
  Invoice invoice = FilledInvoice();
  invoice.number = std::string(21, '7');
  EXPECT_EQ(LineOf(Printed(invoice), "    |   Variabilní"),
            "    |   Variabilní symbol    " + invoice.number + std::string(39, ' ') + "|");
  invoice.number += "8";
  EXPECT_EQ(
      TwoLinesFrom(Printed(invoice), "    |   Variabilní"),
      (Lines{"    |   Variabilní symbol    " + std::string(20, '7') + std::string(40, ' ') + "|",
             "    |" + std::string(24, ' ') + "78" + std::string(58, ' ') + "|"}));
}

TEST(InvoicePageTest, LongOriginalNumberMovesLeftAndIsBrokenAtTheLast) {
  Invoice invoice = FilledInvoice();
  invoice.original_number = "FV-2025-000117/2025";
  EXPECT_EQ(LineOf(Printed(invoice), "    |Faktura číslo"),
            Row("Faktura číslo ", 14, 71, invoice.original_number, 19));
  invoice.original_number = std::string(65, '7');
  EXPECT_EQ(
      TwoLinesFrom(Printed(invoice), "    |Faktura číslo"),
      (Lines{Row("Faktura číslo ", 14, 26, std::string(64, '7'), 64), Row("", 0, 26, "7", 1)}));
}

TEST(InvoicePageTest, LongSettingsGoOnInsideTheBox) {
  ProgramSettings settings = Firm();
  settings.Rejstrik =
      "Zapsáno v obchodním rejstříku vedeném Městským soudem v Praze, oddíl C, vložka 123456";
  settings.Banka = std::string(84, 'b');
  settings.Dovetek1 = std::string(84, 'd') + "D";
  const Lines lines = Printed(settings);
  EXPECT_EQ(
      TwoLinesFrom(lines, "    |Zaps"),
      (Lines{Row("Zapsáno v obchodním rejstříku vedeném Městským soudem v Praze, oddíl C, vložka",
                 78, 90, "", 0),
             Row("123456", 6, 90, "", 0)}));
  EXPECT_THAT(lines, Contains("    |" + settings.Banka + "|")) << "it fits";
  EXPECT_EQ(TwoLinesFrom(lines, "    |ddd"),
            (Lines{"    |" + std::string(84, 'd') + "|", Row("D", 1, 90, "", 0)}));
  EXPECT_EQ(lines.size(), 65U) << "fewer empty lines stand between";
}

TEST(InvoicePageTest, LongNumberGoesOnInTheHeadAboveTheBox) {
  Invoice invoice = FilledInvoice();
  invoice.number = std::string(54, '7');
  EXPECT_EQ(Printed(invoice)[2], "        Penalizační faktura číslo : " + invoice.number);
  invoice.number = std::string(40, '7') + " " + std::string(20, '8');
  EXPECT_EQ(Printed(invoice)[2], "        Penalizační faktura číslo : " + std::string(40, '7'));
  EXPECT_EQ(Printed(invoice)[3], "        " + std::string(20, '8'));
}

TEST(InvoicePageTest, AnyScriptAndAnyLengthIsKeptWithinTheBars) {
  Invoice invoice = FilledInvoice();
  invoice.customer.name = "Żółć Ünïcode Ελλάς Київ 東京 " + std::string(1000, 'q');
  std::string joined;
  for (const std::string& line : Printed(invoice)) joined += line;
  EXPECT_NE(joined.find("Żółć Ünïcode Ελλάς Київ 東京"), std::string::npos);
  EXPECT_EQ(std::count(joined.begin(), joined.end(), 'q'), 1000);
}

TEST(InvoicePageTest, EveryLineOfTheBoxHasItsBars) {
  Invoice invoice = FilledInvoice();
  ProgramSettings settings = Firm();
  for (std::string* text : {&invoice.number,
                            &invoice.original_number,
                            &invoice.supplier.name,
                            &invoice.supplier.street,
                            &invoice.supplier.town,
                            &invoice.supplier.postcode,
                            &invoice.supplier.company_number,
                            &invoice.supplier.tax_number,
                            &invoice.customer.name,
                            &invoice.customer.street,
                            &invoice.customer.town,
                            &invoice.customer.postcode,
                            &invoice.customer.company_number,
                            &invoice.customer.tax_number,
                            &settings.Banka,
                            &settings.Rejstrik,
                            &settings.TextRadku,
                            &settings.Dovetek0,
                            &settings.Dovetek1,
                            &settings.Dovetek2}) {
    *text = "text se slovy a s jedním převelikánským" + std::string(120, 'y') + " slovem";
  }
  const SingleResult result = Single();
  const Lines lines = Printed(invoice, settings, &result);
  const auto rule = std::find(lines.begin(), lines.end(), "    |" + std::string(84, '-') + "|");
  for (auto line = rule; line + 1 != lines.end(); ++line) {
    const auto cells = Cells(*line);
    ASSERT_EQ(cells.size(), 90U) << *line;
    EXPECT_EQ(cells[4], "|") << *line;
    EXPECT_EQ(cells[89], "|") << *line;
  }
}

TEST(InvoicePageTest, AnyTextsKeepToTheirBoxAndAreWhole) {
  std::mt19937 random(20260115);  // the same texts in every run
  const auto number = [&](std::size_t below) { return random() % below; };
  const std::string rule = "    |" + std::string(84, '-') + "|";
  for (int page = 0; page < 50; ++page) {
    Invoice invoice = FilledInvoice();
    ProgramSettings settings = Firm();
    const std::vector<std::string*> fields = {
        &invoice.original_number, &invoice.supplier.name,       &invoice.supplier.street,
        &invoice.supplier.town,   &invoice.supplier.postcode,   &invoice.supplier.company_number,
        &invoice.customer.name,   &invoice.supplier.tax_number, &invoice.customer.street,
        &invoice.customer.town,   &invoice.customer.postcode,   &invoice.customer.company_number,
        &settings.TextRadku,      &invoice.customer.tax_number, &settings.Banka,
        &settings.Rejstrik,       &settings.Dovetek0,           &settings.Dovetek1,
        &settings.Dovetek2};
    // Every field has three letters of its own, Cyrillic ones, by which it is found on the page.
    std::vector<std::string> expected;
    for (std::string* const field : fields) {
      const std::size_t first_letter = 0x430 + 3 * expected.size();
      field->clear();
      expected.emplace_back();
      for (std::size_t word = number(20); word > 0; --word) {
        for (std::size_t left = 1 + number(number(8) == 0 ? 100 : 10); left > 0; --left) {
          const std::size_t letter = first_letter + number(3);
          const std::string character = {static_cast<char>(0xC0U | (letter >> 6U)),
                                         static_cast<char>(0x80U | (letter & 0x3FU))};
          *field += character;
          expected.back() += character;
        }
        *field += std::array{" ", "  ", "\t", "\r\n"}.at(number(8) == 0 ? number(4) : 0);
      }
    }
    const SingleResult result = Single();
    const Lines lines = Printed(invoice, settings, &result);

    std::vector<std::string> found(fields.size());
    int rules = 0;
    for (std::size_t i = 0; i < lines.size(); ++i) {
      const auto cells = Cells(lines[i]);
      rules += lines[i] == rule ? 1 : 0;
      if (rules > 0 && i + 1 < lines.size()) {
        ASSERT_EQ(cells.size(), 90U) << lines[i];
        EXPECT_EQ(cells[4], "|") << lines[i];
        EXPECT_EQ(cells[89], "|") << lines[i];
        if (rules == 2 && lines[i] != rule) {
          EXPECT_EQ(cells[47], "|") << lines[i];
        }
      }
      for (const std::string_view cell : cells) {
        if (cell.size() != 2) continue;
        const auto letter = (static_cast<unsigned char>(cell[0]) & 0x1FU) << 6U |
                            (static_cast<unsigned char>(cell[1]) & 0x3FU);
        if (letter >= 0x430) found.at((letter - 0x430) / 3) += cell;
      }
    }
    EXPECT_EQ(found, expected);
    EXPECT_THAT(lines, Contains(::testing::HasSubstr(" 237,53 Kč ")));
  }
}

// --- the page's foot ---------------------------------------------------------------------------

/// How many pages so many payments take.
struct PagesCase {
  std::size_t payments;
  std::size_t pages;
};

TEST(InvoicePageTest, FootStandsAtTheFootOfTheLastPage) {
  // The head takes 25 lines, what stands above the rows 5, the account 4 and the foot at most 15
  // and at the least 10.
  for (const auto& [payments, pages] : std::vector<PagesCase>{{1, 1},
                                                              {2, 1},
                                                              {12, 1},
                                                              {16, 1},
                                                              {17, 1},
                                                              {21, 1},
                                                              {22, 2},
                                                              {33, 2},
                                                              {40, 2},
                                                              {86, 2},
                                                              {87, 3},
                                                              {200, 4}}) {
    const Lines lines = Printed(WithPayments(payments));
    EXPECT_EQ(lines.size(), pages * 65) << payments;
    const Lines closing(kFoot.begin() + 8, kFoot.end());
    EXPECT_THAT(Lines(lines.end() - 7, lines.end()), ElementsAreArray(closing)) << payments;
    const auto rows = std::count_if(lines.begin(), lines.end(), [](const std::string& line) {
      return line.starts_with("    |31.1.2004 ");
    });
    EXPECT_EQ(static_cast<std::size_t>(rows), payments);
  }
}

TEST(InvoicePageTest, EmptyLinesOfTheFootGiveWayBeforeASecondPage) {
  // How many empty lines stand above the signature and below it.
  struct Room {
    std::size_t payments;
    std::ptrdiff_t above;
    std::ptrdiff_t below;
  };
  for (const auto& [payments, above, below] :
       std::vector<Room>{{16, 3, 3}, {17, 3, 2}, {19, 3, 0}, {20, 2, 0}, {21, 1, 0}, {86, 1, 0}}) {
    const Lines lines = Printed(WithPayments(payments));
    const auto account = std::find(lines.begin(), lines.end(), kAccount[3]);
    const auto signature = std::find(lines.begin(), lines.end(), kFoot[3]);
    const auto closing = std::find(lines.begin(), lines.end(), kFoot[8]);
    EXPECT_EQ(signature - account - 1, above) << payments;
    EXPECT_EQ(closing - signature - 2, below) << payments;
  }
}

TEST(InvoicePageTest, AccountIsNotPartedByTheEndOfAPage) {
  // The line above the account is the 64th: the account goes on the next page as a whole.
  const ProgressiveResult result = WithPayments(32);
  const auto lines = InvoicePage(FilledInvoice(), Firm(), &result, {}).lines;
  EXPECT_THAT(ui::PageStarts(lines), ::testing::ElementsAre(0, 64));
  EXPECT_EQ(lines[64].text, kAccount[2]);
  EXPECT_EQ(lines.size(), 64U + 65U) << "the foot is at the foot of the page";
}

// --- the payment code --------------------------------------------------------------------------

ProgramSettings FirmWithAccount(const std::string& account = "19-2000145399/0800") {
  ProgramSettings settings = Firm();
  settings.Banka = account;
  return settings;
}

std::optional<ui::PrintedCode> CodeOf(const FinishedCalculation& calculation,
                                      const ProgramSettings& settings = FirmWithAccount(),
                                      const LocaleFormat& locale = {}) {
  return InvoicePage(FilledInvoice(), settings, calculation, locale).code;
}

TEST(InvoicePageTest, PaymentCodeStandsBesideTheAccountAndChangesNoLine) {
  const SingleResult result = Single();
  const auto code = CodeOf(&result);
  ASSERT_TRUE(code.has_value());
  EXPECT_EQ(code->payload,
            "SPD*1.0*ACC:CZ6508000000192000145399*AM:237.53*CC:CZK*X-VS:2026001*DT:20260129*MSG:"
            "PENALIZACNI FAKTURA 2026001");
  EXPECT_EQ(code->caption, "QR Platba");
  EXPECT_EQ(code->column, 74);
  EXPECT_EQ(code->height, 7);
  const Lines lines = Printed(FilledInvoice(), FirmWithAccount(), &result);
  EXPECT_EQ(lines[code->line + 1], kAccount[2]) << "it begins a line above the account's";
  Lines expected = Printed(result);
  std::replace(expected.begin(), expected.end(), kAccount[3],
               Row("19-2000145399/0800", 18, 90, "", 0));
  EXPECT_EQ(lines, expected);
}

TEST(InvoicePageTest, PaymentCodeHasTheAmountThatIsInvoicedInAnyForm) {
  SingleResult result = Single();
  result.interest = 1234.005;  // invoiced as 1 234,01 Kč
  for (const LocaleFormat& locale : {LocaleFormat(), {".", ",", "M/d/yyyy"}}) {
    EXPECT_THAT(CodeOf(&result, FirmWithAccount(), locale)->payload,
                ::testing::HasSubstr("*AM:1234.01*"));
  }
  const ProgressiveResult progressive = Progressive();
  EXPECT_THAT(CodeOf(&progressive)->payload, ::testing::HasSubstr("*AM:123.29*"));
}

TEST(InvoicePageTest, NoPaymentCodeWithoutAnAccountOrWithNothingToPay) {
  SingleResult result = Single();
  EXPECT_FALSE(CodeOf(&result, FirmWithAccount("Číslo účtu a kód banky")).has_value());
  result.interest = 0.004;
  EXPECT_FALSE(CodeOf(&result).has_value());
}

TEST(InvoicePageTest, PaymentCodeNeverCoversAText) {
  // Fourteen payments leave five lines between the account and the signature.
  for (const std::size_t payments : {1U, 14U, 32U, 33U, 40U}) {
    const ProgressiveResult result = WithPayments(payments);
    EXPECT_TRUE(CodeOf(&result).has_value()) << payments;
  }
  for (const std::size_t payments : {15U, 21U, 84U}) {
    const ProgressiveResult result = WithPayments(payments);
    EXPECT_FALSE(CodeOf(&result).has_value()) << payments;
  }
  const SingleResult result = Single();
  const ProgramSettings settings =
      FirmWithAccount("19-2000145399/0800, vedený u České spořitelny, a. s., pobočky v Praze 4");
  const auto code = CodeOf(&result, settings);
  ASSERT_TRUE(code.has_value());
  const Lines lines = Printed(FilledInvoice(), settings, &result);
  EXPECT_THAT(lines[code->line - 2], ::testing::HasSubstr(settings.Banka)) << "it stands below";
}

TEST(InvoicePageTest, PaymentCodeKeepsItsCaptionOffALongText) {
  // The code would stand beside the short lines, its caption on the long one.
  const SingleResult result = Single();
  const std::string short_lines = "19-2000145399/0800\n2\n3\n4\n5\n6\n";
  for (const int column : {76, 77, 89}) {
    const ProgramSettings settings =
        FirmWithAccount(short_lines + std::string(static_cast<std::size_t>(column - 5), 'b'));
    const auto code = CodeOf(&result, settings);
    ASSERT_TRUE(code.has_value()) << column;
    const Lines lines = Printed(FilledInvoice(), settings, &result);
    const auto long_line = std::find_if(lines.begin(), lines.end(), [](const std::string& line) {
      return line.starts_with("    |bbb");
    });
    const bool beside = code->line < static_cast<std::size_t>(long_line - lines.begin());
    EXPECT_EQ(beside, column <= 76) << column;
  }
}

TEST(InvoicePageTest, DocumentIsNamedAfterItsNumber) {
  const SingleResult result = Single();
  Invoice invoice = FilledInvoice();
  EXPECT_EQ(InvoicePage(invoice, Firm(), &result, {}).name, "Penalizační faktura 2026001");
  invoice.number = "";
  EXPECT_EQ(InvoicePage(invoice, Firm(), &result, {}).name, "Penalizační faktura");
}

}  // namespace
}  // namespace velta
