// The data file: header, segments, counting, locks, and files that are damaged. Two users share one disk in
// memory.
#include "engine/FlatRecordStore.h"

#include <gtest/gtest.h>

#include <cstring>

#include "tests/engine/EngineFixture.h"

namespace plinth {
namespace {

constexpr const char* kPath = "/data/Shop.dbd";

// A record of 21 bytes: one text.
struct StoreTest : ::testing::Test {
  StoreTest() {
    Payload p;
    p.header.title = "Shop";
    p.fields = {PayloadField{}, fieldRow("Name", 0, 20)};
    app = makeApplication(p);
    form = makeRecordForm(app);
  }
  std::unique_ptr<FlatRecordStore> open(bool create, std::int64_t segmentBytes = kSegmentBytes,
                                        bool readOnly = false) {
    auto store = FlatRecordStore::open(shared, files, app, englishLocale(),
                                       {kPath, create, readOnly, kTestNow, app.title}, segmentBytes);
    return store.ok() ? std::move(*store) : nullptr;
  }
  void add(FlatRecordStore& store, const std::string& text) {
    const auto n = store.append();
    ASSERT_TRUE(n.ok());
    form.fields[1].text = text;
    ASSERT_TRUE(store.save(*n, form).ok());
    store.unlock(*n);
  }
  std::string read(FlatRecordStore& store, int n) {
    return store.load(n, form).ok() ? form.fields[1].text : "(none)";
  }
  Bytes& bytes(const std::string& path = kPath) { return disk->find(path)->bytes; }

