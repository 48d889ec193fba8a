#include "app/error_report.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "ui/memory/memory_platform.h"

namespace velta {
namespace {

class ErrorReportTest : public ::testing::Test {
 protected:
  ui::MemoryMessageBox message_box_;
  ErrorReport errors_{message_box_};
};

TEST_F(ErrorReportTest, ARoutineThatRunsThroughShowsNothing) {
  int steps = 0;
  EXPECT_TRUE(errors_.Trap("cmdPridat_Click", "frmPostupny.frm", [&] { ++steps; }));
  EXPECT_EQ(steps, 1);
  EXPECT_TRUE(message_box_.shown.empty());
}

TEST_F(ErrorReportTest, AnErrorIsShownOnceUnderTheRoutinesName) {
  EXPECT_FALSE(errors_.Trap("cmdTisk_Click", "frmFaktura.frm",
                            [] { throw Error(ErrorNumber::kDivisionByZero); }));
  ASSERT_EQ(message_box_.shown.size(), 1U);
  EXPECT_EQ(message_box_.shown[0].icon, ui::Icon::kCritical);
  EXPECT_EQ(message_box_.shown[0].caption, "Velta");
  EXPECT_EQ(message_box_.shown[0].text,
            "Chyba 11 (Dělení nulou) v proceduře\r\n(cmdTisk_Click) of (frmFaktura.frm).");
}

TEST_F(ErrorReportTest, WhatWasDoneStaysAndTheRestIsSkipped) {
  std::string done;
  errors_.Trap("UdelejVypocet", "frmPostupny.frm", [&] {
    done += "before";
    if (!done.empty()) throw std::runtime_error("unforeseen");
    done += " after";
  });
  EXPECT_EQ(done, "before");
  ASSERT_EQ(message_box_.shown.size(), 1U);
  EXPECT_EQ(message_box_.shown[0].text,
            "Chyba 5 (Neplatné volání procedury nebo argument) v proceduře\r\n"
            "(UdelejVypocet) of (frmPostupny.frm).");
}

TEST_F(ErrorReportTest, TheInnerRoutineReportsAndTheOuterGoesOn) {
  bool outer_went_on = false;
  EXPECT_TRUE(errors_.Trap("cmdPridat_Click", "frmPostupny.frm", [&] {
    EXPECT_FALSE(errors_.Trap("UdelejVypocet", "frmPostupny.frm",
                              [] { throw Error(ErrorNumber::kTypeMismatch); }));
    outer_went_on = true;
  }));
  EXPECT_TRUE(outer_went_on);
  ASSERT_EQ(message_box_.shown.size(), 1U);
  EXPECT_EQ(message_box_.shown[0].text,
            "Chyba 13 (Neshoda typů) v proceduře\r\n(UdelejVypocet) of (frmPostupny.frm).");
}

TEST_F(ErrorReportTest, AnUntrappedErrorNamesNoRoutine) {
  EXPECT_TRUE(errors_.TrapUntrapped([] {}));
  EXPECT_FALSE(errors_.TrapUntrapped([] { throw Error(ErrorNumber::kOverflow); }));
  ASSERT_EQ(message_box_.shown.size(), 1U);
  EXPECT_EQ(message_box_.shown[0].icon, ui::Icon::kCritical);
  EXPECT_EQ(message_box_.shown[0].text, "Chyba 6 (Přetečení)");
}

}  // namespace
}  // namespace velta
