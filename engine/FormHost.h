// The record form as the expression language sees it. Every write that changes something is told on, so that
// the window repaints one box and a script's first change begins an edit.
#pragma once

#include <functional>
#include <string>

#include "engine/EngineView.h"
#include "engine/RecordForm.h"
#include "formula/FormulaHost.h"
#include "platform/Clock.h"
#include "platform/Messages.h"

namespace plinth {

class FormHost : public FormulaHost {
 public:
  // All arguments must outlive the host.
  FormHost(const Application& application, RecordForm& form, EngineView& view, Messages& messages,
           const Clock& clock, const Locale& locale);

  // Called before the first and every other change; false keeps the form as it is. Empty: every change goes
  // through.
  std::function<bool()> beforeChange;

  int fieldCount() const override { return application_.fieldCount(); }
  int comboCount() const override { return application_.comboCount(); }
  int memoCount() const override { return application_.memoCount(); }
  int checkCount() const override { return application_.checkCount(); }
  int fieldType(int n) const override;
  std::string_view fieldFormula(int n) const override;
  int fieldDayOffset(int n) const override;
  bool fieldBlankWhenZero(int n) const override;
  std::string fieldText(int n) const override;
  void setFieldText(int n, std::string_view text) override;
  double fieldDate(int n) const override;
  void setFieldDate(int n, double serial) override;
  std::string comboText(int n) const override;
  void setComboText(int n, std::string_view text) override;
  std::string memoText(int n) const override;
  void setMemoText(int n, std::string_view text) override;
  int checkValue(int n) const override;
  void setCheckValue(int n, int value) override;
  long recordNumber() const override { return form_.record; }
  void showMessage(std::string_view text) override { messages_.show(text); }
  const Locale& locale() const override { return locale_; }
  double now() const override { return clock_.now(); }
  int codePage() const override { return application_.codePage; }

 private:
  bool liveField(int n) const;
  bool allowed() const { return !beforeChange || beforeChange(); }
  void setText(std::string& target, std::string_view text, std::int32_t room,
               void (EngineView::*changed)(int), int n);
  const Application& application_;
  RecordForm& form_;
  EngineView& view_;
  Messages& messages_;
  const Clock& clock_;
  const Locale& locale_;
};

}  // namespace plinth
