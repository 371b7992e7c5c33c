// Images of records: numbers, files, and what becomes of them when something fails.
#include "engine/DataPictures.h"

#include <gtest/gtest.h>

#include "tests/engine/EngineFixture.h"

namespace plinth {
namespace {

struct AnyImage : Image {
  SizePx size() const override { return {4, 3}; }
};

// Everything that begins with "IMG" is an image.
struct MarkDecoder : ImageDecoder {
  std::shared_ptr<Image> decode(const Bytes& bytes) override {
    if (bytes.size() < 3 || bytes[0] != 'I' || bytes[1] != 'M' || bytes[2] != 'G') return nullptr;
    return std::make_shared<AnyImage>();
  }
};

Bytes bytesOf(std::string_view text) { return {text.begin(), text.end()}; }

// Picture 0 belongs to the design, 1 and 2 to the record.
Payload albumPayload() {
  Payload p = shopPayload();
  p.pictures.resize(3);
  for (PayloadPicture& row : p.pictures) row.page = 0;
  p.pictures[0].image.storedName = "logo.gif";
  return p;
}

struct Album {
  explicit Album(std::shared_ptr<MemoryDisk> disk = std::make_shared<MemoryDisk>(), bool readOnly = false)
      : user(albumPayload(), std::move(disk)) {
    if (readOnly) user.files.setReadOnly("/app/Shop.dbd", true);
    user.session->openData(false);
    user.messages.shown.clear();
  }
  std::string stem(std::size_t n) const { return user.session->form().pictures[n].stem; }
  User user;
  MarkDecoder decoder;
  DataPictures pictures{*user.session, user.files, user.messages, decoder};
};

TEST(DataPictures, NumbersItsFilesAndStepsOverThoseThatAreThere) {
  Album album;
  EXPECT_TRUE(album.pictures.store(1, bytesOf("IMG one"), "one"));
  EXPECT_EQ(album.stem(1), "00000001");
  EXPECT_EQ(album.user.files.textOf("/app/ShopPics/00000001"), "IMG one");
  album.user.files.put("/app/ShopPics/00000002", "IMG of another user");
  album.user.files.put("/photos/b.jpg", "IMG two");
  EXPECT_TRUE(album.pictures.storeFile(2, "/photos/b.jpg"));
  EXPECT_EQ(album.stem(2), "00000003");
  EXPECT_EQ(album.user.files.textOf("/app/ShopPics/00000002"), "IMG of another user");
  EXPECT_EQ(album.user.session->dataPictureFile(2), "/app/ShopPics/00000003");
  ASSERT_TRUE(album.user.session->saveRecord());

  Album again(album.user.files.disk);
  EXPECT_EQ(again.stem(1), "00000001");
  // The image before stays on disk: the record may yet not be saved.
  EXPECT_TRUE(again.pictures.store(1, bytesOf("IMG new"), ""));
  EXPECT_EQ(again.stem(1), "00000004");
  EXPECT_EQ(again.user.files.textOf("/app/ShopPics/00000001"), "IMG one");
  EXPECT_TRUE(again.pictures.clear(1));
  EXPECT_EQ(again.stem(1), "");
  EXPECT_TRUE(again.user.session->dirty());
}

TEST(DataPictures, ChangesNothingWhenItCannotKeepTheImage) {
  using Spoil = void (*)(Album&);
  const struct {
    const char* what;
    Spoil spoil;
    int n;
    const char* path;
    const char* message;  // part of it, "": silent
  } rows[] = {
      {"no image", [](Album&) {}, 1, "/photos/text.txt", "text.txt"},
      {"empty", [](Album&) {}, 1, "/photos/empty", "empty"},
      {"no such file", [](Album&) {}, 1, "/photos/none", "Error"},
      {"of the design", [](Album&) {}, 0, "/photos/a.jpg", ""},
      {"no such picture", [](Album&) {}, 3, "/photos/a.jpg", ""},
      {"below all", [](Album&) {}, -1, "/photos/a.jpg", ""},
      {"disk", [](Album& a) { a.user.files.disk->failWrites = ErrorKind::full; }, 1, "/photos/a.jpg",
       "Error"},
      {"counter spoiled", [](Album& a) { static_cast<void>(a.user.session->store()->setPictureCounter(-5)); },
       1, "/photos/a.jpg", nullptr},
      {"counter at its end",
       [](Album& a) { static_cast<void>(a.user.session->store()->setPictureCounter(99'999'999)); }, 1,
       "/photos/a.jpg", nullptr},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    Album album;
    album.user.files.put("/photos/a.jpg", "IMG");
    album.user.files.put("/photos/text.txt", "text");
    album.user.files.put("/photos/empty", "");
    ASSERT_TRUE(album.user.session->saveRecord());
    row.spoil(album);
    const bool kept = album.pictures.storeFile(row.n, row.path);
    EXPECT_EQ(kept, row.message == nullptr);
    EXPECT_EQ(album.stem(1), kept ? "00000001" : "");
    EXPECT_EQ(album.user.session->dirty(), kept);
    if (kept || *row.message == '\0') {
      EXPECT_TRUE(album.user.messages.shown.empty());
      continue;
    }
    ASSERT_EQ(album.user.messages.shown.size(), 1u);
    EXPECT_NE(album.user.messages.shown[0].text.find(row.message), std::string::npos);
  }
}

TEST(DataPictures, LeavesNoFileWhenAnotherUserHoldsTheRecord) {
  Album first;
  first.user.session->newbutClick();
  ASSERT_TRUE(first.user.session->saveRecord());
  Album second(first.user.files.disk);
  second.user.session->goToRecord(2);
  ASSERT_TRUE(first.user.session->beginEdit());
  EXPECT_FALSE(second.pictures.store(1, bytesOf("IMG"), ""));
  EXPECT_TRUE(second.user.files.list("/app/ShopPics").empty());
  EXPECT_EQ(second.stem(1), "");

  Album reader(first.user.files.disk, true);
  EXPECT_FALSE(reader.pictures.mayChange(1));
  EXPECT_FALSE(reader.pictures.store(1, bytesOf("IMG"), ""));
}

TEST(DataPictures, ReducesToTheBox) {
  const struct {
    SizePx image, box;
    bool ratio;
    SizePx result;
  } rows[] = {{{400, 200}, {100, 100}, true, {100, 50}},   {{400, 200}, {100, 100}, false, {100, 100}},
              {{50, 20}, {100, 100}, true, {50, 20}},      {{50, 200}, {100, 100}, false, {50, 100}},
              {{60000, 1}, {100, 100}, true, {100, 1}},    {{400, 200}, {0, 0}, true, {1, 1}},
              {{400, 200}, {-5, 100}, false, {1, 100}}};
  for (const auto& row : rows) {
    const SizePx size = reducedSize(row.image, row.box, row.ratio);
    EXPECT_EQ(size.width, row.result.width);
    EXPECT_EQ(size.height, row.result.height);
  }
}

}  // namespace
}  // namespace plinth
