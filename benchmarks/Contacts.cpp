// The generator takes words of few syllables, so that texts look alike as names do and no text holds a "z" by
// chance.
#include "benchmarks/Contacts.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include "platform/Files.h"
#include "platform/SharedFile.h"

namespace plinth::bench {
namespace {

constexpr std::uint64_t kSeed = 0x9112'7000'2026'0101ull;
constexpr std::size_t kMemoLength = 120;
constexpr std::array<const char*, 32> kSyllables = {
    "an", "ber", "cor", "da", "el", "fin", "gar", "hol", "in",  "jo",  "ka",  "lor", "mi", "nor", "os", "pel",
    "qua", "ri", "san", "tor", "ul", "ver", "wil", "xa", "yor", "mar", "ton", "le", "ne", "de", "sta", "vi"};

// Exactly `length` characters of words that begin with a capital.
std::string words(std::uint64_t& state, std::size_t length) {
  std::string text;
  bool capital = true;
  for (int syllables = 0; text.size() < length; ++syllables) {
    if (syllables >= 2 && randomBelow(state, 3) == 0) {
      text += ' ';
      capital = true;
      syllables = 0;
    }
    const std::size_t at = text.size();
    text += kSyllables[randomBelow(state, kSyllables.size())];
    if (capital) text[at] = static_cast<char>(text[at] - 'a' + 'A');
    capital = false;
  }
  text.resize(length);
  if (text.back() == ' ') text.back() = 'e';
  return text;
}

std::string fixed(double value) {
  char text[32];
  std::snprintf(text, sizeof text, "%.2f", value);
  return text;
}

[[noreturn]] void die(const std::string& text) {
  std::fprintf(stderr, "benchmarks: %s\n", text.c_str());
  std::exit(1);
}

int wantedRows() {
  const char* wish = std::getenv("PLINTH_BENCH_ROWS");
  return wish ? std::max(1000, std::atoi(wish)) : 1'000'000;
}

}  // namespace

std::uint64_t nextRandom(std::uint64_t& state) {
  std::uint64_t z = (state += 0x9E3779B97F4A7C15ull);
  z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
  z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
  return z ^ (z >> 31);
}

std::uint32_t randomBelow(std::uint64_t& state, std::uint32_t end) {
  return static_cast<std::uint32_t>((nextRandom(state) >> 32) * end >> 32);
}

Contact contact(std::uint64_t id) {
  std::uint64_t state = kSeed + id * 0x632BE59BD9B4E019ull;
  Contact row;
  for (std::string& text : row.texts) text = words(state, 20 + randomBelow(state, 21));
  row.memo = words(state, kMemoLength);
  if (id % 1000 == 7) row.texts[0].replace(8, 6, "zephyr");
  if (id % 1000 == 13) row.memo.replace(60, 6, "Zephyr");
  row.texts[3].replace(0, 8, randomBelow(state, 100) == 0 ? "Harbourt" : "Somewher");
  row.amount = randomBelow(state, 10'000'000) / 100.0;
  row.balance = (static_cast<int>(randomBelow(state, 10'000'000)) - 5'000'000) / 100.0;
  row.qty = static_cast<int>(randomBelow(state, 1000));
  row.born = 14000 + static_cast<int>(randomBelow(state, 25000));
  row.since = 36000 + static_cast<int>(randomBelow(state, 10000));
  row.flag = static_cast<int>(randomBelow(state, 2));
  return row;
}

Application contactsApplication() {
  Payload p;
  const auto field = [&p](const char* label, int type, int length) {
    PayloadField f;
    f.page = 0, f.tag = label, f.fieldType = static_cast<std::uint8_t>(type), f.fieldLength = length;
    p.fields.push_back(f);
  };
  p.fields.emplace_back();
  for (const char* label : {"Name", "Company", "Street", "City", "Email"}) field(label, 0, 40);
  field("Amount", 1, 12);
  field("Balance", 1, 12);
  field("Qty", 5, 10);
  field("Born", 7, 10);
  field("Since", 7, 10);
  p.combos.emplace_back();
  p.checks.emplace_back();
  p.checks[0].page = 0;
  p.checks[0].tag = "Flag";
  p.memos.resize(2);
  p.memos[1].page = 0;
  p.memos[1].tag = "Memo";
  p.memos[1].fieldLength = static_cast<std::int32_t>(kMemoLength);
  return makeApplication(std::move(p));
}

void fillForm(RecordForm& form, const Contact& row) {
  for (std::size_t i = 0; i < row.texts.size(); ++i) form.fields[i + 1].text = row.texts[i];
  form.fields[6].text = fixed(row.amount);
  form.fields[7].text = fixed(row.balance);
  form.fields[8].text = std::to_string(row.qty);
  form.fields[9].date = row.born;
  form.fields[10].date = row.since;
  form.checks[0].value = row.flag;
  form.memos[1].text = row.memo;
}

ContactsTable::ContactsTable(const std::string& path) {
  if (sqlite3_open(path.c_str(), &db_) != SQLITE_OK) die("cannot open " + path);
  run("PRAGMA synchronous=OFF");
  run("CREATE TABLE contacts(id INTEGER PRIMARY KEY,name TEXT,company TEXT,street TEXT,city TEXT,email TEXT,"
      "amount REAL,balance REAL,qty INTEGER,born REAL,since REAL,memo TEXT,flag INTEGER)");
  insert_ = prepare("INSERT OR REPLACE INTO contacts VALUES(?,?,?,?,?,?,?,?,?,?,?,?,?)");
}

ContactsTable::~ContactsTable() {
  sqlite3_finalize(insert_);
  sqlite3_close(db_);
}

void ContactsTable::run(const std::string& sql) {
  if (sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
    die(sql + ": " + sqlite3_errmsg(db_));
}

sqlite3_stmt* ContactsTable::prepare(const std::string& sql) {
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v2(db_, sql.c_str(), -1, &statement, nullptr) != SQLITE_OK)
    die(sql + ": " + sqlite3_errmsg(db_));
  return statement;
}

void ContactsTable::bind(sqlite3_stmt* statement, int id, const Contact& row) {
  const auto text = [statement](int at, const std::string& value) {
    sqlite3_bind_text(statement, at, value.data(), static_cast<int>(value.size()), SQLITE_STATIC);
  };
  sqlite3_bind_int(statement, 1, id);
  int at = 2;
  for (const std::string& value : row.texts) text(at++, value);
  sqlite3_bind_double(statement, 7, row.amount);
  sqlite3_bind_double(statement, 8, row.balance);
  sqlite3_bind_int(statement, 9, row.qty);
  sqlite3_bind_double(statement, 10, row.born);
  sqlite3_bind_double(statement, 11, row.since);
  text(12, row.memo);
  sqlite3_bind_int(statement, 13, row.flag);
}

void ContactsTable::replace(int id, const Contact& row) {
  bind(insert_, id, row);
  if (sqlite3_step(insert_) != SQLITE_DONE) die(sqlite3_errmsg(db_));
  sqlite3_reset(insert_);
}

void ContactsTable::fill(int rows) {
  run("BEGIN");
  for (int id = 1; id <= rows; ++id) replace(id, contact(static_cast<std::uint64_t>(id)));
  run("COMMIT");
}

std::int64_t ContactsTable::rowsOf(const std::string& sql) {
  sqlite3_stmt* statement = prepare(sql);
  std::int64_t rows = 0;
  for (; sqlite3_step(statement) == SQLITE_ROW; ++rows)
    if (sqlite3_column_int64(statement, 0) < 1) die("a row without number");
  sqlite3_finalize(statement);
  return rows;
}

double ContactsTable::valueOf(const std::string& sql) {
  sqlite3_stmt* statement = prepare(sql);
  if (sqlite3_step(statement) != SQLITE_ROW) die(sql);
  const double value = sqlite3_column_double(statement, 0);
  sqlite3_finalize(statement);
  return value;
}

std::int64_t ContactsTable::loadRandom(int times, std::uint32_t rows) {
  sqlite3_stmt* statement = prepare("SELECT * FROM contacts WHERE id=?1");
  std::uint64_t state = 42;
  std::int64_t bytes = 0;
  run("BEGIN");
  for (int i = 0; i < times; ++i) {
    sqlite3_bind_int64(statement, 1, 1 + randomBelow(state, rows));
    if (sqlite3_step(statement) != SQLITE_ROW) die("a record is missing");
    for (int column = 0; column < 13; ++column) {
      if (column >= 6 && column <= 10) {
        bytes += sqlite3_column_double(statement, column) > 0;
      } else {
        sqlite3_column_text(statement, column);
        bytes += sqlite3_column_bytes(statement, column);
      }
    }
    sqlite3_reset(statement);
  }
  sqlite3_finalize(statement);
  run("COMMIT");
  return bytes;
}

Contacts::Contacts()
    : rows(wantedRows()),
      folder(systemFiles().temporaryFolder() + "plinth-bench-" + std::to_string(getpid()) + "/"),
      application(contactsApplication()),
      data{folder, "Contacts.dbd", true} {
  std::fprintf(stderr, "making %d contacts in %s\n", rows, folder.c_str());
  std::filesystem::create_directories(folder);
  auto opened = FlatRecordStore::open(systemSharedFiles(), systemFiles(), application, englishLocale(),
                                      {data.path(), true, false, 45000, "Bench"});
  if (!opened) die(opened.error().text);
  store = std::move(*opened);
  RecordForm form = makeRecordForm(application);
  for (int id = 1; id <= rows; ++id) {
    fillForm(form, contact(static_cast<std::uint64_t>(id)));
    if (const auto saved = store->save(id, form); !saved) die(saved.error().text);
  }
  if (!store->refreshCount() || store->count() != rows) die("not all records were made");
  table = std::make_unique<ContactsTable>(folder + "contacts.db");
  table->fill(rows);
  // Nothing that lies behind disturbs what is measured.
  sync();
}

Contacts::~Contacts() {
  store.reset();
  table.reset();
  std::error_code ignored;
  std::filesystem::remove_all(folder, ignored);
}

Contacts& contacts() {
  static Contacts all;
  return all;
}

double readDataFile() {
  alignas(4096) static std::array<char, 128 << 10> block;
  const auto began = std::chrono::steady_clock::now();
  const int file = open(contacts().data.path().c_str(), O_RDONLY | O_CLOEXEC);
  while (read(file, block.data(), block.size()) > 0) {
  }
  close(file);
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - began).count();
}

}  // namespace plinth::bench
