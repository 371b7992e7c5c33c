// The property panel without a window: which controls show for the selection and what they hold, and what
// happens when a person changes one.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "surface/DesignContext.h"

namespace plinth {

enum class PanelId {
  color1,
  color2,
  color3,
  noChart,
  noSearch,
  fieldLength,  // FieldGTH
  lockEnabled,
  borderStyle,  // BF
  tabOrder,     // Text4
  fieldLabel,   // FDLabel
  allPages,     // Check4
  bold,         // Check1
  italic,       // Check2
  underline,    // Check3
  alignLeft,    // Option1(0)
  alignRight,   // Option1(1)
  alignCenter,  // Option1(2)
  fontName,     // text3
  fontSize,     // FontSizing
  printOn,
  left,     // LeftP
  top,      // TopP
  width,    // WidthP
  height,   // HeightP
  selItem,  // Selitem, read only
};
inline constexpr int kPanelControls = 25;

enum class PanelInput { button, check, option, text, number, combo, scroll, label };

struct PanelControl {
  PanelId id;
  PanelInput input;
  int label;  // language text of the caption or tool tip
  const char* english;
  int maxLength = 0;  // characters; 0: any
  bool shown = false, enabled = false;
  std::string text;        // texts, combos, scroll value
  bool checked = false;    // checks and options
  std::int32_t color = 0;  // colour buttons; Selitem's text
  // Words before the control, beside its tool tip: language text, 0 for none.
  int caption = 0;
  const char* captionEnglish = "";
};

class PropertyPanel {
 public:
  explicit PropertyPanel(DesignContext& context);

  // Fills the controls from the selection; call after EditorView::selectionChanged or objectsChanged.
  void fill();
  // The read-outs alone.
  void fillPlaces();
  const std::vector<PanelControl>& controls() const { return controls_; }  // in the order of PanelId
  const PanelControl& control(PanelId id) const { return controls_[static_cast<std::size_t>(id)]; }
  // Picture of the tool of what is selected; nullopt when nothing is. Areas have none.
  std::optional<ObjectKind> icon() const;

  // A key that a text control gets: what it becomes; 0 when it is swallowed.
  char filterKey(PanelId id, char typed) const;
  // A person changed a control: texts at each change, "1" and "" for checks and options. Writes to the
  // selected object or to each member of the area selection. The text may come back changed in control().
  // The read-outs take their text when the person has finished it: Enter, or leaving the box. A text that
  // the control shows already changes nothing. A colour button only becomes DesignState::colorTarget.
  void write(PanelId id, const std::string& value);
  // Applies a colour to the target that the person chose by color1 to color3 (DesignState::colorTarget).
  void useColor(std::int32_t color);

  static constexpr int kMostFontSize = 200, kMostFieldLength = 300, kMostMemoLength = 60000;
  static constexpr int kMostBorderStyle = 5;

 private:
  // What a person typed stands in its control for as long as the project would show the same as then: the
  // point of "12." must not vanish before its next digit.
  struct Typed {
    PanelId id;
    std::string shown, text;
  };
  struct Readouts {
    bool shown = false;
    RectPx place;                                                   // of lines both ends
    bool left = false, top = false, width = false, height = false;  // can be changed
  };

  PanelControl& at(PanelId id) { return controls_[static_cast<std::size_t>(id)]; }
  void noticeSelection();
  void fillValue(PanelControl& control);
  void fillSelItem();
  Readouts readouts() const;

  std::vector<ObjectRef> membersWith(PanelId id) const;
  std::string limited(PanelId id, const std::vector<ObjectRef>& members, const std::string& value) const;
  void writeMembers(const std::vector<ObjectRef>& members, PanelId id, const std::string& text,
                    double number);
  void done(PanelId id, const std::vector<ObjectRef>& members, const std::string& mergeKey);
  void writePlace(PanelId id, const std::string& text);
  void surroundMembers();
  bool area() const { return c_.state.selKind == kSelArea; }

  DesignContext& c_;
  std::vector<PanelControl> controls_;
  std::vector<ObjectRef> objects_;  // selected ones, as last noticed
  int visit_ = 0;                   // counts selections: what is typed into one is one step
  std::optional<Typed> typed_;
};

}  // namespace plinth
