// What keys, mouse and timer make of a scroll bar's value.
#include "widgets/ScrollBarModel.h"

#include <gtest/gtest.h>

#include <limits>

#include "platform/Events.h"

namespace plinth {
namespace {

// 0 to 100 by 5 and 1, 200 pixels long, the thumb begins between 17 and 183 - 12.
ScrollBarModel bar(ScrollValues values = {}) {
  ScrollBarModel model;
  model.setSize(200, 17);
  model.setValues(values);
  return model;
}

TEST(ScrollBarModel, HeldKeysRunByTheTimerAndStopWithTheKey) {
  const struct {
    int key;
    RepeatMode mode;
    int interval, value;  // after one tick, from 50
  } kKeys[] = {{33, RepeatMode::pageBack, 100, 45}, {34, RepeatMode::pageForward, 100, 55},
               {38, RepeatMode::stepBack, 10, 49},  {40, RepeatMode::stepForward, 10, 51},
               {37, RepeatMode::stepBack, 10, 49},  {39, RepeatMode::stepForward, 10, 51}};
  for (const auto& one : kKeys) {
    ScrollBarModel model = bar({50});
    ASSERT_TRUE(model.keyDown(one.key)) << one.key;
    EXPECT_EQ(model.repeatMode(), one.mode) << one.key;
    EXPECT_EQ(model.timerInterval(), one.interval) << one.key;
    EXPECT_EQ(model.value(), 50) << one.key;  // only ticks move it
    EXPECT_TRUE(model.tick());
    EXPECT_TRUE(model.keyDown(one.key));  // as the system repeats it
    EXPECT_EQ(model.value(), one.value) << one.key;
    EXPECT_FALSE(model.keyUp());
    EXPECT_EQ(model.repeatMode(), RepeatMode::none);
    EXPECT_FALSE(model.timerRuns());
    EXPECT_EQ(model.timerInterval(), 100);
    EXPECT_FALSE(model.tick());
    EXPECT_EQ(model.value(), one.value) << one.key;
  }
  ScrollBarModel model = bar({50});
  EXPECT_FALSE(model.keyDown(65));
  model.keyDown(kPageDownKey);  // shorter than the timer's interval
  EXPECT_EQ(model.keyUp(), ScrollCode::pageForward);
  EXPECT_EQ(model.value(), 55);
  EXPECT_EQ(model.jump(kHomeKey), ScrollCode::start);
  EXPECT_EQ(model.value(), 0);
  EXPECT_FALSE(model.jump(kHomeKey));
  EXPECT_EQ(model.wheel(-3), std::nullopt);
  EXPECT_EQ(model.wheel(3), ScrollCode::stepForward);
  EXPECT_EQ(model.value(), 3);
}

TEST(ScrollBarModel, PressesBesideTheThumbRunFromAHundredMilliseconds) {
  const struct {
    int position;
    RepeatMode mode;
    int value, interval;  // after the first tick, from 50
  } kPresses[] = {{0, RepeatMode::stepBack, 49, 10},      {16, RepeatMode::stepBack, 49, 10},
                  {17, RepeatMode::pageBack, 45, 100},    {182, RepeatMode::pageForward, 55, 100},
                  {183, RepeatMode::stepForward, 51, 10}, {-1, RepeatMode::none, 50, 100},
                  {200, RepeatMode::none, 50, 100}};
  for (const auto& one : kPresses) {
    ScrollBarModel model = bar({50});
    model.press(one.position);
    EXPECT_EQ(model.repeatMode(), one.mode) << one.position;
    EXPECT_EQ(model.timerInterval(), 100) << one.position;
    model.tick();
    EXPECT_EQ(model.value(), one.value) << one.position;
    EXPECT_EQ(model.timerInterval(), one.interval) << one.position;
    model.release();
    EXPECT_EQ(model.value(), one.value) << one.position;
  }
}

TEST(ScrollBarModel, StaysWithinItsRange) {
  ScrollBarModel model = bar({98});
  model.press(183);
  for (int i = 0; i < 2; ++i) EXPECT_EQ(model.tick(), ScrollCode::stepForward);
  EXPECT_FALSE(model.tick());
  EXPECT_EQ(model.value(), 100);
  model.release();
  model.keyDown(kPageDownKey);
  EXPECT_FALSE(model.tick());
  model.keyUp();

  constexpr int kMost = std::numeric_limits<int>::max(), kLeast = std::numeric_limits<int>::min();
  model.setValues({kMost - 1, kLeast, kMost, kMost, kMost});
  model.keyDown(kDownKey);
  model.tick();
  EXPECT_EQ(model.value(), kMost);
  EXPECT_EQ(model.thumbPos() + model.thumbLength(), 183);
  model.setValues({5, 10, 3, 0, -2});
  EXPECT_EQ(model.value(), 10);
  EXPECT_EQ(model.values().smallChange, 1);
  EXPECT_FALSE(model.movable());
  EXPECT_EQ(model.thumbLength(), 0);
}

TEST(ScrollBarModel, TheThumbFollowsThePointer) {
  ScrollBarModel model = bar({50});
  const int begin = model.thumbPos();
  EXPECT_EQ(model.zoneAt(begin), ScrollZone::thumb);
  EXPECT_EQ(model.zoneAt(begin - 1), ScrollZone::backTrack);
  EXPECT_EQ(model.zoneAt(begin + model.thumbLength()), ScrollZone::forwardTrack);
  model.press(begin + 3);
  EXPECT_TRUE(model.dragging());
  EXPECT_FALSE(model.timerRuns());
  EXPECT_FALSE(model.drag(begin + 3));
  EXPECT_EQ(model.drag(19), ScrollCode::thumbTrack);  // the thumb begins at 16
  EXPECT_EQ(model.value(), 0);
  EXPECT_EQ(model.drag(-500), std::nullopt);
  model.drag(5000);
  EXPECT_EQ(model.value(), 100);
  model.drag(60, true);  // far beside the bar
  EXPECT_EQ(model.value(), 50);
  model.drag(70);
  EXPECT_EQ(model.release(), ScrollCode::thumbDrop);
  EXPECT_LT(model.value(), 50);
  const int dropped = model.value();
  model.press(model.thumbPos());
  model.drag(150);
  EXPECT_EQ(model.cancel(), ScrollCode::thumbTrack);
  EXPECT_EQ(model.value(), dropped);
  EXPECT_FALSE(model.drag(100));
}

TEST(ScrollBarModel, ValueAndThumbAgreeOverTheWholeRange) {
  for (const bool lowToHigh : {true, false})
    for (const int length : {80, 201, 500}) {
      ScrollBarModel model = bar();
      model.setLowToHigh(lowToHigh);
      model.setSize(length, 17);
      int last = lowToHigh ? -1 : 10000;
      for (int position = 0; position < length; ++position) {
        const int value = model.valueAt(position);
        EXPECT_TRUE(lowToHigh ? value >= last : value <= last) << position;
        EXPECT_TRUE(value >= 0 && value <= 100) << position;
        EXPECT_TRUE(position >= 17 || value == (lowToHigh ? 0 : 100)) << position;
        last = value;
      }
      EXPECT_EQ(last, lowToHigh ? 100 : 0);
      if (length < 201) continue;  // fewer pixels than values
      for (int value = 0; value <= 100; ++value) {
        model.setValues({value});
        EXPECT_EQ(model.valueAt(model.thumbPos()), value) << length;
      }
    }
}

TEST(ScrollBarModel, BarsWithoutRoomOrTurnedOffDoNothing) {
  for (int length = 0; length < 60; ++length) {
    ScrollBarModel model = bar({50});
    model.setSize(length, 30);
    EXPECT_LE(2 * model.arrowLength(), length);
    for (int position = -1; position <= length; ++position) {
      model.press(position);
      model.drag(position + 9);
      model.release();
      EXPECT_TRUE(model.value() >= 0 && model.value() <= 100);
    }
    EXPECT_LE(model.thumbPos() + model.thumbLength(), length - model.arrowLength()) << length;
  }
  ScrollBarModel model = bar({50});
  model.keyDown(kDownKey);
  model.setEnabled(false);
  EXPECT_FALSE(model.timerRuns());
  model.press(190);
  model.keyDown(kDownKey);
  EXPECT_FALSE(model.tick());
  EXPECT_EQ(model.value(), 50);
}

}  // namespace
}  // namespace plinth
