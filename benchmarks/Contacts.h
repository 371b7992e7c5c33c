// A million generated contacts as a data file of ours and as a table of SQLite: the same rows on both sides,
// the same at each run.
#pragma once

#include <sqlite3.h>

#include <array>
#include <cstdint>
#include <memory>
#include <string>

#include "engine/FlatRecordStore.h"
#include "engine/StartUp.h"

namespace plinth::bench {

struct Contact {
  std::array<std::string, 5> texts;  // name, company, street, city, e-mail: 20 to 40 characters
  std::string memo;                  // 120 characters
  double amount = 0, balance = 0, born = 0, since = 0;
  int qty = 0, flag = 0;
};
// 0.1 % of the names hold "zephyr", 0.1 % of the memos "Zephyr", 1 % of the cities begin with "Harbourt".
Contact contact(std::uint64_t id);

// Fields 1 to 10 Name, Company, Street, City, Email, Amount, Balance, Qty, Born, Since; check box Flag; memo
// Memo.
Application contactsApplication();
void fillForm(RecordForm& form, const Contact& row);

// The next pseudo-random number of a sequence, and one of 0 ... end - 1.
std::uint64_t nextRandom(std::uint64_t& state);
std::uint32_t randomBelow(std::uint64_t& state, std::uint32_t end);

// The rival. Its writes are not flushed to the disk, as ours are not.
class ContactsTable {
 public:
  explicit ContactsTable(const std::string& path);
  ~ContactsTable();
  ContactsTable(const ContactsTable&) = delete;
  ContactsTable& operator=(const ContactsTable&) = delete;

  void fill(int rows);
  void run(const std::string& sql);
  std::int64_t rowsOf(const std::string& sql);  // steps through the whole result
  double valueOf(const std::string& sql);
  std::int64_t loadRandom(int times, std::uint32_t rows);  // all columns, in one transaction
  void replace(int id, const Contact& row);

 private:
  sqlite3_stmt* prepare(const std::string& sql);
  void bind(sqlite3_stmt* statement, int id, const Contact& row);
  sqlite3* db_ = nullptr;
  sqlite3_stmt* insert_ = nullptr;
};

// Data file and table of PLINTH_BENCH_ROWS rows (1,000,000) in a folder of the system's temporary files,
// which goes with this object.
struct Contacts {
  Contacts();
  ~Contacts();
  Contacts(const Contacts&) = delete;
  Contacts& operator=(const Contacts&) = delete;

  int rows;
  std::string folder;
  Application application;
  DataFile data;
  std::unique_ptr<FlatRecordStore> store;
  std::unique_ptr<ContactsTable> table;
};
// Made at the first call.
Contacts& contacts();

// Seconds of one pass over the data file in blocks of 128 KiB: what all times are measured by.
double readDataFile();

}  // namespace plinth::bench
