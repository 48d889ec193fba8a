#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "windows/progressive/frmPostupny_test.h"

namespace velta {
namespace {

using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::IsEmpty;

TEST_F(frmPostupnyTest, ReportGrowsByEveryPaymentAndEndsWithTheTotal) {
  SetRounding("halere");
  Open();
  EnterSampleInvoice();
  Pay(Day(2004, 1, 31), "5000");
  const std::string first = std::string(kHeading) +
                            "Úrok z prodlení ode dne:\t1.1.2004\r\n"
                            "Úrok z prodlení ke dni:\t31.1.2004\r\n"
                            "Částečná úhrada ve výši:\t5 000,00 Kč\r\n"
                            "Počet dnů prodlení:\t\t30\r\n"
                            "Úroková sazba:\t\t10 % ročně\r\n"
                            "Úrok z prodlení\t\t41,10 Kč\r\n"
                            "****************************************************\r\n";
  EXPECT_EQ(form_->txtPostup.text(), first);
  EXPECT_EQ(state().ReportText, first);
  Pay(Day(2004, 3, 1), "5000");
  EXPECT_EQ(form_->txtPostup.text(), first +
                                         "Úrok z prodlení ode dne:\t1.1.2004\r\n"
                                         "Úrok z prodlení ke dni:\t1.3.2004\r\n"
                                         "Částečná úhrada ve výši:\t5 000,00 Kč\r\n"
                                         "Počet dnů prodlení:\t\t60\r\n"
                                         "Úroková sazba:\t\t10 % ročně\r\n"
                                         "Úrok z prodlení\t\t82,20 Kč\r\n"
                                         "****************************************************\r\n"
                                         "\r\n"
                                         "Úrok z prodlení celkem\t123,30 Kč");
  EXPECT_EQ(state().ReportText, form_->txtPostup.text());
  EXPECT_EQ(form_->ReportBoxText(), form_->txtPostup.text());
}

TEST_F(frmPostupnyTest, ReportOfASinglePaymentEndsWithItsInterest) {
  Open();
  EnterSampleInvoice();
  Pay(Day(2004, 1, 31), "10000");
  EXPECT_THAT(form_->txtPostup.text(),
              EndsWith("Úrok z prodlení\t\t82,19 Kč\r\n"
                       "****************************************************\r\n"
                       "\r\n"
                       "Úrok z prodlení celkem\t82,19 Kč"));
  EXPECT_EQ(state().ReportText, form_->txtPostup.text());
}

TEST_F(frmPostupnyTest, RepoReportListsEveryHalfYearOfEveryPayment) {
  Open();
  EnterInvoice("10000", Day(2005, 6, 20), kRepo, "");
  Pay(Day(2005, 6, 25), "5000");
  Pay(Day(2005, 7, 10), "5000");
  EXPECT_EQ(form_->txtPostup.text(), std::string(kHeading) +
                                         "Úrok z prodlení ode dne:\t20.6.2005\r\n"
                                         "Úrok z prodlení ke dni :\t25.6.2005\r\n"
                                         "Částečná úhrada ve výši:\t5 000,00 Kč\r\n"
                                         "Počet dnů prodlení     :\t5\r\n"
                                         "Úroková sazba          :\t9,5\r\n"
                                         "Úrok z prodlení        :\t6,51 Kč\r\n"
                                         "\r\n"
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
                                         "\r\n"
                                         "\r\n"
                                         "****************************************************\r\n"
                                         "Úrok z prodlení celkem\t31,51 Kč");
  EXPECT_EQ(state().ReportText, form_->txtPostup.text());
}

TEST_F(frmPostupnyTest, RecordHoldsEveryPayment) {
  SetRounding("halere");
  Open();
  EnterInvoice("10000", Day(2005, 6, 20), kRepo, "");
  Pay(Day(2005, 6, 25), "5000");
  Pay(Day(2005, 7, 10), "5000");
  const ProgressiveResult& record = Record();
  EXPECT_EQ(record.due_date, Day(2005, 6, 20));
  EXPECT_EQ(record.kind, RateKind::kRepo);
  EXPECT_EQ(record.kind_text, "Dle Repo sazby ČNB");
  EXPECT_EQ(record.total, Money::FromUnits(315'068));
  ASSERT_EQ(record.payments.size(), 2U);
  const Payment& first = record.payments[0];
  EXPECT_EQ(first.date, Day(2005, 6, 25));
  EXPECT_EQ(first.days, 5);
  EXPECT_EQ(first.amount, Money::FromUnits(50'000'000));
  EXPECT_EQ(first.balance, Money::FromUnits(50'000'000));
  EXPECT_DOUBLE_EQ(first.interest, 6.6);
  EXPECT_EQ(first.interest_sum, Money::FromUnits(65'068));
  EXPECT_EQ(first.periods.size(), 1U);
  const Payment& second = record.payments[1];
  EXPECT_EQ(second.days, 20);
  EXPECT_DOUBLE_EQ(second.interest, 25.0) << "its own half-years, without the payment before";
  EXPECT_EQ(second.balance, Money());
  EXPECT_EQ(second.interest_sum, Money::FromUnits(250'000));
  EXPECT_EQ(second.periods.size(), 2U);
}

TEST_F(frmPostupnyTest, RecordOfATypedKindHoldsItsRate) {
  Open();
  EnterInvoice("10000", Day(2004, 1, 1), 3, "8,5");
  Pay(Day(2004, 1, 31), "10000");
  const ProgressiveResult& record = Record();
  EXPECT_EQ(record.kind, RateKind::kPerMilleYearly);
  EXPECT_EQ(record.kind_text, "‰ ročně");
  EXPECT_EQ(record.rate, 8.5F);
  EXPECT_EQ(record.due_date, Day(2004, 1, 1));
  ASSERT_EQ(record.payments.size(), 1U);
  EXPECT_THAT(record.payments[0].periods, IsEmpty());
  EXPECT_DOUBLE_EQ(record.payments[0].interest, 6.99);  // 10 000 × 8,5 × 30 ÷ 365 000
  EXPECT_EQ(record.payments[0].interest_sum, Money::FromUnits(69'900));
  EXPECT_EQ(record.total, Money::FromUnits(69'900));
}

TEST_F(frmPostupnyTest, PrintAndInvoiceNeedTheLastPayment) {
  Open();
  EnterSampleInvoice();
  Pay(Day(2004, 1, 31), "5000");
  form_->cmdTiskVyp.UserClick();
  form_->cmdTiskFa.UserClick();
  for (const auto& box : memory_.message_box.shown) EXPECT_EQ(box.icon, ui::Icon::kCritical);
  EXPECT_THAT(Shown(), ElementsAre(kNotPrintable, kNotPrintable));
  EXPECT_THAT(memory_.printer.asked, IsEmpty());
  EXPECT_FALSE(windows().IsLoaded("frmFaktura"));
}

TEST_F(frmPostupnyTest, PrintsTheCopiesThatTheUserChooses) {
  SetRounding("halere");
  Open();
  EnterSampleInvoice();
  Pay(Day(2004, 1, 31), "5000");
  Pay(Day(2004, 3, 1), "5000");
  memory_.printer.answer = 3;
  form_->cmdTiskVyp.UserClick();
  ASSERT_EQ(memory_.printer.printed.size(), 1U);
  EXPECT_EQ(memory_.printer.printed[0].copies, 3);
  const ui::PrintedDocument& page = memory_.printer.printed[0].document;
  EXPECT_EQ(page.font, "Courier New CE");
  EXPECT_EQ(page.point_size, 10);
  EXPECT_EQ(page.lines.size(), 20U) << "two of the heading, eight a payment, two of the total";
  EXPECT_THAT(page.lines.back().text, EndsWith("123,30 Kč"));
  EXPECT_THAT(Shown(), IsEmpty());
}

TEST_F(frmPostupnyTest, PrintingSelectsTheRowsTogether) {
  Open();
  EnterSampleInvoice();
  Pay(Day(2004, 1, 31), "5000");
  Pay(Day(2004, 3, 1), "5000");
  memory_.printer.answer = std::nullopt;
  form_->cmdTiskVyp.UserClick();
  EXPECT_EQ(form_->List1.index(), -1) << "nothing is printed";
  memory_.printer.answer = 1;
  form_->cmdTiskVyp.UserClick();
  for (const ui::ListBox* list : {&form_->List1, &form_->List2, &form_->List3, &form_->List4}) {
    EXPECT_EQ(list->index(), 1) << list->name() << ": the last one that was printed";
  }
  EXPECT_EQ(form_->List5.index(), -1);
}

TEST_F(frmPostupnyTest, RepoPrintsTheReportBoxLineForLine) {
  Open();
  EnterInvoice("5000", Day(2005, 6, 20), kRepo, "");
  Pay(Day(2005, 7, 10), "5000");
  form_->cmdTiskVyp.UserClick();
  ASSERT_EQ(memory_.printer.printed.size(), 1U);
  const ui::PrintedDocument& page = memory_.printer.printed[0].document;
  std::string text;
  for (const ui::PrintedLine& line : page.lines) text += line.text + "\r\n";
  std::string report = form_->txtPostup.text() + "\r\n";
  // Every label but the last is 24 characters long, that one 22, and the values begin in column 33.
  for (std::size_t at = report.find('\t'); at != std::string::npos; at = report.find('\t')) {
    const bool total = report.compare(at - 6, 6, "celkem") == 0;
    report.replace(at, 1, total ? 10 : 8, ' ');
  }
  EXPECT_EQ(text, report);
  EXPECT_EQ(form_->List1.index(), -1) << "the rows are not gone through";
}

TEST_F(frmPostupnyTest, CancelledPrintDialogIsReported) {
  Open();
  EnterSampleInvoice();
  Pay(Day(2004, 1, 31), "10000");
  memory_.printer.answer = std::nullopt;
  form_->cmdTiskVyp.UserClick();
  EXPECT_THAT(Shown(), ElementsAre("Chyba 32755 (Tisk byl zrušen) v proceduře\r\n"
                                   "(cmdTiskVyp_Click) of (frmPostupny.frm)."));
  EXPECT_EQ(memory_.printer.asked.size(), 1U);
  EXPECT_THAT(memory_.printer.printed, IsEmpty());
  EXPECT_TRUE(state().CalculationFinished);
}

TEST_F(frmPostupnyTest, PrinterThatFailsIsReported) {
  Open();
  EnterSampleInvoice();
  Pay(Day(2004, 1, 31), "10000");
  memory_.printer.fails = true;
  form_->cmdTiskVyp.UserClick();
  EXPECT_THAT(Shown(), ElementsAre("Chyba 482 (Chyba tiskárny) v proceduře\r\n"
                                   "(cmdTiskVyp_Click) of (frmPostupny.frm)."));
}

TEST_F(frmPostupnyTest, DeferredPrintThatIsCancelledIsReported) {
  Open();
  EnterSampleInvoice();
  Pay(Day(2004, 1, 31), "10000");
  memory_.printer.answer = std::nullopt;
  form_->PrintLater();
  memory_.event_loop.RunUntilIdle();
  EXPECT_THAT(Shown(), ElementsAre("Chyba 32755 (Tisk byl zrušen) v proceduře\r\n"
                                   "(cmdTiskVyp_Click) of (frmPostupny.frm)."));
}

}  // namespace
}  // namespace velta
