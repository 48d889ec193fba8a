#include "batch/field_values.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/day.h"
#include "tests/support/thrown.h"
#include "values/error.h"

namespace velta {
namespace {

template <class Body>
std::string Reason(const Body& body) {
  try {
    body();
  } catch (const RowError& error) {
    return error.reason;
  }
  return "";
}

TEST(FieldValuesTest, Dates) {
  struct Row {
    const char* text;
    Date day;
  };
  for (const Row& row : {Row{"28.4.2005", Day(2005, 4, 28)}, Row{"28.04.2005", Day(2005, 4, 28)},
                         Row{" 1. 2. 2005 ", Day(2005, 2, 1)}, Row{"2005-04-28", Day(2005, 4, 28)},
                         Row{" 2024-02-29\t", Day(2024, 2, 29)}}) {
    EXPECT_EQ(DateField(row.text, "splatnost"), row.day) << row.text;
  }
  for (const char* text :
       {"", "abc", "30.2.2005", "2005-02-30", "2005-2-3", "28/4/2005", "28.4.05", "28.4.", "280405",
        "2005-04-28T00:00", "0099-01-01", "2005-04-2x", "1.1.2005 x"}) {
    EXPECT_EQ(Reason([&] { DateField(text, "splatnost"); }),
              "splatnost: Datum je chybně zadáno, zadejte je například takto: 31.12.2005")
        << text;
  }
}

TEST(FieldValuesTest, TheDecimalSignOfANumber) {
  struct Row {
    const char* text;
    char sign;  // 0: not sure
  };
  for (const Row& row :
       {Row{"", 0}, Row{"1000", 0}, Row{"1,5", ','}, Row{"1.5", '.'}, Row{"1.000", 0},
        Row{"1,000", 0}, Row{"1000.500", '.'}, Row{"0.125", '.'}, Row{".125", '.'},
        Row{"-0,125", ','}, Row{"1.000,50", ','}, Row{"1,000.50", '.'}, Row{"1.234.567", 0},
        Row{"1.234.567,8", ','}, Row{"1,2,3.4.5", 0}, Row{"12 345,-", 0}, Row{"12 345,50 Kč", ','},
        Row{"5,", 0}}) {
    EXPECT_EQ(DecimalSign(row.text).value_or(0), row.sign) << row.text;
  }
}

struct AmountRow {
  const char* text;
  long long units_with_comma;  // -1: no number
  long long units_with_point;
};

TEST(FieldValuesTest, AmountsWithEitherSign) {
  const AmountRow rows[] = {
      {"1000", 10000000, 10000000},
      {"1000,50", 10005000, 10005000},
      {"1000.50", 10005000, 10005000},
      {"10 000,5", 100005000, 100005000},
      {"10\u00A0000.5", 100005000, 100005000},
      {"1.000,50", 10005000, 10005000},
      {"1,000.50", 10005000, 10005000},
      {"12 345,-", 123450000, 123450000},
      {"CZK 1 000", 10000000, 10000000},
      {"-5,25", -52500, -52500},
      // one or a thousand: only the file's own sign is taken
      {"1,000", 10000, -1},
      {"1.000", -1, 10000},
      {"1.234.567", -1, -1},
      {"", -1, -1},
      {"abc", -1, -1},
      {"5 %", -1, -1},
  };
  for (const AmountRow& row : rows) {
    for (const char sign : {',', '.'}) {
      const long long units = sign == ',' ? row.units_with_comma : row.units_with_point;
      long long read = -1;
      const std::string reason =
          Reason([&] { read = AmountField(row.text, "castka", NumberFormat(sign)).units(); });
      EXPECT_EQ(read, units) << row.text << ' ' << sign;
      EXPECT_EQ(reason, units == -1 ? "castka: Zde je nutné zadat číslo" : "") << row.text;
    }
  }
}

TEST(FieldValuesTest, AnAmountOutOfRangeIsAnError) {
  EXPECT_EQ(testing::Thrown([] { AmountField("922337203685478", "castka", NumberFormat(',')); }),
            ErrorNumber::kOverflow);
}

TEST(FieldValuesTest, Rates) {
  EXPECT_EQ(RateField("8,25", "sazba", NumberFormat(',')), 8.25F);
  EXPECT_EQ(RateField(" 8.25 ", "sazba", NumberFormat(',')), 8.25F);
  EXPECT_EQ(Reason([] { RateField("8 %", "sazba", NumberFormat(',')); }),
            "sazba: Zde je nutné zadat číslo");
}

TEST(FieldValuesTest, KindsAsTheWindowsWriteThem) {
  for (std::size_t i = 0; i < kRateKindTexts.size(); ++i) {
    const KindOfRow kind = KindField(kRateKindTexts.at(i));
    EXPECT_EQ(kind.kind, static_cast<RateKind>(i)) << kRateKindTexts.at(i);
    EXPECT_FALSE(kind.lawful) << kRateKindTexts.at(i);
  }
}

TEST(FieldValuesTest, KindsInShort) {
  struct Row {
    const char* text;
    RateKind kind;
  };
  for (const Row& row :
       {Row{"% DENNE", RateKind::kPercentDaily}, Row{"denně", RateKind::kPercentDaily},
        Row{"ročně", RateKind::kPercentYearly}, Row{"procent ročně", RateKind::kPercentYearly},
        Row{"promile denně", RateKind::kPerMilleDaily}, Row{"‰ rocne", RateKind::kPerMilleYearly},
        Row{"diskont", RateKind::kDiscount}, Row{" Repo ", RateKind::kRepo},
        Row{"Kč denně", RateKind::kCrownsDaily}, Row{"kc rocne", RateKind::kCrownsYearly}}) {
    EXPECT_EQ(KindField(row.text).kind, row.kind) << row.text;
    EXPECT_FALSE(KindField(row.text).lawful) << row.text;
  }
  for (const char* text : {"zakonna", "Zákonná", "ZÁKONNÁ SAZBA", "zákonný úrok"}) {
    EXPECT_TRUE(KindField(text).lawful) << text;
  }
  EXPECT_EQ(Reason([] { KindField(" "); }), "Nezadali jste druh sazby");
  EXPECT_EQ(Reason([] { KindField("měsíčně"); }), "druh: neznámý druh sazby");
}

}  // namespace
}  // namespace velta
