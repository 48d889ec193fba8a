#include "tests/scenario/driver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QVBoxLayout>
#include <array>
#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tests/scenario/qt_driver.h"
#include "tests/scenario/world.h"
#include "ui/qt/binder.h"
#include "ui/qt/date_field.h"
#include "ui/qt/hint_filter.h"
#include "ui/qt/text.h"

namespace velta::scenario {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A window with the kinds of controls that a driver treats each in its own way.
class SampleForm final : public Form {
 public:
  explicit SampleForm(Program& program) : Form(program, "frmVzor") {
    cboVolny.SetEditable();
    fraStrana.Hold({&txtStrana});
    cmdTisk.SetUsesInputs();
  }

  void OnLoad() override {
    for (const char* item : {"jedna", "dvě", "tři"}) {
      cboPevny.AddItem(item);
      cboVolny.AddItem(item);
      lstRadky.AddItem(item);
    }
  }

  ui::TextBox txtUdaj{*this, "txtUdaj"};
  ui::DropDown cboPevny{*this, "cboPevny"};
  ui::DropDown cboVolny{*this, "cboVolny"};
  ui::ListBox lstRadky{*this, "lstRadky"};
  std::array<ui::OptionButton, 3> optZaok = ui::ControlArray<ui::OptionButton, 3>(*this, "optZaok");
  ui::Frame fraStrana{*this, "fraStrana"};
  ui::TextBox txtStrana{*this, "txtStrana"};
  ui::Button cmdKonec{*this, "cmdKonec"};
  ui::DatePicker dtpOd{*this, "dtpOd", program_.platform.clock, program_.platform.locale};
  ui::DatePicker dtpDo{*this, "dtpDo", program_.platform.clock, program_.platform.locale};
  ui::Button cmdTisk{*this, "cmdTisk"};
};

/// Makes the form of a window: one widget below the other, what a frame holds beside the rest.
class FormMaker final : public ui::ControlVisitor {
 public:
  FormMaker(QWidget& root, QWidget& page) : root_(root), page_(page) {}

  void Visit(ui::Button& control) override { Add(control, new QPushButton(&root_)); }
  void Visit(ui::DatePicker& control) override { Add(control, new qt::DateField(&root_)); }
  void Visit(ui::DropDown& control) override {
    auto* list = new QComboBox(&root_);
    list->setEditable(control.editable());
    list->setPlaceholderText("Vyberte");
    Add(control, list);
  }
  void Visit(ui::Frame& control) override { Add(control, &page_); }
  void Visit(ui::Label& /*control*/) override {}
  void Visit(ui::ListBox& control) override { Add(control, new QListWidget(&root_)); }
  void Visit(ui::MenuItem& /*control*/) override {}
  void Visit(ui::OptionButton& control) override { Add(control, new QRadioButton(&root_)); }
  void Visit(ui::TextBox& control) override {
    Add(control, new QLineEdit(control.name() == "txtStrana" ? &page_ : &root_));
  }
  void Visit(ui::TimerControl& /*control*/) override {}

 private:
  void Add(const ui::Control& control, QWidget* widget) {
    widget->setObjectName(qt::Binder::WidgetName(control));
    if (widget->parentWidget() == &root_) root_.layout()->addWidget(widget);
  }

  QWidget& root_;
  QWidget& page_;
};

class SampleView final : public ui::WindowView {
 public:
  SampleView(ui::Window& window, qt::HintFilter& hints) {
    root_.setObjectName(qt::ToQString(window.name()));
    root_.resize(400, 600);
    auto* page = new QWidget(&root_);
    FormMaker maker(root_, *page);
    for (ui::Control* control : window.controls()) control->Accept(maker);
    binder_ = new qt::Binder(window, root_, hints);
    window.FocusMoved.Connect([this] { binder_->FollowFocus(); });
  }

  void Show() override {
    root_.show();
    Activate();
  }
  void Activate() override {
    root_.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&root_));
    binder_->TakeFocus();
  }
  void Close() override { root_.hide(); }

 private:
  QWidget root_;
  QVBoxLayout layout_{&root_};
  qt::Binder* binder_;
};

