// Query lines, orders, indexes, scripts and users from the command line.
#include <functional>

#include "engine/CfgFile.h"
#include "engine/StartUp.h"
#include "model/ProjectFile.h"
#include "tests/fakes/FakeMessages.h"
#include "tests/programs/plinth/ToolFixture.h"

namespace plinth {
namespace {

class SearchCommandsTest : public ToolTest {
 protected:
  // The address book after `change`, created, with six contacts; its executable.
  void create(const std::function<void(ProjectDocument&)>& change = {}) {
    run({"new", "/desk/a.qvf", "--example", "contacts"});
    MemoryPictures pictures;
    ProjectDocument document = readProject(*files.read("/desk/a.qvf"), pictures).document;
    if (change) change(document);
    files.put("/desk/a.qvf", writeProject(document, pictures, {}).bytes);
    exe = run({"create", "/desk/a.qvf", "--output", "/out", "--name", "Contacts"});
    ASSERT_EQ(code, 0) << errors;
    exe.pop_back();
  }
  void addContacts() {
    for (int i = 1; i <= 6; ++i) {
      const std::string n = std::to_string(i);
      records({"add", "First_Name=ada" + n, "Last_Name=love" + std::to_string(i % 3), "Quantity=" + n,
               "Price=" + std::to_string(20 - i) + ".5"});
      ASSERT_EQ(code, 0) << errors;
    }
  }
  std::string records(std::vector<std::string> words) {
    words.insert(words.begin(), {"records", exe});
    return run(words);
  }
  std::string exe;
};

TEST_F(SearchCommandsTest, AnswersAreLinesOrOneObject) {
  create();
  addContacts();
  struct Case {
    std::vector<std::string> words;
    const char* printed;
  };
  const Case cases[] = {
      {{"query", "sum Quantity"}, "Total: 21          Average: 3.5\n"},
      {{"query", "sum Quantity", "--json"}, "{\"total\": 21.0, \"average\": 3.5}\n"},
      {{"query", "sum Nothing", "--json"}, "{\"total\": 0.0}\n"},
      {{"query", "count Quantity>2"}, "4 Total\n"},
      {{"query", "count Quantity>2", "--json"}, "{\"hits\": 4}\n"},
      {{"query", "select last_name qua* where Quantity<3", "--up"}, "1\tLove1\t1\n2\tLove2\t2\n"},
      {{"query", "select last_name where Quantity<3", "--up", "--json"},
       "{\"hits\": 2, \"rows\": [{\"record\": 1, \"cells\": [\"Love1\"]}, "
       "{\"record\": 2, \"cells\": [\"Love2\"]}]}\n"},
      {{"query", "ada3", "--field", "F1"}, "3\tAda3\tLove0\tAda3\t\t\t\n"},
      {{"query", "ada3", "--field", "first_name", "--case"}, ""},
      {{"query", "ada3", "--field", "first_name", "--case", "--json"}, "{\"hits\": 0, \"rows\": []}\n"},
      {{"query", "!Ada3", "--case"}, "3\tLove0\tAda3\t\t\t\n"},
      {{"sort", "Price"}, "6\n5\n4\n3\n2\n1\n"},
      {{"sort", "F16", "--json"}, "[6, 5, 4, 3, 2, 1]\n"},
      {{"sort", "Price", "--descending", "--json"}, "[1, 2, 3, 4, 5, 6]\n"},
      {{"query", "replace City=Rome where Quantity>4", "--case", "--json"}, "{\"hits\": 2}\n"},
      {{"query", "replace City=Bonn where Quantity>4", "--case"}, "2 Replacements\n"},
      {{"query", "select city where city=b*", "--up"}, "5\tBonn\n6\tBonn\n"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(records(c.words), c.printed) << c.words[1];
    EXPECT_EQ(code, 0) << c.words[1] << ": " << errors;
  }
}

TEST_F(SearchCommandsTest, WhatCannotRunSaysWhy) {
  create([](ProjectDocument& document) { document.fields[2].noSearch = 1; });
  addContacts();
  struct Case {
    std::vector<std::string> words;
    int code;
    const char* told;
  };
  const Case cases[] = {
      {{"query", "love"}, 2, "--field"},
      {{"query", "replace x=1"}, 2, "--field"},
      {{"query", "love", "--field", "Lost_Name"}, 2, "F2  Last_Name"},
      {{"query", "love", "--field", "Last_Name"}, 1, "plinth: "},
      {{"sort", "Photo"}, 1, "cannot be sorted"},
      {{"sort", "Lost_Name"}, 2, "there is no box"},
      {{"index", "Notes"}, 1, "cannot be indexed"},
      {{"index", "Last_Name"}, 1, "cannot be indexed"},
      {{"script", "Dial"}, 2, "0  New contact"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(records(c.words), "");
    EXPECT_EQ(code, c.code) << c.words[1];
    EXPECT_NE(errors.find(c.told), std::string::npos) << c.words[1] << ": " << errors;
  }
  disk->find("/out/Contacts/Contacts.dbd")->readOnly = true;
  EXPECT_EQ(records({"query", "replace City=Rome where Quantity>4"}), "");
  EXPECT_EQ(code, 1);
}

TEST_F(SearchCommandsTest, IndexIsReadByLaterSearchesHoweverOld) {
  create();
  addContacts();
  records({"index", "Last_Name"});
  EXPECT_EQ(code, 0) << errors;
  EXPECT_EQ(files.textOf("/out/Contacts/ContactsLast_Name-1.inx"),
            "Love1\r\nLove2\r\nLove0\r\nLove1\r\nLove2\r\nLove0\r\n");
  records({"set", "1", "Last_Name=hopper"});
  EXPECT_EQ(records({"query", "love1", "--field", "Last_Name", "--json"}).substr(0, 10), "{\"hits\": 2");
}

TEST_F(SearchCommandsTest, ScriptsSearchTheRecordsAndTypeIntoOne) {
  create([](ProjectDocument& document) {
    document.buttons[1].caption = "&Sum up";
    document.buttons[1].tag.clear();
    document.buttons[1].buttonPath = "sum Quantity\r\nF18=SumTotal$";
  });
  addContacts();
  EXPECT_EQ(records({"script", "sum up", "3"}), "3\n") << errors;
  EXPECT_NE(records({"get", "3"}).find("Discount: 21"), std::string::npos);
  EXPECT_EQ(records({"get", "1"}).find("Discount: 21"), std::string::npos);
  records({"script", "1"});
  EXPECT_NE(records({"get", "1"}).find("Discount: 21"), std::string::npos);
}

TEST_F(SearchCommandsTest, UsersAreShownToTheMainUserWithoutPasswords) {
  create([](ProjectDocument& document) { document.options.text5 = "sesame"; });
  FakeMessages messages;
  StartUp start = startUp({exe, "", false}, files, messages);
  ASSERT_TRUE(start.loginRequired);
  start.users.names = {"boss", "eve"};
  start.users.passwords[1] = encodePassword("apple");
  start.users.readOnly[1] = 1;
  files.put(start.cfgPath, writeCfg(start.application, start.form, start.users));
  for (const auto& [name, password] : {std::pair("", ""), {"eve", "apple"}, {"boss", "apple"}}) {
    EXPECT_EQ(records({"users", "list", "--user", name, "--password", password}), "");
    EXPECT_EQ(code, 1);
  }
  EXPECT_EQ(records({"users", "list", "--user", "boss", "--password", "sesame"}),
            "0\tboss\t\n1\teve\tread-only\n");
  EXPECT_EQ(records({"users", "list", "--user=boss", "--password=sesame", "--json"}),
            "[{\"index\": 0, \"name\": \"boss\", \"readOnly\": false}, "
            "{\"index\": 1, \"name\": \"eve\", \"readOnly\": true}]\n");
}

}  // namespace
}  // namespace plinth
