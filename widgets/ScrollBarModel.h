// A drawn scroll bar without its window: values, zones, thumb, and what keys, mouse and timer make of them.
// Positions are pixels along the bar from its beginning; which way the bar lies is its owner's affair.
#pragma once

#include <optional>

namespace plinth {

// What runs while a key or button is held; the numbers are those that owners may store.
enum class RepeatMode { none, pageBack, pageForward, stepBack, stepForward };

// Parts of the bar from its beginning to its end.
enum class ScrollZone { none, backArrow, backTrack, thumb, forwardTrack, forwardArrow };

// What a change is called where it is told; in the order of the system's own codes.
enum class ScrollCode {
  stepBack,
  stepForward,
  pageBack,
  pageForward,
  thumbDrop,
  thumbTrack,
  start,
  end,
  done
};

// Stored with a design under these words.
struct ScrollValues {
  int value = 0;        // Value
  int valueMin = 0;     // ValueMin
  int valueMax = 100;   // ValueMax
  int largeChange = 5;  // ValueLargeChange
  int smallChange = 1;  // ValueSmallChange
};

inline constexpr int kArrowEnd = 17;       // pixels, of an arrow at the bar's end at 96 dpi
inline constexpr int kPageInterval = 100;  // milliseconds between pages, and before held steps run
inline constexpr int kStepInterval = 10;   // milliseconds between steps

class ScrollBarModel {
 public:
  const ScrollValues& values() const { return values_; }
  int value() const { return values_.value; }
  // All values at once. A maximum below the minimum counts as the minimum, changes below 1 as 1, a value
  // outside as the nearest inside. A drag goes on under the new values.
  void setValues(const ScrollValues& values);
  // Whether the value has anywhere to go.
  bool movable() const { return enabled_ && values_.valueMax > values_.valueMin; }
  // A bar that gets disabled stops what runs.
  void setEnabled(bool enabled);
  bool enabled() const { return enabled_; }
  // Pixels of the bar's long and short side; the arrows grow with the short one.
  void setSize(int length, int breadth);
  // False: the lowest value lies at the end of the bar (LowToHeigh).
  void setLowToHigh(bool lowToHigh) { lowToHigh_ = lowToHigh; }
  bool lowToHigh() const { return lowToHigh_; }

  int length() const { return length_; }
  int arrowLength() const;  // of each end; less than kArrowEnd in a bar that has no room for two
  int thumbLength() const;  // 0: no room
  int thumbPos() const;     // ThumbPos: where the thumb begins
  ScrollZone zoneAt(int position) const;

  // The value for a thumb that begins at a position: the lowest below kArrowEnd (or the arrow's length, where
  // that is more), never above the highest.
  int valueAt(int position) const;

  // Mouse, left button. A press on the thumb takes it along, elsewhere it starts the timer.
  void press(int position);
  // Pointer moved while the button is held: what has changed, if anything. `away`: so far beside the bar that
  // the thumb goes back to where it was pressed.
  std::optional<ScrollCode> drag(int position, bool away = false);
  // The button is up. Something that no tick has moved yet moves once: a short click counts. Then comes done.
  std::optional<ScrollCode> release();
  // The mouse was taken away: a dragged thumb goes back, and nothing runs any longer.
  std::optional<ScrollCode> cancel();
  bool dragging() const { return dragging_; }

  // Keys by their virtual codes; repeats of a held key change nothing. False: not a key of scroll bars.
  // Page Up, Page Down, Up and Left, Down and Right run until keyUp.
  bool keyDown(int key);
  // Home and End: at once. Nothing for other keys.
  std::optional<ScrollCode> jump(int key);
  // As release().
  std::optional<ScrollCode> keyUp();
  // A turned wheel: steps, negative towards the beginning.
  std::optional<ScrollCode> wheel(int steps);

  RepeatMode repeatMode() const { return mode_; }
  bool timerRuns() const { return timerRuns_; }
  int timerInterval() const { return interval_; }  // milliseconds
  // Timer1 ticked. Nothing when the value could not move.
  std::optional<ScrollCode> tick();

 private:
  int freeTrack() const { return length_ - 2 * arrowLength() - thumbLength(); }
  void start(RepeatMode mode, int interval);
  void stop();
  std::optional<ScrollCode> step();
  bool moveTo(long long value);
  ScrollValues values_;
  bool enabled_ = true, lowToHigh_ = true;
  int length_ = 0, breadth_ = kArrowEnd;
  RepeatMode mode_ = RepeatMode::none;
  bool timerRuns_ = false, ticked_ = false;
  int interval_ = kPageInterval;
  bool dragging_ = false;
  int grip_ = 0;         // from the thumb's beginning to the pointer
  int valueBefore_ = 0;  // of a drag
};

}  // namespace plinth
