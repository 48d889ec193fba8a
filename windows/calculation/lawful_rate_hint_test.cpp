/// Both calculation windows say in grey which yearly rate is the lawful one.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "tests/support/english_locale.h"
#include "tests/support/program_test.h"
#include "tests/support/rate_folder.h"
#include "windows/progressive/frmPostupny.h"
#include "windows/single/frmJednotlivy.h"

namespace velta {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr int kPercentYearly = 1;
constexpr int kRepo = 5;

const std::string& NameOf(const frmJednotlivy* /*form*/) {
  static const std::string kName = "frmJednotlivy";
  return kName;
}
const std::string& NameOf(const frmPostupny* /*form*/) {
  static const std::string kName = "frmPostupny";
  return kName;
}

ui::TextBox& RateBox(frmJednotlivy& form) { return form.txtVyseSazby; }
ui::TextBox& RateBox(frmPostupny& form) { return form.txtData[2]; }

template <class Window>
class LawfulRateHintTest : public ProgramTest {
 protected:
  LawfulRateHintTest() {
    windows().Register(
        name_, [this] { return std::make_unique<Window>(program_, settings_, calculations_); });
  }

  void Open() { form_ = &Opened<Window>(name_); }
  void OpenWithRates(const std::string& repo) {
    folder_.Write("cnb.dat", CrLf({CnbLine("01.01.2003", "", "1,75", "3,50")}));
    folder_.Write("repo.dat", repo);
    memory_.program_folder.path = folder_.path();
    Open();
  }

  ui::TextBox& Rate() { return RateBox(*form_); }
  const std::string& Hint() { return Rate().placeholder(); }
  const std::string& HintForDueDate(Date due) {
    form_->dtpSplatnost.UserPick(due);
    return Hint();
  }