class SampleWindowSystem final : public ui::WindowSystem {
 public:
  std::unique_ptr<ui::WindowView> CreateView(ui::Window& window) override {
    return std::make_unique<SampleView>(window, hints_);
  }

 private:
  qt::HintFilter hints_;
};

/// What the user does and reads has the same effect and the same values on both platforms.
class DriverTest : public ::testing::TestWithParam<std::string> {
 protected:
  DriverTest() {
    driver_->SetProgram(&program_);
    program_.windows.Register("frmVzor", [this] { return std::make_unique<SampleForm>(program_); });
    program_.windows.Open("frmVzor");
    Note(form().cboPevny);
    Note(form().cboVolny);
    Note(form().lstRadky);
    for (ui::DatePicker* date : {&form().dtpOd, &form().dtpDo}) {
      date->Change.Connect([this, date] { log_.push_back(date->name() + " " + date->text()); });
      date->Mistyped.Connect([this, date] { log_.push_back(date->name() + " mistyped"); });
    }
    for (ui::Button* button : {&form().cmdKonec, &form().cmdTisk}) {
      button->Click.Connect([this, button] { log_.push_back(button->name()); });
    }
    for (ui::OptionButton& option : form().optZaok) {
      option.Click.Connect([this, &option] { log_.push_back(option.name() + " clicked"); });
    }
  }
  void TearDown() override { driver_->SetProgram(nullptr); }

  SampleForm& form() { return dynamic_cast<SampleForm&>(*program_.windows.Find("frmVzor")); }
  std::string Get(ui::Control& control, const char* property, int index = 0) {
    return driver_->Get(control, {{"frmVzor", control.name()}, property, index}).Shown();
  }
  std::string Focused() {
    for (ui::Control* control : form().controls()) {
      if (Get(*control, "focused") == "true") return control->name();
    }
    return "";
  }
  /// What has happened since the last call.
  std::vector<std::string> Log() { return std::exchange(log_, {}); }

  World world_;
  SampleWindowSystem on_screen_;
  std::unique_ptr<Driver> driver_ =
      GetParam() == "qt" ? MakeQtDriver(world_.locale) : MakeMemoryDriver();
  Program program_{
      {driver_->message_box(), driver_->clipboard(), world_.settings_store, world_.other_programs,
       world_.other_programs, world_.printer, world_.other_programs, world_.user_name, world_.clock,
       driver_->event_loop(), world_.program_folder,
       GetParam() == "qt" ? on_screen_ : driver_->window_system(), world_.locale},
      {}};

 private:
  void Note(ui::ListControl& list) {
    list.Change.Connect(
        [this, &list] { log_.push_back(list.name() + " " + std::to_string(list.index())); });
  }

  std::vector<std::string> log_;
};

TEST_P(DriverTest, TypesIntoAnEditableListKeyByKey) {
  EXPECT_TRUE(driver_->Type(form().cboVolny, "dvě"));
  EXPECT_THAT(Log(), ElementsAre("cboVolny -1", "cboVolny -1", "cboVolny 1"));
  EXPECT_TRUE(driver_->Type(form().cboVolny, "\rř"));
  EXPECT_THAT(Log(), ElementsAre("cboVolny -1"));
  EXPECT_EQ(Get(form().cboVolny, "text"), "\"dvěř\"");
  EXPECT_EQ(Get(form().cboVolny, "index"), "-1");
  EXPECT_EQ(Focused(), "cboVolny");
}

TEST_P(DriverTest, ListInWhichNothingIsChosenHasNoText) {
  EXPECT_EQ(Get(form().cboPevny, "text"), "\"\"");
  EXPECT_EQ(Get(form().cboVolny, "text"), "\"\"");
}

TEST_P(DriverTest, ReadsAPlaceholderApartFromTheText) {
  EXPECT_EQ(Get(form().txtUdaj, "placeholder"), "\"\"");
  form().txtUdaj.SetPlaceholder("zákonná 11,75");
  EXPECT_EQ(Get(form().txtUdaj, "placeholder"), "\"zákonná 11,75\"");
  EXPECT_EQ(Get(form().txtUdaj, "text"), "\"\"");
  EXPECT_TRUE(driver_->Type(form().txtUdaj, "8"));
  EXPECT_EQ(Get(form().txtUdaj, "placeholder"), "\"zákonná 11,75\"");
  EXPECT_EQ(Get(form().txtUdaj, "text"), "\"8\"");
}

