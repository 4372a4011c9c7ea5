#include "sim/code_page.h"

#include <gtest/gtest.h>

#include <vector>

namespace pointalk::sim {
namespace {

TEST(CodePage, EveryByteComesBack) {
  SimAnsi ansi;
  std::vector<std::byte> bytes;
  for (int i = 0; i < 256; ++i) bytes.push_back(static_cast<std::byte>(i));
  const Text text = ansi.ToText(bytes);
  ASSERT_EQ(text.size(), 256u);
  EXPECT_EQ(ansi.ToBytes(text), bytes);
  EXPECT_EQ(ThroughAnsi(text), text);
}

TEST(CodePage, IsWindows1252) {
  SimAnsi ansi;
  const std::vector<std::byte> bytes = {std::byte{0x80}, std::byte{0x81}, std::byte{0x99},
                                        std::byte{0x9D}, std::byte{0xE9}, std::byte{0}};
  EXPECT_EQ(ansi.ToText(bytes), Text(u"\u20AC\x81\u2122\x9D\xE9\0", 6));
}

TEST(CodePage, WhatItLacksBecomesAQuestionMark) {
  EXPECT_EQ(ThroughAnsi(u"a\u0416\x80\u2013\uFFFFz"), u"a??\u2013?z");
}

}  // namespace
}  // namespace pointalk::sim
