#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace mirvane {

/// One value of a table; nothing when it is not known.
using Cell = std::variant<std::monostate, bool, std::int64_t, double, std::string>;

/// A cell for a value that may be missing.
template <typename T>
[[nodiscard]] Cell cellOf(const std::optional<T>& value) {
  return value ? Cell(*value) : Cell();
}

[[nodiscard]] inline Cell cellOf(std::size_t count) {
  return static_cast<std::int64_t>(count);
}

/// A table by the name and the columns that docs/formats/tables.md describes.
struct Table {
  std::string name;
  std::vector<std::string> columns;
};

/// A column of a table whose rows are made from `Source`.
template <typename Source>
struct Column {
  const char* name;
  Cell (*value)(const Source& source);
};

template <typename Source>
[[nodiscard]] Table tableOf(std::string name, const std::vector<Column<Source>>& columns) {
  Table table{std::move(name), {}};
  for (const auto& column : columns) table.columns.emplace_back(column.name);
  return table;
}

template <typename Source>
[[nodiscard]] std::vector<Cell> rowOf(const Source& source,
                                      const std::vector<Column<Source>>& columns) {
  std::vector<Cell> row;
  row.reserve(columns.size());
  for (const auto& column : columns) row.push_back(column.value(source));
  return row;
}

/// Takes rows, each as long as its table has columns.
class TableWriter {
 public:
  TableWriter() = default;
  TableWriter(const TableWriter&) = delete;
  TableWriter& operator=(const TableWriter&) = delete;
  virtual ~TableWriter() = default;

  virtual void write(const Table& table, const std::vector<Cell>& row) = 0;
};

/// The row as a line of CSV (RFC 4180) with its line end: decimals with a point and at most six
/// digits after it, control characters as their pictures, and texts so marked that a spreadsheet
/// takes none for a formula.
[[nodiscard]] std::string csvLine(const std::vector<Cell>& row);
[[nodiscard]] std::string csvHeader(const Table& table);

/// The row as a JSON object with its line end; the table's name is its first field.
[[nodiscard]] std::string jsonLine(const Table& table, const std::vector<Cell>& row);

}  // namespace mirvane
