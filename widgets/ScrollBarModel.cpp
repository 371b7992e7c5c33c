// Values are reckoned in 64 bits: ranges and changes may be as large as an int.
#include "widgets/ScrollBarModel.h"

#include <algorithm>

#include "platform/Events.h"

namespace plinth {

namespace {

constexpr int kLeastThumb = 12;  // pixels; less cannot be caught with the mouse

RepeatMode modeOfKey(int key) {
  switch (key) {
    case kPageUpKey:
      return RepeatMode::pageBack;
    case kPageDownKey:
      return RepeatMode::pageForward;
    case kUpKey:
    case kLeftKey:
      return RepeatMode::stepBack;
    case kDownKey:
    case kRightKey:
      return RepeatMode::stepForward;
    default:
      return RepeatMode::none;
  }
}

bool isStep(RepeatMode mode) { return mode == RepeatMode::stepBack || mode == RepeatMode::stepForward; }

}  // namespace

void ScrollBarModel::setValues(const ScrollValues& values) {
  values_ = values;
  values_.valueMax = std::max(values.valueMin, values.valueMax);
  values_.value = std::clamp(values.value, values_.valueMin, values_.valueMax);
  values_.largeChange = std::max(1, values.largeChange);
  values_.smallChange = std::max(1, values.smallChange);
}

void ScrollBarModel::setEnabled(bool enabled) {
  enabled_ = enabled;
  if (!enabled) stop();
}

void ScrollBarModel::setSize(int length, int breadth) {
  length_ = std::max(0, length);
  breadth_ = std::max(0, breadth);
}

int ScrollBarModel::arrowLength() const { return std::min(std::max(kArrowEnd, breadth_), length_ / 2); }

// As long, of the track, as a page is of everything.
int ScrollBarModel::thumbLength() const {
  const long long track = length_ - 2 * arrowLength();
  const long long range = static_cast<long long>(values_.valueMax) - values_.valueMin;
  if (!movable() || track < 2 * kLeastThumb) return 0;
  const long long wanted = track * values_.largeChange / (range + values_.largeChange);
  return static_cast<int>(std::clamp<long long>(wanted, kLeastThumb, track - 1));
}

int ScrollBarModel::thumbPos() const {
  const long long range = static_cast<long long>(values_.valueMax) - values_.valueMin;
  if (range == 0) return arrowLength();
  const long long room = std::max(0, freeTrack());
  long long offset = static_cast<long long>(values_.value) - values_.valueMin;
  if (!lowToHigh_) offset = range - offset;
  return arrowLength() + static_cast<int>((offset * room + range / 2) / range);
}

ScrollZone ScrollBarModel::zoneAt(int position) const {
  if (position < 0 || position >= length_) return ScrollZone::none;
  if (position < arrowLength()) return ScrollZone::backArrow;
  if (position >= length_ - arrowLength()) return ScrollZone::forwardArrow;
  if (thumbLength() == 0) return ScrollZone::none;
  if (position < thumbPos()) return ScrollZone::backTrack;
  return position < thumbPos() + thumbLength() ? ScrollZone::thumb : ScrollZone::forwardTrack;
}

int ScrollBarModel::valueAt(int position) const {
  const long long range = static_cast<long long>(values_.valueMax) - values_.valueMin;
  const long long room = freeTrack();
  // Where the bar begins, which is the lowest value but in a bar that runs the other way.
  if (position < arrowLength() || position < kArrowEnd || room <= 0)
    return lowToHigh_ ? values_.valueMin : values_.valueMax;
  const long long offset = std::min(range, ((position - arrowLength()) * range + room / 2) / room);
  return static_cast<int>(lowToHigh_ ? values_.valueMin + offset : values_.valueMax - offset);
}

void ScrollBarModel::start(RepeatMode mode, int interval) {
  mode_ = mode;
  interval_ = interval;
  timerRuns_ = true;
  ticked_ = false;
}

void ScrollBarModel::stop() {
  mode_ = RepeatMode::none;
  interval_ = kPageInterval;
  timerRuns_ = dragging_ = false;
}

bool ScrollBarModel::moveTo(long long value) {
  const int before = values_.value;
  values_.value = static_cast<int>(std::clamp<long long>(value, values_.valueMin, values_.valueMax));
  return values_.value != before;
}

std::optional<ScrollCode> ScrollBarModel::step() {
  static constexpr ScrollCode kCodes[] = {ScrollCode::done, ScrollCode::pageBack, ScrollCode::pageForward,
                                          ScrollCode::stepBack, ScrollCode::stepForward};
  const bool back = mode_ == RepeatMode::pageBack || mode_ == RepeatMode::stepBack;
  const long long change = isStep(mode_) ? values_.smallChange : values_.largeChange;
  if (mode_ == RepeatMode::none || !moveTo(values_.value + (back == lowToHigh_ ? -change : change)))
    return std::nullopt;
  return kCodes[static_cast<int>(mode_)];
}

void ScrollBarModel::press(int position) {
  if (!movable()) return;
  switch (zoneAt(position)) {
    case ScrollZone::backArrow:
      return start(RepeatMode::stepBack, kPageInterval);
    case ScrollZone::forwardArrow:
      return start(RepeatMode::stepForward, kPageInterval);
    case ScrollZone::backTrack:
      return start(RepeatMode::pageBack, kPageInterval);
    case ScrollZone::forwardTrack:
      return start(RepeatMode::pageForward, kPageInterval);
    case ScrollZone::thumb:
      dragging_ = true;
      grip_ = position - thumbPos();
      valueBefore_ = values_.value;
      return;
    case ScrollZone::none:
      return;
  }
}

std::optional<ScrollCode> ScrollBarModel::drag(int position, bool away) {
  if (!dragging_) return std::nullopt;
  // Where a pixel stands for many values, a thumb that has not moved keeps its own.
  const int begin = position - grip_;
  if (!away && begin == thumbPos()) return std::nullopt;
  const bool moved = moveTo(away ? valueBefore_ : valueAt(begin));
  return moved ? std::optional(ScrollCode::thumbTrack) : std::nullopt;
}

std::optional<ScrollCode> ScrollBarModel::release() {
  std::optional<ScrollCode> code;
  if (dragging_) code = ScrollCode::thumbDrop;
  if (mode_ != RepeatMode::none && !ticked_) code = step();
  stop();
  return code;
}

std::optional<ScrollCode> ScrollBarModel::cancel() {
  const bool moved = dragging_ && moveTo(valueBefore_);
  stop();
  return moved ? std::optional(ScrollCode::thumbTrack) : std::nullopt;
}

bool ScrollBarModel::keyDown(int key) {
  const RepeatMode mode = modeOfKey(key);
  if (mode == RepeatMode::none) return false;
  // The system repeats held keys by itself; beginning anew with each would keep the timer from ticking.
  if (movable() && !dragging_ && mode != mode_) start(mode, isStep(mode) ? kStepInterval : kPageInterval);
  return true;
}

std::optional<ScrollCode> ScrollBarModel::jump(int key) {
  if ((key != kHomeKey && key != kEndKey) || !movable() || dragging_) return std::nullopt;
  const bool lowest = (key == kHomeKey) == lowToHigh_;
  if (!moveTo(lowest ? values_.valueMin : values_.valueMax)) return std::nullopt;
  return key == kHomeKey ? ScrollCode::start : ScrollCode::end;
}

std::optional<ScrollCode> ScrollBarModel::keyUp() { return dragging_ ? std::nullopt : release(); }

std::optional<ScrollCode> ScrollBarModel::wheel(int steps) {
  if (!movable() || dragging_) return std::nullopt;
  const long long change = static_cast<long long>(steps) * values_.smallChange;
  if (!moveTo(values_.value + (lowToHigh_ ? change : -change))) return std::nullopt;
  return steps < 0 ? ScrollCode::stepBack : ScrollCode::stepForward;
}

std::optional<ScrollCode> ScrollBarModel::tick() {
  if (!timerRuns_) return std::nullopt;
  const std::optional<ScrollCode> code = step();
  ticked_ = true;
  if (isStep(mode_)) interval_ = kStepInterval;
  return code;
}

}  // namespace plinth
