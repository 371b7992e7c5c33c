// One pass over the key's bytes, from an index as far as one reaches, else from the data in large blocks.
#include "engine/search/PlainSearch.h"

#include <algorithm>

#include "basic/CodePage.h"
#include "basic/Substitution.h"
#include "engine/search/BlockReader.h"
#include "engine/search/PlainTerms.h"

namespace plinth {
namespace {

class PlainPass {
 public:
  PlainPass(const PlainLine& line, std::vector<RecordKey> keys, const PlainSearchRequest& request)
      : line_(line),
        keys_(std::move(keys)),
        request_(request),
        context_{request.application, request.locale, request.matchCase, request.today},
        recLen_(request.store.layout().recLen),
        count_(request.store.count()) {
    if (line.wholeRecord) {
      keys_.clear();
      part_ = {0, recLen_};
      tests_.emplace_back(line_, RecordKey{}, context_);  // a key of text
      return;
    }
    std::int32_t first = recLen_, end = 0;
    for (const RecordKey& key : keys_) {
      first = std::min(first, key.position);
      end = std::max(end, endOf(key));
      tests_.emplace_back(line_, key, context_);
    }
    part_ = {first, end - first};
  }

  PlainOutcome run() {
    total_ = request_.within ? static_cast<std::int64_t>(request_.within->size()) : count_;
    if (request_.within)
      overGiven(*request_.within);
    else if (!overIndex())
      overData(1, count_);
    return outcome_;
  }

 private:
  // The last byte of a slot is nobody's, but a full area of free labels runs into it.
  std::int32_t endOf(const RecordKey& key) const {
    return key.type == KeyType::variableLabels ? recLen_ : key.position + key.length;
  }

  // Each of these returns false when the person cancelled.
  bool overData(std::int32_t first, std::int32_t last);
  bool overGiven(const std::vector<std::int32_t>& records);
  bool overLines(IndexReader& reader, std::int32_t first, std::int32_t last);
  // False when there is no index to use.
  bool overIndex();

  bool holds(std::span<std::uint8_t> slot) {
    if (line_.wholeRecord) return tests_.front().holds(slot);
    for (std::size_t i = 0; i < keys_.size(); ++i) {
      const auto from = static_cast<std::size_t>(keys_[i].position);
      const auto bytes = slot.subspan(from, static_cast<std::size_t>(endOf(keys_[i])) - from);
      if (request_.application.scrambleData) unscrambleInPlace(bytes);
      if (tests_[i].holds(bytes)) return true;
    }
    return false;
  }
  void found(std::int32_t record) {
    ++outcome_.hits;
    if (request_.hit) request_.hit(record);
  }
  void lose(std::int32_t record) {
    if (request_.unreadable) request_.unreadable(record);
  }
  bool next() {
    if (++done_ % kRecordsPerStep != 0 || request_.progress.step(done_, total_)) return true;
    outcome_.cancelled = true;
    return false;
  }

  const PlainLine& line_;
  std::vector<RecordKey> keys_;
  const PlainSearchRequest& request_;
  const PlainContext context_;
  const std::int32_t recLen_, count_;
  BlockReader::Part part_;
  std::vector<PlainTest> tests_;
  std::int64_t done_ = 0, total_ = 0;
  PlainOutcome outcome_;
};

bool PlainPass::overData(std::int32_t first, std::int32_t last) {
  const auto wide = static_cast<std::size_t>(recLen_);
  const bool down = !request_.upward;
  BlockReader reader(request_.store, {first, last, down}, part_);
  while (const auto block = reader.next()) {
    const auto missing = reader.unreadable();
    for (std::int32_t i = 0; i < block->count; ++i) {
      const std::int32_t at = down ? block->count - 1 - i : i;
      const std::int32_t record = block->first + at;
      if (!missing.empty() && std::binary_search(missing.begin(), missing.end(), record))
        lose(record);
      else if (holds(block->slots.subspan(static_cast<std::size_t>(at) * wide, wide)))
        found(record);
      if (!next()) return false;
    }
  }
  return true;
}

bool PlainPass::overGiven(const std::vector<std::int32_t>& records) {
  for (const std::int32_t record : records) {
    if (record >= 1 && record <= count_) {
      BlockReader reader(request_.store, {record, record}, part_, recLen_);
      const auto block = reader.next();
      if (!reader.unreadable().empty())
        lose(record);
      else if (block && holds(block->slots))
        found(record);
    }
    if (!next()) return false;
  }
  return true;
}

// The records first to last by the lines that come next, in the order of the run, and by the data from where
// the lines end.
bool PlainPass::overLines(IndexReader& reader, std::int32_t first, std::int32_t last) {
  while (first <= last) {
    const auto line = reader.line();
    if (!line) return overData(first, last);
    outcome_.usedIndex = true;
    const std::int32_t record = request_.upward ? first++ : last--;
    if (tests_.front().holdsLine(*line)) found(record);
    if (!next()) return false;
  }
  return true;
}

bool PlainPass::overIndex() {
  if (line_.wholeRecord || keys_.size() != 1 || !canIndex(keys_.front())) return false;
  const IndexDirection direction = request_.upward ? IndexDirection::up : IndexDirection::down;
  auto reader = IndexReader::open(
      request_.files,
      indexFilePath(request_.data, keys_.front().label, direction, request_.application.codePage), direction);
  if (!reader) return false;
  if (request_.upward) {
    overLines(*reader, 1, count_);
    return true;
  }
  // The lines begin with the record that was the last one: newer ones come before, lines of records that are
  // no longer there are passed over.
  const std::int32_t reach = std::min(reader->count(), count_);
  if (!overData(reach + 1, count_)) return true;
  for (std::int32_t beyond = reader->count(); beyond > reach; --beyond) {
    if (!reader->line()) break;
    if (beyond % kRecordsPerStep == 0 && !request_.progress.step(done_, total_)) {
      outcome_.cancelled = true;
      return true;
    }
  }
  overLines(*reader, 1, reach);
  return true;
}

}  // namespace

PlainOutcome runPlainSearch(std::string_view line, const RecordKey& key, const PlainSearchRequest& request) {
  const PlainLine plain = takePlainLineApart(line);
  if (plain.terms.empty()) return {};
  std::vector<RecordKey> keys;
  if (!plain.wholeRecord) keys = keysOfLabel(request.application, request.store.layout(), key);
  return PlainPass(plain, std::move(keys), request).run();
}

std::vector<RecordKey> keysOfLabel(const Application& application, const RecordLayout& layout,
                                   const RecordKey& key) {
  std::vector<RecordKey> keys{key};
  if (key.label.empty()) return keys;
  const auto addAll = [&](FocusKind kind, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
      const auto other = keyOf(application, layout, {kind, static_cast<int>(i)});
      if (other && other->object != key.object &&
          compareFolded(other->label, key.label, application.codePage) == 0)
        keys.push_back(*other);
    }
  };
  addAll(FocusKind::field, layout.fields.size());
  addAll(FocusKind::combo, layout.combos.size());
  addAll(FocusKind::check, layout.checks.size());
  addAll(FocusKind::memo, layout.memos.size());
  return keys;
}

}  // namespace plinth
