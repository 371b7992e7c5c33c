// Free labels and pictures and the images of a record, by hand on a page: the tool window, the label window,
// the picture chooser, the clipboard.
#include "platform/win32/WindowsApi.h"  // before what leans on it

#include <gtest/gtest.h>
#include <objbase.h>

#include <cstring>
#include <filesystem>

#include "engine/FlatRecordStore.h"
#include "engine/win32/ObjectTools.h"
#include "platform/win32/GdiBitmap.h"
#include "platform/win32/PictureEncoder.h"
#include "platform/win32/Screenshot.h"
#include "platform/win32/WicPictures.h"
#include "tests/fakes/FakeChooser.h"
#include "tests/fakes/FakeClock.h"
#include "tests/fakes/FakeMessages.h"
#include "tests/fakes/FakeShell.h"
#include "tests/fakes/MemorySettings.h"
#include "tests/platform/TempFolder.h"

namespace plinth {
namespace {

Payload board() {
  Payload p;
  p.header.title = "Board";
  p.header.varObjects = 1;
  p.header.pageWidth = 600 * 15;
  p.header.pageHeight = 400 * 15;
  p.fields = {PayloadField{}, PayloadField{}};
  p.fields[1].page = 0;
  p.fields[1].fieldLength = 10;
  p.fields[1].left = 300, p.fields[1].top = 300, p.fields[1].width = 2400, p.fields[1].height = 300;
  p.fields[1].exportOrder = 11;
  p.pictures.resize(1);
  p.pictures[0].page = 0;
  p.pictures[0].left = 6000, p.pictures[0].top = 300, p.pictures[0].width = 1500, p.pictures[0].height = 1500;
  p.pictures[0].stretch = 1;
  p.titles.resize(6);
  p.pageColors = {0xFFFFFF, 0xFFFFFF, 0, 0, 0};
  return p;
}

Pixels plainPixels(int width, int height, std::uint32_t argb) {
  return {{width, height}, std::vector<std::uint32_t>(static_cast<std::size_t>(width) * height, argb)};
}

// A window that holds nothing but the page.
class PageFrame : public Window, public EngineView, public EngineHost {
 public:
  bool make() {
    Request request;
    request.className = L"PageFrameOfTest";
    request.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE | WS_CLIPCHILDREN;
    request.place = {20, 20, 640, 460};
    return create(request);
  }
  const Application& application() const override { return session_->application(); }
  RecordSession& session() override { return *session_; }
  void act(const std::function<void()>& event) override {
    if (acting_) return;
    acting_ = true;
    event();
    acting_ = false;
    if (tools) tools->follow();
  }
  void later(std::function<void()>) override {}
  double scale() const override { return 1; }
  void openCalendar(int) override {}
  void scrollPage(int) override {}
  void focusMoved(HWND) override {}
  void setToolTip(HWND, const std::string&) override {}
  bool mayRun(const MenuEntry&) const override { return false; }
  void choose(const MenuEntry&) override {}
  void recordShown() override {
    if (page) page->repaint();
  }

  RecordSession* session_ = nullptr;
  PageWindow* page = nullptr;
  ObjectTools* tools = nullptr;

 protected:
  LRESULT message(UINT message, WPARAM wide, LPARAM param) override { return standard(message, wide, param); }