TEST_P(DriverTest, NoKeyTypesAControlCharacter) {
  EXPECT_TRUE(driver_->Type(form().txtUdaj,
                            "a\u0085b\x07\x7F"
                            "c"));
  EXPECT_EQ(Get(form().txtUdaj, "text"), "\"abc\"");
}

TEST_P(DriverTest, TypedItemInAnotherCaseStaysAsItIs) {
  EXPECT_TRUE(driver_->Type(form().cboVolny, "JEDNA\r"));
  EXPECT_TRUE(driver_->Focus(form().txtUdaj));
  EXPECT_EQ(Get(form().cboVolny, "text"), "\"JEDNA\"");
  EXPECT_EQ(Get(form().cboVolny, "index"), "-1");
  EXPECT_EQ(Get(form().cboVolny, "count"), "3");
}

TEST_P(DriverTest, PastesIntoAnEditableListAtOnce) {
  EXPECT_TRUE(driver_->Paste(form().cboVolny, "tři\r\n"));
  EXPECT_THAT(Log(), ElementsAre("cboVolny 2"));
  EXPECT_TRUE(driver_->Paste(form().cboVolny, "částka Kč denně"));
  EXPECT_THAT(Log(), ElementsAre("cboVolny -1"));
  EXPECT_TRUE(driver_->Paste(form().cboVolny, ""));
  EXPECT_EQ(Get(form().cboVolny, "text"), "\"\"");
  EXPECT_THAT(Log(), ElementsAre("cboVolny -1"));
}

TEST_P(DriverTest, PicksFromBothKindsOfDropDown) {
  for (ui::DropDown* list : {&form().cboPevny, &form().cboVolny}) {
    EXPECT_EQ(Get(*list, "index"), "-1");
    EXPECT_TRUE(driver_->Pick(*list, 2));
    EXPECT_TRUE(driver_->Pick(*list, 2));
    EXPECT_THAT(Log(), ElementsAre(list->name() + " 2")) << "the second time it was chosen already";
    EXPECT_EQ(Get(*list, "text"), "\"tři\"");
    EXPECT_FALSE(driver_->Pick(*list, 3));
    EXPECT_EQ(Focused(), list->name());
  }
}

TEST_P(DriverTest, PicksTheItemThatWasPickedBeforeTheTyping) {
  EXPECT_TRUE(driver_->Pick(form().cboVolny, 1));
  EXPECT_TRUE(driver_->Type(form().cboVolny, "x"));
  EXPECT_TRUE(driver_->Pick(form().cboVolny, 1));
  EXPECT_THAT(Log(), ElementsAre("cboVolny 1", "cboVolny -1", "cboVolny 1"));
}

TEST_P(DriverTest, PicksRowsOfAList) {
  EXPECT_EQ(Get(form().lstRadky, "index"), "-1");
  EXPECT_EQ(Get(form().lstRadky, "count"), "3");
  EXPECT_EQ(Get(form().lstRadky, "item", 1), "\"dvě\"");
  EXPECT_EQ(Get(form().lstRadky, "item", 3), "unset");
  EXPECT_TRUE(driver_->Focus(form().lstRadky));
  EXPECT_EQ(Get(form().lstRadky, "index"), "-1");
  EXPECT_TRUE(driver_->Pick(form().lstRadky, 1));
  EXPECT_TRUE(driver_->Pick(form().lstRadky, 1));
  EXPECT_TRUE(driver_->Pick(form().lstRadky, 0));
  EXPECT_FALSE(driver_->Pick(form().lstRadky, 3));
  EXPECT_THAT(Log(), ElementsAre("lstRadky 1", "lstRadky 0"));
  EXPECT_EQ(Get(form().lstRadky, "index"), "0");
}

TEST_P(DriverTest, PicksARowThatHasToBeScrolledTo) {
  for (int i = 0; i < 1000; ++i) form().lstRadky.AddItem(std::to_string(i));
  driver_->Settle();
  EXPECT_TRUE(driver_->Pick(form().lstRadky, 500));
  EXPECT_THAT(Log(), ElementsAre("lstRadky 500"));
}

