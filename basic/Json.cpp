// Separators are written before an item, never after, so that no call needs to know what follows.
#include "basic/Json.h"

#include <cmath>

#include "basic/CodePage.h"
#include "basic/FloatDigits.h"

namespace plinth {
namespace {

void appendQuoted(std::string& out, std::string_view utf8) {
  static constexpr char kHex[] = "0123456789abcdef";
  out += '"';
  for (char c : utf8) {
    switch (c) {
      case '"':
        out += "\\\"";
        break;
      case '\\':
        out += "\\\\";
        break;
      case '\n':
        out += "\\n";
        break;
      case '\r':
        out += "\\r";
        break;
      case '\t':
        out += "\\t";
        break;
      default:
        if (static_cast<unsigned char>(c) < ' ') {
          ((out += "\\u00") += kHex[c >> 4]) += kHex[c & 15];
        } else {
          out += c;
        }
    }
  }
  out += '"';
}

// Malformed sequences would make the whole output unreadable; they become U+FFFD.
void appendText(std::string& out, std::string_view utf8) {
  for (char c : utf8) {
    if (static_cast<unsigned char>(c) >= 0x80) return appendQuoted(out, utf16ToUtf8(utf8ToUtf16(utf8)));
  }
  appendQuoted(out, utf8);
}

// "240.0", "0.1", "1e+16": as most languages print floats.
void appendReal(std::string& out, const FloatDigits& number) {
  const std::string_view digits = number.digits();
  if (number.negative) out += '-';
  if (number.point > 16 || number.point < -3) {
    out += digits[0];
    if (digits.size() > 1) (out += '.') += digits.substr(1);
    const int exponent = number.point - 1;
    out += exponent < 0 ? "e-" : "e+";
    if (std::abs(exponent) < 10) out += '0';
    out += std::to_string(std::abs(exponent));
  } else if (number.point <= 0) {
    out.append("0.").append(static_cast<std::size_t>(-number.point), '0').append(digits);
  } else if (const auto whole = static_cast<std::size_t>(number.point); whole < digits.size()) {
    out.append(digits.substr(0, whole)).append(".").append(digits.substr(whole));
  } else {
    out.append(digits).append(whole - digits.size(), '0').append(".0");
  }
}

}  // namespace

void JsonWriter::lead() {
  if (afterKey_) {
    afterKey_ = false;
    return;
  }
  if (hasItems_.empty()) return;
  if (hasItems_.back()) out_ += indent_ > 0 ? "," : ", ";
  hasItems_.back() = true;
  newLine();
}

void JsonWriter::newLine() {
  if (indent_ > 0) (out_ += '\n').append(hasItems_.size() * static_cast<std::size_t>(indent_), ' ');
}

JsonWriter& JsonWriter::open(char bracket) {
  lead();
  out_ += bracket;
  hasItems_.push_back(false);
  return *this;
}

JsonWriter& JsonWriter::close(char bracket) {
  if (hasItems_.empty()) return *this;
  const bool any = hasItems_.back();
  hasItems_.pop_back();
  if (any) newLine();
  out_ += bracket;
  return *this;
}

JsonWriter& JsonWriter::beginObject() { return open('{'); }
JsonWriter& JsonWriter::endObject() { return close('}'); }
JsonWriter& JsonWriter::beginArray() { return open('['); }
JsonWriter& JsonWriter::endArray() { return close(']'); }

JsonWriter& JsonWriter::key(std::string_view utf8) {
  lead();
  appendText(out_, utf8);
  out_ += ": ";
  afterKey_ = true;
  return *this;
}

JsonWriter& JsonWriter::text(std::string_view utf8) {
  lead();
  appendText(out_, utf8);
  return *this;
}

JsonWriter& JsonWriter::literal(std::string_view word) {
  lead();
  out_ += word;
  return *this;
}

JsonWriter& JsonWriter::whole(std::int64_t value) { return literal(std::to_string(value)); }

template <class T>
JsonWriter& JsonWriter::number(T value) {
  if (!std::isfinite(value)) return null();
  lead();
  appendReal(out_, shortestDigits(value));
  return *this;
}

JsonWriter& JsonWriter::real(float value) { return number(value); }
JsonWriter& JsonWriter::real(double value) { return number(value); }
JsonWriter& JsonWriter::boolean(bool value) { return literal(value ? "true" : "false"); }
JsonWriter& JsonWriter::null() { return literal("null"); }

}  // namespace plinth
