// The design surface at the limits of the tables: what a person does on a page with everything on it.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "surface/AreaSelection.h"
#include "surface/ObjectClipboard.h"
#include "surface/ObjectDelete.h"
#include "surface/Placement.h"
#include "tests/surface/DesignFixture.h"

namespace plinth {
namespace {

constexpr int kMany = 500;

// Every table filled but for `room` rows, spread over the pages; each field's formula names three others.
void fill(ProjectDocument& d, int room) {
  forEachTable(d, [&](ObjectKind kind, auto& rows) {
    for (int i = static_cast<int>(rows.size()); i <= kindInfo(kind).limit - room; ++i) {
      auto& row = rows.emplace_back();
      row.page = static_cast<std::int16_t>(i % kPages);
      if constexpr (requires { row.tag; }) row.tag = "Label" + std::to_string(i);
      if constexpr (requires { row.tabOrder; }) row.tabOrder = static_cast<std::int16_t>(i);
      if constexpr (requires { row.left; })
        row.left = static_cast<float>(i % 600 * 15), row.top = static_cast<float>(i % 400 * 15);
      if constexpr (requires { row.formula; })
        row.formula = "F" + std::to_string(i / 2 + 1) + "+SUM(F3:F" + std::to_string(i) + ")*K3";
    }
  });
}

struct FullSurface : DesignFixture {
  explicit FullSurface(int room) {
    fill(document, room);
    settle();
  }
  AreaSelection area{context};
  ObjectClipboard clipboard{context, area};
};

// 50 of each kind, from the middle of its table.
std::vector<ObjectRef> manyObjects() {
  std::vector<ObjectRef> objects;
  for (const KindInfo& info : kindInfos())
    for (int i = 0; i < kMany / kObjectKinds; ++i) objects.push_back({info.kind, info.limit / 2 + i});
  return objects;
}

// Each round is undone outside of the measured time, which leaves the project as it was.
template <class Command>
void measure(benchmark::State& state, FullSurface& surface, Command command) {
  for (auto _ : state) {
    command();
    state.PauseTiming();
    if (!surface.history.undo(surface.document)) state.SkipWithError("nothing was done");
    selectNothing(surface.state);
    state.ResumeTiming();
  }
}

void BM_PlaceFieldOnFullSurface(benchmark::State& state) {
  FullSurface surface(1);
  Placement placement(surface.context);
  measure(state, surface, [&] { placement.place(Tool::field); });
}
BENCHMARK(BM_PlaceFieldOnFullSurface)->Unit(benchmark::kMillisecond);

void BM_DeleteFieldOnFullSurface(benchmark::State& state) {
  FullSurface surface(0);
  const int index = static_cast<int>(state.range(0));
  measure(state, surface, [&] {
    select(surface.state, {ObjectKind::Field, index});
    surface.clipboard.remove();
  });
}
BENCHMARK(BM_DeleteFieldOnFullSurface)->Arg(1)->Arg(1000)->Arg(2000)->Unit(benchmark::kMillisecond);

void BM_DeleteAreaOf500(benchmark::State& state) {
  FullSurface surface(0);
  const std::vector<ObjectRef> objects = manyObjects();
  measure(state, surface, [&] {
    surface.state.selKind = kSelArea;
    surface.state.multiSel = objects;
    surface.clipboard.remove();
  });
}
BENCHMARK(BM_DeleteAreaOf500)->Unit(benchmark::kMillisecond);

void BM_Paste500(benchmark::State& state) {
  FullSurface surface(kMany / kObjectKinds);
  const std::string text = clipboardText(surface.document, manyObjects(), surface.context.measure);
  measure(state, surface, [&] { surface.clipboard.paste(text); });
}
BENCHMARK(BM_Paste500)->Unit(benchmark::kMillisecond);

void BM_CommitOfOneMove(benchmark::State& state) {
  FullSurface surface(0);
  measure(state, surface, [&] {
    moveBy(surface.document, {ObjectKind::Title, 2500}, 1, 0);
    finish(surface.context, "move");
  });
}
BENCHMARK(BM_CommitOfOneMove)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace plinth
