#include "app/addresses.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ui/memory/memory_platform.h"

namespace velta {
namespace {

using ::testing::ElementsAre;

TEST(AddressesTest, AreHandedToTheDesktop) {
  ui::MemoryPlatform memory;
  const ui::Platform platform = memory.platform();
  OpenWeb(platform, kSupportPage);
  OpenMail(platform, kSupportMail);
  EXPECT_THAT(memory.opener.opened,
              ElementsAre("https://velta.example/podpora/", "mailto:podpora@velta.example"));
}

TEST(AddressesTest, WhatNothingOpensIsToldWithItsAddress) {
  ui::MemoryPlatform memory;
  memory.opener.fails = true;
  const ui::Platform platform = memory.platform();
  OpenWeb(platform, kHomePage);
  OpenMail(platform, kSupportMail);
  ASSERT_EQ(memory.message_box.shown.size(), 2U);
  EXPECT_EQ(memory.message_box.shown[0].text,
            "Nenalezen program, který otevře adresu https://velta.example/");
  EXPECT_EQ(memory.message_box.shown[1].text,
            "Nenalezen program, který otevře adresu podpora@velta.example");
  for (const auto& message : memory.message_box.shown) {
    EXPECT_EQ(message.icon, ui::Icon::kCritical);
    EXPECT_EQ(message.caption, "Velta");
  }
}

}  // namespace
}  // namespace velta
