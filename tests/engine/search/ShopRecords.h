// Records of the shop on a disk in memory, made by a few words each, for searches over stored bytes.
#pragma once

#include <utility>

#include "basic/DateSerial.h"
#include "engine/search/RecordKey.h"
#include "tests/engine/EngineFixture.h"

namespace plinth {

struct ShopRecords {
  explicit ShopRecords(const Payload& payload = shopPayload()) : application(makeApplication(payload)) {
    store = open();
  }
  ShopRecords(const ShopRecords&) = delete;
  ShopRecords& operator=(const ShopRecords&) = delete;

  // A handle of its own, as another program has one.
  std::unique_ptr<FlatRecordStore> open() {
    return std::move(*FlatRecordStore::open(shared, files, application, englishLocale(),
                                            {data.path(), true, false, kTestNow, "Shop"}));
  }
  RecordForm form() const { return makeRecordForm(application); }
  std::int32_t add(const RecordForm& form) {
    const std::int32_t record = *store->append();
    EXPECT_TRUE(store->save(record, form).ok());
    store->unlock(record);
    return record;
  }
  // A record with these texts in fields 1, 2, ...; a field of dates takes yyyy-mm-dd.
  std::int32_t add(const std::vector<std::string>& texts) {
    RecordForm record = form();
    for (std::size_t i = 0; i < texts.size(); ++i) {
      FormField& field = record.fields[i + 1];
      field.text = texts[i];
      if (isDateKind(application.field(static_cast<int>(i) + 1).fieldType))
        field.date = readDate(texts[i], englishLocale(), 0).value_or(0);
    }
    return add(record);
  }
  RecordKey key(FocusKind kind, int index) const {
    return keyOf(application, store->layout(), {kind, index}).value();
  }
  void write(const std::string& path, const std::string& text) {
    EXPECT_TRUE(files.write(path, {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()}).ok());
  }

  std::shared_ptr<MemoryDisk> disk = std::make_shared<MemoryDisk>();
  MemoryFiles files{disk};
  MemorySharedFiles shared{disk};
  DataFile data{"/app/", "Shop.dbd", false};
  Application application;
  std::unique_ptr<FlatRecordStore> store;
};

}  // namespace plinth
