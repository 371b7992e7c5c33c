#include "engine/win32/ObjectTools.h"

#include <commctrl.h>

#include <algorithm>
#include <cmath>

#include "engine/win32/PictureReduction.h"
#include "platform/win32/ClipboardPicture.h"
#include "platform/win32/Win32Text.h"

namespace plinth {
namespace {

constexpr WORD kHand = 32649, kCross = 32515, kMove = 32646;
constexpr std::int32_t kMarkColor = 0xC06000;
constexpr int kMarkGap = 3;  // units between an object and its outline
constexpr UINT kChooseCommand = 1, kPasteCommand = 2, kRemoveCommand = 3, kEditCommand = 4, kToolsCommand = 5;
constexpr int kKeyV = 'V';

void addCommand(HMENU menu, UINT id, const std::wstring& text, bool enabled) {
  ::AppendMenuW(menu, MF_STRING | (enabled ? MF_ENABLED : MF_GRAYED), id, text.c_str());
}

UINT chosenFrom(HMENU menu, POINT screen, HWND owner) {
  return static_cast<UINT>(
      ::TrackPopupMenu(menu, TPM_RETURNCMD | TPM_RIGHTBUTTON, screen.x, screen.y, 0, owner, nullptr));
}

std::wstring captionOf(const Application& application, int number, std::string_view plain) {
  return toWide(runCaption(application, number, plain), application.codePage);
}

}  // namespace

ObjectTools::ObjectTools(EngineHost& host, const PageLayout& layout, PictureFiles& files, PageWindow& page,
                         BoxWindows& boxes, const ObjectServices& services)
    : host_(host),
      layout_(layout),
      files_(files),
      page_(page),
      boxes_(boxes),
      services_(services),
      objects_(host.session(), {services.messages, services.shell, layout.pageSize(),
                                [&layout](const VariableLabel& label) { return layout.labelSize(label); }}),
      pictures_(host.session(), services.files, services.messages, services.decoder),
      tools_(host, objects_, files, services.files, services.settings),
      edit_(host, objects_),
      chooser_(host, pictures_, services.chooser, services.decoder, services.settings) {}

ObjectTools::~ObjectTools() {
  objects_.onChange = nullptr;
  page_.setGestures(nullptr);
  tools_.close();
}

void ObjectTools::open(HWND owner) {
  owner_ = owner;
  page_.setGestures(this);
  objects_.onChange = [this] { changed(); };
  tips_ = ::CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX,
                            0, 0, 0, 0, owner, nullptr, nullptr, nullptr);
  if (host_.application().varObjects) tools_.open(owner, true);
  follow();
}

void ObjectTools::showTools() {
  if (host_.application().varObjects) tools_.open(owner_, false);
}

bool ObjectTools::takes(const MSG& message) const {
  return tools_.takes(message) || edit_.takes(message) || chooser_.takes(message);
}

void ObjectTools::changed() {
  tools_.show();
  edit_.show();
  page_.repaint();
}

void ObjectTools::follow() {
  if (!owner_) return;
  const bool changedNow = objects_.changed();
  if (changedBefore_ && !changedNow) {
    edit_.hide();
    objects_.settled();
  }
  changedBefore_ = changedNow;
  tools_.show();
  edit_.show();
  chooser_.follow();
  placeTips();
}

