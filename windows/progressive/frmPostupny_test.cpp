#include "windows/progressive/frmPostupny.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/rate_folder.h"
#include "windows/progressive/frmPostupny_test.h"

namespace velta {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

TEST_F(frmPostupnyTest, OpensWithItsCaptions) {
  const frmPostupny& form = Open();
  EXPECT_EQ(form.caption(), "Postupný výpočet");
  EXPECT_EQ(form.fraFaktura.caption(), "Údaje faktury");
  EXPECT_EQ(form.fraUdaje.caption(), "Údaje o splátkách");
  EXPECT_EQ(form.fraPostupny.caption(), "");
  EXPECT_EQ(form.cmdPridat.caption(), "&Přidat do výpočtu");
  Texts labels;
  for (const ui::Label& label : form.lblPopis) labels.push_back(label.caption());
  EXPECT_THAT(labels,
              ElementsAre("Celková částka", "Datum splatnosti", "Druh sazby ", "Výše sazby ",
                          "Datum částečné úhrady", "Výše částečné úhrady", "Výše úhrady",
                          "Datum úhrady", "Zůstatek dluhu", "Úrok z prodlení", "Úrok celkem"));
}

TEST_F(frmPostupnyTest, OpensEmptyOnTheDayOfToday) {
  const frmPostupny& form = Open();
  EXPECT_EQ(form.dtpSplatnost.day(), Day(2026, 11, 21));
  EXPECT_EQ(form.dtpZaplaceni.day(), Day(2026, 11, 21));
  for (const ui::TextBox& box : form.txtData) {
    EXPECT_EQ(box.text(), "");
    EXPECT_TRUE(box.enabled());
    EXPECT_EQ(box.background(), ui::Background::kWindow);
  }
  EXPECT_EQ(form.txtData[kRate].tool_tip(), "Zadejte úrokovou sazbu");
  EXPECT_TRUE(form.cmdPridat.enabled());
  EXPECT_TRUE(form.txtPostup.read_only());
  EXPECT_THAT(form.txtPostup.tab_stops(), IsEmpty()) << "every eight characters";
  EXPECT_EQ(state().ReportText, kHeading);
  ExpectNothingRecorded();
  EXPECT_THAT(Shown(), IsEmpty());
  EXPECT_EQ(form.focused(), &form.txtData[kTotal]);
  EXPECT_EQ(HintText(), "Zadejte celkovou částku faktury");
}

TEST_F(frmPostupnyTest, TabGoesFromTheInvoiceThroughThePaymentToItsLists) {
  frmPostupny& form = Open();
  Texts visited;
  for (int i = 0; i < 18; ++i) {
    visited.push_back(form.focused()->name());
    form.FocusNext();
  }
  EXPECT_THAT(visited, ElementsAre("txtData(0)", "dtpSplatnost", "cboDruhSazby", "txtData(2)",
                                   "dtpZaplaceni", "txtData(1)", "cmdPridat", "List1", "List2",
                                   "List3", "List4", "List5", "txtPostup", "cmdNovy", "cmdTiskVyp",
                                   "cmdTiskFa", "cmdHelp", "cmdKonec"));
  EXPECT_EQ(form.focused(), &form.txtData[kTotal]);
}

TEST_F(frmPostupnyTest, BankKindClosesTheRateBoxAndLeavesItsText) {
  Open().txtData[kRate].UserEdit("10");
  struct Row {
    const char* kind;
    bool open;
  };
  for (const Row& row :
       {Row{"Dle Repo sazby ČNB", false}, Row{"% denně", true},
        Row{"Dle Diskontní sazby ČNB", false}, Row{"‰ denně", true}, Row{"částka Kč denně", true},
        Row{"Dle Repo sazby ČNB", false}, Row{"Dle Repo sazby", true},
        Row{"Dle Repo sazby ČNB", false}, Row{"", true}}) {
    form_->cboDruhSazby.UserEdit(row.kind);
    EXPECT_EQ(form_->txtData[kRate].enabled(), row.open) << row.kind;
    EXPECT_EQ(form_->txtData[kRate].background(),
              row.open ? ui::Background::kWindow : ui::Background::kFace)
        << row.kind;
    EXPECT_EQ(form_->txtData[kRate].text(), "10") << row.kind;
  }
}

TEST_F(frmPostupnyTest, EnterStaysWhereItIs) {
  Open();
  for (ui::TextBox& box : form_->txtData) {
    box.SetFocus();
    ui::KeyPress enter{"\r"};
    EXPECT_TRUE(box.UserKey(enter));
    EXPECT_EQ(enter.text, "\r");
    EXPECT_EQ(form_->focused(), &box);
  }
}

TEST_F(frmPostupnyTest, MissingRateFilesLeaveTheReportWithoutItsHeading) {
  RateFolder folder;
  memory_.program_folder.path = folder.path();
  state().ReportText = "starý";
  Open();
  Shown();
  EXPECT_EQ(form_->txtPostup.text(), "") << "the load ended before the heading";
  EXPECT_EQ(state().ReportText, "");
  EnterSampleInvoice();
  Pay(Day(2004, 1, 31), "10000");
  EXPECT_THAT(Rows(form_->List4), ElementsAre("82,19"));
  EXPECT_THAT(form_->txtPostup.text(), StartsWith("Úrok z prodlení ode dne:\t1.1.2004\r\n"));
  form_->cmdNovy.UserClick();
  EXPECT_EQ(form_->txtPostup.text(), kHeading);
  EnterInvoice("10000", Day(2006, 3, 15), kRepo, "");
  Pay(Day(2006, 5, 20), "4000");
  EXPECT_THAT(Shown(), ElementsAre(kNoRate));
  ExpectNothingRecorded();
}

}  // namespace
}  // namespace velta
