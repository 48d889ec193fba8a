#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "tests/support/program_test.h"
#include "windows/progressive/frmPostupny.h"

namespace velta {

using Texts = std::vector<std::string>;

// Rows of the list of kinds.
inline constexpr int kPercentYearly = 1;
inline constexpr int kDiscount = 4;
inline constexpr int kRepo = 5;
// Elements of txtData.
inline constexpr std::size_t kTotal = 0;
inline constexpr std::size_t kPayment = 1;
inline constexpr std::size_t kRate = 2;

inline constexpr const char* kTooMuch = "Nesprávně zadaná hodnota částečné platby !";
inline constexpr const char* kNotPrintable = "Výpočet ještě není dokončen, nelze tisknout";
inline constexpr const char* kNoRate = "Nenalezena sazba pro zadané období";
inline constexpr const char* kHeading =
    "Podklady pro výpočet úroku z prodlení\r\n"
    "****************************************************\r\n";

/// The progressive window in a program in memory, and what its tests do and look at. The tests
/// stand in the files beside this one, by subject; what the window has in common with the single
/// one is tried in calculation_form_test.cpp.
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
      EXPECT_THAT(list->items(), ::testing::IsEmpty()) << list->name();
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

}  // namespace velta
