// What a person is told about a project before it disappoints: one fault of each kind, one sentence each.
#include "programs/plinth/ProjectCheck.h"

#include <gtest/gtest.h>

#include <functional>

namespace plinth {
namespace {

// Two fields with labels that lie on the page.
ProjectDocument soundProject() {
  ProjectDocument d;
  d.fields.resize(3);
  for (int i = 1; i <= 2; ++i) {
    d.fields[i].page = 0;
    d.fields[i].tag = "Field" + std::to_string(i);
  }
  return d;
}

TEST(ProjectCheck, OneSentenceForEachFault) {
  const auto reportOf = [](int field, const std::string& caption) {
    ReportRow report;
    report.title = "List";
    report.labels.push_back({.fieldOfLabel = static_cast<std::int16_t>(field), .caption = caption});
    return report;
  };
  const struct {
    std::function<void(ProjectDocument&)> spoil;
    const char* finding;
  } cases[] = {
      {[](auto& d) { d.fields[1].formula = "F2+C1"; },
       "the formula of F1 refers to C1, which does not exist"},
      {[](auto& d) { d.fields[2].page = kPageVacant, d.search.text1[0] = "F2"; },
       "the search window's column F2 refers to nothing"},
      {[](auto& d) { d.fields[2].tag.clear(); }, "F2 has no field label"},
      {[](auto& d) { d.fields[2].tag = "FIELD1"; }, "F2 has the field label of F1: FIELD1"},
      {[](auto& d) { d.emailField = 9; }, "the e-mail field F9 does not exist"},
      {[&](auto& d) { d.reports = {reportOf(3, "F3,1")}; }, "report List shows F3, which does not exist"},
      {[&](auto& d) { d.reports = {reportOf(0, "x")}; }, "report List shows K0, which does not exist"},
      {[](auto& d) { d.fields[1].left = d.pageWidth; }, "field 1 lies outside the page"},
  };
  EXPECT_TRUE(checkProject(soundProject()).empty());
  for (const auto& one : cases) {
    ProjectDocument d = soundProject();
    one.spoil(d);
    EXPECT_EQ(checkProject(d), std::vector<std::string>{one.finding});
  }
}

TEST(ProjectCheck, PicturesThatASaveWouldLeaveOut) {
  MemoryPictures pictures;
  ProjectDocument d;
  d.pictures.resize(3);
  d.pictures[0].picturePath = *pictures.put("here.bmp", Bytes{1});
  d.pictures[2].picturePath = "gone.bmp";
  EXPECT_EQ(missingPictures(d, pictures),
            std::vector<std::string>{"P2 shows the picture gone.bmp, which is not in the file"});
}

}  // namespace
}  // namespace plinth
