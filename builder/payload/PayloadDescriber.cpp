// See PayloadDescriber.h.
#include "builder/payload/PayloadDescriber.h"

#include "builder/payload/PayloadWalk.h"

namespace plinth {

std::string PayloadDescriber::letter(Tag tag) {
  switch (tag) {
    case Tag::i2:
      return "I";
    case Tag::i4:
      return "L";
    case Tag::r4:
      return "F";
    case Tag::boolean:
      return "B";
    case Tag::ui1:
      return "Y";
    case Tag::text:
      return "S";
  }
  return "?";
}

void PayloadDescriber::begin(const char* name) {
  text_ += (text_.empty() ? "### " : "\n### ") + std::string(name) +
           "\n\n| Type | Content | Present |\n|---|---|---|\n";
}

void PayloadDescriber::line(const std::string& type, const std::string& name) {
  text_ += "| " + type + " | " + name + " | " + (condition_.empty() ? "always" : condition_) + " |\n";
}

void PayloadDescriber::file(EmbeddedFile&, const char* name) {
  line("S", std::string(name) + ": stored file name, empty for none");
  each("with a stored name", [&] { line("E", std::string(name) + ": the file"); });
}

void PayloadDescriber::textList(std::vector<std::string>&, const char* name) {
  line("L", std::string("number of ") + name);
  line("number x S", name);
}

void PayloadDescriber::reports(std::vector<ReportRow>&, int limit) {
  line("I", "number of reports, at most " + std::to_string(limit));
  each("each report", [&] {
    line("S", "title");
    each("with a title", [&] { line("R", "the report"); });
  });
}

std::string describePayload() {
  PayloadDescriber describer;
  Payload payload;
  walkPayload(describer, payload);
  return describer.text();
}

}  // namespace plinth