  std::shared_ptr<MemoryDisk> disk = std::make_shared<MemoryDisk>();
  MemoryFiles files{disk};
  MemorySharedFiles shared{disk};
  Application app;
  RecordForm form;
};

TEST_F(StoreTest, NewFileHasTheHeaderInFrontOfRecordOne) {
  EXPECT_EQ(open(false), nullptr);
  auto store = open(true);
  ASSERT_TRUE(store);
  EXPECT_EQ(store->count(), 0);
  ASSERT_EQ(bytes().size(), 20u) << "one byte less than a slot";
  double created = 0;
  std::memcpy(&created, bytes().data(), 8);
  EXPECT_EQ(created, 45000);
  EXPECT_EQ(bytes()[8], 'S');
  EXPECT_EQ(bytes()[9], 0) << "the picture counter lies over the title";
  EXPECT_EQ(bytes()[15], 0) << "and the title over the length";
  add(*store, "one");
  EXPECT_EQ(std::string(bytes().begin() + 20, bytes().begin() + 23), "one");
  EXPECT_TRUE(store->setPictureCounter(7).ok());
  store.reset();
  store = open(false);
  EXPECT_EQ(store->count(), 1);
  EXPECT_EQ(store->pictureCounter(), 7);
  EXPECT_EQ(store->created(), 45000);
}

TEST_F(StoreTest, AnApplicationThatStoresNothingStillCounts) {
  app.payload.fields[1].page = 5;
  for (int n = 1; n <= 3; ++n) {
    auto store = open(n == 1);
    ASSERT_TRUE(store);
    EXPECT_EQ(store->recLen(), 1);
    add(*store, "");
    EXPECT_EQ(store->count(), n);
    EXPECT_TRUE(store->load(n, form).ok());
  }
}

TEST_F(StoreTest, ExistingEmptyFileGetsDateAndLength) {
  files.put(kPath, "");
  auto store = open(false);
  ASSERT_TRUE(store);
  EXPECT_EQ(store->count(), 0);
  EXPECT_EQ(bytes().size(), 20u);
  EXPECT_EQ(bytes()[15], 21);
}

TEST_F(StoreTest, RecordsGoOverIntoSegmentsAndComeBack) {
  constexpr std::int64_t kSegment = 21 * 5;  // four slots a segment
  auto store = open(true, kSegment);
  ASSERT_EQ(store->segmentRecords(), 4);
  for (int n = 1; n <= 5; ++n) {
    add(*store, "r" + std::to_string(n));
    ASSERT_EQ(store->lastSegment(), n <= 4 ? 0 : 1);
  }
  EXPECT_TRUE(disk->find("/data/Shop0001"));
  EXPECT_FALSE(disk->find("/data/Shop0000"));
  // The limit of this small store: Int(105 / 4) x 4 records.
  for (int n = 6; n <= 104; ++n) add(*store, "r" + std::to_string(n));
  const auto full = store->append();
  ASSERT_FALSE(full.ok());
  EXPECT_EQ(full.error().text, kRecordLimitText);
  store = open(false, kSegment);
  EXPECT_EQ(store->count(), 104);
  EXPECT_EQ(store->lastSegment(), 25);
  for (int n = 1; n <= 104; ++n) ASSERT_EQ(read(*store, n), "r" + std::to_string(n));
  EXPECT_EQ(read(*store, 105), "(none)");
  EXPECT_EQ(read(*store, 0), "(none)");
  // A change of the last record of a segment stays in that segment.
  form.fields[1].text = "changed";
  ASSERT_TRUE(store->save(8, form).ok());
  EXPECT_EQ(read(*store, 8), "changed");
  EXPECT_EQ(read(*store, 9), "r9");
}

TEST_F(StoreTest, LoadIsOneReadWithinASegment) {
  auto store = open(true);
  for (int n = 1; n <= 3; ++n) add(*store, "r");
  const int before = disk->reads;
  for (int n = 1; n <= 3; ++n) EXPECT_EQ(read(*store, n), "r");
  EXPECT_EQ(disk->reads - before, 3);
}

TEST_F(StoreTest, LocksKeepOthersOutOfARecordOnEverySystem) {
  for (const bool mandatory : {true, false}) {
    SCOPED_TRACE(mandatory);
    shared.mandatoryLocks = mandatory;
    disk->files.clear();
    auto ann = open(true), bob = open(false);
    for (int n = 1; n <= 3; ++n) add(*ann, "r");
    ASSERT_TRUE(ann->lock(2).ok());
    EXPECT_EQ(bob->lock(2).error().kind, ErrorKind::locked);
    EXPECT_EQ(bob->load(2, form).error().kind, ErrorKind::locked);
    EXPECT_TRUE(ann->load(2, form).ok()) << "one's own lock is no hindrance";
    EXPECT_TRUE(bob->load(3, form).ok());
    EXPECT_TRUE(ann->lock(1).ok());
    EXPECT_TRUE(bob->lock(1).ok()) << "record 1 is never locked";
    ann->unlock(2);
    EXPECT_TRUE(bob->lock(2).ok());
    bob.reset();
    EXPECT_TRUE(ann->lock(2).ok()) << "closing gives locks up";
  }
}

TEST_F(StoreTest, TwoUsersWhoAppendAtOnceGetTwoNumbers) {
  auto ann = open(true), bob = open(false);
  for (int n = 1; n <= 2; ++n) add(*ann, "r");
  const auto first = ann->append(), second = bob->append();
  EXPECT_EQ(*first, 3);
  EXPECT_EQ(*second, 4);
  form.fields[1].text = "ann";
  ASSERT_TRUE(ann->save(3, form).ok());
  form.fields[1].text = "bob";
  ASSERT_TRUE(bob->save(4, form).ok());
  ann->unlock(3);
  bob->unlock(4);
  EXPECT_EQ(*ann->refreshCount(), 4);
  EXPECT_EQ(read(*ann, 4), "bob");
  EXPECT_EQ(read(*bob, 3), "ann");
}

TEST_F(StoreTest, WhoeverWasSteppedOverKeepsTheNumber) {
  for (const int before : {0, 1}) {
    disk->files.clear();
    auto ann = open(true), bob = open(false);
    if (before == 1) add(*ann, "one");
    disk->onNextLock = [&] { add(*bob, "bob"); };  // while Ann has the number and has not written it
    add(*ann, "ann");
    EXPECT_EQ(*bob->refreshCount(), before + 2);
    EXPECT_EQ(read(*bob, before + 1), "ann");
    EXPECT_EQ(read(*bob, before + 2), "bob");
    EXPECT_EQ(*ann->append(), before + 3);
  }
}

TEST_F(StoreTest, WhatNobodyWroteReadsAsEmpty) {
  app.scrambleData = true;
  auto store = open(true);
  form.fields[1].text = "three";
  ASSERT_TRUE(store->save(3, form).ok());
  bytes().resize(bytes().size() - 18);
  for (int n = 1; n <= 2; ++n) EXPECT_EQ(read(*store, n), "");
  EXPECT_EQ(read(*store, 3), "thr");
}

TEST_F(StoreTest, OthersNewSegmentsAreSeen) {
  auto ann = open(true, 105), bob = open(false, 105);
  for (int n = 1; n <= 9; ++n) add(*ann, "r" + std::to_string(n));
  EXPECT_EQ(*bob->refreshCount(), 9);
  EXPECT_EQ(read(*bob, 9), "r9");
}

TEST_F(StoreTest, ErrorsOfTheDiskAreTold) {
  auto store = open(true);
  add(*store, "r");
  disk->failWrites = ErrorKind::full;
  EXPECT_EQ(store->save(1, form).error().kind, ErrorKind::full);
  disk->failWrites.reset();
  disk->failReads = ErrorKind::failed;
  form.fields[1].text = "shown";
  EXPECT_EQ(store->load(1, form).error().kind, ErrorKind::failed);
  EXPECT_EQ(form.fields[1].text, "shown");
  disk->failReads.reset();
  store = open(false, kSegmentBytes, true);
  EXPECT_TRUE(store->readOnly());
  EXPECT_TRUE(store->load(1, form).ok());
  EXPECT_EQ(store->save(1, form).error().kind, ErrorKind::denied);
  EXPECT_EQ(store->append().error().kind, ErrorKind::denied);
}

TEST_F(StoreTest, FilesCutAnywhereAndGarbageOpenWithoutHarm) {
  auto store = open(true);
  for (int n = 1; n <= 4; ++n) add(*store, "r" + std::to_string(n));
  const Bytes whole = bytes();
  for (std::size_t cut = 0; cut <= whole.size(); ++cut) {
    bytes() = Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(cut));
    store = open(false);
    ASSERT_TRUE(store);
    // A record counts once all but the last byte of its slot's successor gap is there.
    const int expected = cut < 9 ? 0 : static_cast<int>(cut) / 21;
    ASSERT_EQ(store->count(), expected) << cut;
    for (int n = 1; n <= 4; ++n) static_cast<void>(store->load(n, form));
  }
  bytes() = Bytes(500, 0xFF);
  store = open(false);
  EXPECT_EQ(store->created(), 0);
  for (int n = 1; n <= store->count(); ++n) EXPECT_TRUE(store->load(n, form).ok());
}

}  // namespace
}  // namespace plinth
