// What a person enters goes to every member that has a value for the control, as one step of the history.
#include <algorithm>
#include <cmath>
#include <limits>
#include <type_traits>

#include "basic/NumberReader.h"
#include "surface/PanelRows.h"

namespace plinth {

namespace {

// What goes into a row: a text, or a number for all other values.
struct Entry {
  PanelId id;
  std::string text;
  double number = 0;
  int page = 0;  // the one in view
};

int asInt(PanelId id) { return static_cast<int>(id); }

template <class Value>
Value saturated(double number) {
  using Limits = std::numeric_limits<Value>;
  return static_cast<Value>(
      std::clamp(number, static_cast<double>(Limits::lowest()), static_cast<double>(Limits::max())));
}

float fieldTextHeight(float fontSize) {
  const float points = std::isfinite(fontSize) ? std::clamp(fontSize, 1.0f, 200.0f) : 9;
  return pixelsToTwips(static_cast<int>(std::lround(points * 96 / 72)));
}

// An object of all pages comes to the page in view, whichever it came from, and stays in sight there.
template <class Row>
void togglePage(Row& row, int page) {
  row.page = static_cast<std::int16_t>(row.page > kPageAll ? kPageAll : page);
  if constexpr (requires { row.visible; })
    if (row.page == page) row.visible = true;
}

template <class Row>
void put(Row& row, const Entry& entry) {
  if (entry.id == PanelId::allPages) return togglePage(row, entry.page);
  visitPanelValue(entry.id, row, [&](auto& value) {
    using Value = std::remove_cvref_t<decltype(value)>;
    if constexpr (std::is_same_v<Value, std::string>)
      value = entry.text;
    else
      value = saturated<Value>(entry.number);
  });
  if constexpr (std::is_same_v<Row, FieldRow>)
    if (entry.id == PanelId::fontSize || entry.id == PanelId::borderStyle)
      row.height = fieldTextHeight(row.fontSize);
}

bool isTyped(PanelInput input) {
  return input == PanelInput::text || input == PanelInput::number || input == PanelInput::combo ||
         input == PanelInput::scroll;
}

// A font has a name and a size; while the box is empty or says 0 the object keeps what it has.
bool isUsable(const Entry& entry) {
  if (entry.id == PanelId::fontSize) return entry.number >= 1;
  return entry.id != PanelId::fontName || !entry.text.empty();
}

// The label stands in files whose columns are parted by commas and whose lists by blanks and "~".
std::string usableLabel(std::string text) {
  std::erase(text, ',');
  std::ranges::replace(text, ' ', '_');
  std::ranges::replace(text, '~', '_');
  return text;
}

std::string atMost(const std::string& value, int most) {
  return val(value) > most ? std::to_string(most) : value;
}

}  // namespace

// The text as the control shall show it. An area's members of all kinds share one length, which is not
// limited by any of them.
std::string PropertyPanel::limited(PanelId id, const std::vector<ObjectRef>& members,
                                   const std::string& value) const {
  switch (id) {
    case PanelId::fontSize:
      return atMost(value, kMostFontSize);
    case PanelId::borderStyle:
      return val(value) < 0 ? "0" : atMost(value, kMostBorderStyle);
    case PanelId::fieldLabel:
      return usableLabel(value);
    case PanelId::fieldLength:
      if (val(value) < 0) return "0";
      if (area()) return value;
      return atMost(value, members.front().kind == ObjectKind::Memo ? kMostMemoLength : kMostFieldLength);
    default:
      return value;
  }
}

std::vector<ObjectRef> PropertyPanel::membersWith(PanelId id) const {
  std::vector<ObjectRef> members;
  std::ranges::copy_if(objects_, std::back_inserter(members),
                       [&](ObjectRef object) { return takesPanelValue(c_.document, id, object); });
  // Two boxes of one label could not be told apart in searches and exports.
  if (id == PanelId::fieldLabel && members.size() > 1) members.resize(1);
  return members;
}

void PropertyPanel::writeMembers(const std::vector<ObjectRef>& members, PanelId id, const std::string& text,
                                 double number) {
  const Entry entry{id, text, number, c_.state.currentPage};
  if (!isUsable(entry)) return;
  for (const ObjectRef object : members) withRow(c_.document, object, [&](auto& row) { put(row, entry); });
}

void PropertyPanel::write(PanelId id, const std::string& value) {
  fill();
  const PanelInput input = at(id).input;
  const bool typed = isTyped(input);
  if (isReadout(id)) return writePlace(id, value);
  if (input == PanelInput::button) {
    constexpr ColorTarget kTargets[] = {ColorTarget::textColor, ColorTarget::backColor,
                                        ColorTarget::borderColor};
    c_.state.colorTarget = kTargets[asInt(id)];
    return;
  }
  // A box that is filled by the panel tells of it as if someone had typed.
  if (typed && value == at(id).text) return;
  if (input == PanelInput::option && value.empty()) return;
  const std::vector<ObjectRef> members = membersWith(id);
  if (members.empty()) return;

  if (id >= PanelId::bold && id <= PanelId::alignCenter && c_.state.editedTitle >= 0) {
    c_.state.editedTitle = -1;
    c_.view.labelEditing();
  }
  const std::string text = limited(id, members, value);
  const double number = input == PanelInput::option  ? asInt(id) - asInt(PanelId::alignLeft)
                        : input == PanelInput::check ? (value.empty() ? 0 : 1)
                                                     : val(text);
  writeMembers(members, id, text, number);
  typed_.reset();
  fill();
  if (typed) {
    typed_ = Typed{id, at(id).text, text};
    at(id).text = text;
  }
  // Only typing goes on: two clicks are two steps.
  done(id, members, typed ? "panel " + std::to_string(asInt(id)) + " " + std::to_string(visit_) : "");
}

void PropertyPanel::useColor(std::int32_t color) {
  DesignState& state = c_.state;
  PanelId id = PanelId::color1;
  if (state.colorTarget == ColorTarget::textColor) {
    state.color1 = color;
  } else if (state.colorTarget == ColorTarget::backColor) {
    id = PanelId::color2;
    state.color2 = color;
  } else if (state.colorTarget == ColorTarget::borderColor) {
    id = PanelId::color3;
    state.color3 = color;
  } else {
    return;
  }
  noticeSelection();
  const std::vector<ObjectRef> members = membersWith(id);
  writeMembers(members, id, "", color);
  fill();
  at(id).color = color;
  done(id, members, "");
}

void PropertyPanel::done(PanelId id, const std::vector<ObjectRef>& members, const std::string& mergeKey) {
  if (members.empty()) return;
  const std::string words = std::string(panelWords(id)) + " of " + shortName(members);
  if (finish(c_, words, mergeKey)) c_.view.objectsChanged();
}

}  // namespace plinth
