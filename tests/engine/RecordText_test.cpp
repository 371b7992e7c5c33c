// Records by label: found, read and typed into as the tool does it.
#include "engine/RecordText.h"

#include <gtest/gtest.h>

#include "tests/engine/EngineFixture.h"

namespace plinth {
namespace {

struct RecordTextTest : ::testing::Test {
  RecordTextTest() { EXPECT_TRUE(user.session->openData(true)); }
  ErrorKind set(const char* label, const char* text) {
    const BoxRef* box = findBox(boxes, label, 1252);
    return box ? typeIntoBox(*user.session, *box, text).error().kind : ErrorKind::notFound;
  }
  std::string get(const char* label) { return boxText(user.session->form(), *findBox(boxes, label, 1252)); }
  User user{shopPayload()};
  std::vector<BoxRef> boxes = recordBoxes(user.session->application());
};

TEST_F(RecordTextTest, BoxesStandInTabOrderUnderTheirLabelsAndReferences) {
  std::string labels;
  for (const BoxRef& box : boxes) labels += box.label + "/" + box.reference + " ";
  EXPECT_EQ(labels, "Name/F1 Price/F2 Count/F3 Due/F4 Total/F5 Terms/C1 Paid/K0 Notes/M1 ");
  EXPECT_EQ(findBox(boxes, "pRICE", 1252)->index, 2);
  EXPECT_EQ(findBox(boxes, "k0", 1252)->kind, BoxKind::check);
  EXPECT_EQ(findBox(boxes, "Nothing", 1252), nullptr);
}

TEST_F(RecordTextTest, TypingFormatsAndComputes) {
  EXPECT_EQ(set("price", "1234.5"), ErrorKind::none);
  EXPECT_EQ(set("Count", "2"), ErrorKind::none);
  EXPECT_EQ(set("due", "1/2/2024"), ErrorKind::none);
  EXPECT_EQ(set("Terms", "Cash"), ErrorKind::none);
  EXPECT_EQ(set("Paid", "1"), ErrorKind::none);
  EXPECT_EQ(set("Notes", "two\r\nlines"), ErrorKind::none);
  EXPECT_EQ(get("Price"), "1,234.50");
  EXPECT_EQ(get("Total"), "2,469.00");
  EXPECT_EQ(get("Due"), "2024-01-02");
  EXPECT_EQ(get("Paid"), "1");
  EXPECT_EQ(set("Due", ""), ErrorKind::none);
  EXPECT_EQ(get("Due"), "");
}

TEST_F(RecordTextTest, WhatABoxCannotHoldIsRefusedAndChangesNothing) {
  for (const auto& [label, text] : {std::pair{"Count", "1.5"},
                                    {"Count", "many"},
                                    {"Count", "9999999999"},
                                    {"Due", "soon"},
                                    {"Name", "longer than ten"},
                                    {"Paid", "2"},
                                    {"Name", "a\tb"}})
    EXPECT_EQ(set(label, text), ErrorKind::wrongUsage) << label << " " << text;
  EXPECT_FALSE(user.session->dirty());
  EXPECT_EQ(get("Due"), "2023-03-15");
}

}  // namespace
}  // namespace plinth
