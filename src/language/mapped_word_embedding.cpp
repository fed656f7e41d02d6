#include "language/mapped_word_embedding.h"

#include <algorithm>
#include <numeric>
#include <optional>
#include <utility>

namespace mirvane {

namespace {

int dotProduct(std::span<const std::int8_t> a, std::span<const std::int8_t> b) {
  return std::transform_reduce(a.begin(), a.end(), b.begin(), 0, std::plus<>{},
                               [](std::int8_t x, std::int8_t y) { return x * y; });
}

}  // namespace

std::unique_ptr<MappedWordEmbedding> MappedWordEmbedding::open(const std::filesystem::path& path) {
  auto file = DataFile::open(path, fileKind);
  if (!file) return nullptr;
  std::unique_ptr<MappedWordEmbedding> embedding(new MappedWordEmbedding(*std::move(file)));
  return embedding->readParts() ? std::move(embedding) : nullptr;
}

bool MappedWordEmbedding::readParts() {
  PayloadReader payload(file_.payload());
  const auto words = WordSet::read(payload);
  const auto rows = payload.next<std::uint16_t>();
  const auto norms = payload.next<float>();
  const auto values = payload.next<std::int8_t>();
  if (!words || !rows || !norms || !values) return false;
  if (rows->size() != words->slotCount() || norms->empty()) return false;
  if (std::ranges::any_of(*rows, [&](std::uint16_t row) { return row >= norms->size(); })) {
    return false;
  }
  if (!std::ranges::all_of(*norms, [](float norm) { return norm > 0; })) return false;
  words_ = *words;
  rows_ = *rows;
  norms_ = *norms;
  values_ = *values;
  dimensions_ = values->size() / norms->size();
  return true;
}

double MappedWordEmbedding::distance(std::string_view a, std::string_view b) const {
  const auto slotA = words_.slotOf(a);
  const auto slotB = slotA ? words_.slotOf(b) : std::nullopt;
  if (!slotA || !slotB) return 2.0;
  if (slotA == slotB) return 0.0;
  const std::size_t rowA = rows_[*slotA];
  const std::size_t rowB = rows_[*slotB];
  const double product = dotProduct(vectorOf(rowA), vectorOf(rowB));
  const double lengths = static_cast<double>(norms_[rowA]) * static_cast<double>(norms_[rowB]);
  return std::clamp(1.0 - product / lengths, 0.0, 2.0);
}

}  // namespace mirvane
