// One result type for operations that can fail: a value, or an error with a kind and a text for people.
// Exceptions stay inside a subsystem; what crosses its border is a Result.
#pragma once

#include <optional>
#include <string>
#include <utility>

namespace plinth {

enum class ErrorKind {
  none,
  notFound,     // file, record or resource does not exist
  denied,       // no permission, read-only
  locked,       // another user or process holds it
  damaged,      // the bytes are not what the format promises
  full,         // no space left, or a limit of the format is reached
  wrongUsage,   // the caller's request makes no sense
  failed,       // anything else
};

struct Error {
  ErrorKind kind = ErrorKind::none;
  std::string text;  // for people, UTF-8, no trailing line end
};

// Either a value or an error. `value()` REQUIRES ok().
template <class T>
class [[nodiscard]] Result {
 public:
  Result(T value) : value_(std::move(value)) {}
  Result(Error error) : error_(std::move(error)) {}
  bool ok() const { return value_.has_value(); }
  explicit operator bool() const { return ok(); }
  T& value() { return *value_; }
  const T& value() const { return *value_; }
  T& operator*() { return *value_; }
  const T& operator*() const { return *value_; }
  T* operator->() { return &*value_; }
  const T* operator->() const { return &*value_; }
  const Error& error() const { return error_; }

 private:
  std::optional<T> value_;
  Error error_;
};

template <>
class [[nodiscard]] Result<void> {
 public:
  Result() = default;
  Result(Error error) : error_(std::move(error)) {}
  bool ok() const { return error_.kind == ErrorKind::none; }
  explicit operator bool() const { return ok(); }
  const Error& error() const { return error_; }

 private:
  Error error_;
};

}  // namespace plinth