 private:
  bool acting_ = false;
};

class Objects : public testing::Test {
 protected:
  void SetUp() override {
    ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    std::filesystem::create_directories(std::filesystem::path(folder / "Images"));
    for (const std::uint32_t color : {0xFFC02020u, 0xFF2060C0u, 0xFF20A040u})
      put("Images/" + std::to_string(100000 + pictureCount_++) + ".GIF",
          encodePicture(plainPixels(32, 24, color), PictureFormat::png));
    StartUp start;
    start.proceed = true;
    start.application = makeApplication(board());
    start.form = makeRecordForm(start.application);
    start.names.appPath = folder / "";
    start.cfgPath = folder / "board.cfg";
    start.data = {folder / "", "Board.dbd", false};
    messages.otherwise = true;
    session = std::make_unique<RecordSession>(
        std::move(start),
        SessionServices{systemFiles(), messages, clock, englishLocale(), shell,
                        flatStoreOpener(systemSharedFiles(), systemFiles()), &frame, nullptr});
    ASSERT_TRUE(session->openData(false));
    messages.shown.clear();
    frame.session_ = session.get();
    ASSERT_TRUE(frame.make());
    const auto measure = [this](std::string_view text, const FontSpec& font) {
      const WindowDc dc(frame.handle());
      return GdiCanvas(dc.get()).measure(text, font);
    };
    layout = std::make_unique<PageLayout>(session->application(), measure);
    pictures.attach(*session);
    boxes = std::make_unique<BoxWindows>(frame, *layout);
    page = std::make_unique<PageWindow>(frame, *layout, *boxes, pictures);
    page->open(frame.handle());
    ::SetWindowPos(page->handle(), nullptr, 0, 0, 600, 400, SWP_NOZORDER);
    boxes->create(page->handle());
    boxes->showPage(0);
    tools = std::make_unique<ObjectTools>(
        frame, *layout, pictures, *page, *boxes,
        ObjectServices{messages, chooser, shell, systemFiles(), decoder, settings});
    frame.page = page.get();
    frame.tools = tools.get();
    tools->open(frame.handle());
    ::SetForegroundWindow(frame.handle());
    pump();
  }
  void TearDown() override {
    frame.tools = nullptr;
    frame.page = nullptr;
    tools.reset();
    if (frame.handle()) ::DestroyWindow(frame.handle());
    page.reset();
    boxes.reset();
    session.reset();
    ::CoUninitialize();
  }
  void put(const std::string& name, const Bytes& bytes) {
    ASSERT_FALSE(bytes.empty());
    ASSERT_TRUE(systemFiles().write(folder / name, bytes).ok());
  }
  void pump() {
    MSG message;
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
      if (!tools->takes(message)) {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
      }
  }
  HWND window(const wchar_t* kind) const {
    const HWND found = ::FindWindowW(kind, nullptr);
    EXPECT_NE(found, nullptr);
    return found;
  }
  HWND item(const wchar_t* kind, int id) const { return ::GetDlgItem(window(kind), id); }
  void clickButton(const wchar_t* kind, int id) {
    ::SendMessageW(item(kind, id), BM_CLICK, 0, 0);
    pump();
  }
  void mouse(UINT message, int x, int y) {
    ::SendMessageW(page->handle(), message, MK_LBUTTON, MAKELPARAM(x, y));
    pump();
  }
  void click(int x, int y) {
    mouse(WM_LBUTTONDOWN, x, y);
    mouse(WM_LBUTTONUP, x, y);
  }
  void drag(int x, int y, int toX, int toY) {
    mouse(WM_LBUTTONDOWN, x, y);
    mouse(WM_MOUSEMOVE, (x + toX) / 2, (y + toY) / 2);
    mouse(WM_MOUSEMOVE, toX, toY);
    mouse(WM_LBUTTONUP, toX, toY);
  }
  void shot(const std::string& name, HWND of) {
    pump();
    std::filesystem::create_directories("screenshots");
    EXPECT_TRUE(saveScreenshot(of, "screenshots/objects-" + name + ".png"));
  }

