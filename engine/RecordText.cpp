// The boxes of a record in tab order, read and typed into without a window. Typing goes through the session's
// own events, so that a value set by a script passes the same filters, formats and formulas as one from the
// keyboard.
#include "engine/RecordText.h"

#include <algorithm>

#include "basic/CodePage.h"
#include "basic/Text.h"
#include "engine/FieldEntry.h"
#include "engine/RecordLayout.h"

namespace plinth {
namespace {

struct OrderedBox {
  BoxRef box;
  int order;
};

template <class Rows, class Label>
void collect(std::vector<OrderedBox>& boxes, const Rows& rows, BoxKind kind, char letter, Label describe) {
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (!Application::live(rows[i].page)) continue;
    const auto [label, order, holdsData] = describe(rows[i]);
    if (!holdsData) continue;
    const int index = static_cast<int>(i);
    boxes.push_back({{kind, index, label, letter + std::to_string(index)}, order});
  }
}

struct Described {
  std::string label;
  int order;
  bool holdsData;
};

bool lockedBox(const RecordForm& form, const BoxRef& box) {
  const std::size_t i = static_cast<std::size_t>(box.index);
  switch (box.kind) {
    case BoxKind::field:
      return form.fields[i].locked;
    case BoxKind::combo:
      return form.combos[i].locked;
    case BoxKind::check:
      return form.checks[i].locked;
    case BoxKind::memo:
      return form.memos[i].locked;
    case BoxKind::picture:
      return form.pictures[i].locked;
  }
  return true;
}

std::int32_t roomOf(const Application& application, const BoxRef& box) {
  switch (box.kind) {
    case BoxKind::field:
      return application.field(box.index).fieldLength;
    case BoxKind::combo:
      return application.combo(box.index).fieldLength;
    case BoxKind::memo:
      return application.memo(box.index).fieldLength;
    default:
      return kPictureStemSize;
  }
}

Error refused(const BoxRef& box, const std::string& why) {
  return {ErrorKind::wrongUsage, (box.label.empty() ? box.reference : box.label) + ": " + why};
}

// The characters that get through the box's filters, one after the other as typed.
Result<std::string> typedText(const RecordSession& session, const BoxRef& box, std::string_view text) {
  const Application& application = session.application();
  const PayloadField& row = application.field(box.index);
  std::string typed;
  for (const char c : text) {
    const unsigned char ch = static_cast<unsigned char>(c);
    const unsigned char taken = ch < 32 ? 0 : keyPressFilter(row.fieldType, ch);
    if (taken == 0)
      return refused(box, "\"" + std::string(text) + "\" holds characters that this box does not take.");
    typed += static_cast<char>(casedKey(row.textCase, taken, typed, application.codePage));
  }
  return typed;
}

// Whether a box would take the text at all: one that it cannot read would leave it with what it held before.
bool readable(const RecordSession& session, const BoxRef& box, const std::string& typed) {
  const EnteredField nothing{"\x01", -1};
  return enterField(session.application(), box.index, typed, nothing, session.now(), session.locale()).text !=
         nothing.text;
}

// The text as it would be typed, when the box takes it.
Result<std::string> acceptedText(const RecordSession& session, const BoxRef& box, std::string_view text) {
  if (box.kind == BoxKind::picture) return refused(box, "pictures are not set by name.");
  if (box.kind == BoxKind::check && text != "0" && text != "1")
    return refused(box, "a check box takes 0 or 1.");
  if (text.size() > static_cast<std::size_t>(roomOf(session.application(), box)))
    return refused(box, "the text is longer than the " + std::to_string(roomOf(session.application(), box)) +
                            " characters of the box.");
  if (box.kind != BoxKind::field) return std::string(text);
  Result<std::string> typed = typedText(session, box, text);
  if (typed && !readable(session, box, *typed))
    return refused(box, "\"" + *typed + "\" is not what the box holds.");
  return typed;
}

void typeIntoField(RecordSession& session, int n, const std::string& typed) {
  session.fieldGotFocus(n);
  session.fieldEdited(n, typed);
  session.fieldLostFocus(n);
}

}  // namespace

