// Query lines over records of any bytes: whatever somebody types and whatever the file holds, a command ends,
// counts no more than there is, and a replacement neither grows the file nor leaves its records.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "engine/FlatRecordStore.h"
#include "engine/search/QueryRun.h"
#include "tests/engine/EngineFixture.h"

using namespace plinth;

namespace {

constexpr const char* kPath = "/app/Shop.dbd";

Application fuzzApplication(bool scramble) {
  Payload p = shopPayload();
  for (int kind = 0; kind <= 23; ++kind)
    p.fields.push_back(fieldRow("k" + std::to_string(kind), kind, kind == 13 ? 0 : 9));
  p.fields[1].dummyField = -1;
  p.header.scrambleData = scramble;
  return makeApplication(std::move(p));
}

// Runs the line; records: what stands behind the header.
void runLine(std::string_view line, std::span<const std::uint8_t> records, int flags) {
  const Application app = fuzzApplication(flags & 1);
  const auto disk = std::make_shared<MemoryDisk>();
  MemoryFiles files(disk);
  MemorySharedFiles shared(disk);
  const auto recLen = static_cast<std::size_t>(computeLayout(app)->recLen);
  Bytes all(recLen - 1);
  all.insert(all.end(), records.begin(), records.end());
  files.put(kPath, all);
  auto store =
      FlatRecordStore::open(shared, files, app, englishLocale(), {kPath, false, false, kTestNow, ""});
  if (!store) return;

  const bool matchCase = flags & 2, upward = flags & 4;
  const QueryContext context{app, (*store)->layout(), englishLocale(), matchCase, kTestNow, {}};
  const Query query = parseQuery(line, context);
  if (query.verb != queryVerb(line)) std::abort();
  NoProgress progress;
  const QueryRunRequest request{**store, app, matchCase, upward, progress, {}, {}, nullptr, englishLocale()};
  const QueryOutcome outcome = runQuery(query, request);

  const auto rows = static_cast<std::int64_t>(std::max<std::size_t>(query.conditions.size(), 1));
  if (outcome.hits > (*store)->count() * rows) std::abort();
  const Bytes& after = disk->find(kPath)->bytes;
  if (after.size() != all.size() ||
      !std::equal(all.begin(), all.begin() + static_cast<int>(recLen) - 1, after.begin()))
    std::abort();
  if (query.verb != QueryVerb::replace && after != all) std::abort();
}

}  // namespace

// The first byte is the flags, then comes the line, up to the first line end, then the records.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::uint8_t* end = std::find(data + 1, data + size, std::uint8_t{'\n'});
  const std::string line(data + 1, end);
  const std::uint8_t* records = end == data + size ? end : end + 1;
  runLine(line, {records, data + size}, data[0]);
  return 0;
}
