// Where records live. Sessions, the tool and exports know a store only by this interface, so that another
// store (over a database server, say) can take the flat file's place.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>

#include "basic/Locale.h"
#include "basic/Result.h"
#include "engine/RecordForm.h"
#include "engine/RecordLayout.h"

namespace plinth {

// The text of the error that append() reports when the store is full.
inline constexpr const char* kRecordLimitText = "Maximum Record Limited Reached";

class RecordStore {
 public:
  virtual ~RecordStore() = default;

  // Nothing can be written: the file's attribute or the opener's wish.
  virtual bool readOnly() const = 0;
  // Number of records as of the last refreshCount() or append().
  virtual std::int32_t count() const = 0;
  // Counts afresh, so that records appended by others appear.
  virtual Result<std::int32_t> refreshCount() = 0;

  // Reads one record into `form`. record: 1 to count(). Cost: one positioned read. Errors: locked (another
  // user edits it), notFound (no such record), damaged (part of it is missing), failed with the system's
  // text; `form` is then unchanged. Does not recompute formulas and does not touch locks, titles or
  // form.record.
  virtual Result<void> load(std::int32_t record, RecordForm& form) = 0;
  // Writes the form at `record`. Errors: full (disk), locked, denied, failed.
  virtual Result<void> save(std::int32_t record, const RecordForm& form) = 0;

  // The lock on one record against other users, at most one at a time; fails at once with error locked.
  // Record 1 is never locked. unlock() of a record that is not locked does nothing.
  virtual Result<void> lock(std::int32_t record) = 0;
  virtual void unlock(std::int32_t record) = 0;

  // Reserves the next record number and leaves it locked (record 1 only until it is saved); the record
  // exists once it is saved. Numbers that another user is just appending are stepped over. Errors: full with
  // kRecordLimitText, denied, failed.
  virtual Result<std::int32_t> append() = 0;

  // --- Passes over many records (search, sort, index, export). They see records as they are stored: still
  // substituted where the application says so.
  virtual const RecordLayout& layout() const = 0;
  // Reads the slots of the records first, first + 1, ... into `slots`, whose size is a multiple of
  // layout().recLen; first: 1 upward. Returns how many came whole: fewer at the end of a segment and of the
  // data, 0 where there is no such record. A slot that nobody has written comes as load() understands it.
  // Errors: locked (another user holds one of them), failed.
  virtual Result<std::int32_t> readSlots(std::int32_t first, std::span<std::uint8_t> slots) = 0;
  // Part of one stored record. position: 0-based in the slot. Errors: notFound, locked, failed; writing also
  // denied, full.
  virtual Result<void> readPart(std::int32_t record, std::int32_t position, std::span<std::uint8_t> bytes) = 0;
  virtual Result<void> writePart(std::int32_t record, std::int32_t position,
                                 std::span<const std::uint8_t> bytes) = 0;

  // The running number from which picture file names are made, kept with the data.
  virtual std::int32_t pictureCounter() const = 0;
  virtual Result<void> setPictureCounter(std::int32_t value) = 0;
  // Day of creation, whole days since 1899-12-30.
  virtual double created() const = 0;
};

struct StoreRequest {
  std::string path;     // of the data file
  bool create = false;  // make it when it does not exist (its header is written)
  bool readOnly = false;
  double today = 0;   // stamped into a new file
  std::string title;  // likewise
};
// Opens a store for an application; a session takes it as a value, so that it need not know the kind of
// store.
using StoreOpener = std::function<Result<std::unique_ptr<RecordStore>>(const StoreRequest&,
                                                                       const Application&, const Locale&)>;

}  // namespace plinth
