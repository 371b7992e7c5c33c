// The one walk over the objects that take part in a record, in file order.
#include "engine/RecordLayout.h"

namespace plinth {
namespace {

class Cursor {
 public:
  // The position for `size` bytes, then moves behind them.
  std::int32_t take(std::int64_t size) {
    const std::int64_t here = position_;
    position_ += size < 0 ? 0 : size;
    return here <= kMaxRecLen ? static_cast<std::int32_t>(here) : kMaxRecLen;
  }
  std::int64_t position() const { return position_; }

 private:
  std::int64_t position_ = 1;
};

}  // namespace

std::int32_t storedSize(int kind, std::int32_t maxLength) {
  if (kind == 5) return 4;
  if (isNumberKind(kind) || isDateKind(kind)) return 8;
  return maxLength;
}

Result<RecordLayout> computeLayout(const Application& application) {
  const Payload& p = application.payload;
  RecordLayout layout;
  layout.fields.resize(p.fields.size());
  layout.combos.resize(p.combos.size());
  layout.checks.resize(p.checks.size());
  layout.pictures.resize(p.pictures.size());
  layout.memos.resize(p.memos.size());
  Cursor cursor;
  for (int n = 1; n <= application.fieldCount(); ++n) {
    if (!application.storesField(n)) continue;
    const PayloadField& field = application.field(n);
    layout.fields[static_cast<std::size_t>(n)] = cursor.take(storedSize(field.fieldType, field.fieldLength));
    ++layout.columns;
  }
  // Rows of the other kinds: all take part but for deleted ones.
  const auto lay = [&](const auto& rows, std::vector<std::int32_t>& offsets, auto size, bool columns) {
    for (std::size_t i = 0; i < rows.size(); ++i) {
      if (!Application::live(rows[i].page)) continue;
      const std::int64_t bytes = size(rows[i]);
      if (bytes < 0) continue;
      offsets[i] = cursor.take(bytes);
      layout.columns += columns;
    }
  };
  const auto length = [](const auto& row) -> std::int64_t { return row.fieldLength; };
  lay(p.combos, layout.combos, length, true);
  lay(
      p.checks, layout.checks, [](const auto&) -> std::int64_t { return 1; }, true);
  lay(
      p.pictures, layout.pictures,
      [](const PayloadPicture& picture) -> std::int64_t { return picture.isData() ? kPictureStemSize : -1; },
      false);
  lay(p.memos, layout.memos, length, true);
  if (application.hasDateStamp()) layout.dateStamp = cursor.take(kDateStampSize);
  if (application.varObjects) layout.variableArea = cursor.take(kVariableAreaSize);
  if (cursor.position() > kMaxRecLen)
    return Error{ErrorKind::damaged, "A record of this application would take more than 64 MiB."};
  layout.recLen = static_cast<std::int32_t>(cursor.position());
  return layout;
}

}  // namespace plinth
