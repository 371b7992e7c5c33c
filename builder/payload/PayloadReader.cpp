// See PayloadReader.h. Also the readers of whole files, which find the payload through the trailer.
#include "builder/payload/PayloadReader.h"

#include <algorithm>

#include "basic/Substitution.h"
#include "builder/payload/ImageHeader.h"
#include "builder/payload/PayloadFile.h"
#include "builder/payload/PayloadWalk.h"
#include "reports/block/ReportArchive.h"

namespace plinth {

namespace {

constexpr std::int64_t kTrailer = 4;
constexpr std::size_t kMostPadding = 7;  // certificate tables begin at multiples of 8
constexpr int kReportVersion = 22;       // applications hold reports in the newest form only

}  // namespace

PayloadReader::PayloadReader(std::span<const std::uint8_t> exe, std::int64_t start, std::int64_t end)
    : exe_(exe),
      reader_(exe.first(static_cast<std::size_t>(end - 1)), start),
      biasPos_(kBiasStart),
      itemsLeft_(kPayloadItemLimit) {}

void PayloadReader::fail(const char* name) {
  problem_ = section_;
  if (row_ >= 0) problem_ += " " + std::to_string(row_);
  problem_ += std::string(", ") + name + ": damaged at position " + std::to_string(reader_.position());
}

void PayloadReader::paired(std::int16_t& low, std::int16_t& high, const char* name) {
  std::int16_t both = 0;
  slot(both, Tag::i2, name);
  if (!ok()) return;
  low = static_cast<std::int16_t>(both & 0xFF);
  high = static_cast<std::int16_t>((both >> 8) & 0xFF);
}

void PayloadReader::reserved(const char* name) {
  if (!ok()) return;
  SlotValue ignored;
  if (!reader_.slot(ignored)) fail(name);
}

void PayloadReader::text(std::string& value, const char* name) {
  if (!ok()) return;
  biasPos_ += 2;
  if (biasPos_ > static_cast<std::int64_t>(exe_.size()) ||
      !reader_.biasedText(value, exe_[static_cast<std::size_t>(biasPos_ - 1)])) {
    fail(name);
  }
}

void PayloadReader::scrambled(std::string& value, const char* name) {
  std::string stored;
  text(stored, name);
  if (ok()) value = unscrambleText(stored);
}

void PayloadReader::file(EmbeddedFile& file, const char* name) {
  std::string storedName;
  text(storedName, name);
  if (!ok() || storedName.empty()) return;
  std::int32_t lessOne = 0;
  if (!reader_.i32(lessOne) || !reader_.block(file.bytes, std::int64_t{lessOne} + 1)) {
    fail(name);
    return;
  }
  file.storedName = storedName;
}

void PayloadReader::textList(std::vector<std::string>& items, const char* name) {
  std::int32_t count = 0;
  slot(count, Tag::i4, name);
  items.clear();
  if (!ok() || count <= 0) return;
  itemsLeft_ -= count;
  if (itemsLeft_ < 0 || count > reader_.remaining() / 2) {
    fail(name);
    return;
  }
  for (std::int32_t i = 0; i < count && ok(); ++i) {
    items.emplace_back();
    text(items.back(), name);
  }
}

int PayloadReader::highestIndex(int limit) {
  std::int16_t highest = -1;
  slot(highest, Tag::i2, "highest index");
  if (!ok()) return -1;
  if (highest > limit) fail("highest index");
  return ok() ? highest : -1;
}

void PayloadReader::reports(std::vector<ReportRow>& reports, int limit) {
  std::int16_t count = 0;
  slot(count, Tag::i2, "number of reports");
  if (ok() && count > limit) fail("number of reports");
  for (row_ = 0; row_ < count && ok(); ++row_) {
    ReportRow& report = reports.emplace_back();
    text(report.title, "title");
    if (ok() && !report.title.empty()) readReport(reader_, report, kReportVersion);
    if (ok() && reader_.failures() > 0) fail("report");
    if (!ok()) reports.pop_back();
  }
  row_ = -1;
}

namespace {

// The payload whose trailer ends at `length` bytes from the start of the file.
PayloadResult readBefore(std::span<const std::uint8_t> exe, std::size_t length) {
  PayloadResult result;
  const std::int64_t end = static_cast<std::int64_t>(length) - kTrailer + 1;  // position of the trailer
  std::int32_t payloadLength = 0;
  SlotReader trailer(exe.first(length), std::max<std::int64_t>(end, 1));
  if (end < 1 || !trailer.i32(payloadLength) || payloadLength <= 0 || payloadLength >= end) {
    result.problem = "no payload: the trailer is damaged";
    return result;
  }
  PayloadReader reader(exe.first(length), end - payloadLength, end);
  walkPayload(reader, result.payload);
  result.problem = reader.problem();
  if (reader.ok() && reader.position() != end) {
    result.problem = "the payload ends at position " + std::to_string(reader.position()) +
                     " rather than at " + std::to_string(end);
  }
  result.complete = result.problem.empty();
  return result;
}

}  // namespace

PayloadResult readPayloadPart(std::span<const std::uint8_t> exe) {
  PayloadResult result = readBefore(exe, exe.size());
  if (result.complete) return result;
  // Signed after it was made: the signature stands behind the trailer, and up to seven bytes before it.
  const auto header = findImageHeader(exe);
  const auto table = header ? certificateTable(exe, *header) : std::nullopt;
  if (!table) return result;
  Bytes content(exe.begin(), exe.begin() + static_cast<std::ptrdiff_t>(*table));
  // The header may stand behind its own table in a file that nobody's linker made.
  if (header->checkSum + 4 > *table || header->certificates + 8 > *table) return result;
  clearSignedFields(content, *header);
  for (std::size_t padding = 0; padding <= kMostPadding && padding < *table; ++padding) {
    if (padding > 0 && content[*table - padding] != 0) break;
    PayloadResult beforeTable = readBefore(content, *table - padding);
    if (beforeTable.complete) return beforeTable;
  }
  return result;
}

Result<Payload> readPayload(std::span<const std::uint8_t> exe) {
  PayloadResult result = readPayloadPart(exe);
  if (!result.complete) return Error{ErrorKind::damaged, result.problem};
  return std::move(result.payload);
}

}  // namespace plinth
