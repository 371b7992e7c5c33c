// Gestures to changes of the form. The form's lists keep hidden objects between records: a new object takes
// the first place behind the visible ones, so that it lies on top and still does when the record is read
// back.
#include "engine/VariableObjects.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>

#include "basic/Text.h"
#include "engine/RecordLayout.h"
#include "engine/VariableArea.h"

namespace plinth {
namespace {

constexpr int kDragStart = 3;  // pixels before a press counts as a drag
constexpr const char* kNoRoomText = "The record has no room for more labels and pictures.";

// No page reaches further; anything may stand in a file.
int px(std::int32_t twips) {
  constexpr std::int32_t kFarthest = 30000 * kTwipsPerPixel;
  return twipsToPixels(static_cast<float>(std::clamp(twips, -kFarthest, kFarthest)));
}

// Index of the first object behind all visible ones; the list grows when there is none.
template <class Object>
std::size_t freeIndex(std::vector<Object>& objects) {
  std::size_t index = objects.size();
  while (index > 0 && !objects[index - 1].visible) --index;
  if (index == objects.size()) objects.emplace_back();
  return index;
}

LabelStyle styleOf(const VariableLabel& label) {
  return {label.fontSize, label.charSet, label.bold, label.italic, label.underline, label.foreColor};
}

void putStyle(const LabelStyle& style, VariableLabel& label) {
  label.fontSize = style.fontSize;
  label.charSet = style.charSet;
  label.bold = style.bold;
  label.italic = style.italic;
  label.underline = style.underline;
  label.foreColor = style.foreColor;
}

bool beginsWithAny(std::string_view text, std::initializer_list<std::string_view> starts) {
  return std::any_of(starts.begin(), starts.end(), [&](std::string_view start) {
    return text.size() > start.size() && text.substr(0, start.size()) == start;
  });
}

std::optional<std::string> addressOf(const std::string& word) {
  const std::string lower = lowerAscii(word);
  if (beginsWithAny(lower, {"http://", "https://", "mailto:"})) return word;
  if (beginsWithAny(lower, {"www."})) return "http://" + word;
  const std::size_t at = word.find('@');
  if (at == std::string::npos || at == 0 || at + 1 == word.size()) return std::nullopt;
  return "mailto:" + word;
}

}  // namespace

std::optional<LabelLink> labelLink(std::string_view text) {
  static constexpr std::string_view kMoves[] = {"<<<", "<<", "<", ">", ">>", ">>>", "<>"};
  const std::string whole = trim(text);
  for (std::size_t i = 0; i < std::size(kMoves); ++i)
    if (whole == kMoves[i]) return LabelLink{whole, {}, static_cast<int>(i)};
  constexpr std::string_view kBlanks = " \t\r\n";
  for (std::size_t begin = 0; (begin = whole.find_first_not_of(kBlanks, begin)) != std::string::npos;) {
    const std::size_t end = std::min(whole.find_first_of(kBlanks, begin), whole.size());
    const std::string word = whole.substr(begin, end - begin);
    if (auto target = addressOf(word)) return LabelLink{word, std::move(*target), -1};
    begin = end;
  }
  return std::nullopt;
}

std::vector<std::int32_t> freePictureNumbers(const std::vector<std::string>& names) {
  std::vector<std::int32_t> numbers;
  for (const std::string& name : names) {
    std::int32_t number = 0;
    const char* end = name.data() + name.size();
    const auto read = std::from_chars(name.data(), end, number);
    if (read.ec != std::errc() || number <= 0 || name.front() == '0') continue;
    if (lowerAscii(std::string_view(read.ptr, static_cast<std::size_t>(end - read.ptr))) == ".gif")
      numbers.push_back(number);
  }
  std::sort(numbers.begin(), numbers.end());
  numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
  return numbers;
}

VariableObjects::VariableObjects(RecordSession& session, Services services)
    : session_(session), services_(std::move(services)) {
  style_.charSet = session.application().charSet;
}

void VariableObjects::told() const {
  if (onChange) onChange();
}

void VariableObjects::setEditing(bool on) {
  editing_ = on && session_.application().varObjects;
  if (!editing_) {
    selected_ = {};
    dragging_ = false;
    tool_ = Tool::pointer;
  }
  told();
}

void VariableObjects::chooseTool(Tool tool, std::int32_t image, SizePx size) {
  tool_ = tool;
  image_ = image;
  imageSize_ = size;
  told();
}

void VariableObjects::setGridSize(int pixels) { grid_ = std::clamp(pixels, 1, kMostGrid); }

bool VariableObjects::alive(VariableRef object) const {
  const RecordForm& form = session_.form();
  const auto shown = [&](const auto& objects) {
    const auto n = static_cast<std::size_t>(object.index);
    return n < objects.size() && objects[n].visible && session_.visibleNow(objects[n].page);
  };
  if (!session_.isOpen() || object.index < 0) return false;
  if (object.kind == VariableRef::Kind::label) return shown(form.labels);
  return object.kind == VariableRef::Kind::picture && shown(form.variablePictures);
}

RectPx VariableObjects::place(VariableRef object) const {
  if (!alive(object)) return {};
  const auto n = static_cast<std::size_t>(object.index);
  if (object.kind == VariableRef::Kind::picture) {
    const VariablePicture& row = session_.form().variablePictures[n];
    return {px(row.left), px(row.top), std::max(0, px(row.width)), std::max(0, px(row.height))};
  }
  const VariableLabel& row = session_.form().labels[n];
  const SizePx size = services_.measure(row);
  return {px(row.left), px(row.top), size.width, size.height};
}

// Labels lie above pictures, later objects above earlier ones.
VariableRef VariableObjects::at(PointPx point) const {
  const RecordForm& form = session_.form();
  const auto hit = [&](VariableRef::Kind kind, std::size_t count) {
    for (std::size_t i = count; i > 0; --i)
      if (const VariableRef object{kind, static_cast<int>(i - 1)}; place(object).contains(point))
        return object;
    return VariableRef{};
  };
  const VariableRef label = hit(VariableRef::Kind::label, form.labels.size());
  return label ? label : hit(VariableRef::Kind::picture, form.variablePictures.size());
}

VariableRef VariableObjects::selection() const {
  return selectedRecord_ == session_.form().record && alive(selected_) ? selected_ : VariableRef{};
}

const VariableLabel* VariableObjects::selectedLabel() const {
  const VariableRef object = selection();
  if (object.kind != VariableRef::Kind::label) return nullptr;
  return &session_.form().labels[static_cast<std::size_t>(object.index)];
}

void VariableObjects::select(VariableRef object) {
  selected_ = object;
  selectedRecord_ = session_.form().record;
}

void VariableObjects::deselect() {
  dragging_ = false;
  select({});
  told();
}

void VariableObjects::settled() {
  changedRecord_ = 0;
  deselect();
}

bool VariableObjects::changed() const {
  return changedRecord_ != 0 && changedRecord_ == session_.form().record && session_.dirty();
}

// What the area could not hold before (an import may have brought it) does not stand in the way of less.
bool VariableObjects::hasRoomFor(const Change& change) const {
  RecordStore* store = session_.store();
  if (!store || store->layout().variableArea <= 0) return false;
  const auto first = static_cast<std::size_t>(store->layout().variableArea - 1);
  Bytes area(static_cast<std::size_t>(store->layout().recLen) - first);
  RecordForm trial;
  trial.labels = session_.form().labels;
  trial.variablePictures = session_.form().variablePictures;
  const int before = writeVariableArea(trial, area);
  change(trial);
  return writeVariableArea(trial, area) <= before;
}

bool VariableObjects::apply(const Change& change) {
  const std::int32_t record = session_.form().record;
  const bool done = session_.changeForm(change);
  if (done) changedRecord_ = record;
  if (!done) dragging_ = false;
  told();
  return done;
}

int VariableObjects::snapped(int pixels) const { return (std::max(0, pixels) + grid_ / 2) / grid_ * grid_; }

VariableRef VariableObjects::add(PointPx point) {
  const PointPx corner{snapped(point.x), snapped(point.y)};
  const bool label = tool_ == Tool::label;
  VariableRef made;
  const Change change = [&](RecordForm& form) {
    const auto begin = [&](auto& object) {
      object = {};
      object.visible = true;
      object.page = session_.currentPage();
      object.left = corner.x * kTwipsPerPixel;
      object.top = corner.y * kTwipsPerPixel;
    };
    if (label) {
      const std::size_t n = freeIndex(form.labels);
      VariableLabel& object = form.labels[n];
      begin(object);
      putStyle(style_, object);
      object.text = "Label";
      object.width = services_.measure(object).width * kTwipsPerPixel;
      made = {VariableRef::Kind::label, static_cast<int>(n)};
    } else {
      const std::size_t n = freeIndex(form.variablePictures);
      VariablePicture& object = form.variablePictures[n];
      begin(object);
      object.width = std::max(1, imageSize_.width) * kTwipsPerPixel;
      object.height = std::max(1, imageSize_.height) * kTwipsPerPixel;
      object.image = image_;
      made = {VariableRef::Kind::picture, static_cast<int>(n)};
    }
  };
  tool_ = Tool::pointer;
  if (!hasRoomFor(change)) {
    services_.messages.show(kNoRoomText, MessageIcon::warning);
    return {};
  }
  return apply(change) ? made : VariableRef{};
}

VariableRef VariableObjects::press(PointPx point) {
  dragging_ = moving_ = false;
  if (!editing_ || !session_.isOpen()) return {};
  const bool placing = tool_ != Tool::pointer;
  const VariableRef object = placing ? add(point) : at(point);
  select(object);
  if (object && !placing) {
    const RectPx rect = place(object);
    pressedAt_ = point;
    startCorner_ = {rect.left, rect.top};
    dragging_ = true;
  }
  if (const VariableLabel* label = selectedLabel()) {
    style_ = styleOf(*label);
    session_.variableLabelGotFocus();
  }
  told();
  return object;
}

// The top left corner stays on the page, and with it enough to take hold of.
bool VariableObjects::moveTo(PointPx corner) {
  const VariableRef object = selection();
  if (!object) return false;
  const RectPx rect = place(object);
  const std::int32_t left =
      std::clamp(corner.x, 0, std::max(0, services_.page.width - rect.width)) * kTwipsPerPixel;
  const std::int32_t top =
      std::clamp(corner.y, 0, std::max(0, services_.page.height - rect.height)) * kTwipsPerPixel;
  const auto n = static_cast<std::size_t>(object.index);
  const auto put = [&](auto& row) {
    row.left = left;
    row.top = top;
  };
  if (left / kTwipsPerPixel == rect.left && top / kTwipsPerPixel == rect.top) return true;
  return apply([&](RecordForm& form) {
    if (object.kind == VariableRef::Kind::label)
      put(form.labels[n]);
    else
      put(form.variablePictures[n]);
  });
}

void VariableObjects::drag(PointPx point) {
  if (!dragging_) return;
  if (!selection()) {
    dragging_ = false;
    return;
  }
  const PointPx by{point.x - pressedAt_.x, point.y - pressedAt_.y};
  moving_ = moving_ || std::abs(by.x) >= kDragStart || std::abs(by.y) >= kDragStart;
  if (moving_) moveTo({snapped(startCorner_.x + by.x), snapped(startCorner_.y + by.y)});
}

void VariableObjects::cancelDrag() {
  if (!dragging_) return;
  if (moving_) moveTo(startCorner_);
  dragging_ = false;
}

bool VariableObjects::keyDown(const KeyEvent& key) {
  if (!editing_) return false;
  if (key.key == kEscapeKey) {
    if (dragging_)
      cancelDrag();
    else if (tool_ != Tool::pointer)
      chooseTool(Tool::pointer);
    else
      deselect();
    return true;
  }
  const VariableRef object = selection();
  if (!object || dragging_) return false;
  if (key.key == kDeleteKey) return remove(), true;
  if (key.key < kLeftKey || key.key > kDownKey) return false;
  const int step = (key.shift & kCtrl) != 0 ? 1 : grid_;
  RectPx rect = place(object);
  rect.left += key.key == kLeftKey ? -step : key.key == kRightKey ? step : 0;
  rect.top += key.key == kUpKey ? -step : key.key == kDownKey ? step : 0;
  moveTo({rect.left, rect.top});
  return true;
}

bool VariableObjects::click(PointPx point) {
  const VariableRef object = at(point);
  if (object.kind != VariableRef::Kind::label) return false;
  session_.variableLabelGotFocus();
  const auto link = labelLink(session_.form().labels[static_cast<std::size_t>(object.index)].text);
  if (!link) return true;
  if (!link->target.empty())
    services_.shell.open(link->target);
  else if (link->navigation == 6)
    session_.newbutClick();
  else
    session_.command2Click(link->navigation);
  return true;
}

std::string VariableObjects::toolTip(PointPx point) const {
  const VariableRef object = at(point);
  if (object.kind != VariableRef::Kind::label) return {};
  const auto link = labelLink(session_.form().labels[static_cast<std::size_t>(object.index)].text);
  return link ? "Goto " + link->word : std::string();
}

bool VariableObjects::setText(const std::string& text) {
  const VariableLabel* label = selectedLabel();
  if (!label) return false;
  if (label->text == text) return true;
  const auto n = static_cast<std::size_t>(selected_.index);
  const Change change = [&](RecordForm& form) {
    VariableLabel& row = form.labels[n];
    row.text = text;
    row.width = services_.measure(row).width * kTwipsPerPixel;
  };
  if (!hasRoomFor(change)) {
    services_.messages.show(kNoRoomText, MessageIcon::warning);
    return false;
  }
  return apply(change);
}

bool VariableObjects::setStyle(const LabelStyle& style) {
  LabelStyle wanted = style;
  wanted.fontSize = std::clamp(wanted.fontSize, 1, 200);
  wanted.charSet = std::clamp(wanted.charSet, 0, 255);
  const VariableLabel* label = selectedLabel();
  if (label && styleOf(*label) != wanted) {
    const auto n = static_cast<std::size_t>(selected_.index);
    if (!apply([&](RecordForm& form) {
          VariableLabel& row = form.labels[n];
          putStyle(wanted, row);
          row.width = services_.measure(row).width * kTwipsPerPixel;
        }))
      return false;
  }
  style_ = wanted;
  told();
  return true;
}

LabelStyle VariableObjects::style() const {
  const VariableLabel* label = selectedLabel();
  return label ? styleOf(*label) : style_;
}

bool VariableObjects::remove() {
  const VariableRef object = selection();
  if (!object) return false;
  const auto n = static_cast<std::size_t>(object.index);
  const bool done = apply([&](RecordForm& form) {
    if (object.kind == VariableRef::Kind::label)
      form.labels[n].visible = false;
    else
      form.variablePictures[n].visible = false;
  });
  if (done) deselect();
  return done;
}

}  // namespace plinth
