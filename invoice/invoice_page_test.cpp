#include "invoice/invoice_page.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/day.h"

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
              const FinishedCalculation& calculation, const ui::LocaleFormat& locale = {}) {
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
  EXPECT_EQ(document.name, "Penalizační faktura");
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
  EXPECT_EQ(TwoLinesFrom(Printed(result), "    |Úroková"),
            (Lines{"    |Úroková sazba " + std::string(53, ' ') + "12,5 částka Kč den",
                   std::string(72, ' ') + "ně" + std::string(15, ' ') + "|"}));
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

TEST(InvoicePageTest, LargestAmountsPushTheBalanceToTheNextLine) {
  ProgressiveResult result = Progressive();
  result.payments[0].amount = Money::FromUnits(9'223'372'036'854'775'807);
  EXPECT_EQ(TwoLinesFrom(Printed(result), "    |31.1.2004"),
            (Lines{"    |31.1.2004           922 337 203 685 477,58 Kč",
                   std::string(45, ' ') + "5 000,00 Kč                 41,10 Kč        |"}));
}

// --- texts that are too long -------------------------------------------------------------------

TEST(InvoicePageTest, SupplierNameReachesUpToTheDivider) {
  Invoice invoice = FilledInvoice();
  invoice.supplier.name = std::string(31, 'a') + "ž";
  EXPECT_EQ(
      LineOf(Printed(invoice), "    |          aaa"),
      "    |          " + invoice.supplier.name + "|          Dlužník Praha, a. s.           |");
  invoice.supplier.name += "x";
  EXPECT_EQ(TwoLinesFrom(Printed(invoice), "    |          aaa"),
            (Lines{"    |          " + invoice.supplier.name,
                   std::string(47, ' ') + "|          Dlužník Praha, a. s.           |"}));
}

TEST(InvoicePageTest, CustomerNameReachesUpToTheEdge) {
  Invoice invoice = FilledInvoice();
  invoice.customer.name = std::string(30, 'a') + "ž";
  const std::string left = "    |          Novák a syn, s. r. o.           |          ";
  EXPECT_EQ(LineOf(Printed(invoice), "    |          Novák"), left + invoice.customer.name + "|");
  invoice.customer.name += "x";
  EXPECT_EQ(TwoLinesFrom(Printed(invoice), "    |          Novák"),
            (Lines{left + invoice.customer.name, std::string(89, ' ') + "|"}));
}

TEST(InvoicePageTest, NamesLongerThanALineGoOnInTheirOwnColumn) {
  Invoice invoice = FilledInvoice();
  invoice.customer.name = std::string(32, 'a') + std::string(32, 'b') + "c";
  const Lines lines = Printed(invoice);
  const auto at = std::find_if(lines.begin(), lines.end(),
                               [](const std::string& line) { return line.ends_with("aaa"); });
  ASSERT_LT(at - lines.begin(), 60);
  EXPECT_EQ(*(at + 1), std::string(58, ' ') + std::string(32, 'b'));
  EXPECT_EQ(*(at + 2), std::string(58, ' ') + "c" + std::string(30, ' ') + "|");
}

TEST(InvoicePageTest, TotalReachesUpToTheEdge) {
  SingleResult result = Single();
  const std::string item =
      "    |Fakturujeme Vám úroky z prodlení dle výpočtu" + std::string(24, ' ');
  result.interest = 12'345'678.12;  // sixteen characters
  EXPECT_EQ(LineOf(Printed(result), "    |Fakturujeme"), item + "12 345 678,12 Kč|");
  result.interest = 123'456'789.12;  // seventeen
  EXPECT_EQ(TwoLinesFrom(Printed(result), "    |Fakturujeme"),
            (Lines{item + "123 456 789,12 Kč", std::string(89, ' ') + "|"}));
}

TEST(InvoicePageTest, InvoiceNumberHasItsPlaceUpToColumnFifty) {
  Invoice invoice = FilledInvoice();
  invoice.number = std::string(21, '7');
  EXPECT_EQ(LineOf(Printed(invoice), "    |   Variabilní"),
            "    |   Variabilní symbol    " + invoice.number + std::string(39, ' ') + "|");
  invoice.number += "8";
  EXPECT_EQ(TwoLinesFrom(Printed(invoice), "    |   Variabilní"),
            (Lines{"    |   Variabilní symbol    " + invoice.number, std::string(89, ' ') + "|"}));
}

TEST(InvoicePageTest, LongSettingsGoOnInsideTheBox) {
  ProgramSettings settings = Firm();
  settings.Rejstrik = std::string(85, 'r') + "R";
  settings.TextRadku = std::string(69, 't');
  settings.Dovetek1 = std::string(85, 'd') + "D";
  const Lines lines = Printed(settings);
  EXPECT_EQ(TwoLinesFrom(lines, "    |rrr"),
            (Lines{"    |" + std::string(85, 'r'), "     R" + std::string(83, ' ') + "|"}));
  EXPECT_EQ(TwoLinesFrom(lines, "    |ttt"),
            (Lines{"    |" + std::string(69, 't'), std::string(73, ' ') + "237,53 Kč       |"}));
  EXPECT_EQ(TwoLinesFrom(lines, "    |ddd"),
            (Lines{"    |" + std::string(85, 'd'), "     D" + std::string(83, ' ') + "|"}));
  EXPECT_EQ(lines.size(), 65U) << "fewer empty lines stand between";
}

TEST(InvoicePageTest, AnyScriptAndAnyLengthIsKept) {
  Invoice invoice = FilledInvoice();
  invoice.customer.name = "Żółć Ünïcode Ελλάς Київ 東京 " + std::string(1000, 'q');
  std::string joined;
  for (const std::string& line : Printed(invoice)) joined += line;
  EXPECT_NE(joined.find("Żółć Ünïcode Ελλάς Київ 東京"), std::string::npos);
  EXPECT_EQ(std::count(joined.begin(), joined.end(), 'q'), 1000);
}

// --- the page's foot ---------------------------------------------------------------------------

/// How many pages so many payments take.
struct PagesCase {
  std::size_t payments;
  std::size_t pages;
};

TEST(InvoicePageTest, FootStandsAtTheFootOfTheLastPage) {
  // The head takes 25 lines, what stands above the rows 5, the account 4 and the foot 15.
  for (const auto& [payments, pages] : std::vector<PagesCase>{
           {1, 1}, {2, 1}, {12, 1}, {16, 1}, {17, 2}, {21, 2}, {81, 2}, {82, 3}, {200, 4}}) {
    const Lines lines = Printed(WithPayments(payments));
    EXPECT_EQ(lines.size(), pages * 65) << payments;
    EXPECT_THAT(Lines(lines.end() - 15, lines.end()), ElementsAreArray(kFoot)) << payments;
    const auto rows = std::count_if(lines.begin(), lines.end(), [](const std::string& line) {
      return line.starts_with("    |31.1.2004 ");
    });
    EXPECT_EQ(static_cast<std::size_t>(rows), payments);
  }
}

}  // namespace
}  // namespace velta
