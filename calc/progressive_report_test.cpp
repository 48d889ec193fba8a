#include "calc/progressive_report.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "tests/support/day.h"
#include "tests/support/english_locale.h"
#include "ui/memory/memory_platform.h"

namespace velta {
namespace {

using ::testing::HasSubstr;

const std::string kRule = "****************************************************\r\n";

Payment Paid(int days, std::int64_t units, double interest) {
  Payment payment;
  payment.date = Day(2005, 3, 10) + std::chrono::days(days);
  payment.days = days;
  payment.amount = Money::FromUnits(units);
  payment.interest = interest;
  return payment;
}

ProgressiveResult AtRate(RateKind kind, Rate rate) {
  ProgressiveResult result;
  result.due_date = Day(2005, 3, 10);
  result.kind = kind;
  result.kind_text = kind == RateKind::kUnknown ? "% měsíčně" : Text(kind);
  result.rate = rate;
  return result;
}

Payment PaidInTwoHalfYears() {
  Payment payment = Paid(20, 50'000'000, 25.0);
  payment.periods = {{Day(2005, 6, 20), Day(2005, 6, 30), 9.5F, 10, 13.0137},
                     {Day(2005, 7, 1), Day(2005, 7, 10), 8.75F, 10, 11.9863}};
  return payment;
}

std::string BlockWithRateLine(const std::string& rate) {
  return "Úrok z prodlení ode dne:\t10.3.2005\r\n"
         "Úrok z prodlení ke dni:\t20.6.2005\r\n"
         "Částečná úhrada ve výši:\t1 234,57 Kč\r\n"
         "Počet dnů prodlení:\t\t102\r\n"
         "Úroková sazba:\t\t" +
         rate +
         "\r\n"
         "Úrok z prodlení\t\t95,10 Kč\r\n" +
         kRule;
}

TEST(PaymentReportTest, TypedKindTellsItsRateAndItsText) {
  const Payment payment = Paid(102, 12'345'678, 95.1);
  EXPECT_EQ(PaymentReport(AtRate(RateKind::kPercentYearly, 8.5F), payment, {}),
            BlockWithRateLine("8,5 % ročně"));
  EXPECT_EQ(PaymentReport(AtRate(RateKind::kPerMilleDaily, 0.05F), payment, {}),
            BlockWithRateLine("0,05 ‰ denně"));
  EXPECT_EQ(PaymentReport(AtRate(RateKind::kCrownsDaily, 15), payment, {}),
            BlockWithRateLine("15 částka Kč denně"));
  EXPECT_EQ(PaymentReport(AtRate(RateKind::kUnknown, 1), payment, {}),
            BlockWithRateLine("1 % měsíčně"));
}

TEST(PaymentReportTest, DiscountRateIsPerCent) {
  const Payment payment = Paid(102, 12'345'678, 95.1);
  EXPECT_EQ(PaymentReport(AtRate(RateKind::kDiscount, 2.5F), payment, {}),
            BlockWithRateLine("2,5 %"));
  EXPECT_EQ(PaymentReport(AtRate(RateKind::kDiscount, 3), payment, {}), BlockWithRateLine("3 %"));
}

TEST(PaymentReportTest, RepoPaymentIsABlockForEachHalfYearWithTheWholePayment) {
  EXPECT_EQ(PaymentReport(AtRate(RateKind::kRepo, 0), PaidInTwoHalfYears(), {}),
            "Úrok z prodlení ode dne:\t20.6.2005\r\n"
            "Úrok z prodlení ke dni :\t30.6.2005\r\n"
            "Částečná úhrada ve výši:\t5 000,00 Kč\r\n"
            "Počet dnů prodlení     :\t10\r\n"
            "Úroková sazba          :\t9,5\r\n"
            "Úrok z prodlení        :\t13,01 Kč\r\n"
            "\r\n"
            "Úrok z prodlení ode dne:\t1.7.2005\r\n"
            "Úrok z prodlení ke dni :\t10.7.2005\r\n"
            "Částečná úhrada ve výši:\t5 000,00 Kč\r\n"
            "Počet dnů prodlení     :\t10\r\n"
            "Úroková sazba          :\t8,75\r\n"
            "Úrok z prodlení        :\t11,99 Kč\r\n"
            "\r\n");
}

TEST(PaymentReportTest, LabelsStayCzechInAnotherLocale) {
  const std::string report = PaymentReport(AtRate(RateKind::kPercentYearly, 8.5F),
                                           Paid(102, 12'345'678, 95.1), EnglishLocale());
  EXPECT_EQ(report,
            "Úrok z prodlení ode dne:\t3/10/2005\r\n"
            "Úrok z prodlení ke dni:\t6/20/2005\r\n"
            "Částečná úhrada ve výši:\t1,234.57 Kč\r\n"
            "Počet dnů prodlení:\t\t102\r\n"
            "Úroková sazba:\t\t8.5 % ročně\r\n"
            "Úrok z prodlení\t\t95.10 Kč\r\n" +
                kRule);
}

TEST(ClosingReportTest, OnePaymentEndsWithItsOwnInterest) {
  for (const RateKind kind : {RateKind::kPercentYearly, RateKind::kDiscount}) {
    ProgressiveResult result = AtRate(kind, 2.5F);
    result.payments = {Paid(102, 100'000'000, 69.86)};
    result.total = Money::FromUnits(698'600);
    EXPECT_EQ(ClosingReport(result, {}), "\r\nÚrok z prodlení celkem\t69,86 Kč");
  }
}

TEST(ClosingReportTest, TotalOfOnePaymentIsWhatItsInterestLineSays) {
  ProgressiveResult result = AtRate(RateKind::kPercentYearly, 2.5F);
  result.payments = {Paid(102, 100'000'000, 69.86499)};
  result.total = Money::FromUnits(698'650);  // of which two decimals would be 69,87
  EXPECT_THAT(PaymentReport(result, result.payments.front(), {}),
              HasSubstr("Úrok z prodlení\t\t69,86 Kč\r\n"));
  EXPECT_EQ(ClosingReport(result, {}), "\r\nÚrok z prodlení celkem\t69,86 Kč");
}

TEST(ClosingReportTest, SeveralPaymentsEndWithTheirTotal) {
  for (const RateKind kind : {RateKind::kPercentYearly, RateKind::kDiscount}) {
    ProgressiveResult result = AtRate(kind, 2.5F);
    result.payments = {Paid(102, 40'000'000, 27.95), Paid(112, 60'000'000, 46.03)};
    result.total = Money::FromUnits(739'800);
    EXPECT_EQ(ClosingReport(result, {}), "\r\nÚrok z prodlení celkem\t73,98 Kč");
  }
}

TEST(ClosingReportTest, OneHalfYearHasItsTotalUnderTheOtherColons) {
  ProgressiveResult result = AtRate(RateKind::kRepo, 0);
  Payment payment = PaidInTwoHalfYears();
  payment.periods.pop_back();
  payment.interest = 13.1;  // rounded up, unlike the period's 13,0137
  result.payments = {payment};
  EXPECT_EQ(ClosingReport(result, {}), "\r\nÚrok z prodlení celkem  :\t13,10 Kč");
}

TEST(ClosingReportTest, SeveralHalfYearsEndWithARuleAndTheirTotal) {
  ProgressiveResult result = AtRate(RateKind::kRepo, 0);
  result.payments = {PaidInTwoHalfYears()};
  result.total = Money::FromUnits(250'000);
  const std::string closing = "\r\n" + kRule + "Úrok z prodlení celkem\t25,00 Kč";
  EXPECT_EQ(ClosingReport(result, {}), closing) << "one payment";
  for (Payment& payment : result.payments) payment.periods.pop_back();
  result.payments.push_back(result.payments.front());
  EXPECT_EQ(ClosingReport(result, {}), closing) << "two payments of one half-year each";
}

}  // namespace
}  // namespace velta
