#include "windows/progressive/frmPostupny.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "tests/support/english_locale.h"
#include "tests/support/program_test.h"
#include "tests/support/rate_folder.h"

namespace velta {
namespace {

using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

using Texts = std::vector<std::string>;

constexpr int kPercentYearly = 1;
constexpr int kDiscount = 4;
constexpr int kRepo = 5;
constexpr std::size_t kTotal = 0;
constexpr std::size_t kPayment = 1;
constexpr std::size_t kRate = 2;

constexpr const char* kFinished =
    "Výpočet již byl dokončen, chcete - li počítat další,\r\nstiskněte tlačítko nový výpočet";
constexpr const char* kWrongDates = "Datum zaplacení je chybně zadáno";
constexpr const char* kNoTotal = "Nezadali jste částku dluhu!";
constexpr const char* kNoPayment = "Nezadali jste částečnou úhradu!";
constexpr const char* kNoTypedRate = "Nezadali jste sazbu pro výpočet";
constexpr const char* kTooMuch = "Nesprávně zadaná hodnota částečné platby !";
constexpr const char* kNotPrintable = "Výpočet ještě není dokončen, nelze tisknout";
constexpr const char* kToRepo = "Měním na REPO sazbu";
constexpr const char* kToDiscount = "Měním na DISKONTNÍ sazbu";
constexpr const char* kNoRate = "Nenalezena sazba pro zadané období";
constexpr const char* kDueTooHigh = "Nelze najít sazbu, zadali jste vysoké datum splatnosti";

constexpr const char* kHeading =
    "Podklady pro výpočet úroku z prodlení\r\n"
    "****************************************************\r\n";

class frmPostupnyTest : public ProgramTest {
 protected:
  frmPostupnyTest() {
    windows().Register("frmPostupny", [this] {
      return std::make_unique<frmPostupny>(program_, settings_, calculations_);
    });
    RegisterOther("frmFaktura");
  }

  frmPostupny& Open() {
    form_ = &Opened<frmPostupny>("frmPostupny");
    return *form_;
  }

  /// The invoice, as a user enters it into the new window.
  void EnterInvoice(const std::string& total, Date due, int kind, const std::string& rate) {
    form_->txtData[kTotal].UserEdit(total);
    form_->dtpSplatnost.UserPick(due);
    form_->cboDruhSazby.UserPick(kind);
    form_->txtData[kRate].UserEdit(rate);
  }

  /// Presses the button without waiting for what it starts.
  void Press(Date paid, const std::string& payment) {
    form_->dtpZaplaceni.UserPick(paid);
    form_->txtData[kPayment].UserEdit(payment);
    form_->cmdPridat.UserClick();
  }
  void Pay(Date paid, const std::string& payment) {
    Press(paid, payment);
    memory_.event_loop.RunUntilIdle();
  }

  /// 10 000 Kč at 10 % a year, due on 1.1.2004: 5 000 Kč paid after 30 days bear 41,0958… Kč.
  void EnterSampleInvoice() { EnterInvoice("10000", Day(2004, 1, 1), kPercentYearly, "10"); }

  Texts Rows(const ui::ListBox& list) const { return list.items(); }
  std::vector<int> Marked() const {
    return {form_->List1.index(), form_->List2.index(), form_->List3.index(), form_->List4.index()};
  }
  const std::string& Balance() const { return form_->txtData[kTotal].text(); }

  /// Nothing has been recorded, in the lists, in the report and in the record.
  void ExpectNothingRecorded() const {
    for (const ui::ListBox* list :
         {&form_->List1, &form_->List2, &form_->List3, &form_->List4, &form_->List5}) {
      EXPECT_THAT(list->items(), IsEmpty()) << list->name();
    }
    EXPECT_EQ(form_->txtPostup.text(), kHeading);
    EXPECT_EQ(form_->finished(), std::nullopt);
    EXPECT_FALSE(program_.state.CalculationFinished);
    EXPECT_EQ(program_.state.InterestTotal, Money());
  }

  void ExpectInvoiceLocked(bool locked) const {
    EXPECT_EQ(form_->txtData[kTotal].enabled(), !locked);
    EXPECT_EQ(form_->dtpSplatnost.enabled(), !locked);
    EXPECT_EQ(form_->cboDruhSazby.enabled(), !locked);
    EXPECT_EQ(form_->txtData[kTotal].background(),
              locked ? ui::Background::kFace : ui::Background::kWindow);
    EXPECT_TRUE(form_->txtData[kPayment].enabled());
    EXPECT_TRUE(form_->dtpZaplaceni.enabled());
  }

  const ProgressiveResult& Record() const {
    return *std::get<const ProgressiveResult*>(form_->finished().value());
  }