// Labels are painted, not windows: their tips belong to places on the page.
void ObjectTools::placeTips() {
  std::vector<std::pair<RectPx, std::string>> places;
  const RecordForm& form = host_.session().form();
  for (std::size_t i = 0; i < form.labels.size(); ++i) {
    const auto link = form.labels[i].visible ? labelLink(form.labels[i].text) : std::nullopt;
    if (!link) continue;
    const RectPx rect = objects_.place({VariableRef::Kind::label, static_cast<int>(i)});
    if (rect.width > 0) places.emplace_back(rect, "Goto " + link->word);
  }
  const auto same = [](const auto& a, const auto& b) {
    return a.second == b.second && a.first.left == b.first.left && a.first.top == b.first.top &&
           a.first.width == b.first.width && a.first.height == b.first.height;
  };
  if (tipScale_ == host_.scale() &&
      std::equal(places.begin(), places.end(), tipPlaces_.begin(), tipPlaces_.end(), same))
    return;
  tipScale_ = host_.scale();
  TTTOOLINFOW tip = {};
  tip.cbSize = sizeof tip;
  tip.uFlags = TTF_SUBCLASS;
  tip.hwnd = page_.handle();
  for (tip.uId = 1; tip.uId <= tipPlaces_.size(); ++tip.uId)
    ::SendMessageW(tips_, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tip));
  tipPlaces_ = std::move(places);
  tip.uId = 0;
  const auto px = [this](int units) { return static_cast<LONG>(std::lround(units * host_.scale())); };
  for (const auto& [rect, text] : tipPlaces_) {
    const std::wstring shown = toWide(text, host_.application().codePage);
    ++tip.uId;
    tip.rect = {px(rect.left), px(rect.top), px(rect.right()), px(rect.bottom())};
    tip.lpszText = const_cast<wchar_t*>(shown.c_str());
    ::SendMessageW(tips_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tip));
  }
}

int ObjectTools::dataPictureAt(PointPx point) const {
  return layout_.dataPictureAt(point, host_.session().currentPage());
}

void ObjectTools::mark(int picture) {
  if (marked_ == picture) return;
  marked_ = picture;
  page_.repaint();
}

bool ObjectTools::pressObject(PointPx point, bool twice) {
  const bool placing = objects_.tool() != VariableObjects::Tool::pointer;
  VariableRef object;
  host_.act([&] { object = objects_.press(point); });
  if (!object && !placing) return false;
  ::SetFocus(page_.handle());
  if (object.kind == VariableRef::Kind::label && (twice || placing)) {
    objects_.release();
    edit_.open(owner_);
  }
  return true;
}

bool ObjectTools::press(PointPx point, bool twice) {
  mark(-1);
  if (objects_.editing()) {
    if (pressObject(point, twice)) return true;
  } else if (!twice && objects_.at(point).kind == VariableRef::Kind::label) {
    host_.act([&] {
      boxes_.commitFocus();
      objects_.click(point);
    });
    return true;
  }
  const int picture = dataPictureAt(point);
  if (picture < 0 || !pictures_.mayChange(picture)) return false;
  ::SetFocus(page_.handle());
  mark(picture);
  if (twice) choosePicture(picture);
  return true;
}

void ObjectTools::drag(PointPx point) {
  host_.act([&] { objects_.drag(point); });
}

void ObjectTools::choosePicture(int picture) {
  const std::shared_ptr<Image> now =
      host_.session().dataPictureFile(picture).empty() ? nullptr : files_.dataPicture(picture);
  const RectPx place = layout_.picture(picture);
  files_.forgetMissing();
  chooser_.open(owner_, picture, now, {place.width, place.height}, [this] { page_.repaint(); });
}

bool ObjectTools::mayPaste() const {
  return marked_ >= 0 && pictures_.mayChange(marked_) && clipboardHasPicture();
}

void ObjectTools::paste() {
  if (!mayPaste()) return;
  const Bytes image = compactPicture(clipboardPicture(owner_), services_.decoder);
  files_.forgetMissing();
  host_.act([&] { pictures_.store(marked_, image, "clipboard"); });
}

void ObjectTools::removePicture(int picture) {
  host_.act([&] { pictures_.clear(picture); });
}

bool ObjectTools::pictureMenu(int picture, POINT screen) {
  if (!pictures_.mayChange(picture)) return false;
  ::SetFocus(page_.handle());
  mark(picture);
  const MenuHandle menu(::CreatePopupMenu());
  const Application& application = host_.application();
  addCommand(menu.get(), kChooseCommand, L"Open...", true);
  addCommand(menu.get(), kPasteCommand, captionOf(application, 16, "Paste"), mayPaste());
  addCommand(menu.get(), kRemoveCommand, captionOf(application, 60, "Remove"),
             !host_.session().form().pictures[static_cast<std::size_t>(picture)].stem.empty());
  const UINT chosen = chosenFrom(menu.get(), screen, owner_);
  if (chosen == kChooseCommand) choosePicture(picture);
  if (chosen == kPasteCommand) paste();
  if (chosen == kRemoveCommand) removePicture(picture);
  return true;
}

