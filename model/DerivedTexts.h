// The texts that a project carries for its finished application, each a copy of one language text, and the
// empty project that speaks this language.
#pragma once

#include <span>
#include <string>

#include "model/LanguageTexts.h"
#include "model/ProjectDocument.h"

namespace plinth {

// Number of the language text behind an entry of the three tables. Index 0 to 150, 0 to 59, 0 to 6.
int engineTextLabel(int index);
int menuTextLabel(int index);
int statLabel(int index);

// A caption of the run-time menus, which stands in one of two places of the project, and its language text.
struct MenuCaption {
  std::string RunMenus::*inMenus = nullptr;
  std::string ProjectValues::*apart = nullptr;
  int label = 0;
  bool opensDialog = false;  // "..." stands behind the text

  template <class Values>
  auto& of(Values& values) const {
    return inMenus ? values.menus.*inMenus : values.*apart;
  }
};
std::span<const MenuCaption> menuCaptions();

// Fills the three tables and the captions of the run-time menus. Does nothing while no language is loaded.
void applyLabels(const LanguageTexts& texts, ProjectDocument& document);

// Fills only the entries of the three tables that are copies of one text, 101 to 400. The menus keep their
// words, which a person may have changed.
void applyLabel(int label, const std::string& text, ProjectDocument& document);

// A project without objects, with the default options, captions in this language, and `today` (date serial)
// in the system label of the date. Without a language the captions are the English ones.
ProjectDocument emptyDocument(const LanguageTexts& texts, double today);

}  // namespace plinth