  Calculations calculations_{program_.state};
  frmPostupny* form_ = nullptr;
};

// --- the window -------------------------------------------------------------------------------

TEST_F(frmPostupnyTest, OpensWithItsCaptions) {
  const frmPostupny& form = Open();
  EXPECT_EQ(form.caption(), "Postupný výpočet");
  EXPECT_EQ(form.fraFaktura.caption(), "Údaje faktury");
  EXPECT_EQ(form.fraUdaje.caption(), "Údaje o splátkách");
  EXPECT_EQ(form.fraPostupny.caption(), "");
  EXPECT_EQ(form.cmdPridat.caption(), "&Přidat do výpočtu");
  EXPECT_EQ(form.cmdNovy.caption(), "Nový &výpočet");
  EXPECT_EQ(form.cmdTiskVyp.caption(), "&Tisk výpočtu");
  EXPECT_EQ(form.cmdTiskFa.caption(), "Tisk &faktury");
  EXPECT_EQ(form.cmdHelp.caption(), "&Nápověda");
  EXPECT_EQ(form.cmdKonec.caption(), "&Konec");
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

TEST_F(frmPostupnyTest, OffersTheSixKindsOfRateAndTakesOthers) {
  const frmPostupny& form = Open();
  EXPECT_THAT(form.cboDruhSazby.items(),
              ElementsAre("% denně", "% ročně", "‰ denně", "‰ ročně", "Dle Diskontní sazby ČNB",
                          "Dle Repo sazby ČNB"));
  EXPECT_EQ(form.cboDruhSazby.index(), kPercentYearly);
  EXPECT_TRUE(form.cboDruhSazby.editable());
  EXPECT_EQ(form.cboDruhSazby.tool_tip(), "Vyberte si z nabídky sazbu");
}

TEST_F(frmPostupnyTest, LoadSetsTheSharedFlags) {
  state().CalculationFinished = true;
  state().SingleIsCurrent = true;
  state().ReportText = "starý";
  Open();
  EXPECT_TRUE(state().ProgressiveFormOpen);
  EXPECT_FALSE(state().SingleFormOpen);
  EXPECT_FALSE(state().SingleIsCurrent);
  EXPECT_FALSE(state().CalculationFinished);
  EXPECT_EQ(state().LastCalculationKind, CalculationKind::kProgressive);
  EXPECT_EQ(calculations_.current(), form_);
}

TEST_F(frmPostupnyTest, LoadClosesAnOpenSingleWindowFirst) {
  bool progressive_was_current = true;
  RegisterOther("frmJednotlivy", [&] { progressive_was_current = state().ProgressiveFormOpen; });
  windows().Open("frmJednotlivy");
  state().SingleFormOpen = true;
  Open();
  EXPECT_FALSE(windows().IsLoaded("frmJednotlivy"));
  EXPECT_FALSE(progressive_was_current) << "it unloads before this window loads its part";
}

TEST_F(frmPostupnyTest, SingleWindowThatWasClosedBeforeIsNotOpenedToBeClosed) {
  int unloads = 0;
  RegisterOther("frmJednotlivy", [&] { ++unloads; });
  state().SingleFormOpen = true;  // left by a single window that has gone
  Open();
  EXPECT_EQ(unloads, 0);
  EXPECT_FALSE(state().SingleFormOpen);
  EXPECT_THAT(Shown(), IsEmpty());
}

TEST_F(frmPostupnyTest, OpeningAgainKeepsTheContents) {
  Open();
  EnterSampleInvoice();
  Pay(Day(2004, 1, 31), "5000");
  const frmPostupny* first = form_;
  EXPECT_EQ(&Open(), first);
  EXPECT_EQ(Balance(), "5000");
  EXPECT_THAT(Rows(form_->List1), ElementsAre("5000"));
}

TEST_F(frmPostupnyTest, FocusAndPointerHints) {
  frmPostupny& form = Open();
  struct Row {
    ui::Control* control;
    const char* focus;
    const char* pointer;
  };
  constexpr const char* kNone = "(beze změny)";
  constexpr const char* kDate = "Datum vyberte klepnutím na šipku, nebo přepište ručně";
  const std::vector<Row> rows = {
      {&form.txtData[kTotal], "Zadejte celkovou částku faktury", "Zadejte celkovou částku faktury"},
      {&form.txtData[kPayment], "Zadejte výši částečné platby", "Zadejte výši částečné platby"},
      {&form.txtData[kRate], "Zadejte výši úrokové sazby", "Zadejte výši úrokové sazby"},
      {&form.cboDruhSazby, "Vyberte z nabídky druh sazby ", kNone},
      {&form.dtpSplatnost, kDate, kDate},
      {&form.dtpZaplaceni, kDate, kDate},
      {&form.cmdPridat, "Provede výpočet pro částečnou úhradu a vybranou sazbu",
       "Provede výpočet pro částečnou úhradu a vybranou sazbu"},
      {&form.cmdNovy, "Nový výpočet", "Nový výpočet"},
      {&form.cmdTiskVyp, "Tisk výpočtu", "Tisk výpočtu"},
      {&form.cmdTiskFa, "Tisk faktury", "Tisk faktury"},
      {&form.cmdHelp, "Vyvolá nápovědu s tématem", "Vyvolá nápovědu s tématem"},
      {&form.cmdKonec, "Zavřít okno", "Zavřít okno"},
      {&form.fraFaktura, kNone, "Připraven"},
      {&form.fraUdaje, kNone, "Připraven"},
      {&form.fraPostupny, kNone, "Připraven"},
      {&form.txtPostup, kNone, kNone},
      {&form.List1, kNone, kNone},
      {&form.List5, kNone, kNone},
      {form.lblPopis.data(), kNone, kNone},
  };
  for (const Row& row : rows) {
    form.cmdKonec.SetFocus();
    if (row.control == &form.cmdKonec) form.cmdHelp.SetFocus();
    lblMSG_.SetCaption(kNone);
    row.control->SetFocus();
    EXPECT_EQ(HintText(), row.focus) << row.control->name() << " on focus";
    lblMSG_.SetCaption(kNone);
    row.control->UserHover();
    EXPECT_EQ(HintText(), row.pointer) << row.control->name() << " under the pointer";
  }
  lblMSG_.SetCaption(kNone);
  form.MouseMove.Raise();
  EXPECT_EQ(HintText(), "Připraven");
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

TEST_F(frmPostupnyTest, SeparatorsTurnIntoTheUsersOwnAndEnterDoesNothing) {
  for (const auto& [locale, separator] :
       {std::pair(LocaleFormat(), ","), std::pair(EnglishLocale(), ".")}) {
    memory_.locale = locale;
    Open();
    for (ui::TextBox& box : form_->txtData) {
      box.SetFocus();
      for (const auto& [typed, becomes] : {std::pair(".", separator), std::pair(",", separator),
                                           std::pair("7", "7"), std::pair("\r", "\r")}) {
        ui::KeyPress key{typed};
        EXPECT_TRUE(box.UserKey(key));
        EXPECT_EQ(key.text, becomes);
        EXPECT_EQ(form_->focused(), &box);
      }
    }
    windows().Unload("frmPostupny");
  }
}

// --- what is refused -----------------------------------------------------------------------------

struct RefusedCase {
  const char* name;
  Date paid;  // the invoice is due on 1.1.2004
  const char* total;
  const char* payment;
  const char* kind;
  const char* rate;
  const char* message;
  const char* focus;
};

class RefusedTest : public frmPostupnyTest, public ::testing::WithParamInterface<RefusedCase> {};

TEST_P(RefusedTest, IsToldAndLeavesTheInvoiceOpen) {
  const RefusedCase& c = GetParam();
  Open();
  form_->txtData[kTotal].UserEdit(c.total);
  form_->dtpSplatnost.UserPick(Day(2004, 1, 1));
  form_->cboDruhSazby.UserEdit(c.kind);
  form_->txtData[kRate].SetText(c.rate);
  form_->cmdPridat.SetFocus();
  Pay(c.paid, c.payment);
  ASSERT_EQ(memory_.message_box.shown.size(), 1U);
  EXPECT_EQ(memory_.message_box.shown[0],
            (ui::MemoryMessageBox::Shown{ui::Icon::kCritical, "Velta", c.message}));
  EXPECT_EQ(form_->focused()->name(), c.focus);
  ExpectInvoiceLocked(false);
  EXPECT_EQ(form_->txtData[kTotal].text(), c.total);
  EXPECT_EQ(form_->txtData[kPayment].text(), c.payment);
  EXPECT_EQ(state().DebtBeforeLastPayment, Money());
  ExpectNothingRecorded();
}

constexpr const char* kNotANumber =
    "Chyba 13 (Nesouhlas typů) v proceduře\r\n(cmdPridat_Click) of (frmPostupny.frm).";
constexpr const char* kOverflow =
    "Chyba 6 (Přetečení) v proceduře\r\n(cmdPridat_Click) of (frmPostupny.frm).";

// Where several inputs are wrong, the first in the order dates, total, payment, rate is told.
INSTANTIATE_TEST_SUITE_P(
    Inputs, RefusedTest,
    ::testing::Values(RefusedCase{"PaidOnTheDueDate", Day(2004, 1, 1), "10000", "5000", "% ročně",
                                  "10", kWrongDates, "cmdPridat"},
                      RefusedCase{"PaidBeforeTheDueDate", Day(2003, 12, 31), "10000", "5000",
                                  "% ročně", "10", kWrongDates, "cmdPridat"},
                      RefusedCase{"NoTotal", Day(2004, 1, 2), "", "5000", "% ročně", "10", kNoTotal,
                                  "txtData(0)"},
                      RefusedCase{"NoPayment", Day(2004, 1, 2), "10000", "", "% ročně", "10",
                                  kNoPayment, "txtData(1)"},
                      RefusedCase{"NoRate", Day(2004, 1, 2), "10000", "5000", "% ročně", "",
                                  kNoTypedRate, "txtData(2)"},
                      RefusedCase{"NoRateOfATypedKind", Day(2004, 1, 2), "10000", "5000",
                                  "částka Kč denně", "", kNoTypedRate, "txtData(2)"},
                      RefusedCase{"NoRateOfAnUnknownKind", Day(2004, 1, 2), "10000", "5000",
                                  "zcela jinak", "", kNoTypedRate, "txtData(2)"},
                      RefusedCase{"AllWrong", Day(2004, 1, 1), "", "", "% ročně", "", kWrongDates,
                                  "cmdPridat"},
                      RefusedCase{"AllButTheDates", Day(2004, 1, 2), "", "", "% ročně", "",
                                  kNoTotal, "txtData(0)"},
                      RefusedCase{"PaymentAndRate", Day(2004, 1, 2), "10000", "", "% ročně", "",
                                  kNoPayment, "txtData(1)"},
                      RefusedCase{"TotalNoNumber", Day(2004, 1, 2), "abc", "5000", "% ročně", "10",
                                  kNotANumber, "cmdPridat"},
                      RefusedCase{"TotalNoNumberAndNoPayment", Day(2004, 1, 2), "abc", "",
                                  "% ročně", "10", kNotANumber, "cmdPridat"},
                      RefusedCase{"TotalABlank", Day(2004, 1, 2), " ", "5000", "% ročně", "10",
                                  kNotANumber, "cmdPridat"},
                      RefusedCase{"TotalWithTheOtherSeparator", Day(2004, 1, 2), "1.5", "1",
                                  "% ročně", "10", kNotANumber, "cmdPridat"},
                      RefusedCase{"PaymentNoNumber", Day(2004, 1, 2), "10000", "abc", "% ročně",
                                  "10", kNotANumber, "cmdPridat"},
                      RefusedCase{"PaymentNoNumberAndNoRate", Day(2004, 1, 2), "10000", "5 %",
                                  "% ročně", "", kNotANumber, "cmdPridat"},
                      RefusedCase{"TotalTooLarge", Day(2004, 1, 2), "922337203685477,5808", "1",
                                  "% ročně", "10", kOverflow, "cmdPridat"},
                      RefusedCase{"PaymentTooLarge", Day(2004, 1, 2), "1", "922337203685478",
                                  "% ročně", "10", kOverflow, "cmdPridat"}),
    [](const auto& tested) { return std::string(tested.param.name); });

TEST_F(frmPostupnyTest, FinishedCalculationTakesNoMorePayments) {
  Open();
  EnterSampleInvoice();
  Pay(Day(2004, 1, 31), "10000");
  EXPECT_FALSE(form_->cmdPridat.enabled());
  form_->dtpZaplaceni.UserPick(Day(2003, 1, 1));  // this is told before any other fault
  form_->txtData[kPayment].UserEdit("");
  const std::string report = form_->txtPostup.text();
  form_->cmdPridat.Click.Raise();  // a press that waited while the last payment was recorded
  EXPECT_EQ(memory_.message_box.shown.at(0).icon, ui::Icon::kCritical);
  EXPECT_THAT(Shown(), ElementsAre(kFinished));
  EXPECT_EQ(form_->txtPostup.text(), report);
  EXPECT_THAT(Rows(form_->List1), ElementsAre("10000"));
}

TEST_F(frmPostupnyTest, PaymentLargerThanTheBalanceIsEmptiedAndChangesNothing) {
  Open();
  EnterSampleInvoice();
  Pay(Day(2004, 1, 31), "5000");
  const std::string report = form_->txtPostup.text();
  form_->cmdPridat.SetFocus();
  Pay(Day(2004, 3, 1), "5000,0001");
  EXPECT_EQ(memory_.message_box.shown.at(0).icon, ui::Icon::kCritical);
  EXPECT_THAT(Shown(), ElementsAre(kTooMuch));
  EXPECT_EQ(form_->txtData[kPayment].text(), "");
  EXPECT_EQ(form_->focused(), &form_->txtData[kPayment]);
  EXPECT_THAT(Rows(form_->List1), ElementsAre("5000"));
  EXPECT_THAT(Rows(form_->List4), ElementsAre("41,1"));
  EXPECT_THAT(Rows(form_->List5), IsEmpty());
  EXPECT_EQ(Balance(), "5000");
  EXPECT_EQ(form_->txtPostup.text(), report);
  EXPECT_FALSE(state().CalculationFinished);
  ExpectInvoiceLocked(true);

  Pay(Day(2004, 3, 1), "5000");
  EXPECT_THAT(Rows(form_->List4), ElementsAre("41,1", "82,19"));
  EXPECT_TRUE(state().CalculationFinished);
}

TEST_F(frmPostupnyTest, FirstPaymentThatIsTooLargeLocksTheInvoiceAllTheSame) {
  Open();
  EnterSampleInvoice();
  Pay(Day(2004, 1, 31), "10000,01");
  EXPECT_THAT(Shown(), ElementsAre(kTooMuch));
  ExpectInvoiceLocked(true);
  ExpectNothingRecorded();
}

TEST_F(frmPostupnyTest, TypedRateThatIsNoNumberStopsSilentlyWithTheInvoiceLocked) {
  Open();
  EnterInvoice("10000", Day(2004, 1, 1), kPercentYearly, "abc");
  Pay(Day(2004, 1, 31), "5000");
  EXPECT_THAT(Shown(), IsEmpty());
  ExpectInvoiceLocked(true);
  EXPECT_FALSE(form_->txtData[kRate].enabled());
  ExpectNothingRecorded();
  EXPECT_EQ(Balance(), "10000");
  form_->cmdNovy.UserClick();
  ExpectInvoiceLocked(false);
}

TEST_F(frmPostupnyTest, RateBeyondSinglePrecisionIsReportedUnderTheCalculation) {
  Open();
  EnterInvoice("10000", Day(2004, 1, 1), kPercentYearly, std::string(40, '9'));
  Pay(Day(2004, 1, 31), "5000");
  EXPECT_THAT(Shown(), ElementsAre("Chyba 6 (Přetečení) v proceduře\r\n"
                                   "(UdelejVypocet) of (frmPostupny.frm)."));
  ExpectInvoiceLocked(true);
  ExpectNothingRecorded();
}

// What the routine itself refuses; the button has refused it before.
TEST_F(frmPostupnyTest, CalculationCalledByItselfLooksAtItsInputsAgain) {
  Open();
  EnterSampleInvoice();
  form_->dtpZaplaceni.UserPick(Day(2004, 1, 1));
  form_->UdelejVypocet();
  EXPECT_THAT(Shown(), ElementsAre(kWrongDates));
  form_->dtpZaplaceni.UserPick(Day(2004, 1, 2));
  form_->txtData[kTotal].UserEdit("abc");
  form_->UdelejVypocet();
  EXPECT_THAT(Shown(), IsEmpty());
  ExpectNothingRecorded();
  EXPECT_EQ(state().DaysLate, 1);
}

// --- payments at a typed rate
// ----------------------------------------------------------------------

TEST_F(frmPostupnyTest, FirstPaymentIsRecordedAndLocksTheInvoice) {
  Open();
  EnterSampleInvoice();
  Pay(Day(2004, 1, 31), "5000");
  EXPECT_THAT(Rows(form_->List1), ElementsAre("5000"));
  EXPECT_THAT(Rows(form_->List2), ElementsAre("31.1.2004"));
  EXPECT_THAT(Rows(form_->List3), ElementsAre("5000"));
  EXPECT_THAT(Rows(form_->List4), ElementsAre("41,1"));
  EXPECT_THAT(Rows(form_->List5), IsEmpty());
  EXPECT_EQ(Balance(), "5000");
  EXPECT_EQ(form_->txtData[kPayment].text(), "5000");
  ExpectInvoiceLocked(true);
  EXPECT_FALSE(form_->txtData[kRate].enabled());
  EXPECT_EQ(form_->txtData[kRate].background(), ui::Background::kWindow)
      << "only the total is grey";
  EXPECT_TRUE(form_->cmdPridat.enabled());
  EXPECT_FALSE(state().CalculationFinished);
  EXPECT_EQ(form_->finished(), std::nullopt);
  EXPECT_THAT(Shown(), IsEmpty());
}

TEST_F(frmPostupnyTest, PublishesTheSharedValues) {
  Open();
  state().InterestTotal = Money::FromUnits(1);
  EnterSampleInvoice();
  Pay(Day(2004, 1, 31), "4000");
  EXPECT_EQ(state().DueDate, Day(2004, 1, 1));
  EXPECT_EQ(state().PaymentDate, Day(2004, 1, 31));
  EXPECT_EQ(state().DaysLate, 30);
  EXPECT_EQ(state().BaseAmount, Money::FromUnits(100'000'000)) << "the balance, not the payment";
  EXPECT_EQ(state().RateValue, 10.0F);
  EXPECT_EQ(state().RateKindText, "% ročně");
  EXPECT_DOUBLE_EQ(state().InterestAmount, 32.88);
  EXPECT_EQ(state().AmountWithInterest, Money::FromUnits(100'328'800));
  EXPECT_EQ(state().DebtBeforeLastPayment, Money::FromUnits(100'000'000));
  EXPECT_EQ(state().InterestTotal, Money()) << "one row is no total before the end";

  Pay(Day(2004, 3, 1), "1000");
  EXPECT_EQ(state().DaysLate, 60);
  EXPECT_EQ(state().BaseAmount, Money::FromUnits(60'000'000));
  EXPECT_EQ(state().DebtBeforeLastPayment, Money::FromUnits(60'000'000));
  EXPECT_EQ(state().AmountWithInterest, Money::FromUnits(60'164'400));
  EXPECT_EQ(state().InterestTotal, Money::FromUnits(493'200)) << "32,88 + 16,44";
}

TEST_F(frmPostupnyTest, PaymentThatIsTooLargeStillCountsAsTheLatest) {
  Open();
  EnterSampleInvoice();
  Pay(Day(2004, 1, 31), "4000");
  Pay(Day(2004, 3, 1), "7000");
  EXPECT_EQ(state().DebtBeforeLastPayment, Money::FromUnits(60'000'000));
  EXPECT_DOUBLE_EQ(state().InterestAmount, 115.07);
}

struct RoundingCase {
  const char* name;
  const char* rounding;
  Texts rows;  // 5 000 Kč after 30 days and 5 000 Kč after 60 days: 41,0958… and 82,1917…
  const char* total;  // List5
  std::int64_t units;
};

class RoundingTest : public frmPostupnyTest, public ::testing::WithParamInterface<RoundingCase> {};

TEST_P(RoundingTest, RoundsEveryPaymentAndSumsTheRows) {
  const RoundingCase& c = GetParam();
  SetRounding(c.rounding);
  Open();
  EnterSampleInvoice();
  Pay(Day(2004, 1, 31), "5000");
  Pay(Day(2004, 3, 1), "5000");
  EXPECT_EQ(Rows(form_->List4), c.rows);
  EXPECT_THAT(Rows(form_->List5), ElementsAre(c.total));
  EXPECT_EQ(state().InterestTotal, Money::FromUnits(c.units));
  EXPECT_EQ(Balance(), "0");
  EXPECT_TRUE(state().CalculationFinished);
}

INSTANTIATE_TEST_SUITE_P(
    Rules, RoundingTest,
    ::testing::Values(
        RoundingCase{"Ne", "NE", {"41,1", "82,19"}, "123,29 Kč", 1'232'900},
        RoundingCase{"Halere", "halere", {"41,1", "82,2"}, "123,30 Kč", 1'233'000},
        RoundingCase{"Koruny", "koruny", {"41", "82"}, "123,00 Kč", 1'230'000},
        // Any other word rounds nothing, not even to two decimals; rows are summed to four.
        RoundingCase{
            "Unknown", "HALERE", {"41,0958904109589", "82,1917808219178"}, "123,29 Kč", 1'232'877},
        RoundingCase{"EmptyIsNe", "", {"41,1", "82,19"}, "123,29 Kč", 1'232'900}),
    [](const auto& tested) { return std::string(tested.param.name); });

TEST_F(frmPostupnyTest, TotalRunsFromTheSecondPaymentOn) {
  Open();
  EnterSampleInvoice();
  Pay(Day(2004, 1, 31), "3000");
  EXPECT_THAT(Rows(form_->List5), IsEmpty());
  Pay(Day(2004, 1, 31), "3000");
  EXPECT_THAT(Rows(form_->List5), ElementsAre("49,32 Kč"));
  Pay(Day(2004, 1, 31), "3000");
  EXPECT_THAT(Rows(form_->List5), ElementsAre("73,98 Kč")) << "three times 24,66";
  EXPECT_EQ(state().InterestTotal, Money::FromUnits(739'800));
}

TEST_F(frmPostupnyTest, SinglePaymentIsItsOwnTotalInPlainText) {
  SetRounding("halere");
  Open();
  EnterSampleInvoice();
  Pay(Day(2004, 1, 31), "10000");
  EXPECT_THAT(Rows(form_->List3), ElementsAre("0"));
  EXPECT_THAT(Rows(form_->List4), ElementsAre("82,2"));
  EXPECT_THAT(Rows(form_->List5), ElementsAre("82,2"));
  EXPECT_EQ(state().InterestTotal, Money::FromUnits(822'000));
}

TEST_F(frmPostupnyTest, LastPaymentEndsTheCalculationOnThePrintCommand) {
  Open();
  EnterSampleInvoice();
  Pay(Day(2004, 1, 31), "5000");
  Pay(Day(2004, 3, 1), "5000");
  EXPECT_TRUE(state().CalculationFinished);
  EXPECT_FALSE(form_->cmdPridat.enabled());
  EXPECT_EQ(form_->focused(), &form_->cmdTiskVyp);
  EXPECT_EQ(HintText(), "Tisk výpočtu");
  ExpectInvoiceLocked(true);
}

struct KindCase {
  const char* name;
  const char* rounding;
  const char* kind;
  const char* payment;
  const char* rate;
  int days;
  const char* interest;
};

class KindTest : public frmPostupnyTest, public ::testing::WithParamInterface<KindCase> {};

TEST_P(KindTest, RecordsTheInterestOfThePayment) {
  const KindCase& c = GetParam();
  SetRounding(c.rounding);
  Open();
  form_->txtData[kTotal].UserEdit("900000000000");
  const Date due = Day(2004, 1, 1);
  form_->dtpSplatnost.UserPick(due);
  form_->cboDruhSazby.UserEdit(c.kind);
  form_->txtData[kRate].UserEdit(c.rate);
  Pay(AddDays(due, c.days), c.payment);
  EXPECT_THAT(Rows(form_->List4), ElementsAre(c.interest));
  EXPECT_EQ(state().RateKindText, c.kind);
  EXPECT_THAT(Shown(), IsEmpty());
}

// Figures in exact fractions from the formulas, with the rate as the nearest single.
INSTANTIATE_TEST_SUITE_P(
    Figures, KindTest,
    ::testing::Values(
        KindCase{"PercentYearly", "presne", "% ročně", "4000", "8,5", 102, "95,013698630137"},
        KindCase{"YearOf365DaysAlsoInALeapYear", "NE", "% ročně", "10000", "10", 366, "1002,74"},
        KindCase{"PercentDaily", "presne", "% denně", "10000000", "0,05", 100, "500000,007450581"},
        KindCase{"PerMilleYearly", "presne", "‰ ročně", "10000", "85", 30, "69,8630136986301"},
        KindCase{"PerMilleDaily", "presne", "‰ denně", "10000", "0,5", 30, "150"},
        KindCase{"CrownsDaily", "NE", "částka Kč denně", "5000", "15", 10, "150"},
        KindCase{"CrownsDailyOfAnotherPayment", "NE", "částka Kč denně", "1", "15", 10, "150"},
        KindCase{"CrownsYearly", "halere", "částka Kč ročně", "5000", "1500", 10, "41,1"},
        KindCase{"CrownsYearlyExact", "presne", "částka Kč ročně", "1", "1500", 30,
                 "123,287671232877"},
        KindCase{"PickedTextTyped", "NE", "% denně", "100", "1", 3, "3"},
        KindCase{"OneDay", "presne", "% ročně", "3650", "1", 1, "0,1"},
        // Ties: two decimals away from zero on the decimal text, crowns to the even one.
        KindCase{"TieNe", "NE", "% denně", "1,005", "100", 1, "1,01"},
        KindCase{"TieDownKoruny", "koruny", "% ročně", "4562,50", "1", 100, "12"},
        KindCase{"TieUpKoruny", "koruny", "% ročně", "4927,50", "1", 100, "14"},
        KindCase{"ZeroRate", "halere", "% ročně", "5000", "0", 30, "0"},
        KindCase{"ZeroPayment", "NE", "% ročně", "0", "10", 30, "0"},
        KindCase{"NegativeRateHalere", "halere", "% ročně", "1000", "-9,9", 31, "-8,4"},
        KindCase{"NegativeRateNe", "NE", "% denně", "1,005", "-100", 1, "-1,01"},
        KindCase{"NegativePayment", "NE", "% ročně", "-1000", "10", 30, "-8,22"},
        KindCase{"PaymentToFourDecimals", "presne", "% denně", "0,00015", "100", 1, "0,0002"}),
    [](const auto& tested) { return std::string(tested.param.name); });

TEST_F(frmPostupnyTest, UnknownKindComputesNothing) {
  Open();
  EnterSampleInvoice();
  form_->cboDruhSazby.UserEdit("% měsíčně");
  Pay(Day(2004, 1, 31), "5000");
  Pay(Day(2004, 3, 1), "5000");
  EXPECT_THAT(Rows(form_->List4), ElementsAre("0", "0"));
  EXPECT_THAT(form_->txtPostup.text(), HasSubstr("Úroková sazba:\t\t10 % měsíčně\r\n"));
}

TEST_F(frmPostupnyTest, UnknownKindNeedsARateThatIsANumber) {
  Open();
  form_->txtData[kTotal].UserEdit("10000");
  form_->dtpSplatnost.UserPick(Day(2004, 1, 1));
  form_->cboDruhSazby.UserEdit("% měsíčně");
  form_->txtData[kRate].UserEdit("x");
  Pay(Day(2004, 1, 31), "5000");
  EXPECT_THAT(Shown(), IsEmpty());
  ExpectNothingRecorded();
}

TEST_F(frmPostupnyTest, ThreeThirdsEndAtZero) {
  Open();
  EnterSampleInvoice();
  Pay(Day(2004, 1, 31), "3333,33");
  EXPECT_EQ(Balance(), "6666,67");
  Pay(Day(2004, 1, 31), "3333,33");
  EXPECT_FALSE(state().CalculationFinished);
  Pay(Day(2004, 1, 31), "3333,34");
  EXPECT_THAT(Rows(form_->List1), ElementsAre("3333,33", "3333,33", "3333,34"));
  EXPECT_THAT(Rows(form_->List3), ElementsAre("6666,67", "3333,34", "0"));
  EXPECT_EQ(Balance(), "0");
  EXPECT_TRUE(state().CalculationFinished);
}

TEST_F(frmPostupnyTest, AmountsOfAnyFormAreComparedToFourDecimals) {
  struct Row {
    const char* total;
    const char* payment;
    const char* balance;
    bool finished;
  };
  for (const Row& row : {Row{"10 000,50 Kč", "10000,5", "0", true},
                         Row{"10\u00a0000", "+10 000,", "0", true}, Row{"1", ",5", "0,5", false},
                         // The fifth decimal goes before amounts are compared, ties to even.
                         Row{"1,00005", "1", "0", true}, Row{"1", "1,00005", "0", true},
                         Row{"1,0001", "1", "0,0001", false}, Row{"0", "0", "0", true},
                         Row{"100", "0", "100", false}, Row{"100", "-50", "150", false},
                         Row{"-100", "-100", "0", true}, Row{"-100", "-150", "50", false}}) {
    Open();
    EnterInvoice(row.total, Day(2004, 1, 1), kPercentYearly, "10");
    Pay(Day(2004, 1, 31), row.payment);
    EXPECT_THAT(Shown(), IsEmpty()) << row.total;
    EXPECT_EQ(Balance(), row.balance) << row.total;
    EXPECT_EQ(state().CalculationFinished, row.finished) << row.total;
    windows().Unload("frmPostupny");
  }
}

TEST_F(frmPostupnyTest, LaterPaymentMayBeOfAnEarlierDay) {
  Open();
  EnterSampleInvoice();
  Pay(Day(2004, 3, 1), "5000");
  Pay(Day(2004, 1, 31), "5000");
  EXPECT_THAT(Rows(form_->List2), ElementsAre("1.3.2004", "31.1.2004"));
  EXPECT_THAT(Rows(form_->List4), ElementsAre("82,19", "41,1"));
}

TEST_F(frmPostupnyTest, EnglishUserSeesHisOwnNumbersAndDates) {
  memory_.locale = EnglishLocale();
  SetRounding("NE");
  Open();
  EnterInvoice("10,000.50", Day(2004, 1, 1), kPercentYearly, "8.5");
  Pay(Day(2004, 1, 31), "5,000.25");
  EXPECT_THAT(Rows(form_->List1), ElementsAre("5000.25"));
  EXPECT_THAT(Rows(form_->List2), ElementsAre("1/31/2004"));
  EXPECT_THAT(Rows(form_->List3), ElementsAre("5000.25"));
  EXPECT_THAT(Rows(form_->List4), ElementsAre("34.93"));
  EXPECT_EQ(Balance(), "5000.25");
  Pay(Day(2004, 3, 1), "5000.25");
  EXPECT_THAT(Rows(form_->List5), ElementsAre("104.80 Kč"));
  EXPECT_THAT(form_->txtPostup.text(), HasSubstr("Částečná úhrada ve výši:\t5,000.25 Kč\r\n"));
  EXPECT_THAT(form_->txtPostup.text(), HasSubstr("Úroková sazba:\t\t8.5 % ročně\r\n"));
}

// --- the limits of an amount
// ------------------------------------------------------------------------

TEST_F(frmPostupnyTest, LargestAmountIsPaidWhereItBearsNoInterest) {
  Open();
  EnterInvoice("922337203685477,5807", Day(2004, 1, 1), kPercentYearly, "0");
  Pay(Day(2004, 1, 31), "922 337 203 685 477,5807");
  EXPECT_THAT(Shown(), IsEmpty());
  EXPECT_THAT(Rows(form_->List1), ElementsAre("922337203685477,5807"));
  EXPECT_TRUE(state().CalculationFinished);
}

TEST_F(frmPostupnyTest, AmountWithInterestBeyondTheLimitRecordsNothing) {
  Open();
  EnterInvoice("922337203685477,58", Day(2004, 1, 1), kPercentYearly, "10");
  Pay(Day(2004, 1, 31), "1000");
  EXPECT_THAT(Shown(), ElementsAre("Chyba 6 (Přetečení) v proceduře\r\n"
                                   "(UdelejVypocet) of (frmPostupny.frm)."));
  ExpectInvoiceLocked(true);
  ExpectNothingRecorded();
  EXPECT_EQ(Balance(), "922337203685477,58");
}

TEST_F(frmPostupnyTest, BalanceBelowTheLimitRecordsNothing) {
  Open();
  EnterInvoice("-900000000000000", Day(2004, 1, 1), kPercentYearly, "0");
  Pay(Day(2004, 1, 31), "900000000000000");
  EXPECT_THAT(Shown(), ElementsAre("Chyba 6 (Přetečení) v proceduře\r\n"
                                   "(UdelejVypocet) of (frmPostupny.frm)."));
  ExpectNothingRecorded();
}

TEST_F(frmPostupnyTest, TotalBeyondTheLimitRecordsNothingOfThePayment) {
  Open();
  // 10 Kč at 50 000 000 000 000 000 % bear 5 000 000 000 000 000 Kč a day; a tenth of it fits
  // twice.
  EnterInvoice("10", Day(2004, 1, 1), 0, "50000000000000000");
  Pay(Day(2004, 1, 2), "1");
  EXPECT_THAT(Shown(), IsEmpty());
  const std::string report = form_->txtPostup.text();
  Pay(Day(2004, 1, 2), "1");
  EXPECT_THAT(Shown(), ElementsAre("Chyba 6 (Přetečení) v proceduře\r\n"
                                   "(UdelejVypocet) of (frmPostupny.frm)."));
  EXPECT_THAT(Rows(form_->List1), ElementsAre("1"));
  EXPECT_THAT(Rows(form_->List2), ElementsAre("2.1.2004"));
  EXPECT_THAT(Rows(form_->List3), ElementsAre("9"));
  EXPECT_EQ(form_->List4.items().size(), 1U);
  EXPECT_THAT(Rows(form_->List5), IsEmpty());
  EXPECT_EQ(form_->txtPostup.text(), report);
  EXPECT_EQ(Balance(), "9");
  Pay(Day(2004, 1, 2), "0,5");
  EXPECT_THAT(Shown(), IsEmpty());
  EXPECT_THAT(Rows(form_->List1), ElementsAre("1", "0,5"));
}

// --- the discount regime
// -------------------------------------------------------------------------------

TEST_F(frmPostupnyTest, DiscountRateOfTheDueDateHoldsForAllPayments) {
  Open();
  // 2 × 1,25 % was in force on 10.3.2005; it changed on 1.4.2005.
  EnterInvoice("10000", Day(2005, 3, 10), kDiscount, "");
  Pay(Day(2005, 6, 20), "4000");
  EXPECT_EQ(form_->txtData[kRate].text(), "2,5");
  EXPECT_EQ(state().RateValue, 2.5F);
  EXPECT_THAT(Rows(form_->List4), ElementsAre("27,95"));  // 4 000 × 2,5 % × 102 ÷ 365
  Pay(Day(2005, 6, 30), "6000");
  EXPECT_EQ(form_->txtData[kRate].text(), "2,5");
  EXPECT_THAT(Rows(form_->List4), ElementsAre("27,95", "46,03"));  // 6 000 × 2,5 % × 112 ÷ 365
  EXPECT_THAT(Rows(form_->List5), ElementsAre("73,98 Kč"));
  EXPECT_THAT(form_->txtPostup.text(), HasSubstr("Úroková sazba:\t\t2,5 %\r\n"));
  EXPECT_TRUE(state().CalculationFinished);
  EXPECT_THAT(Shown(), IsEmpty());
}

TEST_F(frmPostupnyTest, TypedRateIsNoHindranceToTheDiscountRate) {
  Open();
  EnterInvoice("10000", Day(2005, 3, 10), kPercentYearly, "abc");
  form_->cboDruhSazby.UserPick(kDiscount);
  Pay(Day(2005, 6, 20), "10000");
  EXPECT_EQ(form_->txtData[kRate].text(), "2,5");
  EXPECT_THAT(Rows(form_->List4), ElementsAre("69,86"));
}

TEST_F(frmPostupnyTest, DueDateWithoutADiscountRateIsToldAndNothingRecorded) {
  RateFolder folder;
  folder.Write("cnb.dat", CrLf({CnbLine("01.01.2003", "30.06.2003", "1,75", "3,50"),
                                CnbLine("01.07.2003", "31.12.2003", "1,25", "2,50"),
                                CnbLine("01.02.2004", "", "1,00", "2,00")}));
  folder.Write("repo.dat", "");
  memory_.program_folder.path = folder.path();
  Open();
  EnterInvoice("10000", Day(2004, 1, 15), kDiscount, "");
  for (int i = 0; i < 2; ++i) {
    Pay(Day(2004, 6, 20), "5000");
    EXPECT_THAT(Shown(), ElementsAre(kNoRate));
    ExpectNothingRecorded();
    ExpectInvoiceLocked(true);
  }
  EXPECT_EQ(form_->txtData[kRate].text(), "");
}

TEST_F(frmPostupnyTest, EmptyDiscountTableIsReportedByTheEngineAlone) {
  RateFolder folder;
  folder.Write("cnb.dat", "");
  folder.Write("repo.dat", "");
  memory_.program_folder.path = folder.path();
  Open();
  EXPECT_THAT(Shown(), IsEmpty()) << "an empty table is no error when it is loaded";
  EnterInvoice("10000", Day(2004, 1, 15), kDiscount, "");
  Pay(Day(2004, 6, 20), "5000");
  EXPECT_THAT(Shown(), ElementsAre("Chyba 13 (Nesouhlas typů) v proceduře\r\n"
                                   "(StanoveniPrvniSazby) of (frmPocitejCNB.frm)."));
  ExpectNothingRecorded();
}

TEST_F(frmPostupnyTest, DueDateDecidesTheRegime) {
  struct Row {
    const char* kind;
    Date due;
    const char* final_kind;
    Texts messages;
    const char* interest;  // of 10 000 Kč to 20.6.2005
  };
  const char* const discount = "Dle Diskontní sazby ČNB";
  const char* const repo = "Dle Repo sazby ČNB";
  // 10 000 × 9,5 % × 53 ÷ 365 and 10 000 × 2 % × 54 ÷ 365
  for (const Row& row : {Row{discount, Day(2005, 4, 28), repo, {kToRepo}, "137,9452"},
                         Row{repo, Day(2005, 4, 27), discount, {kToDiscount}, "29,59"},
                         Row{discount, Day(2005, 4, 27), discount, {}, "29,59"},
                         Row{repo, Day(2005, 4, 28), repo, {}, "137,9452"},
                         Row{"% ročně", Day(2005, 4, 28), "% ročně", {}, "145,21"},
                         Row{"% ročně", Day(2005, 4, 27), "% ročně", {}, "147,95"},
                         Row{"částka Kč denně", Day(2005, 4, 28), "částka Kč denně", {}, "530"}}) {
    Open();
    form_->txtData[kTotal].UserEdit("10000");
    form_->txtData[kRate].UserEdit("10");
    form_->dtpSplatnost.UserPick(row.due);
    form_->cboDruhSazby.UserEdit(row.kind);
    Pay(Day(2005, 6, 20), "10000");
    for (const auto& box : memory_.message_box.shown) {
      EXPECT_EQ(box.icon, ui::Icon::kInformation);
      EXPECT_EQ(box.caption, "Velta");
    }
    EXPECT_EQ(Shown(), row.messages);
    EXPECT_EQ(form_->cboDruhSazby.text(), row.final_kind);
    EXPECT_FALSE(form_->cboDruhSazby.enabled());
    EXPECT_FALSE(form_->txtData[kRate].enabled());
    EXPECT_THAT(Rows(form_->List4), ElementsAre(row.interest));
    EXPECT_EQ(state().RateKindText, row.final_kind);
    EXPECT_TRUE(state().CalculationFinished);
    windows().Unload("frmPostupny");
  }
}

// --- the repo regime
// -----------------------------------------------------------------------------------

TEST_F(frmPostupnyTest, RepoPaymentIsRecordedOnceItsRowsAreReady) {
  Open().txtData[kRate].UserEdit("77");
  EnterInvoice("10000", Day(2006, 3, 15), kRepo, "");
  int completions = 0;
  form_->tmrRepo.Tick.Connect([&] { ++completions; });
  Press(Day(2006, 5, 20), "4000");
  ExpectNothingRecorded();
  ExpectInvoiceLocked(true);
  ASSERT_TRUE(memory_.event_loop.RunNext());  // the engine's timer
  EXPECT_TRUE(form_->tmrRepo.enabled());
  ExpectNothingRecorded();
  memory_.event_loop.RunUntilIdle();
  EXPECT_FALSE(form_->tmrRepo.enabled());
  EXPECT_EQ(completions, 1);
  EXPECT_THAT(Rows(form_->List1), ElementsAre("4000"));
  EXPECT_THAT(Rows(form_->List2), ElementsAre("20.5.2006"));
  EXPECT_THAT(Rows(form_->List3), ElementsAre("6000"));
  EXPECT_THAT(Rows(form_->List4), ElementsAre("65,0959"));  // 4 000 × 9 % × 66 ÷ 365
  EXPECT_THAT(Rows(form_->List5), IsEmpty());
  EXPECT_EQ(Balance(), "6000");
  EXPECT_EQ(state().DaysLate, 66);
  EXPECT_EQ(state().BaseAmount, Money::FromUnits(100'000'000));
  EXPECT_DOUBLE_EQ(state().InterestAmount, 65.1);
  EXPECT_EQ(state().AmountWithInterest, Money::FromUnits(100'651'000));
  EXPECT_EQ(form_->txtData[kRate].text(), "77") << "there is no one rate that could stand there";
}

struct RepoTotalCase {
  const char* name;
  const char* rounding;
  const char* one_row;     // List5 of 10 000 Kč from 15.3. to 20.5.2006: 162,7397
  std::int64_t one_units;  // its total
};

class RepoTotalTest : public frmPostupnyTest,
                      public ::testing::WithParamInterface<RepoTotalCase> {};

TEST_P(RepoTotalTest, OneRowsTotalIsRounded) {
  SetRounding(GetParam().rounding);
  Open();
  EnterInvoice("10000", Day(2006, 3, 15), kRepo, "");
  Pay(Day(2006, 5, 20), "10000");
  EXPECT_THAT(Rows(form_->List4), ElementsAre("162,7397"));
  EXPECT_THAT(Rows(form_->List5), ElementsAre(GetParam().one_row));
  EXPECT_EQ(state().InterestTotal, Money::FromUnits(GetParam().one_units));
  EXPECT_EQ(Record().total, state().InterestTotal);
  EXPECT_TRUE(state().CalculationFinished);
  EXPECT_FALSE(form_->cmdPridat.enabled());
  EXPECT_EQ(form_->focused(), &form_->cmdTiskVyp);
}

TEST_P(RepoTotalTest, SumOfManyRowsIsNotRounded) {
  SetRounding(GetParam().rounding);
  Open();
  EnterInvoice("10000", Day(2006, 5, 10), kRepo, "");
  Pay(Day(2006, 6, 10), "4000");
  EXPECT_THAT(Rows(form_->List5), IsEmpty());
  Pay(Day(2006, 9, 1), "2500");
  EXPECT_THAT(Rows(form_->List5), ElementsAre("100,85 Kč"));
  Pay(Day(2007, 1, 15), "3500");
  EXPECT_THAT(Rows(form_->List1), ElementsAre("4000", "2500", "3500"));
  EXPECT_THAT(Rows(form_->List2), ElementsAre("10.6.2006", "1.9.2006", "15.1.2007"));
  EXPECT_THAT(Rows(form_->List3), ElementsAre("6000", "3500", "0"));
  EXPECT_THAT(Rows(form_->List4),
              ElementsAre("30,5753", "31,4384", "38,8356", "44,0137", "158,7945", "13,6644"));
  EXPECT_THAT(Rows(form_->List5), ElementsAre("317,32 Kč"));
  EXPECT_EQ(state().InterestTotal, Money::FromUnits(3'173'219));
  EXPECT_THAT(form_->txtPostup.text(), EndsWith("\r\nÚrok z prodlení celkem\t317,32 Kč"));
  EXPECT_TRUE(state().CalculationFinished);
}

INSTANTIATE_TEST_SUITE_P(Rules, RepoTotalTest,
                         ::testing::Values(RepoTotalCase{"Ne", "NE", "162,74", 1'627'400},
                                           RepoTotalCase{"Halere", "halere", "162,8", 1'628'000},
                                           RepoTotalCase{"Koruny", "koruny", "163", 1'630'000},
                                           RepoTotalCase{"Unknown", "jinak", "162,7397",
                                                         1'627'397}),
                         [](const auto& tested) { return std::string(tested.param.name); });

TEST_F(frmPostupnyTest, RepoPaymentOverTwoHalfYearsShowsItsTotalAtOnce) {
  SetRounding("halere");
  Open();
  EnterInvoice("10000", Day(2005, 6, 20), kRepo, "");
  Pay(Day(2005, 7, 10), "5000");
  EXPECT_THAT(Rows(form_->List1), ElementsAre("5000"));
  EXPECT_THAT(Rows(form_->List4), ElementsAre("13,0137", "11,9863"));
  EXPECT_THAT(Rows(form_->List5), ElementsAre("25,00 Kč"));
  EXPECT_EQ(state().InterestTotal, Money::FromUnits(250'000));
  EXPECT_FALSE(state().CalculationFinished);
}

TEST_F(frmPostupnyTest, RepoInterestIsRoundedOnceOverAllHalfYears) {
  // 13,0137 + 11,9863: each rounded up to 10 haléř would make 25,10, the sum stays 25,00.
  SetRounding("halere");
  Open();
  EnterInvoice("5000", Day(2005, 6, 20), kRepo, "");
  Pay(Day(2005, 7, 10), "5000");
  EXPECT_DOUBLE_EQ(state().InterestAmount, 25.0);
  SetRounding("koruny");
  form_->cmdNovy.UserClick();
  EnterInvoice("10000", Day(2006, 3, 15), kRepo, "");
  Pay(Day(2006, 5, 20), "4000");
  EXPECT_DOUBLE_EQ(state().InterestAmount, 65.0);
}

TEST_F(frmPostupnyTest, RepoRowsAreSummedAsTheyAreListed) {
  // 15 digits is all that the first row shows of its interest: 12 486 274 745 628,9000.
  Open();
  EnterInvoice("767254256254974", Day(2006, 3, 15), kRepo, "");
  Pay(Day(2006, 5, 20), "767254256254973");
  Pay(Day(2006, 5, 20), "1");
  EXPECT_THAT(Rows(form_->List4), ElementsAre("12486274745628,9000", "0,0163"));
  EXPECT_EQ(state().InterestTotal, Money::FromUnits(124'862'747'456'289'163));
}

TEST_F(frmPostupnyTest, DueOnTheLastDayOfAHalfYearGivesARowWithoutInterest) {
  Open();
  EnterInvoice("10000", Day(2006, 6, 30), kRepo, "");
  Pay(Day(2006, 7, 10), "10000");
  EXPECT_THAT(Rows(form_->List4), ElementsAre("0,0000", "24,6575"));
  EXPECT_THAT(Rows(form_->List5), ElementsAre("24,66 Kč"));
}

TEST_F(frmPostupnyTest, RepoPaymentLargerThanTheBalanceIsRefusedWhenItsRowsAreReady) {
  Open();
  EnterInvoice("10000", Day(2006, 3, 15), kRepo, "");
  Pay(Day(2006, 5, 20), "4000");
  const std::string report = form_->txtPostup.text();
  form_->cmdPridat.SetFocus();
  Press(Day(2006, 5, 20), "6000,01");
  EXPECT_THAT(Shown(), IsEmpty());
  memory_.event_loop.RunUntilIdle();
  EXPECT_EQ(Shown(), Texts{kTooMuch});
  EXPECT_EQ(form_->txtData[kPayment].text(), "");
  EXPECT_EQ(form_->focused(), &form_->txtData[kPayment]);
  EXPECT_THAT(Rows(form_->List1), ElementsAre("4000"));
  EXPECT_THAT(Rows(form_->List4), ElementsAre("65,0959"));
  EXPECT_EQ(form_->txtPostup.text(), report);
  Pay(Day(2006, 5, 20), "6000");
  EXPECT_TRUE(state().CalculationFinished);
}

TEST_F(frmPostupnyTest, RepoOverflowIsReportedUnderTheTimer) {
  Open();
  EnterInvoice("922337203685477", Day(2006, 3, 15), kRepo, "");
  Pay(Day(2006, 5, 20), "1000");
  EXPECT_THAT(Shown(), ElementsAre("Chyba 6 (Přetečení) v proceduře\r\n"
                                   "(tmrRepo_Timer) of (frmPostupny.frm)."));
  ExpectNothingRecorded();
  Pay(Day(2006, 5, 20), "1000");
  EXPECT_EQ(Shown().size(), 1U) << "the next press is taken";
}

TEST_F(frmPostupnyTest, SecondPressWhileAPaymentIsPendingIsIgnored) {
  Open();
  EnterInvoice("10000", Day(2006, 3, 15), kRepo, "");
  Press(Day(2006, 5, 20), "4000");
  Press(Day(2006, 5, 21), "1000");  // before the engine has computed
  ASSERT_TRUE(memory_.event_loop.RunNext());
  Press(Day(2006, 5, 22), "2000");  // and before its rows are taken
  Press(Day(2005, 1, 1), "");       // not even looked at
  memory_.event_loop.RunUntilIdle();
  EXPECT_THAT(Shown(), IsEmpty());
  EXPECT_THAT(Rows(form_->List1), ElementsAre("4000"));
  EXPECT_THAT(Rows(form_->List2), ElementsAre("20.5.2006"));
  EXPECT_THAT(Rows(form_->List4), ElementsAre("65,0959"));
  Pay(Day(2006, 5, 20), "6000");
  EXPECT_THAT(Rows(form_->List1), ElementsAre("4000", "6000"));
}

TEST_F(frmPostupnyTest, InputsThatAreChangedWhileAPaymentIsPendingDoNotLeakIntoIt) {
  Open();
  EnterInvoice("10000", Day(2006, 3, 15), kRepo, "");
  Press(Day(2006, 5, 20), "4000");
  form_->dtpZaplaceni.UserPick(Day(2006, 6, 20));
  form_->txtData[kPayment].UserEdit("abc");
  memory_.event_loop.RunUntilIdle();
  EXPECT_THAT(Shown(), IsEmpty());
  EXPECT_THAT(Rows(form_->List1), ElementsAre("4000"));
  EXPECT_THAT(Rows(form_->List2), ElementsAre("20.5.2006"));
  EXPECT_EQ(Balance(), "6000");
  EXPECT_EQ(state().DaysLate, 66);
  EXPECT_EQ(form_->txtData[kPayment].text(), "abc");
}

TEST_F(frmPostupnyTest, ClosingWhileAPaymentIsPendingIsQuiet) {
  for (const bool rows_ready : {false, true}) {
    Open();
    EnterInvoice("10000", Day(2006, 3, 15), kRepo, "");
    Press(Day(2006, 5, 20), "4000");
    if (rows_ready) {
      ASSERT_TRUE(memory_.event_loop.RunNext());
    }
    form_->cmdKonec.UserClick();
    EXPECT_FALSE(windows().IsLoaded("frmPostupny"));
    memory_.event_loop.RunUntilIdle();
    EXPECT_THAT(Shown(), IsEmpty());
    EXPECT_EQ(state().InterestAmount, 0);
    EXPECT_EQ(state().BaseAmount, Money());
    EXPECT_EQ(state().ReportText, kHeading);
  }
}

TEST_F(frmPostupnyTest, NewCalculationWhileAPaymentIsPendingDropsIt) {
  for (const bool rows_ready : {false, true}) {
    Open();
    EnterInvoice("10000", Day(2006, 3, 15), kRepo, "");
    Press(Day(2006, 5, 20), "10000");
    if (rows_ready) {
      ASSERT_TRUE(memory_.event_loop.RunNext());
    }
    form_->cmdNovy.UserClick();
    memory_.event_loop.RunUntilIdle();
    ExpectNothingRecorded();
    EXPECT_EQ(Balance(), "");
    form_->txtData[kTotal].UserEdit("4000");
    Pay(Day(2006, 5, 20), "4000");
    EXPECT_THAT(Rows(form_->List4), ElementsAre("65,0959")) << "and the next one is taken";
    windows().Unload("frmPostupny");
  }
}

TEST_F(frmPostupnyTest, RepoPaymentBeyondTheTableIsToldAndTheNextOneTaken) {
  Open();
  EnterInvoice("10000", Day(2026, 7, 15), kRepo, "");
  Pay(Day(2026, 9, 20), "4000");
  const std::string report = form_->txtPostup.text();
  Pay(Day(2027, 1, 1), "6000");
  EXPECT_EQ(memory_.message_box.shown.at(0).icon, ui::Icon::kCritical);
  EXPECT_THAT(Shown(), ElementsAre(kDueTooHigh));
  EXPECT_THAT(Rows(form_->List1), ElementsAre("4000"));
  EXPECT_EQ(form_->txtPostup.text(), report);
  EXPECT_EQ(Balance(), "6000");
  EXPECT_FALSE(state().CalculationFinished);
  Pay(Day(2026, 12, 31), "6000");
  EXPECT_THAT(Shown(), IsEmpty());
  EXPECT_THAT(Rows(form_->List1), ElementsAre("4000", "6000"));
  EXPECT_TRUE(state().CalculationFinished);
}

TEST_F(frmPostupnyTest, DueYearOutsideTheRepoTableIsToldWithEveryPress) {
  Open();
  EnterInvoice("10000", Day(2027, 1, 15), kRepo, "");
  for (int i = 0; i < 2; ++i) {
    Pay(Day(2027, 2, 15), "5000");
    EXPECT_THAT(Shown(), ElementsAre(kNoRate));
    ExpectNothingRecorded();
  }
  form_->cmdNovy.UserClick();
  EnterInvoice("10000", Day(2026, 3, 15), kRepo, "");
  Pay(Day(2026, 5, 15), "5000");
  EXPECT_THAT(Shown(), IsEmpty());
  EXPECT_THAT(Rows(form_->List1), ElementsAre("5000"));
}

TEST_F(frmPostupnyTest, HalfYearThatTheTableLacksIsReportedUnderTheCalculation) {
  RateFolder folder;
  folder.Write("cnb.dat", "");
  folder.Write("repo.dat", "010120062,00\r\n");
  memory_.program_folder.path = folder.path();
  Open();
  EnterInvoice("10000", Day(2006, 8, 15), kRepo, "");
  Pay(Day(2006, 9, 20), "5000");
  EXPECT_THAT(Shown(), ElementsAre("Chyba 380 (Neplatná hodnota vlastnosti) v proceduře\r\n"
                                   "(UdelejVypocet) of (frmPostupny.frm)."));
  ExpectNothingRecorded();
}

TEST_F(frmPostupnyTest, MissingRateFilesAreReportedOnceAndTypedRatesWork) {
  RateFolder folder;
  memory_.program_folder.path = folder.path();
  state().ReportText = "starý";
  Open();
  EXPECT_THAT(Shown(), ElementsAre("Chyba 53 (Soubor nebyl nalezen) v proceduře\r\n"
                                   "(Form_Load) of (frmPocitejCNB.frm).",
                                   "Chyba 53 (Soubor nebyl nalezen) v proceduře\r\n"
                                   "(Form_Load) of (frmPostupny.frm)."));
  ASSERT_TRUE(windows().IsLoaded("frmPostupny"));
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

// --- the report
// ----------------------------------------------------------------------------------------

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

// --- commands
// ------------------------------------------------------------------------------------------

TEST_F(frmPostupnyTest, NewCalculationEmptiesAndOpensTheWindow) {
  SetRounding("halere");
  Open();
  EnterInvoice("10000", Day(2004, 1, 1), 3, "10");
  Pay(Day(2004, 1, 31), "4000");
  Pay(Day(2004, 3, 1), "6000");
  form_->cmdNovy.UserClick();
  for (const ui::TextBox& box : form_->txtData) {
    EXPECT_EQ(box.text(), "");
    EXPECT_TRUE(box.enabled());
    EXPECT_EQ(box.background(), ui::Background::kWindow);
  }
  ExpectInvoiceLocked(false);
  EXPECT_TRUE(form_->cmdPridat.enabled());
  ExpectNothingRecorded();
  EXPECT_EQ(state().ReportText, kHeading);
  EXPECT_EQ(form_->cboDruhSazby.index(), 3);
  EXPECT_EQ(form_->dtpSplatnost.day(), Day(2004, 1, 1));
  EXPECT_EQ(form_->dtpZaplaceni.day(), Day(2004, 3, 1));
  EXPECT_EQ(form_->focused(), &form_->txtData[kTotal]);
  EXPECT_EQ(state().RateValue, 0.0F);
  EXPECT_EQ(state().DaysLate, 0);
  EXPECT_EQ(state().BaseAmount, Money());
  EXPECT_EQ(state().InterestAmount, 0);
  EXPECT_EQ(state().AmountWithInterest, Money());
  EXPECT_EQ(state().DebtBeforeLastPayment, Money());
  EXPECT_EQ(state().EngineRate, 0.0F);
  EXPECT_TRUE(state().ProgressiveFormOpen);
  EXPECT_THAT(Shown(), IsEmpty());
}

TEST_F(frmPostupnyTest, NewCalculationStartsFromNothing) {
  Open();
  EnterSampleInvoice();
  Pay(Day(2004, 1, 31), "5000");
  Pay(Day(2004, 3, 1), "5000");
  form_->cmdNovy.UserClick();
  EnterSampleInvoice();
  Pay(Day(2004, 1, 31), "5000");
  EXPECT_THAT(Rows(form_->List4), ElementsAre("41,1"));
  EXPECT_THAT(Rows(form_->List5), IsEmpty());
  Pay(Day(2004, 3, 1), "5000");
  EXPECT_THAT(Rows(form_->List5), ElementsAre("123,29 Kč"));
  EXPECT_EQ(Record().payments.size(), 2U);
}

TEST_F(frmPostupnyTest, NewCalculationForgetsTheLatestPayment) {
  Open();
  EnterSampleInvoice();
  Pay(Day(2004, 1, 31), "5000");
  form_->cmdNovy.UserClick();
  EnterSampleInvoice();
  form_->UdelejVypocet();  // which takes the payment that the button has read, and now none
  EXPECT_THAT(Rows(form_->List1), ElementsAre("0"));
  EXPECT_THAT(Rows(form_->List4), ElementsAre("0"));
}

TEST_F(frmPostupnyTest, NewCalculationOpensTheRateBoxOfABankKindToo) {
  Open();
  EnterInvoice("10000", Day(2005, 3, 10), kDiscount, "");
  Pay(Day(2005, 6, 20), "10000");
  EXPECT_EQ(state().EngineRate, 2.5F);
  form_->cmdNovy.UserClick();
  EXPECT_EQ(form_->cboDruhSazby.index(), kDiscount);
  EXPECT_EQ(form_->txtData[kRate].text(), "");
  EXPECT_TRUE(form_->txtData[kRate].enabled());
  EXPECT_EQ(form_->txtData[kRate].background(), ui::Background::kWindow);
  EXPECT_EQ(state().EngineRate, 0.0F);
  form_->txtData[kTotal].UserEdit("10000");
  form_->txtData[kRate].UserEdit("nic");
  Pay(Day(2005, 6, 20), "10000");
  EXPECT_THAT(Rows(form_->List4), ElementsAre("69,86")) << "what stands there counts for nothing";
}

TEST_F(frmPostupnyTest, PrintAndInvoiceNeedAFinishedCalculation) {
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

TEST_F(frmPostupnyTest, CommandCarriesThePendingPaymentThroughFirst) {
  Open();
  EnterInvoice("10000", Day(2006, 3, 15), kRepo, "");
  Press(Day(2006, 5, 20), "4000");
  EXPECT_FALSE(state().CalculationFinished);
  form_->cmdTiskFa.UserClick();
  EXPECT_THAT(Shown(), ElementsAre(kNotPrintable)) << "recorded, but not the last one";
  EXPECT_THAT(Rows(form_->List3), ElementsAre("6000"));
  Press(Day(2006, 5, 20), "6000");
  form_->cmdTiskVyp.UserClick();
  EXPECT_THAT(Shown(), IsEmpty());
  EXPECT_EQ(memory_.printer.printed.size(), 1U);
  memory_.event_loop.RunUntilIdle();
  EXPECT_THAT(Rows(form_->List3), ElementsAre("6000", "0")) << "one press, one record";
}

TEST_F(frmPostupnyTest, NextPaymentBeginsWithItsDay) {
  Open();
  EnterSampleInvoice();
  form_->txtData[kPayment].SetFocus();
  Pay(Day(2004, 1, 31), "5000");
  EXPECT_EQ(form_->focused(), &form_->dtpZaplaceni);
  Pay(Day(2004, 1, 31), "6000");
  EXPECT_EQ(form_->focused(), &form_->txtData[kPayment]) << "it was too much";
  Pay(Day(2004, 1, 31), "5000");
  EXPECT_EQ(form_->focused(), &form_->cmdTiskVyp) << "it was the last one";
}

TEST_F(frmPostupnyTest, InvoiceOpensFromAFinishedCalculation) {
  Open();
  EnterSampleInvoice();
  Pay(Day(2004, 1, 31), "10000");
  form_->cmdTiskFa.UserClick();
  EXPECT_TRUE(windows().IsLoaded("frmFaktura"));
  EXPECT_THAT(Shown(), IsEmpty());
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

TEST_F(frmPostupnyTest, ARowThatIsPickedIsMarkedInAllLists) {
  Open();
  EnterSampleInvoice();
  Pay(Day(2004, 1, 31), "5000");
  Pay(Day(2004, 2, 1), "3000");
  for (ui::ListBox* list : {&form_->List1, &form_->List2, &form_->List3, &form_->List4}) {
    for (const int row : {0, 1}) {
      list->UserPick(row);
      EXPECT_THAT(Marked(), ElementsAre(row, row, row, row)) << list->name();
    }
  }
  Pay(Day(2004, 2, 2), "1000");
  EXPECT_THAT(Marked(), ElementsAre(1, 1, 1, 1)) << "a new payment marks nothing";
  form_->cmdNovy.UserClick();
  EXPECT_THAT(Marked(), ElementsAre(-1, -1, -1, -1));
}

TEST_F(frmPostupnyTest, APaymentOfManyHalfYearsIsMarkedByItsFirstRow) {
  Open();
  EnterInvoice("10000", Day(2006, 5, 10), kRepo, "");
  Pay(Day(2006, 6, 10), "4000");  // one half-year: row 0 of the interest
  Pay(Day(2006, 9, 1), "2500");   // two: rows 1 and 2
  Pay(Day(2007, 1, 15), "3500");  // three: rows 3 to 5
  ASSERT_EQ(form_->List4.items().size(), 6U);
  form_->List1.UserPick(2);
  EXPECT_THAT(Marked(), ElementsAre(2, 2, 2, 3));
  form_->List4.UserPick(2);
  EXPECT_THAT(Marked(), ElementsAre(1, 1, 1, 2)) << "the picked row stays";
  form_->List4.UserPick(5);
  EXPECT_THAT(Marked(), ElementsAre(2, 2, 2, 5));
  form_->List3.UserPick(0);
  EXPECT_THAT(Marked(), ElementsAre(0, 0, 0, 0));
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

TEST_F(frmPostupnyTest, DeferredPrintRunsThePrintCommandOnce) {
  Open();
  EnterSampleInvoice();
  Pay(Day(2004, 1, 31), "10000");
  calculations_.current()->PrintLater();
  EXPECT_TRUE(form_->tmrTiskVypoctu.enabled());
  EXPECT_THAT(memory_.printer.asked, IsEmpty()) << "not before the loop turns";
  memory_.event_loop.RunUntilIdle();
  EXPECT_EQ(memory_.printer.printed.size(), 1U);
  EXPECT_FALSE(form_->tmrTiskVypoctu.enabled());

  memory_.printer.answer = std::nullopt;
  form_->PrintLater();
  memory_.event_loop.RunUntilIdle();
  EXPECT_THAT(Shown(), ElementsAre("Chyba 32755 (Tisk byl zrušen) v proceduře\r\n"
                                   "(cmdTiskVyp_Click) of (frmPostupny.frm)."));
}

TEST_F(frmPostupnyTest, ClosingBeforeADeferredPrintPrintsNothing) {
  Open();
  EnterSampleInvoice();
  Pay(Day(2004, 1, 31), "10000");
  form_->PrintLater();
  windows().Unload("frmPostupny");
  memory_.event_loop.RunUntilIdle();
  EXPECT_THAT(memory_.printer.asked, IsEmpty());
  EXPECT_THAT(Shown(), IsEmpty());
}

TEST_F(frmPostupnyTest, HelpOpensAtItsContents) {
  Open();
  form_->cmdHelp.UserClick();
  form_->HelpRequested.Raise();
  ASSERT_EQ(memory_.help_viewer.opened.size(), 2U);
  for (const auto& opened : memory_.help_viewer.opened) {
    EXPECT_EQ(opened.file, VELTA_SOURCE_DIR "/data/VELTA.CHM");
    EXPECT_EQ(opened.topic, std::nullopt);
  }
  memory_.help_viewer.fails = true;
  form_->cmdHelp.UserClick();
  EXPECT_THAT(Shown(), ElementsAre("Chyba 53 (Soubor nebyl nalezen) v proceduře\r\n"
                                   "(cmdHelp_Click) of (frmPostupny.frm)."));
}

TEST_F(frmPostupnyTest, CloseButtonUnloadsAndClearsTheSharedValues) {
  Open();
  EnterInvoice("10000", Day(2005, 3, 10), kDiscount, "");
  Pay(Day(2005, 6, 20), "4000");
  Pay(Day(2005, 6, 30), "6000");
  state().SingleFormOpen = true;
  form_->cmdKonec.UserClick();
  EXPECT_FALSE(windows().IsLoaded("frmPostupny"));
  EXPECT_EQ(HintText(), "Připraven");
  EXPECT_EQ(state().RateValue, 0.0F);
  EXPECT_EQ(state().EngineRate, 0.0F);
  EXPECT_EQ(state().DaysLate, 0);
  EXPECT_EQ(state().BaseAmount, Money());
  EXPECT_EQ(state().InterestAmount, 0);
  EXPECT_EQ(state().AmountWithInterest, Money());
  EXPECT_EQ(state().InterestTotal, Money());
  EXPECT_EQ(state().DebtBeforeLastPayment, Money());
  EXPECT_FALSE(state().CalculationFinished);
  EXPECT_FALSE(state().SingleIsCurrent);
  EXPECT_FALSE(state().SingleFormOpen);
  EXPECT_FALSE(state().ProgressiveFormOpen);
  EXPECT_EQ(state().LastCalculationKind, CalculationKind::kProgressive);
  EXPECT_EQ(calculations_.current(), nullptr);
  memory_.event_loop.RunUntilIdle();
  EXPECT_THAT(Shown(), IsEmpty());
}

TEST_F(frmPostupnyTest, ReopenedWindowIsEmpty) {
  Open();
  EnterSampleInvoice();
  Pay(Day(2004, 1, 31), "10000");
  form_->CloseRequested.Raise();
  EXPECT_FALSE(windows().IsLoaded("frmPostupny"));
  memory_.event_loop.RunUntilIdle();
  Open();
  ExpectNothingRecorded();
  ExpectInvoiceLocked(false);
  EXPECT_EQ(Balance(), "");
  EXPECT_EQ(form_->cboDruhSazby.index(), kPercentYearly);
  EXPECT_EQ(form_->dtpSplatnost.day(), Day(2026, 11, 21));
}

}  // namespace
}  // namespace velta
