// A form has one row for each of its application's objects; only the captions start with something in them.
#include "engine/RecordForm.h"

namespace plinth {

RecordForm makeRecordForm(const Application& application) {
  const Payload& p = application.payload;
  RecordForm form;
  form.fields.resize(p.fields.size());
  form.combos.resize(p.combos.size());
  form.checks.resize(p.checks.size());
  form.pictures.resize(p.pictures.size());
  form.memos.resize(p.memos.size());
  form.titles.reserve(p.titles.size());
  for (const PayloadTitle& title : p.titles) form.titles.push_back(title.caption);
  return form;
}

}  // namespace plinth
