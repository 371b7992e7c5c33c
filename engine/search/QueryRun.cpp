// One pass in large blocks: records are tested some hundred at a time where they were read, and only hits
// cost more.
#include "engine/search/QueryRun.h"

#include <algorithm>

#include "engine/search/BlockReader.h"
#include "engine/search/ConditionTest.h"

namespace plinth {
namespace {

class QueryPass {
 public:
  QueryPass(const Query& query, const QueryRunRequest& request)
      : query_(query), request_(request), recLen_(static_cast<std::size_t>(request.store.layout().recLen)) {
    std::int32_t first = request.store.layout().recLen, end = 0;
    for (const QueryCondition& condition : query.conditions) {
      tests_.emplace_back(condition, request.application, request.locale, request.matchCase);
      first = std::min(first, condition.key.position);
      end = std::max(end, condition.key.position + condition.key.length);
    }
    // What is replaced in a record whose end is missing would stand behind a gap.
    const bool whole = query.verb == QueryVerb::replace;
    part_ =
        whole ? BlockReader::Part{0, request.store.layout().recLen} : BlockReader::Part{first, end - first};
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
    all_ = count;
    BlockReader reader(request_.store, {1, count, down}, part_);
    while (const auto block = reader.next()) {
      const SlotRun run{block->slots.data(), recLen_};
      const auto recordOf = [&block](std::int32_t row) { return block->first + row; };
      const auto lost = reader.unreadable();
      for (std::int32_t done = 0; done < block->count; done += kRecordsPerStep) {
        const std::int32_t batch = std::min(kRecordsPerStep, block->count - done);
        rows_.clear();
        for (std::int32_t i = done; i < done + batch; ++i) {
          const std::int32_t row = down ? block->count - 1 - i : i;
          if (!lost.empty() && std::binary_search(lost.begin(), lost.end(), recordOf(row)))
            lose(recordOf(row));
          else
            rows_.push_back(row);
        }
        if (!look(run, recordOf) || !step(batch)) return;
      }
    }
  }

  void overGiven(const std::vector<std::int32_t>& records) {
    all_ = static_cast<std::int64_t>(records.size());
    Bytes slot(recLen_);
    const auto part = std::span(slot).subspan(static_cast<std::size_t>(part_.position),
                                              static_cast<std::size_t>(part_.length));
    for (const std::int32_t record : records) {
      rows_.clear();
      if (request_.store.readPart(record, part_.position, part))
        rows_.push_back(0);
      else
        lose(record);
      if (!look({slot.data(), recLen_}, [record](std::int32_t) { return record; }) || !step(1)) return;
    }
  }

  // Tells of the work when enough is done since the last time. False: cancelled.
  bool step(std::int32_t records) {
    done_ += records;
    if (done_ < all_ && done_ - told_ < kRecordsPerStep) return true;
    told_ = done_;
    outcome_.cancelled = !request_.progress.step(done_, all_);
    return !outcome_.cancelled;
  }

  // Evaluates rows_ of a run. False stops the pass.
  template <class RecordOf>
  bool look(SlotRun run, RecordOf recordOf) {
    if (listed_) {
      for (const ConditionTest& test : tests_) test.keep(run, rows_);
      for (const std::int32_t row : rows_)
        if (!hit(recordOf(row))) return false;
      return true;
    }
    for (const ConditionTest& test : tests_) {
      kept_ = rows_;
      const bool counts = query_.verb == QueryVerb::count;
      if (counts || test.hasOperator()) test.keep(run, kept_);
      outcome_.hits += counts ? static_cast<std::int64_t>(kept_.size()) : test.add(run, kept_, total_);
    }
    return true;
  }

  bool hit(std::int32_t record) {
    return query_.verb == QueryVerb::replace ? replaceIn(record) : found(record);
  }

  bool found(std::int32_t record) {
    ++outcome_.hits;
    if (request_.hit) request_.hit(record);
    return true;
  }

  bool replaceIn(std::int32_t record) {
    for (const QueryReplacement& replacement : query_.replacements) {
      const Result<void> written = request_.store.writePart(record, replacement.position, replacement.bytes);
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
  bool listed_ = false;  // all conditions together decide, in the direction asked for
  std::size_t recLen_;
  SlotRows rows_, kept_;
  std::int64_t done_ = 0, told_ = 0, all_ = 0;
  QueryTotal total_;
  QueryOutcome outcome_;
};

}  // namespace

QueryOutcome runQuery(const Query& query, const QueryRunRequest& request) {
  return QueryPass(query, request).run();
}

}  // namespace plinth
