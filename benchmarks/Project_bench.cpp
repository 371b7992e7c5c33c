// A project at all table limits: load, save, Create Application, and the engine's reading of what came out.
#include <benchmark/benchmark.h>

#include <filesystem>

#include "builder/CreateApplication.h"
#include "builder/PayloadFromProject.h"
#include "builder/payload/PayloadFile.h"
#include "engine/Application.h"
#include "model/DerivedTexts.h"
#include "model/ProjectFile.h"

namespace plinth {
namespace {

template <class Rows>
void fillRows(Rows& rows, int limit, const char* word) {
  for (int n = static_cast<int>(rows.size()); n <= limit; ++n) {
    auto& row = rows.emplace_back();
    row.page = static_cast<std::int16_t>(n % 5);
    if constexpr (requires { row.tag; }) row.tag = word + std::to_string(n);
    if constexpr (requires { row.left; })
      row.left = static_cast<float>(n % 600 * 15), row.top = static_cast<float>(n % 400 * 15);
  }
}

// Every table filled to its limit; pictures without images.
ProjectDocument fullProject() {
  ProjectDocument d = emptyDocument(LanguageTexts(), 45000);
  d.appTitle = "Full";
  fillRows(d.fields, kFieldLimit, "Field");
  fillRows(d.memos, kMemoLimit, "MemoField");
  fillRows(d.combos, kComboLimit, "ComboField");
  fillRows(d.pictures, kPictureLimit, "");
  fillRows(d.checks, kCheckLimit, "CheckField");
  fillRows(d.titles, kTitleLimit, "");
  fillRows(d.lines, kLineLimit, "");
  fillRows(d.squares, kSquareLimit, "");
  fillRows(d.buttons, kButtonLimit, ">");
  for (std::size_t n = 6; n < d.titles.size(); ++n) d.titles[n].caption = "Label " + std::to_string(n);
  for (std::size_t n = 1; n < d.combos.size(); ++n) d.combos[n].items = {"one", "two", "three"};
  for (std::size_t n = 20; n < d.fields.size(); n += 20) {
    d.fields[n].fieldType = 2;
    d.fields[n].formula = "F1*F2-(F3+F4)";
  }
  return d;
}

const Bytes& fullFile() {
  static const Bytes bytes = [] {
    ProjectDocument d = fullProject();
    return writeProject(d, MemoryPictures(), {"Full.qvf", 45000}).bytes;
  }();
  return bytes;
}

void BM_LoadFullProject(benchmark::State& state) {
  for (auto _ : state) {
    MemoryPictures pictures;
    const LoadResult loaded = readProject(fullFile(), pictures);
    if (!loaded.complete) state.SkipWithError("the project did not load whole");
  }
  state.counters["bytes"] = static_cast<double>(fullFile().size());
}
BENCHMARK(BM_LoadFullProject)->Unit(benchmark::kMillisecond);

void BM_SaveFullProject(benchmark::State& state) {
  ProjectDocument d = fullProject();
  for (auto _ : state) benchmark::DoNotOptimize(writeProject(d, MemoryPictures(), {"Full.qvf", 45000}));
}
BENCHMARK(BM_SaveFullProject)->Unit(benchmark::kMillisecond);

class SilentMessages : public Messages {
 public:
  void show(std::string_view, MessageIcon) override {}
  bool ask(std::string_view, MessageIcon) override { return true; }
};

// With the engine of this build when there is one, else with as many bytes of noise.
Bytes stubBytes() {
  const Result<Bytes> built = systemFiles().read("build/windows/programs/engine/engine.exe");
  if (built) return *built;
  Bytes noise(3 << 20);
  std::uint32_t seed = 1;
  for (std::uint8_t& byte : noise)
    byte = static_cast<std::uint8_t>((seed = seed * 1664525 + 1013904223) >> 24);
  return noise;
}

void BM_CreateFullApplication(benchmark::State& state) {
  const Bytes stub = stubBytes(), icon(766, 0x11);
  const std::string folder = systemFiles().temporaryFolder() + "plinth-bench/";
  std::filesystem::create_directories(folder);
  SilentMessages messages;
  NoProgress progress;
  for (auto _ : state) {
    ProjectDocument d = fullProject();
    MemoryPictures pictures;
    CompileApp compile({systemFiles(), messages, progress, pictures, [](int) { return std::string(); },
                        folder, "English", stub, icon, nullptr});
    if (!compile.run(d, {"Full", folder, {}, false}).ok()) state.SkipWithError("not created");
  }
  std::filesystem::remove_all(folder);
}
BENCHMARK(BM_CreateFullApplication)->Unit(benchmark::kMillisecond);

void BM_EngineLoadsFullPayload(benchmark::State& state) {
  ProjectDocument d = fullProject();
  MemoryPictures pictures;
  std::vector<std::string> notes;
  const Result<ApplicationImage> image =
      writeApplication(stubBytes(), payloadFromProject(d, "Full", pictures, notes));
  if (!image) return state.SkipWithError(image.error().text.c_str());
  for (auto _ : state) {
    Result<Payload> payload = readPayload(image->bytes);
    if (!payload) return state.SkipWithError(payload.error().text.c_str());
    benchmark::DoNotOptimize(makeApplication(std::move(*payload)));
  }
}
BENCHMARK(BM_EngineLoadsFullPayload)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace plinth
