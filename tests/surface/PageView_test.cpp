// A project's rows as what a person sees on a page, and the drawing area around it.
#include "surface/PageView.h"

#include <gtest/gtest.h>

#include <limits>

#include "surface/ObjectPlaces.h"
#include "surface/PageSurface.h"
#include "tests/fakes/RecordingCanvas.h"

namespace plinth {
namespace {

class NamedImages : public PageImages {
 public:
  std::shared_ptr<Image> at(const std::string& path) override {
    return path.empty() ? nullptr : std::make_shared<FakeImage>(SizePx{16, 16}, path);
  }
};

class QuietView : public SurfaceView {
 public:
  void invalidate() override { ++paints; }
  void scrollChanged() override {}
  void pageChanged() override { ++pages; }
  void tabsChanged() override {}
  void objectPointedAt(const std::string& name) override { pointed = name; }
  void invalidateArea(const RectPx& area) override { areas.push_back(area); }
  int paints = 0, pages = 0;
  std::vector<RectPx> areas;
  std::string pointed;
};

SizePx measured(std::string_view text, const FontSpec& font) { return RecordingCanvas().measure(text, font); }

template <class Row>
Row& added(std::vector<Row>& rows, std::size_t index, int page) {
  if (rows.size() <= index) rows.resize(index + 1);
  rows[index].page = static_cast<std::int16_t>(page);
  return rows[index];
}

std::vector<int> kindsOn(const ProjectDocument& document, int page) {
  NamedImages images;
  std::vector<int> kinds;
  for (const PageItem& item : pageItems(document, page, images, measured)) kinds.push_back(item.ref.kind);
  return kinds;
}

int number(ObjectKind kind) { return static_cast<int>(kind); }

TEST(PageView, ObjectsShowOnTheirPageOrOnAll) {
  const struct {
    int objectPage;
    bool visible;
    int page;
    bool shows;
  } cases[] = {{0, true, 0, true},  {0, false, 0, false}, {1, false, 1, true},
               {1, true, 0, false}, {-1, true, 3, true},  {-1, false, 0, true},
               {5, true, 5, false}, {95, true, 4, false}, {4, true, 4, true}};
  for (const auto& c : cases)
    EXPECT_EQ(showsOnPage(c.objectPage, c.visible, c.page), c.shows) << c.objectPage << " on " << c.page;
}

TEST(PageView, KindsLieInStackingOrder) {
  ProjectDocument d;
  added(d.buttons, 0, 0), added(d.checks, 0, 0), added(d.memos, 2, 0), added(d.combos, 1, 0),
      added(d.fields, 1, 0);
  added(d.titles, 6, 0), added(d.pictures, 0, 0), added(d.lines, 1, 0), added(d.squares, 0, 0),
      added(d.scripts, 1, 0);
  const std::vector<int> expected{number(ObjectKind::Square),  number(ObjectKind::Line),
                                  number(ObjectKind::Picture), number(ObjectKind::Title),
                                  number(ObjectKind::Field),   number(ObjectKind::Combo),
                                  number(ObjectKind::Memo),    number(ObjectKind::CheckBox),
                                  number(ObjectKind::Button),  number(ObjectKind::Script)};
  EXPECT_EQ(kindsOn(d, 0), expected);
  EXPECT_TRUE(kindsOn(d, 1).empty());
  EXPECT_EQ(objectsOnPage(d, 0), 10);
  d.fields[1].page = kPageDeleted;
  EXPECT_EQ(objectsInProject(d), 9);
  EXPECT_EQ(objectName(d, ObjectKind::Field, 1), "");
  EXPECT_EQ(objectName(d, ObjectKind::Line, 1), "Line 1");
  EXPECT_EQ(objectName(d, ObjectKind::Combo, 400), "");
}

TEST(PageView, FramesSurroundTheirBoxesByKindAndStyle) {
  NamedImages images;
  const struct {
    ObjectKind kind;
    int style;
    RectPx frame;  // of a text part at 20,20 and 100 x 40 (combos: their own height)
  } cases[] = {{ObjectKind::Field, 0, {17, 17, 106, 46}}, {ObjectKind::Field, 3, {17, 17, 106, 46}},
               {ObjectKind::Memo, 1, {17, 19, 104, 42}},  {ObjectKind::Memo, 2, {18, 18, 104, 44}},
               {ObjectKind::Memo, 3, {17, 17, 106, 46}},  {ObjectKind::Combo, 1, {19, 19, 102, 21}},
               {ObjectKind::Combo, 2, {17, 17, 106, 25}}};
  for (const auto& c : cases) {
    ProjectDocument d;
    const auto place = [&c](auto& row) {
      row.left = row.top = 300, row.width = 1500, row.frameStyle = c.style;
      if constexpr (requires { row.height; }) row.height = 600;
    };
    if (c.kind == ObjectKind::Field) place(added(d.fields, 1, 2));
    if (c.kind == ObjectKind::Memo) place(added(d.memos, 2, 2));
    if (c.kind == ObjectKind::Combo) place(added(d.combos, 1, 2));
    const RectPx r = boundsOf(pageItems(d, 2, images, measured).at(0).shape);
    EXPECT_EQ(std::tie(r.left, r.top, r.width, r.height),
              std::tie(c.frame.left, c.frame.top, c.frame.width, c.frame.height))
        << number(c.kind) << " style " << c.style;
  }
}

TEST(PageView, HelpBarStaysOnEveryPageAndPointsMeetTheFrontMost) {
  ProjectDocument d;
  TitleRow& help = added(d.titles, 1, 0);
  help.caption = "Help";
  added(d.squares, 0, -1).width = 3000, d.squares[0].height = 3000;
  LineRow& line = added(d.lines, 1, 3);
  line.x2 = line.y2 = 1500;
  NamedImages images;
  const PageItems items = pageItems(d, 3, images, measured);
  ASSERT_EQ(items.size(), 3u);
  EXPECT_EQ(items[static_cast<std::size_t>(itemAt(items, {52, 50}))].ref.kind, number(ObjectKind::Line));
  EXPECT_EQ(items[static_cast<std::size_t>(itemAt(items, {80, 50}))].ref.kind, number(ObjectKind::Square));
  EXPECT_EQ(itemAt(items, {500, 500}), -1);
}

TEST(PageView, PageSizeComesFromThePaperOrTheUser) {
  const struct {
    int code;
    bool landscape;
    int width, height;
  } cases[] = {{0, false, 816, 1056}, {12, false, 794, 1123}, {12, true, 1123, 794},
               {22, true, 640, 480},  {18, false, 640, 480},  {-3, false, 640, 480}};
  for (const auto& c : cases) {
    ProjectDocument d;
    d.pageSizeCode = static_cast<std::int16_t>(c.code);
    d.pageSize20 = c.landscape;
    const SizePx size = pageSizePx(d);
    EXPECT_EQ(size.width, c.width) << c.code;
    EXPECT_EQ(size.height, c.height) << c.code;
  }
  ProjectDocument hostile;
  hostile.pageWidth = std::numeric_limits<float>::quiet_NaN();
  hostile.pageHeight = 1e30f;
  added(hostile.fields, 1, 0).left = std::numeric_limits<float>::infinity();
  added(hostile.titles, 6, 0).top = -1e30f;
  hostile.titles[6].fontSize = -5;
  EXPECT_GT(pageSizePx(hostile).width, 0);
  EXPECT_LT(pageSizePx(hostile).height, 1000000);
  EXPECT_EQ(kindsOn(hostile, 0).size(), 2u);
}

// Keeps what the drawing area hands on.
class Hand : public PageHand {
 public:
  void pressed(const MouseEvent& event, ItemRef hit) override { keep(event, hit); }
  void moved(const MouseEvent& event, ItemRef hit) override { keep(event, hit); }
  void released(const MouseEvent& event) override { keep(event, {}); }
  void pressedTwice(const MouseEvent& event, ItemRef hit) override { keep(event, hit); }
  void paintOverlay(Canvas& canvas) const override { canvas.ellipse({1, 2, 3, 4}, {}, {}); }
  int events = 0;
  MouseEvent last;
  ItemRef lastHit;