bool ObjectTools::objectMenu(PointPx point, POINT screen) {
  if (!host_.application().varObjects) return false;
  VariableRef object = objects_.selection();
  if (objects_.editing() && point.x >= 0) {
    host_.act([&] { object = objects_.press(point); });
    objects_.release();
  }
  const MenuHandle menu(::CreatePopupMenu());
  if (object.kind == VariableRef::Kind::label) addCommand(menu.get(), kEditCommand, L"Label...", true);
  if (object) addCommand(menu.get(), kRemoveCommand, captionOf(host_.application(), 60, "Remove"), true);
  if (!tools_.visible()) addCommand(menu.get(), kToolsCommand, L"Labels and pictures...", true);
  if (::GetMenuItemCount(menu.get()) == 0) return true;
  const UINT chosen = chosenFrom(menu.get(), screen, owner_);
  if (chosen == kEditCommand) edit_.open(owner_);
  if (chosen == kRemoveCommand) host_.act([&] { objects_.remove(); });
  if (chosen == kToolsCommand) showTools();
  return true;
}

// point: {-1, -1} when the keyboard asks.
bool ObjectTools::menu(PointPx point, POINT screen) {
  const bool byKey = point.x < 0;
  const int picture = byKey ? marked_ : dataPictureAt(point);
  const bool onObject = objects_.editing() && (byKey ? objects_.selection() : objects_.at(point));
  if (!onObject && picture >= 0 && pictureMenu(picture, screen)) return true;
  return objectMenu(point, screen);
}

bool ObjectTools::key(const KeyEvent& event) {
  if (marked_ >= 0) {
    if (event.key == kKeyV && event.shift == kCtrl) return paste(), true;
    if (event.key == VK_DELETE) return removePicture(marked_), true;
    if (event.key == VK_RETURN) return choosePicture(marked_), true;
  }
  if (event.key == VK_RETURN && objects_.selectedLabel()) return edit_.open(owner_), true;
  bool taken = false;
  host_.act([&] { taken = objects_.keyDown(event); });
  return taken;
}

// The chooser belongs to the marked picture.
void ObjectTools::keyboardLost() {
  if (!chooser_.visible()) mark(-1);
}

WORD ObjectTools::pointerAt(PointPx point) const {
  if (!objects_.editing()) return objects_.toolTip(point).empty() ? 0 : kHand;
  if (objects_.tool() != VariableObjects::Tool::pointer) return kCross;
  return objects_.at(point) ? kMove : 0;
}

void ObjectTools::paintMarks(Canvas& canvas) const {
  const Pen dashes{LineStyle::dot, 1, kMarkColor};
  const Brush none{FillStyle::none};
  const auto outline = [&](const RectPx& rect) { canvas.box(inflated(rect, kMarkGap), dashes, none); };
  if (marked_ >= 0 && host_.session().visibleNow(host_.application().picture(marked_).page))
    outline(layout_.picture(marked_));
  const VariableRef object = objects_.selection();
  if (!objects_.editing() || !object) return;
  outline(objects_.place(object));
  const RectPx rect = inflated(objects_.place(object), kMarkGap);
  constexpr int kHandle = 5;
  for (const PointPx corner : {PointPx{rect.left, rect.top}, {rect.right() - 1, rect.top},
                               {rect.left, rect.bottom() - 1}, {rect.right() - 1, rect.bottom() - 1}})
    canvas.box({corner.x - kHandle / 2, corner.y - kHandle / 2, kHandle, kHandle},
               {LineStyle::solid, 1, kMarkColor}, {});
}

}  // namespace plinth
