// A project of any version made by hand, element by element, with one object of each kind: what the reader's
// conditions are tried on. Written apart from the walk on purpose.
#pragma once

#include <string>

#include "basic/Slots.h"

namespace plinth {

class VersionedProject {
 public:
  explicit VersionedProject(int version) : v_(version) {
    header();
    looks();
    shapes();
    boxes();
    tail();
  }
  Bytes bytes;

 private:
  void text(const std::string& value) { writer_.text16(value); }
  void texts(int count, const std::string& value) {
    for (int i = 0; i < count; ++i) text(value + std::to_string(i));
  }
  void i2(int value) { writer_.slot(Tag::i2, value); }
  void i4(int value) { writer_.slot(Tag::i4, value); }
  void ui1(int value) { writer_.slot(Tag::ui1, value); }
  void flag(bool value) { writer_.slot(Tag::boolean, value ? -1 : 0); }
  void r4(double value) { writer_.slot(Tag::r4, value); }
  void i2s(int count, int value) {
    for (int i = 0; i < count; ++i) i2(value);
  }
  void r4s(int count, double value) {
    for (int i = 0; i < count; ++i) r4(value);
  }

  void header() {
    text("Oml Old : C:\\a.qvf");
    text("Title");
    ui1(2);
    text("Courier New");
    i2(204);
    i2(v_);
    if (v_ > 18) text("Index here");
    if (v_ > 16) {
      i4(2);
      for (int i = 7; i < 10; ++i) writer_.byte(i);
    }
    if (v_ > 15) {
      for (int i = 0; i < 10; ++i) texts(3, "doc");
      text("txt");
      for (int i = 0; i < 5; ++i) i4(100 + i);
    }
  }
  void looks() {
    if (v_ > 11) {
      i4(40000);
      flag(true);
    }
    if (v_ > 8) i2(1);
    i2(77);  // pattern out of range
    i4(500);
    i2(0);
    r4(600);
    i2(3);
    r4s(5, 400);
    text("Copyright");
    text("");
    flag(true);
    i2(1);
    i2(1);
    flag(false);
    i2(1);
    text("a.chm");
    text("Five");
  }
  void shapes() {
    i2(0);  // one square
    i2(1);
    ui1(1);
    i4(5);
    i4(-2147483640);
    i4(6);
    i2s(4, 1);
    r4s(4, 10);
    i2(1);  // two lines, the first on page 0
    for (int line = 0; line < 2; ++line) {
      i2(line);
      if (line == 0) flag(true);
      r4s(4, 20);
      i4(9);
      ui1(1);
    }
    if (v_ > 9) {
      i2(1);
      text("icon");
      text("");
    }
    i2(0);  // one picture
    if (v_ > 16) text("PicField");
    i2(2);
    ui1(1);
    r4s(2, 30);
    text("..\\..\\logo.bmp");
    if (v_ > 14) {
      writer_.i32(3);
      for (int i = 1; i < 4; ++i) writer_.byte(i);
    }
    r4s(2, 31);
    text("picture help");
    i2(1);
    flag(true);
    i2(1);
    if (v_ > 12) text("link");
  }
  void font(const std::string& tag) {
    text("Arial");
    i4(3);
    flag(true);
    flag(false);
    i4(-5);
    r4(12);
    text(tag);
    if (v_ > 3) i2(4);
    // The box's own border, of versions below 8; later ones have a frame.
    i2(v_ < 8 ? 1 : 0);
    i2(v_ < 8 ? 1 : 0);
    if (v_ > 7) {
      i4(2);
      i4(11);
    }
  }
  void boxes() {
    i2(1);  // one field
    if (v_ > 18) ui1(1);
    if (v_ > 17) flag(true);
    if (v_ < 19) text("dropped");
    i2(3);
    if (v_ > 10) ui1(1);
    ui1(1);
    i2(7);
    if (v_ > 13) ui1(1);
    r4s(2, 40);
    i4(25);
    r4s(2, 41);
    font("FieldTag");
    i2(2);
    text("help");
    i2(5);
    ui1(1);
    ui1(8);
    text("F1~2:3");
    if (v_ > 15) text("Default");
    i2(1);  // one title, blank
    if (v_ > 4) i2(2);
    i2(0);
    flag(true);
    ui1(1);
    text("Arial");
    flag(false);
    flag(true);
    if (v_ > 1) flag(true);
    r4(16);
    i4(0);
    r4s(2, 50);
    text("  ");
    text("tag");
    text("help");
    i2(2);  // two combos
    for (int combo = 1; combo <= 2; ++combo) {
      if (v_ > 18) i4(1);
      i2(1);
      i2(9);
      i4(1);
      i4(0);
      i4(1);
      if (v_ > 13) i4(1);
      if (v_ > 18) i4(3);
      r4s(3, 60);
      i4(1);
      flag(true);
      flag(true);
      i4(2);
      r4(12);
      text("Arial");
      text("7 old");
      if (v_ > 3) i4(8);
      text("help");
      if (v_ > 18) i4(2);
      if (v_ > 21) i4(13);
      i4(2);
      texts(2, "item");
    }
    i2(2);  // the document box and a memo
    for (int memo = 1; memo <= 2; ++memo) {
      i2(memo == 1 ? 5 : 1);
      ui1(0);
      ui1(1);
      if (v_ > 13) ui1(1);
      r4s(2, 70);
      i4(100);
      r4s(2, 71);
      font("9 old");
      text("help");
    }
  }
  void tail() {
    if (v_ < 16) i4(321);
    for (int i = 0; i < (v_ < 18 ? 20 : 96); ++i) i4(1000 + i);
    texts(v_ > 15 ? 25 : 24, "menu");
    if (v_ > 2) {
      text("E");
      text("Stat");
      texts(7, "stat");
    }
    text("web");
    i2(2);
    i2(0);  // one check box
    if (v_ > 18) ui1(1);
    i2(1);
    ui1(0);
    ui1(1);
    if (v_ > 13) ui1(1);
    ui1(1);
    r4s(2, 80);
    text("33");
    if (v_ > 3) i2(6);
    text("help");
    ui1(2);
    if (v_ > 20) {
      i2s(2, 0);
      texts(4, "button");
      r4(10);
      for (int i = 0; i < 3; ++i) flag(true);
      r4s(4, 90);
      i4(1);
      i4(2);
      i2(3);
      text("script");
    }
    for (int i = 0; i < 10; ++i) {
      flag(true);
      texts(2, "opt");
    }
    text("ext");
    i2(1);
    i2(1);
    texts(v_ < 16 ? 53 : v_ == 16 ? 81 : 151, "engine");
    texts(12, "key");
    if (v_ > 21) i2(1);
    if (v_ > 18) {
      texts(v_ < 22 ? 5 : 9, "comment");
      texts(11, "column");
    } else {
      for (int i = 0; i < 5; ++i) {
        text("column" + std::to_string(i));
        i2(0);
      }
    }
    i2(1);
    text("");
    i2s(5, 1);
    i2(-1);
    r4s(2, 100);
    i2(42);
    text("");
    texts(60, "message");
    i2s(2, 1);
    if (v_ > 6) i2s(2, 1);
    i2(1);
    i2s(7, 0);
    text("reserved");
    i2(1);
    text("delete");
    i2s(2, 1);
    i2(1);
    i2(22);
    r4s(2, 200);
    text("replace");
    texts(v_ > 15 ? 5 : 3, "page");
    if (v_ > 14) {
      i2(1);
      r4s(4, 110);
      text("<p>");
      i2(0);
    }
    ui1(1);
    text("Report");
    report();
    i2s(2, 1);
  }
  void report() {
    r4s(4, 300);
    if (v_ > 19) i2(0);
    if (v_ > 15) i2(0);
    i2(1);
    flag(true);
    r4s(4, 120);
    i2(1);
    i2(0);
    i2(0);
  }

  const int v_;
  SlotWriter writer_{bytes};
};

}  // namespace plinth
