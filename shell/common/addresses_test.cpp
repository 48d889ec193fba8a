#include "shell/common/addresses.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/thrown.h"
#include "ui/memory/memory_platform.h"

namespace velta {
namespace {

using ::testing::ElementsAre;
using testing::Thrown;

TEST(AddressesTest, AreHandedToTheDesktop) {
  ui::MemoryPlatform memory;
  Program program{memory.platform(), {}};
  OpenWeb(program, kSupportPage);
  OpenMail(program, kSupportMail);
  EXPECT_THAT(memory.opener.opened,
              ElementsAre("https://velta.example/podpora/", "mailto:podpora@velta.example"));
}

TEST(AddressesTest, WhatNothingTakesIsABadArgument) {
  ui::MemoryPlatform memory;
  memory.opener.fails = true;
  Program program{memory.platform(), {}};
  EXPECT_EQ(Thrown([&] { OpenWeb(program, kHomePage); }), ErrorNumber::kBadArgument);
  EXPECT_EQ(Thrown([&] { OpenMail(program, kSupportMail); }), ErrorNumber::kBadArgument);
}

}  // namespace
}  // namespace velta
