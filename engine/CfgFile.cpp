// The file is a run of self-describing values. Its reader first takes the run apart, because the user tables
// must be found even when the application was redesigned since and has other labels in front of them.
#include "engine/CfgFile.h"

#include "basic/Substitution.h"

namespace plinth {
namespace {

constexpr int kFirstKeptTitle = 6;
constexpr std::size_t kUserTexts = 2 * kUserEntries;
// A hostile file must not make millions of texts; no application has so many labels and fields.
constexpr std::size_t kMaxTexts = 20000;

// Tells designs apart: captions of the same application made again with other labels must not be covered by
// those of the file, which are the old design's.
std::string designMark(const Application& application) {
  std::uint64_t hash = 14695981039346656037ull;
  for (int n = kFirstKeptTitle; n <= application.titleCount(); ++n) {
    for (const char c : application.titleRow(n).caption + '\n')
      hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211ull;
  }
  return "design " + std::to_string(hash);
}

class CfgWriter {
 public:
  void scrambledText(std::string& text) { appendTextValue(bytes, scrambleText(text)); }
  void text(std::string& text) { appendTextValue(bytes, text); }
  void byte(std::uint8_t& value) { appendByteValue(bytes, value); }
  void beginFields(std::size_t) {}
  void beginUsers() {}
  Bytes bytes;
};

class CfgReader {
 public:
  CfgReader(std::span<const std::uint8_t> bytes, const std::string& mark) {
    SlotReader in(bytes);
    std::string text;
    while (texts_.size() < kMaxTexts && readTextValue(in, text)) texts_.push_back(text);
    std::uint8_t byte = 0;
    while (rights_.size() < kUserEntries && readByteValue(in, byte)) rights_.push_back(byte);
    sameDesign_ = !readTextValue(in, text) || text == mark;
    users_ = texts_.size() >= kUserTexts && rights_.size() == kUserEntries;
    firstUser_ = users_ ? texts_.size() - kUserTexts : texts_.size();
  }
  bool hasUsers() const { return users_; }
  bool sameDesign() const { return sameDesign_; }
  void scrambledText(std::string& text) {
    std::string stored = text;
    if (next(stored)) text = unscrambleText(stored);
  }
  void text(std::string& text) { next(text); }
  void byte(std::uint8_t& value) {
    if (nextRight_ < rights_.size()) value = rights_[nextRight_++];
  }
  // Another design may have had more or fewer labels: the fields' texts are the last ones in front of the
  // users.
  void beginFields(std::size_t count) {
    if (!sameDesign_) next_ = firstUser_ >= count ? firstUser_ - count : firstUser_;
  }
  void beginUsers() {
    next_ = firstUser_;
    firstUser_ = texts_.size();
  }

 private:
  bool next(std::string& text) {
    if (next_ >= firstUser_) return false;
    text = texts_[next_++];
    return true;
  }
  std::vector<std::string> texts_;
  Bytes rights_;
  bool users_ = false, sameDesign_ = true;
  std::size_t next_ = 0, firstUser_ = 0, nextRight_ = 0;
};

// The one order of the file.
template <class Archive>
void walkShown(Archive& ar, const Application& application, std::vector<std::string>& titles,
               std::vector<FormField>& fields) {
  for (int n = kFirstKeptTitle; n <= application.titleCount(); ++n)
    ar.scrambledText(titles[static_cast<std::size_t>(n)]);
  std::size_t globals = 0;
  for (int n = 1; n <= application.fieldCount(); ++n) globals += application.globalField(n);
  ar.beginFields(globals);
  for (int n = 1; n <= application.fieldCount(); ++n)
    if (application.globalField(n)) ar.text(fields[static_cast<std::size_t>(n)].text);
}

template <class Archive>
void walkUsers(Archive& ar, UserTable& users) {
  ar.beginUsers();
  for (std::string& name : users.names) ar.text(name);
  for (std::string& password : users.passwords) ar.text(password);
  for (std::uint8_t& right : users.readOnly) ar.byte(right);
}

}  // namespace

CfgContents readCfg(std::span<const std::uint8_t> bytes, const Application& application, RecordForm& form,
                    UserTable& users) {
  CfgReader reader(bytes, designMark(application));
  CfgContents contents;
  std::vector<std::string> titles = form.titles;
  walkShown(reader, application, titles, form.fields);
  contents.titles = reader.sameDesign();
  if (contents.titles) form.titles = std::move(titles);
  contents.users = reader.hasUsers();
  if (contents.users) {
    const std::string mainPassword = users.passwords[0];
    walkUsers(reader, users);
    // A design with a main password never opens without one.
    if (users.passwords[0].empty()) users.passwords[0] = mainPassword;
  }
  return contents;
}

Bytes writeCfg(const Application& application, const RecordForm& form, const UserTable& users) {
  CfgWriter writer;
  std::vector<std::string> titles = form.titles;
  std::vector<FormField> fields = form.fields;
  UserTable table = users;
  walkShown(writer, application, titles, fields);
  walkUsers(writer, table);
  appendTextValue(writer.bytes, designMark(application));
  return std::move(writer.bytes);
}

UserTable initialUsers(const Application& application) {
  UserTable users;
  users.passwords[0] = encodePassword(application.payload.application.mainPassword);
  return users;
}

}  // namespace plinth