TEST_P(DriverTest, PicksOptions) {
  EXPECT_EQ(Get(form().optZaok[1], "value"), "false");
  EXPECT_TRUE(driver_->Pick(form().optZaok[1]));
  EXPECT_TRUE(driver_->Pick(form().optZaok[1]));
  EXPECT_TRUE(driver_->Pick(form().optZaok[2]));
  EXPECT_THAT(Log(), ElementsAre("optZaok(1) clicked", "optZaok(2) clicked"));
  EXPECT_EQ(Get(form().optZaok[1], "value"), "false");
  EXPECT_EQ(Get(form().optZaok[2], "value"), "true");
  EXPECT_EQ(Focused(), "optZaok(2)");
  form().optZaok[0].SetCaption("&Nezaokrouhlovat");
  EXPECT_EQ(Get(form().optZaok[0], "caption"), "\"&Nezaokrouhlovat\"");
}

TEST_P(DriverTest, NothingCanBeDoneWithWhatIsDisabledOrStandsInAHiddenFrame) {
  form().fraStrana.SetVisible(false);
  EXPECT_FALSE(driver_->Type(form().txtStrana, "1"));
  EXPECT_EQ(Get(form().txtStrana, "visible"), "false");
  form().fraStrana.SetVisible(true);
  EXPECT_TRUE(driver_->Type(form().txtStrana, "1"));
  EXPECT_EQ(Get(form().txtStrana, "visible"), "true");

  form().lstRadky.SetEnabled(false);
  EXPECT_FALSE(driver_->Pick(form().lstRadky, 1));
  form().cboVolny.SetEnabled(false);
  EXPECT_FALSE(driver_->Type(form().cboVolny, "1"));
  EXPECT_FALSE(driver_->Paste(form().cboVolny, "1"));
  form().optZaok[0].SetEnabled(false);
  EXPECT_FALSE(driver_->Pick(form().optZaok[0]));
  EXPECT_THAT(Log(), IsEmpty());
}

TEST_P(DriverTest, KeysGoWhereTheKeyboardIsAndWhatTakesNoTextDropsThem) {
  // The fixed list and the rows would look for an item that begins so. By Tab: the fixed list, the
  // free one, the rows, the first option, the page, the button.
  EXPECT_TRUE(driver_->Type(form().txtUdaj, "a\tj\tc\td\te\tf"));
  EXPECT_EQ(Get(form().txtUdaj, "text"), "\"a\"");
  EXPECT_EQ(Get(form().cboPevny, "text"), "\"\"");
  EXPECT_EQ(Get(form().cboVolny, "text"), "\"c\"");
  EXPECT_EQ(Get(form().lstRadky, "index"), "-1");
  EXPECT_EQ(Get(form().optZaok[0], "value"), "false");
  EXPECT_EQ(Get(form().txtStrana, "text"), "\"f\"");
  EXPECT_THAT(Log(), ElementsAre("cboVolny -1"));
  EXPECT_EQ(Focused(), "txtStrana");
}

TEST_P(DriverTest, TabComesToTheChosenOption) {
  EXPECT_TRUE(driver_->Pick(form().optZaok[1]));
  EXPECT_TRUE(driver_->Focus(form().lstRadky));
  EXPECT_TRUE(driver_->Type(form().cboVolny, "\t\t"));
  EXPECT_EQ(Focused(), "optZaok(1)");
  EXPECT_TRUE(driver_->Type(form().cboVolny, "\t\t\t"));
  EXPECT_EQ(Focused(), "txtStrana");
}

TEST_P(DriverTest, TypedDateCountsByEnter) {
  EXPECT_TRUE(driver_->TypeDate(form().dtpOd, "1.2.05"));
  EXPECT_EQ(Get(form().dtpOd, "text"), "\"1.2.05\"");
  EXPECT_EQ(Get(form().dtpOd, "date"), "21.11.2026");
  EXPECT_EQ(Focused(), "dtpOd");
  EXPECT_THAT(Log(), IsEmpty());
  EXPECT_TRUE(driver_->TypeDate(form().dtpOd, "2.2.05\r"));
  EXPECT_EQ(Get(form().dtpOd, "text"), "\"2.2.2005\"");
  EXPECT_EQ(Get(form().dtpOd, "date"), "2.2.2005");
  EXPECT_THAT(Log(), ElementsAre("dtpOd 2.2.2005"));
}

