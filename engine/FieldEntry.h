// What a field does with typed text, by its kind: which characters it takes, what a left box shows, what a
// new record starts with, which action its content offers. Pure functions, so that window, tool and tests
// agree.
#pragma once

#include <string>
#include <string_view>

#include "basic/Locale.h"
#include "engine/Application.h"
#include "engine/EngineView.h"

namespace plinth {

// The character that a field of this kind takes for a typed one; 0 for none. Control codes become characters
// of the Western code page.
unsigned char keyPressFilter(int kind, unsigned char ch);

// A typed character in the case that the box wants (1 upper, 2 first letters, 3 lower, else as typed).
// before: what stands before the caret.
unsigned char casedKey(int textCase, unsigned char ch, std::string_view before, int codePage);

// Whole texts, as pasted or set by programs.
std::string casedText(int textCase, std::string_view text, int codePage);

// The time that a box of kind 10 to 12 holds, as a serial; 0 when it shows none.
double heldTime(int kind, std::string_view text, const Locale& locale);

struct EnteredField {
  std::string text;
  double date = 0;
  bool taken = true;  // false: what was typed cannot be held, and the text is the one of before
};
// What a box shows and holds after somebody left it with `text`. before: what it held when it was entered; it
// returns when the text cannot be what the field holds. now: a date serial with the time.
EnteredField enterField(const Application& application, int n, std::string_view text,
                        const EnteredField& before, double now, const Locale& locale);

// What field n starts with in a new record.
EnteredField fieldDefault(const Application& application, int n, double now, const Locale& locale);

// What the action tool offers for a text, in the fixed order of tests.
struct FieldActionRow {
  FieldAction action = FieldAction::none;
  const char* toolTip = "";
  const char* prefix = "";
};
FieldActionRow fieldAction(std::string_view text);

}  // namespace plinth