std::vector<BoxRef> recordBoxes(const Application& application) {
  const Payload& p = application.payload;
  std::vector<OrderedBox> boxes;
  const auto plain = [](const auto& row) {
    return Described{row.tag, static_cast<int>(row.exportOrder), true};
  };
  collect(boxes, p.fields, BoxKind::field, 'F', plain);
  collect(boxes, p.combos, BoxKind::combo, 'C', plain);
  collect(boxes, p.checks, BoxKind::check, 'K', plain);
  collect(boxes, p.memos, BoxKind::memo, 'M', plain);
  // Pictures have no place in the tab order: they follow.
  collect(boxes, p.pictures, BoxKind::picture, 'P', [](const PayloadPicture& row) {
    return Described{row.name, 1 << 20, row.isData()};
  });
  std::stable_sort(boxes.begin(), boxes.end(),
                   [](const OrderedBox& a, const OrderedBox& b) { return a.order < b.order; });
  std::vector<BoxRef> result;
  result.reserve(boxes.size());
  for (OrderedBox& box : boxes) result.push_back(std::move(box.box));
  return result;
}

const BoxRef* findBox(const std::vector<BoxRef>& boxes, std::string_view labelOrReference, int codePage) {
  for (const BoxRef& box : boxes)
    if (compareFolded(box.label, labelOrReference, codePage) == 0) return &box;
  for (const BoxRef& box : boxes)
    if (equalAsciiNoCase(box.reference, labelOrReference)) return &box;
  return nullptr;
}

std::string boxText(const RecordForm& form, const BoxRef& box) {
  const std::size_t i = static_cast<std::size_t>(box.index);
  switch (box.kind) {
    case BoxKind::field:
      return form.fields[i].text;
    case BoxKind::combo:
      return form.combos[i].text;
    case BoxKind::check:
      return form.checks[i].value != 0 ? "1" : "0";
    case BoxKind::memo:
      return form.memos[i].text;
    case BoxKind::picture:
      return form.pictures[i].stem;
  }
  return {};
}

Result<void> acceptsText(const RecordSession& session, const BoxRef& box, std::string_view text) {
  const Result<std::string> typed = acceptedText(session, box, text);
  return typed ? Result<void>() : typed.error();
}

Result<void> mayType(const RecordSession& session, const BoxRef& box, std::string_view text) {
  if (box.kind != BoxKind::picture && boxText(session.form(), box) == text) return {};
  if (session.readOnly()) return Error{ErrorKind::denied, "The data is read-only."};
  if (box.kind != BoxKind::picture && lockedBox(session.form(), box))
    return Error{ErrorKind::denied, box.label + " cannot be changed once it was entered."};
  return acceptsText(session, box, text);
}

Result<void> typeIntoBox(RecordSession& session, const BoxRef& box, std::string_view text) {
  if (const Result<void> may = mayType(session, box, text); !may) return may;
  if (boxText(session.form(), box) == text) return {};
  const std::string typed = *acceptedText(session, box, text);
  const std::int32_t record = session.curRec();
  if (!session.beginEdit() || session.curRec() != record)
    return Error{ErrorKind::locked, "Record " + std::to_string(record) + " is in use by another user."};
  switch (box.kind) {
    case BoxKind::field:
      typeIntoField(session, box.index, typed);
      break;
    case BoxKind::combo:
      session.comboGotFocus(box.index), session.comboClick(box.index, text);
      break;
    case BoxKind::check:
      session.checkGotFocus(box.index), session.checkClick(box.index);
      break;
    case BoxKind::memo:
      session.memoGotFocus(box.index), session.memoEdited(box.index, text);
      break;
    case BoxKind::picture:
      break;
  }
  return {};
}

}  // namespace plinth
