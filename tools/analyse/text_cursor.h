#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string_view>

namespace mirvane {

/// Reads a text from its beginning. Whatever is not as expected throws a `Mismatch` with the line.
class TextCursor {
 public:
  /// "LINE: what is wrong".
  class Mismatch : public std::runtime_error {
   public:
    using std::runtime_error::runtime_error;
  };

  /// The text must outlive the cursor.
  explicit TextCursor(std::string_view text, std::size_t firstLine = 1)
      : text_(text), line_(firstLine) {}

  [[nodiscard]] std::string_view rest() const { return text_; }

  /// A cursor that ends after the next `length` bytes.
  [[nodiscard]] TextCursor beginning(std::size_t length) const {
    return TextCursor(text_.substr(0, length), line_);
  }

  /// Goes on behind `literal`, which must come next.
  void expect(std::string_view literal);
  /// The same if it comes next; answers whether it did.
  bool skip(std::string_view literal);
  /// What comes before the next `literal`; goes on behind that.
  std::string_view until(std::string_view literal);
  /// The next `length` bytes, at most the rest.
  std::string_view take(std::size_t length);
  /// The rest of the line; goes on in the next one.
  std::string_view line() { return until("\n"); }
  /// Digits, with a minus sign before them or not.
  std::int64_t wholeNumber();
  /// Digits with a point among them or not, likewise.
  double decimal();

  [[noreturn]] void fail(std::string_view what) const;

 private:
  std::string_view text_;
  std::size_t line_;
};

}  // namespace mirvane