TEST_P(DriverTest, TypedDateCountsWhenItIsLeft) {
  const std::vector<std::pair<const char*, std::function<void()>>> kWays = {
      {"to be read", [this] { driver_->Focus(form().txtUdaj); }},
      {"for a button", [this] { driver_->Focus(form().cmdKonec); }},
      {"for another date", [this] { driver_->TypeDate(form().dtpDo, "x"); }},
      {"to type", [this] { driver_->Type(form().txtUdaj, "x"); }},
      {"to paste", [this] { driver_->Paste(form().txtUdaj, "x"); }},
      {"to pick", [this] { driver_->Pick(form().lstRadky, 1); }},
      {"to choose", [this] { driver_->Pick(form().optZaok[1]); }},
  };
  for (const auto& [way, leave] : kWays) {
    EXPECT_TRUE(driver_->TypeDate(form().dtpDo, "21.11.2026\r"));
    driver_->PickDay(form().dtpOd, world_.clock.now.day);
    driver_->Settle();
    EXPECT_TRUE(driver_->TypeDate(form().dtpOd, "1.2.05")) << way;
    Log();
    leave();
    EXPECT_EQ(Log().at(0), "dtpOd 1.2.2005") << way;
    EXPECT_EQ(Get(form().dtpOd, "text"), "\"1.2.2005\"") << way;
  }
}

TEST_P(DriverTest, MistypedDateIsSaidWhenTheKeyboardHasArrived) {
  EXPECT_TRUE(driver_->TypeDate(form().dtpOd, "31.2.2005"));
  EXPECT_TRUE(driver_->Focus(form().txtUdaj));
  EXPECT_EQ(Focused(), "txtUdaj");
  EXPECT_THAT(Log(), IsEmpty());
  driver_->Settle();
  EXPECT_THAT(Log(), ElementsAre("dtpOd mistyped"));
  EXPECT_EQ(Get(form().dtpOd, "text"), "\"31.2.2005\"");
  EXPECT_EQ(Get(form().dtpOd, "date"), "21.11.2026");
}

TEST_P(DriverTest, CommandTakesATypedDateOverOrLeavesItAlone) {
  EXPECT_TRUE(driver_->TypeDate(form().dtpOd, "31.2.2005"));
  EXPECT_TRUE(driver_->Click(form().cmdKonec));
  driver_->Settle();
  EXPECT_THAT(Log(), ElementsAre("cmdKonec"));
  EXPECT_EQ(Focused(), "dtpOd") << "typing goes on";
  EXPECT_TRUE(driver_->Click(form().cmdTisk));
  EXPECT_THAT(Log(), ElementsAre("dtpOd mistyped"));
  EXPECT_TRUE(driver_->TypeDate(form().dtpOd, "28.2.2005"));
  EXPECT_TRUE(driver_->Click(form().cmdTisk));
  driver_->Settle();
  EXPECT_THAT(Log(), ElementsAre("dtpOd 28.2.2005", "cmdTisk"));
  EXPECT_EQ(Focused(), "cmdTisk");
}

TEST_P(DriverTest, DateIsEmptiedOnlyWhereItIsOpen) {
  EXPECT_TRUE(driver_->TypeDate(form().dtpOd, ""));
  EXPECT_EQ(Get(form().dtpOd, "text"), "\"\"");
  form().dtpDo.SetEnabled(false);
  EXPECT_FALSE(driver_->TypeDate(form().dtpDo, "1.2.2005"));
  EXPECT_EQ(Get(form().dtpDo, "text"), "\"21.11.2026\"");
}

TEST_P(DriverTest, ClockStandsStill) {
  bool ran = false;
  driver_->event_loop().After(std::chrono::milliseconds(1), [&] { ran = true; });
  QTest::qSleep(20);
  driver_->Settle();
  EXPECT_FALSE(ran);
}

INSTANTIATE_TEST_SUITE_P(Platforms, DriverTest, ::testing::Values("memory", "qt"),
                         [](const auto& test) { return test.param; });

}  // namespace
}  // namespace velta::scenario
