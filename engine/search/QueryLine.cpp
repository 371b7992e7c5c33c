// A line goes through three forms: as typed, normalised (blanks inside quotes kept as "~"), and terms with
// their blanks back that are looked up among the labels of the application.
#include "engine/search/QueryLine.h"

#include <optional>

#include "basic/CodePage.h"
#include "basic/Text.h"
#include "basic/Wildcard.h"
#include "engine/search/QueryValue.h"

namespace plinth {
namespace {

constexpr std::string_view kWhere = " where ";

struct VerbWord {
  std::string_view word;
  QueryVerb verb;
  bool needsWhere;
};
constexpr VerbWord kVerbWords[] = {{"replace", QueryVerb::replace, true},
                                   {"select", QueryVerb::select, true},
                                   {"sum", QueryVerb::sum, false},
                                   {"count", QueryVerb::count, false}};

// The order decides: "<=" is looked for before "<" and "=".
struct OperatorSign {
  std::string_view sign;
  QueryOperator op;
};
constexpr OperatorSign kOperatorSigns[] = {
    {"<>", QueryOperator::notEqual}, {"<=", QueryOperator::lessEqual}, {">=", QueryOperator::greaterEqual},
    {"<", QueryOperator::less},      {">", QueryOperator::greater},    {"=", QueryOperator::equal}};

const VerbWord* verbWord(std::string_view trimmed) {
  const std::string lower = lowerAscii(trimmed);
  for (const VerbWord& row : kVerbWords) {
    if (!lower.starts_with(row.word) || lower.substr(row.word.size(), 1) != " ") continue;
    if (!row.needsWhere || contains(lower, kWhere)) return &row;
  }
  return nullptr;
}

std::vector<std::string> termsOf(std::string_view text) {
  std::vector<std::string> terms;
  for (std::string& term : split(text, " "))
    if (!term.empty()) terms.push_back(std::move(term));
  return terms;
}

std::string blanksBack(std::string_view text) { return replaceAll(text, "~", " "); }

class QueryParser {
 public:
  explicit QueryParser(const QueryContext& context) : context_(context) {
    const Application& app = context.application;
    for (int n = 1; n <= app.fieldCount(); ++n) add({FocusKind::field, n}, n);
    for (int n = 1; n <= app.comboCount(); ++n) add({FocusKind::combo, n}, 2000 + n);
    for (int n = 0; n <= app.checkCount(); ++n) add({FocusKind::check, n}, 4000 + n);
    for (int n = 1; n <= app.memoCount(); ++n) add({FocusKind::memo, n}, 6000 + n);
  }

  Query parse(std::string_view line) const {
    Query query;
    query.columns = context_.defaultColumns;
    std::string text = trim(line);
    const VerbWord* word = verbWord(text);
    if (!word) return query;
    query.verb = word->verb;
    if (!context_.matchCase) text = lowerCase(text, codePage());
    // The blank behind the word stays, so that "select where" holds a " where " too.
    text = normaliseQuery(text).substr(word->word.size());
    const std::size_t at = lowerAscii(text).find(kWhere);
    const std::string head = text.substr(0, at);
    const std::string tail = at == std::string::npos ? "" : text.substr(at + kWhere.size());

    if (query.verb == QueryVerb::select) setColumns(termsOf(head), query.columns);
    if (query.verb == QueryVerb::replace) addReplacements(termsOf(head), query.replacements);
    if (query.verb == QueryVerb::sum || query.verb == QueryVerb::count)
      addConditions(termsOf(head), query.conditions);
    addConditions(termsOf(tail), query.conditions);
    return query;
  }

 private:
  struct Named {
    std::string label;  // lower case
    RecordKey key;
    int column;
  };

  int codePage() const { return context_.application.codePage; }

  void add(FocusObject object, int column) {
    auto key = keyOf(context_.application, context_.layout, object);
    if (!key || key->label.empty()) return;
    named_.push_back({lowerCase(key->label, codePage()), std::move(*key), column});
  }

  const Named* find(std::string_view name) const {
    const std::string lower = lowerCase(blanksBack(name), codePage());
    for (const Named& named : named_)
      if (named.label == lower) return &named;
    return nullptr;
  }

  void setColumns(const std::vector<std::string>& patterns, ShowColumns& columns) const {
    if (patterns.empty() || patterns[0] == "*") return;
    ShowColumns chosen{};
    std::size_t count = 0;
    for (const std::string& pattern : patterns) {
      const std::string lower = lowerCase(blanksBack(pattern), codePage());
      for (const Named& named : named_)
        if (count < chosen.size() && wildcardMatch(named.label, lower))
          chosen[count++] = static_cast<std::int16_t>(named.column);
    }
    if (count > 0) columns = chosen;
  }

  void addReplacements(const std::vector<std::string>& terms, std::vector<QueryReplacement>& rows) const {
    for (const std::string& term : terms) {
      const std::size_t sign = term.find('=');
      if (sign == std::string::npos) continue;
      const Named* named = find(std::string_view(term).substr(0, sign));
      if (!named) continue;
      Bytes bytes = replacementBytes(named->key, blanksBack(std::string_view(term).substr(sign + 1)),
                                     {context_.locale, context_.today});
      if (!bytes.empty()) rows.push_back({named->key.position, std::move(bytes)});
    }
  }

  void addConditions(const std::vector<std::string>& terms, std::vector<QueryCondition>& rows) const {
    for (const std::string& term : terms) {
      std::string_view name = term, value;
      QueryCondition condition;
      for (const OperatorSign& row : kOperatorSigns) {
        const std::size_t sign = term.find(row.sign);
        if (sign == std::string::npos) continue;
        condition.op = row.op;
        name = std::string_view(term).substr(0, sign);
        value = std::string_view(term).substr(sign + row.sign.size());
        break;
      }
      const Named* named = find(name);
      if (!named) continue;
      condition.key = named->key;
      condition.text = replaceAll(blanksBack(value), "\"", "");
      const QueryNumber number = queryNumber(named->key, condition.text, {context_.locale, context_.today});
      condition.number = number.value;
      condition.scaled = number.scaled;
      rows.push_back(std::move(condition));
    }
  }

  const QueryContext& context_;
  std::vector<Named> named_;
};

}  // namespace

QueryVerb queryVerb(std::string_view line) {
  const VerbWord* word = verbWord(trim(line));
  return word ? word->verb : QueryVerb::plain;
}

Query parseQuery(std::string_view line, const QueryContext& context) {
  return QueryParser(context).parse(line);
}

std::string normaliseQuery(std::string_view line) {
  std::string text;
  bool quoted = false;
  for (const char c : line) {
    if (c == '\'')
      quoted = !quoted;
    else if (c == ' ' && quoted)
      text += '~';
    else if (c != ' ' || text.empty() || text.back() != ' ')
      text += c;
  }
  return text;
}

}  // namespace plinth
