// The tools that place objects: each makes one new object of its kind, selects it and hands it to the mouse.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "basic/Locale.h"
#include "surface/DesignContext.h"

namespace plinth {

enum class Tool {
  label,
  field,
  email,
  memo,
  combo,
  pictureField,
  pictureArt,
  checkBox,
  line,
  square,
  button,
  script
};
inline constexpr int kTools = 12;

struct ToolInfo {
  Tool tool;
  ObjectKind kind;
  int label;  // language text of the tool tip
  const char* english;
};
const std::array<ToolInfo, kTools>& toolInfos();  // in the order of the toolbox

// The tool whose object is carried; nullopt when none is, or one with a slot of its own, which no tool makes.
std::optional<Tool> toolInHand(const DesignState& state, const ProjectDocument& document);

class Placement {
 public:
  // Size of a picture file's image in pixels; empty when it cannot be read.
  using PictureSize = std::function<SizePx(const std::string& path)>;

  // locale: the words of dates and the short form. Without pictureSize picture art gets the template's size.
  explicit Placement(DesignContext& context, Locale locale = englishLocale(), PictureSize pictureSize = {})
      : c_(context), locale_(std::move(locale)), pictureSize_(std::move(pictureSize)) {}

  // Makes the object and hands it to the mouse: it is selected and carried, at first in the left top corner
  // of what is on view. Shows why not when the table is full; then only selKind and placeTool change. An
  // object carried until now is hidden, but a button or script stays. Area selection ends. One step in the
  // history with the merge key "place " and the short name, so that the drop belongs to it.
  // Nothing while the controls are locked; this holds for all that follows, too.
  void place(Tool tool);

  // Objects with a slot of their own; used again they move to the current page. All but clock and help bar
  // are carried as by place().
  void documentBox();
  void recordId();
  void dateStamp(int format);  // 0 to 5, others are ignored
  void date(int format);
  void clock();
  void toggleHelpBar();
  bool helpBarShown() const;
  // Fills the area selection's rectangle with cells; columns 1, 2, 3, 4, 6, 7 or 8, nothing for others and
  // without a rectangle. Stops with a message when the table of fields is full. Area selection ends.
  void table(int columns);

  // Today in the six formats of the date menus.
  std::array<std::string, 6> dateCaptions() const;

  // Puts the object in hand aside, if one is carried: buttonR. A step in the history; nothing is selected
  // after it.
  void cancelCarried();

 private:
  void begin();
  bool allowed(Tool tool);
  void refuse(int placeTool);
  void hideCarried();
  ObjectRef make(Tool tool);
  PointPx startCorner() const;
  void hand(ObjectRef object, const std::string& words);
  void showSelected(ObjectRef object, const std::string& words);
  ObjectRef showSlot(ObjectRef object);
  void showDate(int index, int format, std::int16_t& stored, const char* words);

  DesignContext& c_;
  Locale locale_;
  PictureSize pictureSize_;
};

}  // namespace plinth
