// What the boxes of one record show, as a value. The store moves it from and to disk, formulas and the tool
// work on it, the window mirrors it: nothing but the form knows the record being edited.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "engine/Application.h"

namespace plinth {

struct FormField {
  std::string text;     // as shown, 8-bit text
  double date = 0;      // kinds 6 to 12: the date or time held, days since 1899-12-30; 0 for none
  bool locked = false;  // the person cannot type into it
};

struct FormText {  // combo or memo
  std::string text;
  bool locked = false;
};

struct FormCheck {
  int value = 0;  // 0 or 1; other bytes of a foreign file stay as they are
  bool locked = false;
};

struct FormPicture {
  std::string stem;  // name of the image file in PicDir, at most 8 characters; "" shows the blank picture
  bool locked = false;
};

// Free labels and pictures that a person dropped onto one record. Positions and sizes in twips. The objects
// stay in the form from record to record and are only hidden.
struct VariableLabel {
  bool visible = false;
  int page = 0;
  bool bold = false, italic = false, underline = false;
  int fontSize = 9, charSet = 0;  // points; character set number
  std::string text;
  std::int32_t foreColor = 0, left = 0, top = 0, width = 0;
};

struct VariablePicture {
  bool visible = false;
  int page = 0;
  std::int32_t left = 0, top = 0, width = 0, height = 0;
  std::int32_t image = 0;   // above 0: Images\<number>.gif beside the application
  std::int32_t second = 0;  // kept with the picture
};

// Each vector has the application's indices (row 0 of fields, combos, memos and titles is unused).
struct RecordForm {
  std::int32_t record = 0;  // 0 while no record is shown
  std::vector<FormField> fields;
  std::vector<FormText> combos;
  std::vector<FormCheck> checks;
  std::vector<FormPicture> pictures;  // fixed pictures of the design keep an empty stem
  std::vector<FormText> memos;
  std::vector<std::string> titles;  // captions as shown, also of the system labels 1 to 5
  double dateStamp = 0;             // whole days; 0 for none
  std::vector<VariableLabel> labels;
  std::vector<VariablePicture> variablePictures;
};

// A form with one empty object for each of the application's, titles with their captions.
RecordForm makeRecordForm(const Application& application);

}  // namespace plinth
