// Projects that others saved become applications that hold all of them.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "builder/CreateApplication.h"
#include "builder/payload/PayloadFile.h"
#include "model/ProjectFile.h"
#include "tests/fakes/FakeMessages.h"
#include "tests/fakes/MemoryFiles.h"

namespace plinth {
namespace {

TEST(CreateFromFixtures, EveryObjectArrives) {
  for (const std::string name : {"contacts", "invoice", "old-v15"}) {
    std::ifstream file(PLINTH_TEST_DATA "/fixtures/" + name + ".qvf", std::ios::binary);
    const Bytes bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    MemoryPictures pictures;
    ProjectDocument document = readProject(bytes, pictures).document;
    MemoryFiles files;
    FakeMessages messages;
    NoProgress progress;
    const Bytes stub(5000, 3), icon;
    CompileApp compile({.files = files,
                        .messages = messages,
                        .progress = progress,
                        .pictures = pictures,
                        .labelText = [](int) { return std::string(); },
                        .programFolder = "/plinth/",
                        .stub = stub,
                        .defaultIcon = icon});
    CreateRequest request;
    request.name = initialApplicationName(document);
    const CreateResult result = compile.run(document, request);
    ASSERT_TRUE(result.ok()) << name << result.problem;
    const Result<Payload> payload = readPayload(*files.read(result.executable));
    ASSERT_TRUE(payload.ok()) << name << payload.error().text;
    EXPECT_EQ(payload->fields.size(), document.fields.size());
    EXPECT_EQ(payload->combos.size(), document.combos.size());
    EXPECT_EQ(payload->titles.size(), document.titles.size());
    EXPECT_EQ(payload->reports.size(), document.reports.size());
    for (std::size_t i = 1; i < document.fields.size(); ++i)
      EXPECT_EQ(payload->fields[i].tag, document.fields[i].tag);
    for (std::size_t i = 1; i < document.combos.size(); ++i)
      EXPECT_EQ(payload->combos[i].items, document.combos[i].items);
    for (std::size_t i = 0; i < document.pictures.size(); ++i) {
      const PictureRow& row = document.pictures[i];
      if (isLivePage(row.page)) {
        EXPECT_EQ(payload->pictures[i].isData(), row.picFlag) << name << " picture " << i;
      }
    }
    for (std::size_t i = 0; i < document.reports.size(); ++i) {
      EXPECT_EQ(payload->reports[i].labels.size(), document.reports[i].labels.size());
    }
    EXPECT_EQ(payload->header.runMessages, document.menuText);
    EXPECT_TRUE(messages.shown.empty());
  }
}

// What the tool window offers: one size, and see-through, as they lie on any page.
TEST(ToolImages, AreAllThereAndTransparent) {
  for (int number = 100000; number <= 100064; ++number) {
    const std::string name = std::to_string(number) + ".GIF";
    std::ifstream file(PLINTH_TEST_DATA "/../../Images/" + name, std::ios::binary);
    const std::string gif{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    EXPECT_EQ(gif.substr(0, 10), std::string("GIF89a\x20\0\x20\0", 10)) << name;
    EXPECT_NE(gif.find(std::string("\x21\xF9\x04\x01", 4)), std::string::npos) << name;
  }
}

}  // namespace
}  // namespace plinth
