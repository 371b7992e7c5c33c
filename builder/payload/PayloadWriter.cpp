// See PayloadWriter.h. Also the writer of whole files.
#include "builder/payload/PayloadWriter.h"

#include <algorithm>
#include <limits>

#include "basic/Substitution.h"
#include "builder/payload/ImageHeader.h"
#include "builder/payload/PayloadWalk.h"
#include "reports/block/ReportArchive.h"

namespace plinth {

PayloadWriter::PayloadWriter(Bytes& image, std::vector<std::string>& cutTexts, const SectionDone& sectionDone)
    : image_(image),
      cutTexts_(cutTexts),
      sectionDone_(sectionDone),
      writer_(image, static_cast<std::int64_t>(image.size())),
      start_(static_cast<std::int64_t>(image.size())),
      itemsLeft_(kPayloadItemLimit) {}

std::string PayloadWriter::place(const char* name) const {
  std::string text = section_;
  if (row_ >= 0) text += " " + std::to_string(row_);
  return text + ", " + name;
}

void PayloadWriter::tooMany() {
  if (ok()) error_ = {ErrorKind::full, std::string(section_) + ": more entries than an application can hold"};
}

void PayloadWriter::paired(std::int16_t low, std::int16_t high, const char* name) {
  slot(static_cast<std::int16_t>((low & 0xFF) | (high & 0x7F) << 8), Tag::i2, name);
}

void PayloadWriter::text(const std::string& value, const char* name) {
  biasPos_ += 2;
  if (biasPos_ > static_cast<std::int64_t>(image_.size())) {
    error_ = {ErrorKind::damaged, place(name) + ": the engine's image is too short"};
    return;
  }
  if (writer_.biasedText(value, image_[static_cast<std::size_t>(biasPos_ - 1)]) > 0)
    cutTexts_.push_back(place(name));
}

void PayloadWriter::scrambled(const std::string& value, const char* name) { text(scrambleText(value), name); }

void PayloadWriter::file(const EmbeddedFile& file, const char* name) {
  text(file.storedName, name);
  if (file.storedName.empty()) return;
  if (file.bytes.size() > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max())) {
    error_ = {ErrorKind::full, place(name) + ": the file is too large"};
    return;
  }
  writer_.i32(static_cast<std::int32_t>(static_cast<std::int64_t>(file.bytes.size()) - 1));
  writer_.block(file.bytes);
}

void PayloadWriter::textList(const std::vector<std::string>& items, const char* name) {
  itemsLeft_ -= static_cast<std::int64_t>(items.size());
  if (itemsLeft_ < 0) {
    tooMany();
    return;
  }
  slot(static_cast<std::int32_t>(items.size()), Tag::i4, name);
  for (const std::string& item : items) text(item, name);
}

int PayloadWriter::highestIndex(std::int64_t size, int first, int limit) {
  // Tables that begin at 1 say 0 when they are empty, those that begin at 0 say -1.
  const std::int64_t highest = std::max<std::int64_t>(size - 1, first - 1);
  if (highest > limit) {
    tooMany();
    return -1;
  }
  slot(static_cast<std::int16_t>(highest), Tag::i2, "highest index");
  return static_cast<int>(highest);
}

void PayloadWriter::reports(const std::vector<ReportRow>& reports, int limit) {
  if (reports.size() > static_cast<std::size_t>(limit)) {
    tooMany();
    return;
  }
  slot(static_cast<std::int16_t>(reports.size()), Tag::i2, "number of reports");
  for (row_ = 0; row_ < static_cast<int>(reports.size()); ++row_) {
    const ReportRow& report = reports[static_cast<std::size_t>(row_)];
    text(report.title, "title");
    if (!report.title.empty() && writeReport(writer_, report) > 0) cutTexts_.push_back(place("texts"));
  }
  row_ = -1;
}

void PayloadWriter::finishSection() {
  if (sectionDone_ && ok() && !sectionDone_(++sectionsDone_, kPayloadSections)) {
    error_ = {ErrorKind::failed, "cancelled"};
  }
}

void PayloadWriter::trailer() {
  const std::int64_t payloadLength = writer_.position() - start_;
  if (payloadLength > std::numeric_limits<std::int32_t>::max()) {
    error_ = {ErrorKind::full, "the application is too large"};
    return;
  }
  writer_.i32(static_cast<std::int32_t>(payloadLength));
}

Result<ApplicationImage> writeApplication(Bytes stampedStub, const Payload& payload,
                                          const SectionDone& sectionDone) {
  if (stampedStub.size() < kSmallestStub)
    return Error{ErrorKind::damaged, "the engine's image is missing or damaged"};
  if (const auto header = findImageHeader(stampedStub)) clearSignedFields(stampedStub, *header);
  ApplicationImage image{std::move(stampedStub), {}};
  PayloadWriter writer(image.bytes, image.cutTexts, sectionDone);
  walkPayload(writer, payload);
  if (writer.ok()) writer.trailer();
  if (!writer.ok()) return writer.error();
  return image;
}

}  // namespace plinth
