// Index files beside a small data file: whatever they hold, sorting gives each record once.
#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "engine/search/SortRecords.h"
#include "tests/engine/EngineFixture.h"

using namespace plinth;

namespace {

constexpr std::int32_t kRecords = 12;

void expectEachRecordOnce(std::vector<std::int32_t> order, std::int32_t count) {
  std::sort(order.begin(), order.end());
  for (std::int32_t n = 1; n <= count; ++n)
    if (order.size() != static_cast<std::size_t>(count) || order[static_cast<std::size_t>(n - 1)] != n)
      std::abort();
}

}  // namespace

// The first byte says which field the index is of, the others are the file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  MemoryFiles files;
  MemorySharedFiles shared(files.disk);
  const Application application = makeApplication(shopPayload());
  const DataFile file{"/app/", "Shop.dbd", false};
  const RecordLayout layout = *computeLayout(application);
  files.put(file.path(), Bytes(static_cast<std::size_t>(layout.recLen * (kRecords + 1) - 1), ' '));
  const auto store = FlatRecordStore::open(shared, files, application, englishLocale(), {.path = file.path()});
  if (!store) std::abort();
  const RecordKey key = *keyOf(application, layout, {FocusKind::field, 1 + data[0] % 4});
  const Bytes index(data + 1, data + size);
  for (const IndexDirection direction : {IndexDirection::down, IndexDirection::up}) {
    const std::string path = indexFilePath(file, key.label, direction, application.codePage);
    files.put(path, index);
    auto reader = IndexReader::open(shared, path, direction);
    if (!reader || reader->count() < 0) std::abort();
    while (const auto line = reader->line())
      if (line->size() > size) std::abort();
  }
  NoProgress progress;
  const auto sorted = sortRecords(key, {**store, application, shared, file, englishLocale(), progress, {}});
  if (!sorted) std::abort();
  expectEachRecordOnce(sorted->order, kRecords);
  return 0;
}
