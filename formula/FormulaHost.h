// What the expression language sees of a record: the objects by kind and number, with what their boxes show.
// The designer's test page and the engine's record form both stand behind this one interface.
#pragma once

#include <string>
#include <string_view>

#include "basic/Locale.h"

namespace plinth {

// The stated differences between the two programs.
enum class FormulaMode {
  designer,  // texts compare byte for byte; no message boxes
  engine,    // texts compare without regard to case; MSGBOX works
};

class FormulaHost {
 public:
  virtual ~FormulaHost() = default;

  // Highest index in use: fields, combos and memos from 1 (0 for none), check boxes from 0 (-1 for none).
  virtual int fieldCount() const = 0;
  virtual int comboCount() const = 0;
  virtual int memoCount() const = 0;
  virtual int checkCount() const = 0;

  // Of field n: 0 to 23; the formula's text, "" for none (raw in the designer, already prepared in a finished
  // application); days added to a date result; whether a zero result empties the box.
  virtual int fieldType(int n) const = 0;
  virtual std::string_view fieldFormula(int n) const = 0;
  virtual int fieldDayOffset(int n) const = 0;
  virtual bool fieldBlankWhenZero(int n) const = 0;

  // What the boxes show, 8-bit text. A write to a vacant or unknown number is passed over.
  virtual std::string fieldText(int n) const = 0;
  virtual void setFieldText(int n, std::string_view text) = 0;
  // The date held for a date or time field as a serial; 0 for none.
  virtual double fieldDate(int n) const = 0;
  virtual void setFieldDate(int n, double serial) = 0;
  virtual std::string comboText(int n) const = 0;
  virtual void setComboText(int n, std::string_view text) = 0;
  virtual std::string memoText(int n) const = 0;
  virtual void setMemoText(int n, std::string_view text) = 0;
  virtual int checkValue(int n) const = 0;  // 0 or 1
  virtual void setCheckValue(int n, int value) = 0;

  // Number of the current record, 1 upward.
  virtual long recordNumber() const = 0;
  // Shows a value in a message box (engine only).
  virtual void showMessage(std::string_view text) = 0;

  virtual const Locale& locale() const = 0;
  // Today and now as a date serial.
  virtual double now() const = 0;
  virtual int codePage() const = 0;
};

}  // namespace plinth