  TempFolder folder;
  int pictureCount_ = 0;
  FakeMessages messages;
  FakeChooser chooser;
  FakeShell shell;
  FakeClock clock{45000.5};
  MemorySettings settings;
  WicDecoder decoder;
  PageFrame frame;
  PictureFiles pictures{systemFiles(), decoder};
  std::unique_ptr<RecordSession> session;
  std::unique_ptr<PageLayout> layout;
  std::unique_ptr<BoxWindows> boxes;
  std::unique_ptr<PageWindow> page;
  std::unique_ptr<ObjectTools> tools;
};

TEST_F(Objects, PlacesStylesAndDragsByHand) {
  ASSERT_TRUE(::IsWindowVisible(window(L"vTools")));
  EXPECT_FALSE(::IsWindowVisible(item(L"vTools", kToolChangedId)));
  ::SetWindowTextW(item(L"vTools", kToolGridId), L"10");
  clickButton(L"vTools", kToolLabelId);
  click(100, 150);
  // A new label asks for its text.
  ASSERT_TRUE(::IsWindowVisible(window(L"EditLabels")));
  ::SetWindowTextW(item(L"EditLabels", kLabelTextId), L"See www.example.org");
  clickButton(L"EditLabels", kLabelBoldId);
  ::SetWindowTextW(item(L"EditLabels", kLabelSizeId), L"14");
  ::SendMessageW(window(L"EditLabels"), WM_COMMAND, MAKEWPARAM(kLabelSizeId, CBN_EDITCHANGE), 0);
  shot("edit", window(L"EditLabels"));
  clickButton(L"EditLabels", IDOK);
  const VariableLabel& label = session->form().labels.at(0);
  EXPECT_EQ(label.text, "See www.example.org");
  EXPECT_TRUE(label.bold);
  EXPECT_EQ(label.fontSize, 14);
  EXPECT_TRUE(::IsWindowVisible(item(L"vTools", kToolChangedId)));

  ::SendMessageW(item(L"vTools", kToolPaletteId), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(50, 10));
  click(301, 248);
  ASSERT_EQ(session->form().variablePictures.size(), 1u);
  EXPECT_EQ(session->form().variablePictures[0].image, 100001);
  drag(310, 255, 361, 303);
  EXPECT_EQ(session->form().variablePictures[0].left, 350 * 15);
  EXPECT_EQ(session->form().variablePictures[0].top, 300 * 15);
  ::SendMessageW(page->handle(), WM_KEYDOWN, VK_DOWN, 0);
  EXPECT_EQ(session->form().variablePictures[0].top, 310 * 15);
  shot("page", frame.handle());
  shot("tools", window(L"vTools"));

  mouse(WM_LBUTTONDBLCLK, 105, 155);
  EXPECT_TRUE(::IsWindowVisible(window(L"EditLabels")));
  frame.act([this] { session->saveRecord(); });
  EXPECT_FALSE(::IsWindowVisible(window(L"EditLabels")));
  EXPECT_FALSE(::IsWindowVisible(item(L"vTools", kToolChangedId)));

  // Without the tools the label is a link.
  ::SendMessageW(window(L"vTools"), WM_CLOSE, 0, 0);
  EXPECT_EQ(settings.get("Settings", "Gsize", ""), "10");
  drag(105, 155, 300, 155);
  EXPECT_EQ(session->form().labels[0].left, 100 * 15);
  EXPECT_EQ(shell.opened, (std::vector<FakeShell::Opened>{{"http://www.example.org", ""}}));
  EXPECT_TRUE(messages.shown.empty());
}

TEST_F(Objects, KeepsImagesFromFilesAndTheClipboard) {
  put("wide.png", encodePicture(plainPixels(400, 200, 0xFF8040C0), PictureFormat::png));
  put("text.jpg", Bytes{'t', 'e', 'x', 't'});
  mouse(WM_LBUTTONDOWN, 420, 40);
  EXPECT_EQ(tools->markedPicture(), 0);
  mouse(WM_LBUTTONDBLCLK, 420, 40);
  ASSERT_TRUE(::IsWindowVisible(window(L"Form10")));
  EXPECT_FALSE(::IsWindowEnabled(frame.handle()));
  chooser.answers = {folder / "text.jpg", folder / "wide.png"};
  clickButton(L"Form10", kPictureOpenId);
  ASSERT_EQ(messages.shown.size(), 1u);
  EXPECT_NE(messages.shown[0].text.find("text.jpg"), std::string::npos);
  clickButton(L"Form10", kPictureOpenId);
  clickButton(L"Form10", kPictureResizeId);
  shot("chooser", window(L"Form10"));
  clickButton(L"Form10", IDOK);
  EXPECT_FALSE(::IsWindowVisible(window(L"Form10")));
  EXPECT_TRUE(::IsWindowEnabled(frame.handle()));
  EXPECT_EQ(session->form().pictures[0].stem, "00000001");
  std::shared_ptr<Image> kept = pictures.dataPicture(0);
  ASSERT_NE(kept, nullptr);
  EXPECT_EQ(kept->size().width, 100);
  EXPECT_EQ(kept->size().height, 50);
  EXPECT_EQ(settings.get("Settings", "Resize", ""), "1");

  BITMAPINFOHEADER shape = {};
  shape.biSize = sizeof shape;
  shape.biWidth = 3, shape.biHeight = 2, shape.biPlanes = 1, shape.biBitCount = 32;
  const HGLOBAL memory = ::GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, sizeof shape + 24);
  std::memcpy(::GlobalLock(memory), &shape, sizeof shape);
  ::GlobalUnlock(memory);
  ASSERT_TRUE(::OpenClipboard(frame.handle()));
  ::EmptyClipboard();
  ::SetClipboardData(CF_DIB, memory);
  ::CloseClipboard();
  mouse(WM_LBUTTONDOWN, 420, 40);
  ASSERT_TRUE(tools->mayPaste());
  tools->paste();
  EXPECT_EQ(session->form().pictures[0].stem, "00000002");
  kept = pictures.dataPicture(0);
  ASSERT_NE(kept, nullptr);
  EXPECT_EQ(kept->size().width, 3);
  const auto bytes = systemFiles().read(session->dataPictureFile(0));
  ASSERT_TRUE(bytes.ok());
  EXPECT_EQ((*bytes)[1], 'P');  // a PNG
  ::SendMessageW(page->handle(), WM_KEYDOWN, VK_DELETE, 0);
  EXPECT_EQ(session->form().pictures[0].stem, "");
}

TEST_F(Objects, ImageIsChosenForOneRecordAlone) {
  put("red.png", encodePicture(plainPixels(20, 20, 0xFFFF0000), PictureFormat::png));
  session->newbutClick();
  mouse(WM_LBUTTONDOWN, 420, 40);
  mouse(WM_LBUTTONDBLCLK, 420, 40);
  chooser.answers = {folder / "red.png"};
  clickButton(L"Form10", kPictureOpenId);
  // A list of hits stays open beside the chooser.
  frame.act([this] { session->goToRecord(1); });
  EXPECT_FALSE(::IsWindowVisible(window(L"Form10")));
  EXPECT_TRUE(::IsWindowEnabled(frame.handle()));
  EXPECT_FALSE(session->dirty());
}

// As large as a camera makes them.
class Photographs : public ImageDecoder {
 public:
  std::shared_ptr<Image> decode(const Bytes&) override { return std::make_shared<Photograph>(); }

 private:
  struct Photograph : Image {
    SizePx size() const override { return {6000, 4000}; }
  };
};

TEST_F(Objects, HoldsFewPhotographsInMemory) {
  Photographs photographs;
  PictureFiles files(systemFiles(), photographs);
  files.attach(*session);
  std::vector<std::weak_ptr<Image>> seen;
  for (const char* stem : {"00000001", "00000002", "00000003"}) {
    put(std::string("BoardPics/") + stem, {1});
    session->newbutClick();
    session->changeForm([stem](RecordForm& form) { form.pictures[0].stem = stem; });
    seen.push_back(files.dataPicture(0));
  }
  EXPECT_TRUE(seen[0].expired());
  EXPECT_EQ(seen[2].lock(), files.dataPicture(0));
}

}  // namespace
}  // namespace plinth
