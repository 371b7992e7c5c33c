// The controls themselves, and what needs no look at a row's values. PanelFill.cpp shows them, PanelWrite.cpp
// and PanelPlaces.cpp take what a person enters.
#include "surface/PropertyPanel.h"

#include <array>

#include "surface/PanelRows.h"

namespace plinth {

namespace {

struct ControlRow {
  PanelId id;
  PanelInput input;
  int label;  // 0: only English
  const char* english;
  const char* words;
  int maxLength = 0;
  int caption = 0;
  const char* captionEnglish = "";
};

constexpr std::array<ControlRow, kPanelControls> kControls{{
    {PanelId::color1, PanelInput::button, 143, "Text color...", "text colour"},
    {PanelId::color2, PanelInput::button, 144, "Backcolor...", "back colour"},
    {PanelId::color3, PanelInput::button, 145, "Border color...", "border colour"},
    {PanelId::noChart, PanelInput::check, 141, "Field can be charted...", "charting"},
    {PanelId::noSearch, PanelInput::check, 140, "Field cannot be searched...", "searching"},
    {PanelId::fieldLength, PanelInput::number, 142, "Field Length...   (Charater Size)", "field length", 5,
     148, "Size :"},
    {PanelId::lockEnabled, PanelInput::check, 139, "Information cannot be change once entered in...",
     "entry lock"},
    {PanelId::borderStyle, PanelInput::scroll, 149, "Border :", "border style", 0, 149, "Border :"},
    {PanelId::tabOrder, PanelInput::number, 136, "TAB key / CSV file export order...", "tab position", 0, 147,
     "TAB :"},
    {PanelId::fieldLabel, PanelInput::text, 135, "Field Search / Export Lable...", "field label", 0, 146,
     "Name :"},
    {PanelId::allPages, PanelInput::check, 138, "Display object on all pages...", "page"},
    {PanelId::bold, PanelInput::check, 0, "Bold", "bold type"},
    {PanelId::italic, PanelInput::check, 0, "Italic", "italic type"},
    {PanelId::underline, PanelInput::check, 0, "Underline", "underline"},
    {PanelId::alignLeft, PanelInput::option, 0, "Align left", "alignment"},
    {PanelId::alignRight, PanelInput::option, 0, "Align right", "alignment"},
    {PanelId::alignCenter, PanelInput::option, 0, "Center", "alignment"},
    {PanelId::fontName, PanelInput::combo, 0, "Font", "font"},
    {PanelId::fontSize, PanelInput::combo, 0, "Font size", "font size"},
    {PanelId::printOn, PanelInput::check, 0, "Print", "printing"},
    {PanelId::left, PanelInput::text, 150, "X :", "position", 0, 150, "X :"},
    {PanelId::top, PanelInput::text, 151, "Y :", "position", 0, 151, "Y :"},
    {PanelId::width, PanelInput::text, 0, "Width", "width"},
    {PanelId::height, PanelInput::text, 0, "Height", "height"},
    {PanelId::selItem, PanelInput::label, 0, "Selected object", ""},
}};

constexpr char kBackspace = 8;

}  // namespace

const char* panelWords(PanelId id) { return kControls[static_cast<std::size_t>(id)].words; }

PropertyPanel::PropertyPanel(DesignContext& context) : c_(context) {
  for (const ControlRow& row : kControls) {
    PanelControl control{};
    control.id = row.id;
    control.input = row.input;
    control.label = row.label;
    control.english = row.english;
    control.maxLength = row.maxLength;
    control.caption = row.caption;
    control.captionEnglish = row.captionEnglish;
    controls_.push_back(std::move(control));
  }
  fill();
}

std::optional<ObjectKind> PropertyPanel::icon() const {
  const auto object = selectedObject(c_.state, c_.document);
  return object ? std::optional(object->kind) : std::nullopt;
}

char PropertyPanel::filterKey(PanelId id, char typed) const {
  switch (id) {
    case PanelId::fieldLength:
      return (typed >= '0' && typed <= '9') || typed == kBackspace ? typed : '\0';
    case PanelId::fieldLabel:
      if (typed == ',') return '\0';
      return typed == ' ' || typed == '~' ? '_' : typed;
    case PanelId::tabOrder:
      return typed == kBackspace ? '\0' : typed;
    default:
      // Backspace has never worked in these boxes, nor in the tab position; people there use Delete.
      return isReadout(id) && typed == kBackspace ? '\0' : typed;
  }
}

// What is typed into another selection than before is a step of its own.
void PropertyPanel::noticeSelection() {
  std::vector<ObjectRef> now = selectedObjects(c_.state, c_.document);
  if (now == objects_) return;
  objects_ = std::move(now);
  typed_.reset();
  ++visit_;
}

}  // namespace plinth
