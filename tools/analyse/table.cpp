#include "analyse/table.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "recording/json_fields.h"
#include "text/scalars.h"

namespace mirvane {
namespace {

constexpr int decimals = 6;

double rounded(double value) {
  constexpr double unit = 1e6;
  const double scaled = std::round(value * unit) / unit;
  return scaled == 0 ? 0 : scaled;  // never -0
}

std::string decimalText(double value) {
  std::array<char, 400> digits{};  // the largest double has 309 digits before the point
  const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), rounded(value),
                                    std::chars_format::fixed, decimals);
  std::string text(digits.data(), result.ptr);
  text.resize(text.find_last_not_of('0') + 1);
  if (text.ends_with('.')) text.pop_back();
  return text;
}

/// U+2400 and on hold pictures of the control characters.
void appendVisibly(std::string& result, char character) {
  constexpr char32_t firstPicture = 0x2400;
  constexpr char32_t pictureOfDelete = 0x2421;
  const auto byte = static_cast<unsigned char>(character);
  if (byte < 0x20) {
    text::appendScalar(result, firstPicture + byte);
  } else if (byte == 0x7F) {
    text::appendScalar(result, pictureOfDelete);
  } else {
    result += character;
  }
}

std::string textField(const std::string& text) {
  constexpr std::string_view formulaStarts = "=+-@'";
  std::string field;
  if (!text.empty() && formulaStarts.find(text.front()) != std::string_view::npos) field = "'";
  for (const char character : text) {
    if (character == '"') field += '"';
    appendVisibly(field, character);
  }
  const bool needsQuotes = field.find_first_of(",\"") != std::string::npos ||
                           field.starts_with(' ') || field.ends_with(' ');
  return needsQuotes ? '"' + field + '"' : field;
}

struct CsvField {
  std::string operator()(std::monostate) const { return {}; }
  std::string operator()(bool value) const { return value ? "true" : "false"; }
  std::string operator()(std::int64_t value) const { return std::to_string(value); }
  std::string operator()(double value) const {
    return std::isfinite(value) ? decimalText(value) : std::string();
  }
  std::string operator()(const std::string& text) const { return textField(text); }
};

struct JsonValue {
  Json operator()(std::monostate) const { return nullptr; }
  Json operator()(bool value) const { return value; }
  Json operator()(std::int64_t value) const { return value; }
  Json operator()(double value) const { return rounded(value); }
  Json operator()(const std::string& text) const { return text; }
};

template <typename Values, typename Field>
std::string joinedLine(const Values& values, Field field) {
  std::string line;
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (i > 0) line += ',';
    line += field(values[i]);
  }
  return line + "\r\n";
}

}  // namespace

std::string csvLine(const std::vector<Cell>& row) {
  return joinedLine(row, [](const Cell& cell) { return std::visit(CsvField(), cell); });
}

std::string csvHeader(const Table& table) {
  return joinedLine(table.columns, textField);
}

std::string jsonLine(const Table& table, const std::vector<Cell>& row) {
  Json object{{"table", table.name}};
  for (std::size_t i = 0; i < row.size(); ++i) {
    object[table.columns[i]] = std::visit(JsonValue(), row[i]);
  }
  return object.dump(-1, ' ', false, Json::error_handler_t::replace) + '\n';
}

}  // namespace mirvane