  const std::string name_ = NameOf(static_cast<const Window*>(nullptr));
  RateFolder folder_;
  Calculations calculations_{program_.state};
  Window* form_ = nullptr;
};

using BothWindows = ::testing::Types<frmJednotlivy, frmPostupny>;
TYPED_TEST_SUITE(LawfulRateHintTest, BothWindows);

TYPED_TEST(LawfulRateHintTest, StandsInTheBoxOfANewWindow) {
  this->Open();  // on 21.11.2026
  EXPECT_EQ(this->Hint(), "zákonná 11,75");
  EXPECT_EQ(this->Rate().text(), "");
  EXPECT_THAT(this->Shown(), IsEmpty());
}

// The first day of delay is the one after the due date. The rates: the bank's repo rate of the
// half-year with 7, from 1.7.2013 on 8 points, by hand.
TYPED_TEST(LawfulRateHintTest, FollowsTheDueDate) {
  struct Row {
    Date due;
    const char* hint;
  };
  this->Open();
  this->form_->dtpZaplaceni.UserPick(Day(9999, 12, 31));
  for (const Row& row :
       {Row{Day(2010, 6, 30), "zákonná 7,75"}, Row{Day(2010, 6, 29), ""},
        Row{Day(2012, 6, 29), "zákonná 7,75"}, Row{Day(2012, 6, 30), "zákonná 7,5"},
        Row{Day(2012, 12, 30), "zákonná 7,5"}, Row{Day(2012, 12, 31), "zákonná 7,05"},
        Row{Day(2013, 6, 29), "zákonná 7,05"}, Row{Day(2013, 6, 30), "zákonná 8,05"},
        Row{Day(2013, 12, 31), "zákonná 8,05"}, Row{Day(2021, 12, 31), "zákonná 11,75"},
        Row{Day(2022, 6, 30), "zákonná 15"}, Row{Day(2005, 4, 28), ""},
        Row{Day(2026, 12, 30), "zákonná 11,75"}, Row{Day(2026, 12, 31), ""},
        Row{Day(1900, 1, 1), ""}, Row{Day(9999, 12, 31), ""}}) {
    EXPECT_EQ(this->HintForDueDate(row.due), row.hint) << ShortDateText(row.due, LocaleFormat());
  }
}

TYPED_TEST(LawfulRateHintTest, ATypedDueDateCountsWhenItIsLeft) {
  this->Open();
  this->form_->dtpZaplaceni.UserPick(Day(2026, 11, 20));
  this->form_->dtpSplatnost.UserEdit("30.6.22");
  EXPECT_EQ(this->Hint(), "zákonná 11,75");
  this->form_->dtpSplatnost.UserCommit();
  EXPECT_EQ(this->Hint(), "zákonná 15");
}

TYPED_TEST(LawfulRateHintTest, ADateThatDoesNotExistChangesNothing) {
  this->Open();
  EXPECT_EQ(this->HintForDueDate(Day(2022, 6, 30)), "zákonná 15");
  this->form_->dtpSplatnost.UserEdit("31.2.2004");
  this->form_->dtpSplatnost.UserCommit();
  EXPECT_EQ(this->Hint(), "zákonná 15");
}

TYPED_TEST(LawfulRateHintTest, StandsOnlyWhileTheRateIsInPercentAYear) {
  this->Open();
  for (int kind = 0; kind < static_cast<int>(kListedRateKinds); ++kind) {
    this->form_->cboDruhSazby.UserPick(kind);
    EXPECT_EQ(this->Hint(), kind == kPercentYearly ? "zákonná 11,75" : "") << kind;
  }
  // Chosen anew it is that of the due date that has been picked meanwhile.
  EXPECT_EQ(this->HintForDueDate(Day(2022, 6, 30)), "");
  this->form_->cboDruhSazby.UserPick(kPercentYearly);
  EXPECT_EQ(this->Hint(), "zákonná 15");
}

TYPED_TEST(LawfulRateHintTest, IsNoRate) {
  this->Open();
  this->state().RateValue = 0;
  ui::TextBox& rate = this->Rate();
  int changes = 0;
  rate.Change.Connect([&] { ++changes; });
  this->HintForDueDate(Day(2022, 6, 30));
  this->form_->cboDruhSazby.UserPick(0);
  this->form_->cboDruhSazby.UserPick(kPercentYearly);
  EXPECT_EQ(changes, 0);
  EXPECT_EQ(rate.text(), "");
  EXPECT_EQ(this->state().RateValue, 0);
  rate.UserEdit("10");
  EXPECT_EQ(rate.text(), "10");
  rate.UserEdit("");
  EXPECT_EQ(rate.text(), "");
  EXPECT_EQ(this->Hint(), "zákonná 15") << "it is there again when the rate is deleted";
}

TYPED_TEST(LawfulRateHintTest, ANewCalculationHasThatOfItsDueDate) {
  this->Open();
  this->form_->dtpZaplaceni.UserPick(Day(2026, 11, 20));
  this->HintForDueDate(Day(2022, 6, 30));
  this->Rate().UserEdit("10");
  this->form_->cmdNovy.UserClick();
  EXPECT_EQ(this->Rate().text(), "");
  EXPECT_EQ(this->form_->dtpSplatnost.day(), Day(2022, 6, 30));
  EXPECT_EQ(this->Hint(), "zákonná 15");
}

TYPED_TEST(LawfulRateHintTest, HasTheUsersOwnDecimalSeparator) {
  this->memory_.locale = EnglishLocale();
  this->Open();
  EXPECT_EQ(this->Hint(), "zákonná 11.75");
}

TYPED_TEST(LawfulRateHintTest, OfATableThatEndsEarlierThereIsNone) {
  this->OpenWithRates(CrLf({"010120200,25", "010720200,25"}));
  EXPECT_EQ(this->Hint(), "");
  this->form_->dtpZaplaceni.UserPick(Day(2026, 11, 20));
  EXPECT_EQ(this->HintForDueDate(Day(2020, 12, 30)), "zákonná 8,25");
  EXPECT_EQ(this->HintForDueDate(Day(2020, 12, 31)), "");
  EXPECT_THAT(this->Shown(), IsEmpty());
}

TYPED_TEST(LawfulRateHintTest, OfABrokenTableTheRowsBeforeTheFaultStillCount) {
  this->OpenWithRates(CrLf({"010120200,25", "leden", "010120263,50"}));
  EXPECT_EQ(this->Shown().size(), 1U) << "of the table";
  EXPECT_EQ(this->Hint(), "");
  this->form_->dtpZaplaceni.UserPick(Day(2026, 11, 20));
  EXPECT_EQ(this->HintForDueDate(Day(2020, 6, 29)), "zákonná 8,25");
  EXPECT_EQ(this->HintForDueDate(Day(2026, 6, 20)), "");
  EXPECT_THAT(this->Shown(), IsEmpty());
}

using ProgressiveHintTest = LawfulRateHintTest<frmPostupny>;

TEST_F(ProgressiveHintTest, IsNoRateToPayWith) {
  Open();
  form_->txtData[0].UserEdit("10000");
  form_->txtData[1].UserEdit("5000");
  HintForDueDate(Day(2026, 10, 1));
  form_->cmdPridat.UserClick();
  EXPECT_THAT(Shown(), ElementsAre("Nezadali jste sazbu pro výpočet"));
}

TEST_F(ProgressiveHintTest, ATypedKindHasNone) {
  Open();
  form_->cboDruhSazby.UserEdit("% měsíčně");
  EXPECT_EQ(Hint(), "");
  form_->cboDruhSazby.UserEdit("% ročně");
  EXPECT_EQ(Hint(), "zákonná 11,75");
}

TEST_F(ProgressiveHintTest, ALockedRateOfTheBankHasNone) {
  Open();
  form_->txtData[0].UserEdit("10000");
  form_->txtData[1].UserEdit("5000");
  form_->cboDruhSazby.UserPick(kRepo);
  HintForDueDate(Day(2026, 10, 1));
  form_->cmdPridat.UserClick();
  memory_.event_loop.RunUntilIdle();
  EXPECT_FALSE(Rate().enabled());
  EXPECT_EQ(Rate().text(), "");
  EXPECT_EQ(Hint(), "");
  form_->cmdNovy.UserClick();
  form_->cboDruhSazby.UserPick(kPercentYearly);
  EXPECT_EQ(Hint(), "zákonná 11,75");
}

using SingleHintTest = LawfulRateHintTest<frmJednotlivy>;

TEST_F(SingleHintTest, IsNothingToComputeWith) {
  Open();
  form_->txtDluznaCastka.UserEdit("10000");
  EXPECT_EQ(form_->lblPenale.caption(), "");
  EXPECT_FALSE(state().CalculationFinished);
}

}  // namespace
}  // namespace velta
