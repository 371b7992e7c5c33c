// A store whose records are written byte by byte, so that keys, padding and neighbours are all in sight.
#pragma once

#include <cstring>
#include <string>
#include <vector>

#include "basic/Substitution.h"
#include "engine/search/IndexFiles.h"
#include "engine/search/RecordKey.h"
#include "tests/engine/EngineFixture.h"
#include "tests/fakes/FakeProgress.h"

namespace plinth {

// Fields 1 Name (text), 2 Price (kind 2), 3 Count (5), 4 Due (6), 5 Total (2), 6 Ratio (1), 7 Hour (11); C1,
// K0, M1.
struct SortFixture {
  explicit SortFixture(bool scramble = false) {
    Payload p = shopPayload();
    p.fields.push_back(fieldRow("Ratio", 1, 10));
    p.fields.push_back(fieldRow("Hour", 11, 8));
    p.header.scrambleData = scramble;
    app = makeApplication(p);
    store = std::move(*FlatRecordStore::open(shared, files, app, englishLocale(),
                                             {data.path(), true, false, kTestNow, app.title}));
  }
  RecordKey key(FocusKind kind, int index) const { return *keyOf(app, store->layout(), {kind, index}); }
  RecordKey field(int n) const { return key(FocusKind::field, n); }

  // One record more: blanks, but for the key's bytes.
  void add(const RecordKey& at, const Bytes& bytes) {
    Bytes& file = disk->find(data.path())->bytes;
    Bytes slot(static_cast<std::size_t>(store->layout().recLen), ' ');
    std::copy(bytes.begin(), bytes.end(), slot.begin() + at.position);
    if (app.scrambleData) scrambleInPlace(slot);
    file.insert(file.end(), slot.begin(), slot.end());
    static_cast<void>(store->refreshCount());
  }
  void addText(const RecordKey& at, const std::string& text) { add(at, Bytes(text.begin(), text.end())); }
  template <class T>
  void addNumber(const RecordKey& at, T value) {
    Bytes bytes(sizeof value);
    std::memcpy(bytes.data(), &value, sizeof value);
    add(at, bytes);
  }
  Result<IndexEnd> build(const RecordKey& at) {
    return buildIndex(*store, at, data, app, englishLocale(), shared, progress, {});
  }
  std::string index(const std::string& label, const std::string& direction) const {
    return files.textOf("/data/Shop" + label + "-" + direction + ".inx");
  }

  std::shared_ptr<MemoryDisk> disk = std::make_shared<MemoryDisk>();
  MemoryFiles files{disk};
  MemorySharedFiles shared{disk};
  DataFile data{"/data/", "shop.dbd", false};
  FakeProgress progress;
  Application app;
  std::unique_ptr<RecordStore> store;
};

}  // namespace plinth
