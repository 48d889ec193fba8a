#include "calc/single_report.h"

#include <gtest/gtest.h>

#include "tests/support/day.h"
#include "tests/support/english_locale.h"
#include "ui/memory/memory_platform.h"

namespace velta {
namespace {

constexpr const char* kRule = "****************************************************\r\n";
static_assert(std::string_view(kRule).size() == 52 + 2);

SingleResult SingleRate(RateKind kind, Rate rate) {
  return {Day(2005, 3, 10),
          Day(2005, 6, 20),
          102,
          Money::FromUnits(100'000'000),
          kind,
          rate,
          {},
          285.0684931506849,
          Money::FromUnits(102'850'685)};
}

std::string ReportWithRateLine(const std::string& rate) {
  return std::string("Podklady pro výpočet úroku z prodlení\r\n") + kRule +
         "\tÚrok z prodlení ode dne:\t10.3.2005\r\n"
         "\tÚrok z prodlení ke dni:\t20.6.2005\r\n"
         "\tPočet dnů prodlení:\t102\r\n"
         "\tÚroková sazba:\t" +
         rate +
         "\r\n"
         "\tDlužná částka:\t10 000,00 Kč\r\n"
         "\tÚrok z prodlení\t285,07 Kč\r\n"
         "\tÚrok z prodlení + dlužná částka\t10 285,07 Kč\r\n" +
         kRule;
}

TEST(SingleReportTest, TypedRateStandsWithItsKind) {
  EXPECT_EQ(SingleReport(SingleRate(RateKind::kPercentYearly, 8.5F), {}),
            ReportWithRateLine("8,5 % ročně"));
  EXPECT_EQ(SingleReport(SingleRate(RateKind::kPerMilleDaily, 0.05F), {}),
            ReportWithRateLine("0,05 ‰ denně"));
}

TEST(SingleReportTest, DiscountRateStandsInPerCent) {
  EXPECT_EQ(SingleReport(SingleRate(RateKind::kDiscount, 3), {}), ReportWithRateLine("3 %"));
  EXPECT_EQ(SingleReport(SingleRate(RateKind::kDiscount, 9.5F), {}), ReportWithRateLine("9,5 %"));
}

TEST(SingleReportTest, RepoReportListsEveryPeriod) {
  SingleResult result;
  result.due_date = Day(2005, 6, 20);
  result.payment_date = Day(2005, 7, 10);
  result.days = 20;
  result.base_amount = Money::FromUnits(100'000'000);
  result.kind = RateKind::kRepo;
  result.periods = {{Day(2005, 6, 20), Day(2005, 6, 30), 9.5F, 10, 26.0274},
                    {Day(2005, 7, 1), Day(2005, 7, 10), 8.75F, 10, 23.9726}};
  result.interest = 50.1;
  result.amount_with_interest = Money::FromUnits(100'501'000);
  EXPECT_EQ(SingleReport(result, {}), std::string("Podklady pro výpočet úroku z prodlení\r\n") +
                                          kRule +
                                          "\tÚrok z prodlení ode dne:\t20.6.2005\r\n"
                                          "\tÚrok z prodlení ke dni:\t30.6.2005\r\n"
                                          "\tDlužná částka:\t10 000,00 Kč\r\n"
                                          "\tPočet dnů prodlení:\t10\r\n"
                                          "\tÚroková sazba:\t9,5 %\r\n"
                                          "\tÚrok z prodlení\t26,03 Kč\r\n"
                                          "\r\n"
                                          "\tÚrok z prodlení ode dne:\t1.7.2005\r\n"
                                          "\tÚrok z prodlení ke dni:\t10.7.2005\r\n"
                                          "\tDlužná částka:\t10 000,00 Kč\r\n"
                                          "\tPočet dnů prodlení:\t10\r\n"
                                          "\tÚroková sazba:\t8,75 %\r\n"
                                          "\tÚrok z prodlení\t23,97 Kč\r\n"
                                          "\r\n"
                                          "\r\n"
                                          "\tÚrok z prodlení celkem\t50,10 Kč\r\n"
                                          "\tÚrok z prodlení + dlužná částka\t10 050,10 Kč\r\n" +
                                          kRule);
}

TEST(SingleReportTest, LabelsStayCzechInAnotherLocale) {
  const std::string report =
      SingleReport(SingleRate(RateKind::kPercentYearly, 8.5F), EnglishLocale());
  EXPECT_NE(report.find("\tÚrok z prodlení ode dne:\t3/10/2005\r\n"), std::string::npos);
  EXPECT_NE(report.find("\tÚroková sazba:\t8.5 % ročně\r\n"), std::string::npos);
  EXPECT_NE(report.find("\tDlužná částka:\t10,000.00 Kč\r\n"), std::string::npos);
}

}  // namespace
}  // namespace velta