 private:
  void keep(const MouseEvent& event, ItemRef hit) {
    ++events;
    last = event;
    lastHit = hit;
  }
};

class PageSurfaceTest : public testing::Test {
 protected:
  void SetUp() override {
    FieldRow& field = added(document.fields, 1, 0);
    field.left = field.top = 600, field.width = 1500, field.height = 300, field.tag = "Name";
    document.pageCaptions[1] = "Orders";
    surface.resize({1000, 700});
    surface.projectChanged();
  }
  PointPx onPage(int x, int y) const { return {surface.sheetOrigin().x + x, surface.sheetOrigin().y + y}; }

  ProjectDocument document;
  NamedImages images;
  QuietView view;
  DesignState state;
  Hand hand;
  PageSurface surface{document, state, images, measured, view, hand};
};

TEST_F(PageSurfaceTest, HandsEventsOnInPixelsOfThePage) {
  surface.mouseDown({.button = 1, .x = 110, .y = 20});  // beside the tabs
  EXPECT_EQ(hand.events, 0);
  state.currentPage = 1;
  surface.objectsChanged();
  EXPECT_TRUE(surface.items().empty());
  EXPECT_TRUE(std::get<TabItem>(surface.tabs()[1].shape).selected);
  EXPECT_EQ(std::get<TabItem>(surface.tabs()[1].shape).caption, "Orders");
  state.currentPage = 0;
  surface.objectsChanged();
  const PointPx inside = onPage(60, 45);
  surface.mouseDown({.button = 1, .x = inside.x, .y = inside.y});
  EXPECT_EQ(hand.last.x, 60);
  EXPECT_EQ(hand.last.y, 45);
  EXPECT_EQ(hand.lastHit, (ItemRef{number(ObjectKind::Field), 1}));
  surface.mouseUp({.button = 1, .x = 0, .y = 0});
  EXPECT_EQ(hand.last.x, -surface.sheetOrigin().x);  // a release may lie anywhere
  EXPECT_FALSE(surface.keyDown({.key = 'Q', .shift = 0}));
}

TEST_F(PageSurfaceTest, AMoveRepaintsOldAndNewPlaceOnly) {
  RecordingCanvas canvas;
  const int paints = view.paints;
  view.areas.clear();
  document.fields[1].left += 1500;
  surface.objectsMoved({{ObjectKind::Field, 1}});
  EXPECT_EQ(view.paints, paints);
  ASSERT_EQ(view.areas.size(), 2u);
  EXPECT_EQ(view.areas[1].left - view.areas[0].left, 100);
  EXPECT_EQ(boundsOf(surface.items().front().shape).left, 137);
  state.hidden = {{ObjectKind::Field, 1}};
  surface.objectsChanged();
  EXPECT_TRUE(surface.items().empty());
}

TEST_F(PageSurfaceTest, SmallPagesAreCentredAndLargeOnesScroll) {
  EXPECT_EQ(surface.sheetOrigin().x, (1000 - 640) / 2);
  EXPECT_EQ(surface.horizontal().most(), 0);
  surface.resize({400, 300});
  EXPECT_GT(surface.horizontal().most(), 0);
  surface.scrollTo(100000, 100000);
  EXPECT_EQ(surface.horizontal().value, surface.horizontal().most());
  EXPECT_LT(surface.sheetOrigin().x + 640, 400);  // the sheet's right edge with its margin has come into view
  const int paints = view.paints;
  surface.wheel(-3, 0);
  EXPECT_EQ(view.paints, paints);  // at the end nothing moves
  surface.resize({1000, 700});
  EXPECT_EQ(surface.vertical().value, 0);
}

TEST_F(PageSurfaceTest, TellsTheObjectUnderThePointer) {
  const PointPx inside = onPage(60, 45), outside = onPage(400, 400);
  surface.mouseMove({.button = 0, .x = inside.x, .y = inside.y});
  EXPECT_EQ(view.pointed, "F1 Name   37, 37   106 x 26");
  EXPECT_EQ(surface.objectAt(inside), (ItemRef{number(ObjectKind::Field), 1}));
  moveBy(document, {ObjectKind::Field, 1}, 5, -3);
  surface.objectsMoved({{ObjectKind::Field, 1}});
  EXPECT_EQ(view.pointed, "F1 Name   42, 34   106 x 26");
  surface.mouseMove({.button = 0, .x = outside.x, .y = outside.y});
  EXPECT_EQ(view.pointed, "");
  surface.resize({200, 120});
  surface.scrollTo(0, 60);  // scrolled under the tabs it cannot be met through them
  EXPECT_EQ(surface.objectAt({60, 30}).kind, -1);
}

TEST_F(PageSurfaceTest, PaintsSheetBackgroundAndObjectsInTheirPlaces) {
  document.tileImage = "paper";
  document.tileMode = 0;
  document.pageColor[0] = 0x0000FF;
  surface.projectChanged();
  RecordingCanvas canvas;
  surface.paint(canvas, {0, 0, 1000, 700});
  const std::string all = canvas.recording();
  for (const char* expected : {"brush solid #ff0000", "16x16 paper"})
    EXPECT_NE(all.find(expected), std::string::npos) << expected;
  EXPECT_EQ(std::count(canvas.calls.begin(), canvas.calls.end(), "unclip"),
            std::count_if(canvas.calls.begin(), canvas.calls.end(),
                          [](const std::string& call) { return call.rfind("clip", 0) == 0; }));
  canvas.calls.clear();
  surface.paint(canvas, {900, 600, 10, 10});  // a corner without tabs or page
  EXPECT_EQ(canvas.recording().find("text"), std::string::npos);
}

}  // namespace
}  // namespace plinth
