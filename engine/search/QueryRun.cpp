// One pass in large blocks: every record is tested where it was read, and only hits cost more.
#include "engine/search/QueryRun.h"

#include <algorithm>

#include "engine/search/BlockReader.h"
#include "engine/search/ConditionTest.h"

namespace plinth {
namespace {

class QueryPass {
 public:
  QueryPass(const Query& query, const QueryRunRequest& request) : query_(query), request_(request) {
    std::int32_t first = request.store.layout().recLen, end = 0;
    for (const QueryCondition& condition : query.conditions) {
      tests_.emplace_back(condition, request.application, request.locale, request.matchCase);
      first = std::min(first, condition.key.position);
      end = std::max(end, condition.key.position + condition.key.length);
    }
    part_ = {first, end - first};
    listed_ = query.verb == QueryVerb::select || query.verb == QueryVerb::replace;
  }

  QueryOutcome run() {
    if (query_.verb == QueryVerb::plain || tests_.empty()) return {};
    if (query_.verb == QueryVerb::replace && query_.replacements.empty()) return {};
    if (request_.within)
      overGiven(*request_.within);
    else
      overAll();
    outcome_.total = total_.value();
    if (query_.verb == QueryVerb::sum && outcome_.hits > 0)
      outcome_.average = outcome_.total / static_cast<double>(outcome_.hits);
    return std::move(outcome_);
  }

 private:
  void overAll() {
    const std::int32_t count = request_.store.count();
    const bool down = listed_ && !request_.upward;
    const auto wide = static_cast<std::size_t>(request_.store.layout().recLen);
    all_ = count;
    BlockReader reader(request_.store, {1, count, down}, part_);
    while (const auto block = reader.next()) {
      const auto missing = reader.unreadable();
      for (std::int32_t i = 0; i < block->count; ++i) {
        const std::int32_t at = down ? block->count - 1 - i : i;
        const std::int32_t record = block->first + at;
        const bool readable =
            missing.empty() || !std::binary_search(missing.begin(), missing.end(), record);
        const std::uint8_t* slot = block->slots.data() + static_cast<std::size_t>(at) * wide;
        if (!look(record, readable ? slot : nullptr)) return;
      }
    }
  }

  void overGiven(const std::vector<std::int32_t>& records) {
    all_ = static_cast<std::int64_t>(records.size());
    Bytes slot(static_cast<std::size_t>(request_.store.layout().recLen));
    const auto part = std::span(slot).subspan(static_cast<std::size_t>(part_.position),
                                              static_cast<std::size_t>(part_.length));
    for (const std::int32_t record : records) {
      const bool readable = request_.store.readPart(record, part_.position, part).ok();
      if (!look(record, readable ? slot.data() : nullptr)) return;
    }
  }

  // slot: nullptr for a record that cannot be read. False stops the run.
  bool look(std::int32_t record, const std::uint8_t* slot) {
    if (!slot)
      lose(record);
    else if (!evaluate(record, slot))
      return false;
    if (++done_ % kRecordsPerStep != 0 || request_.progress.step(done_, all_)) return true;
    outcome_.cancelled = true;
    return false;
  }

  bool evaluate(std::int32_t record, const std::uint8_t* slot) {
    if (listed_) {
      for (const ConditionTest& test : tests_)
        if (!test.holds(slot)) return true;
      return query_.verb == QueryVerb::replace ? replaceIn(record) : found(record);
    }
    for (const ConditionTest& test : tests_) {
      if (query_.verb == QueryVerb::count)
        outcome_.hits += test.holds(slot);
      else if (!test.hasOperator() || test.holds(slot))
        outcome_.hits += test.add(slot, total_);
    }
    return true;
  }

  bool found(std::int32_t record) {
    ++outcome_.hits;
    if (request_.hit) request_.hit(record);
    return true;
  }

  bool replaceIn(std::int32_t record) {
    for (const QueryReplacement& replacement : query_.replacements) {
      const Result<void> written =
          request_.store.writePart(record, replacement.position, replacement.bytes);
      if (written) continue;
      const ErrorKind kind = written.error().kind;
      if (kind == ErrorKind::locked || kind == ErrorKind::notFound) {
        lose(record);
        return true;
      }
      outcome_.error = written.error();
      return false;
    }
    ++outcome_.hits;
    return true;
  }

  void lose(std::int32_t record) {
    if (request_.unreadable) request_.unreadable(record);
  }

  const Query& query_;
  const QueryRunRequest& request_;
  std::vector<ConditionTest> tests_;
  BlockReader::Part part_;
  bool listed_ = false;  // records are taken one by one, in the direction asked for
  std::int64_t done_ = 0, all_ = 0;
  QueryTotal total_;
  QueryOutcome outcome_;
};

}  // namespace

QueryOutcome runQuery(const Query& query, const QueryRunRequest& request) {
  return QueryPass(query, request).run();
}

}  // namespace plinth
