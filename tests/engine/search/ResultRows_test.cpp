#include "engine/search/ResultRows.h"

#include <gtest/gtest.h>

#include "engine/search/PlainSearch.h"
#include "tests/engine/search/ShopRecords.h"

namespace plinth {
namespace {

using Cells = std::vector<std::string>;

ResultRows rowsOf(ShopRecords& shop, std::vector<RecordKey> keys, const ShowColumns& columns) {
  return {*shop.store, shop.application, englishLocale(), std::move(keys), columns};
}

TEST(ResultRows, ShowsWhatTheBoxesShow) {
  Payload payload = shopPayload();
  payload.fields.push_back(fieldRow("House", 0, 9));
  payload.fields.back().dummyField = -1;  // global: not in records
  payload.fields.push_back(fieldRow("Gone", 0, 9));
  payload.fields.back().page = 9;
  ShopRecords shop(payload);
  RecordForm form = shop.form();
  form.fields[1].text = "Anna";
  form.fields[2].text = "1234.5";
  form.fields[4].date = 46082;
  form.fields[6].text = "lost";
  form.combos[1].text = "Net";
  form.checks[0].value = 1;
  form.memos[1].text = "red\r\nwine";
  shop.add(form);
  ResultRows rows = rowsOf(shop, {}, {1, 2, 0, 3, 4, 6, 7, 2001, 4000, 6001, 2009});
  std::vector<std::string> headers;
  std::string widths, rights;
  for (const ResultColumn& column : rows.columns()) {
    headers.push_back(column.header);
    widths += std::to_string(column.widthChars) + " ";
    rights += column.alignRight ? "r" : "-";
  }
  EXPECT_EQ(headers, (Cells{"Name", "Price", "Count", "Due", "House", "Terms", "Paid", "Notes"}));
  EXPECT_EQ(widths, "10 12 10 10 9 8 5 40 ");
  EXPECT_EQ(rights, "-rr-----");
  EXPECT_EQ(rows.cells(1), (Cells{"Anna", "1,234.50", "", "2026-03-01", "", "Net", "1", "red\r\nwine"}));
  EXPECT_EQ(rows.cells(2), Cells(8));
  EXPECT_EQ(rows.cells(0), Cells(8));
}

TEST(ResultRows, PutsTheSearchedTextsInFront) {
  Payload payload = shopPayload();
  payload.memos[1].tag = "name";
  payload.memos[1].fieldLength = 300;
  payload.header.varObjects = 1;
  ShopRecords shop(payload);
  RecordForm form = shop.form();
  form.fields[1].text = "Anna";
  form.fields[2].text = "2";
  form.memos[1].text = "a\r\nb" + std::string(296, 'x');
  form.dateStamp = 46082;
  for (const char* text : {"Fragile", "Side", "Top side"}) {
    form.labels.emplace_back();
    form.labels.back().visible = true;
    form.labels.back().text = text;
  }
  shop.add(form);
  const auto keys =
      keysOfLabel(shop.application, shop.store->layout(), shop.key(FocusKind::field, 1));
  ResultRows names = rowsOf(shop, keys, {1, 6001});
  const std::string memo = "a b" + std::string(196, 'x');
  EXPECT_EQ(names.cells(1), (Cells{"Anna | " + memo, "Anna", memo}));
  EXPECT_EQ(rowsOf(shop, {shop.key(FocusKind::field, 2)}, {}).cells(1), (Cells{"2.00"}));
  // Boxes leave a zero out, the searched value shows it.
  EXPECT_EQ(rowsOf(shop, {shop.key(FocusKind::field, 3)}, {3, 5}).cells(1), (Cells{"0", "0", ""}));
  EXPECT_TRUE(rowsOf(shop, {shop.key(FocusKind::field, 2)}, {}).columns()[0].alignRight);
  ResultRows stamps = rowsOf(shop, {shop.key(FocusKind::dateStamp, 0)}, {});
  EXPECT_EQ(stamps.columns()[0].header, "Date");
  EXPECT_EQ(stamps.cells(1), (Cells{"2026-03-01"}));
  ResultRows labels = rowsOf(shop, {shop.key(FocusKind::variableLabels, 0)}, {});
  EXPECT_EQ(labels.cells(1), (Cells{"Fragile | Side | Top side"}));
  labels.showLabelsHolding("side or xx", false);
  EXPECT_EQ(labels.cells(1), (Cells{"Side | Top side"}));
}

}  // namespace
}  // namespace plinth
