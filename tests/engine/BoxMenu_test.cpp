// The menu of a box.
#include "engine/BoxMenu.h"

#include <gtest/gtest.h>

#include "tests/engine/EngineFixture.h"

namespace plinth {
namespace {

// One letter for each row, a line before it as "|", greyed ones in lower case.
std::string written(const std::vector<BoxMenuRow>& rows) {
  std::string text;
  for (const BoxMenuRow& row : rows) {
    const char letter = row.caption.back();
    text += row.separatorBefore ? "|" : "";
    text += row.enabled ? letter : static_cast<char>(letter + 32);
  }
  return text;
}

TEST(BoxMenu, OffersWhatTheBoxAndTheDesignAllow) {
  Payload p = shopPayload();
  PayloadMenus& menus = p.application.menus;
  menus.finding = "S", menus.finden0 = "F", menus.finden4 = "A", menus.finden5 = "Z";
  p.header.indexCaption = "I";
  p.application.runCaptions[14] = "X", p.application.runCaptions[15] = "C";
  p.application.runCaptions[16] = "P", p.application.runCaptions[17] = "U";
  p.fields[2].dummyField = -1;
  p.fields[3].noSearch = 1;
  const auto always = [](const MenuEntry&) { return true; };
  const BoxMenuState all{true, true, true, true};
  const auto menuOf = [&](int field, const BoxMenuState& state) {
    User user(p);
    user.session->fieldGotFocus(field);
    return written(boxMenu(user.session->application(), user.session->tools(), state, always));
  };
  EXPECT_EQ(menuOf(1, all), "U|XCP|FAZI");
  EXPECT_EQ(menuOf(2, all), "U|XCP") << "a global field is in no record";
  EXPECT_EQ(menuOf(3, all), "U|XCP|AZ") << "not to be searched";
  EXPECT_EQ(menuOf(1, {true, true, false, true}), "u|xCp|FAZI") << "read-only";
  EXPECT_EQ(menuOf(1, {}), "u|xcp|FAZI");
  menus.finden0.clear();
  menus.finden5.clear();
  EXPECT_EQ(menuOf(1, all), "U|XCP|AI");
  const Application app = makeApplication(p);
  FocusTools tools;
  tools.index = true;
  EXPECT_EQ(written(boxMenu(app, tools, all, [](const MenuEntry&) { return false; })), "U|XCP|i");
}

}  // namespace
}  // namespace plinth
