// Projects, applications and single records.
#include "model/ProjectFile.h"
#include "tests/programs/plinth/ToolFixture.h"

namespace plinth {
namespace {

TEST_F(ToolTest, NewNeverOverwrites) {
  run({"new", "/desk/a.qvf"});
  EXPECT_EQ(code, 0);
  const std::string first = files.textOf("/desk/a.qvf");
  run({"new", "/desk/a.qvf", "--example", "contacts"});
  EXPECT_EQ(code, 1);
  EXPECT_EQ(files.textOf("/desk/a.qvf"), first);
}

TEST_F(ToolTest, ExampleIsSoundAndConvertsToItself) {
  run({"new", "a.qvf", "--example", "contacts"});
  EXPECT_EQ(run({"check", "a.qvf"}), "nothing found\n");
  run({"convert", "a.qvf", "/x/b.qvf"});
  const std::string once = files.textOf("/x/b.qvf");
  run({"convert", "/x/b.qvf", "/x/b.qvf"});
  EXPECT_EQ(code, 0);
  EXPECT_EQ(files.textOf("/x/b.qvf"), once);
  EXPECT_NE(run({"show", "/x/b.qvf", "--json"}).find("\"First_Name\""), std::string::npos);
}

TEST_F(ToolTest, CheckNamesWhatRefersToNothing) {
  run({"new", "a.qvf", "--example", "contacts"});
  std::string bytes = files.textOf("a.qvf");
  const std::size_t at = bytes.find("F15*F16");
  ASSERT_NE(at, std::string::npos);
  bytes.replace(at, 7, "F15*F99");
  files.put("a.qvf", bytes);
  EXPECT_EQ(run({"check", "a.qvf"}), "the formula of F17 refers to F99, which does not exist\n");
  EXPECT_EQ(code, 0);
  files.put("a.qvf", bytes.substr(0, bytes.size() / 2));
  EXPECT_NE(run({"check", "a.qvf"}).find("damaged"), std::string::npos);
  EXPECT_EQ(code, 1);
}

TEST_F(ToolTest, BadFilesGetASentence) {
  files.put("text.qvf", std::string("not a project"));
  files.put("cut.exe", std::string("MZ"));
  for (const std::vector<std::string>& words :
       std::vector<std::vector<std::string>>{{"show", "text.qvf"},
                                             {"check", "missing.qvf"},
                                             {"create", "text.qvf"},
                                             {"records", "cut.exe", "count"},
                                             {"records", "missing.exe", "list"}}) {
    EXPECT_EQ(run(words), "");
    EXPECT_EQ(code, 1) << words[1];
    EXPECT_NE(errors, "");
  }
}

TEST_F(ToolTest, NamesAreUtf8OutsideAndOfTheCodePageInside) {
  run({"new", "/desk/a.qvf", "--example", "contacts"});
  MemoryPictures pictures;
  ProjectDocument document = readProject(*files.read("/desk/a.qvf"), pictures).document;
  document.appTitle = "M\xFClleria";
  document.tileImage = "/pics/gr\xFCn.bmp";
  files.put("/desk/a.qvf", writeProject(document, pictures, {}).bytes);
  files.put("/pics/gr\u00FCn.bmp", std::string("a green background"));

  EXPECT_EQ(run({"create", "/desk/a.qvf", "--output", "/out"}), "/out/M\u00FClleria/M\u00FClleria.exe\n");
  EXPECT_EQ(run({"create", "/desk/a.qvf", "--output", "/out", "--name", "\u00C4on"}),
            "/out/\u00C4on/\u00C4on.exe\n");
  EXPECT_NE(files.textOf("/out/\u00C4on/\u00C4on.exe").find("\xC4on.chm"), std::string::npos);
  EXPECT_NE(files.textOf("/out/\u00C4on/\u00C4on.exe").find("a green background"), std::string::npos);
  EXPECT_EQ(run({"records", "/out/\u00C4on/\u00C4on.exe", "add", "First_Name=ada"}), "1\n") << errors;
  EXPECT_TRUE(files.exists("/out/\u00C4on/\u00C4on.dbd"));

  run({"convert", "/desk/a.qvf", "/desk/\u00FCber.qvf"});
  EXPECT_NE(files.textOf("/desk/\u00FCber.qvf")
                .find("/desk/\xFC"
                      "ber.qvf"),
            std::string::npos);

  run({"create", "/desk/a.qvf", "--name", ".."});
  EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 1) << "told once: " << errors;
}

TEST_F(ToolTest, RecordsAreAddedReadChangedAndErased) {
  const std::string exe = contacts();
  EXPECT_EQ(exe, "/out/Contacts/Contacts.exe");
  run({"records", exe, "count"});
  EXPECT_EQ(code, 1) << "there is no data file yet, and only add makes one";

  EXPECT_EQ(run({"records", exe, "add", "First_Name=ada", "last_name=lovelace", "Quantity=3", "Price=9.5",
                 "Paid=1"}),
            "1\n")
      << errors;
  EXPECT_EQ(run({"records", exe, "add", "F1=grace"}), "2\n") << errors;
  EXPECT_EQ(run({"records", exe, "count", "--json"}), "{\"count\": 2}\n");

  const std::string first = run({"records", exe, "get", "1", "--json"});
  for (const char* part :
       {"{\"record\": 1, \"values\": {", "\"First_Name\": \"Ada\"", "\"Total\": \"28.50\"",
        "\"Status\": \"PAID\"", "\"In_Words\": \"Twenty-Eight Dollars and Fifty Cents\""}) {
    EXPECT_NE(first.find(part), std::string::npos) << part << "\n" << first;
  }

  EXPECT_EQ(run({"records", exe, "set", "2", "Price=2", "Quantity=2"}), "2\n") << errors;
  const std::string listed = run({"records", exe, "list", "--json"});
  EXPECT_EQ(std::count(listed.begin(), listed.end(), '\n'), 2);
  EXPECT_NE(listed.find("\"Total\": \"4.00\""), std::string::npos) << listed;

  EXPECT_EQ(run({"records", exe, "erase", "1"}), "1\n");
  EXPECT_NE(run({"records", exe, "get", "1", "--json"}).find("\"First_Name\": \"\""), std::string::npos);
  run({"records", exe, "get", "3"});
  EXPECT_EQ(code, 1);
}

TEST_F(ToolTest, AddMakesTheFirstRecordOnceAndSaysWhyItCannot) {
  const std::string exe = contacts();
  EXPECT_EQ(run({"records", exe, "add", "F1=ada"}), "1\n") << errors;
  // A program that was stopped before it wrote a record leaves the header behind.
  Bytes& data = disk->find("/out/Contacts/Contacts.dbd")->bytes;
  data.resize(data.size() / 2);
  EXPECT_EQ(run({"records", exe, "add", "F1=eve"}), "1\n") << errors;
  disk->find("/out/Contacts/Contacts.dbd")->readOnly = true;
  run({"records", exe, "add", "F1=mallory"});
  EXPECT_EQ(code, 1);
  EXPECT_NE(errors.find("read-only"), std::string::npos) << errors;
}

TEST_F(ToolTest, ValuesThatDoNotFitChangeNothing) {
  const std::string exe = contacts();
  const std::vector<std::string> bad{"First_Name=ada", "Quantity=many"};
  const auto with = [&](std::vector<std::string> words) {
    words.insert(words.end(), bad.begin(), bad.end());
    run(words);
    EXPECT_EQ(code, 1);
    EXPECT_EQ(errors.find("plinth: Quantity: \"many\""), 0u) << errors;
  };
  with({"records", exe, "add"});
  EXPECT_FALSE(files.exists("/out/Contacts/Contacts.dbd"));
  run({"records", exe, "add"});
  with({"records", exe, "add"});
  with({"records", exe, "set", "1"});
  EXPECT_EQ(run({"records", exe, "count"}), "1\n");
  EXPECT_EQ(run({"records", exe, "get", "1"}).find("Ada"), std::string::npos);
}

TEST_F(ToolTest, UnknownLabelsChangeNothing) {
  const std::string exe = contacts();
  run({"records", exe, "add", "First_Name=ada"});
  run({"records", exe, "add", "Frist_Name=eve"});
  EXPECT_EQ(code, 2);
  EXPECT_NE(errors.find("First_Name"), std::string::npos) << "the labels are listed";
  EXPECT_EQ(run({"records", exe, "count"}), "1\n");
}

TEST_F(ToolTest, DataFileIsTheApplicationsOrTheNamedOne) {
  const std::string exe = contacts();
  run({"records", exe, "add", "First_Name=ada"});
  EXPECT_TRUE(files.exists("/out/Contacts/Contacts.dbd"));
  run({"records", exe, "add", "First_Name=eve", "--data", "/other/mine.dbd"});
  EXPECT_EQ(code, 0) << errors;
  EXPECT_NE(run({"records", exe, "get", "1", "--data", "/other/mine.dbd"}).find("Eve"), std::string::npos);
  EXPECT_NE(run({"records", exe, "get", "1"}).find("Ada"), std::string::npos);
}

}  // namespace
}  // namespace plinth
