// Lays out English for the program: readable lists in, data files out.

#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>
#include <string_view>

#include "packed_dictionary.h"
#include "packed_embedding.h"
#include "packed_tags.h"

namespace {

std::string packed(std::string_view kind, std::istream& lines) {
  if (kind == "dictionary") return mirvane::packedDictionary(lines);
  if (kind == "tags") return mirvane::packedTags(lines);
  if (kind == "embedding") return mirvane::packedEmbedding(lines);
  throw std::runtime_error("no such kind of data: " + std::string(kind));
}

void pack(std::string_view kind, const char* from, const char* to) {
  std::ifstream input(from);
  if (!input) throw std::runtime_error(std::string("cannot read ") + from);
  const std::string bytes = packed(kind, input);
  // A program may have the old file mapped: it keeps that one until it is closed.
  const std::string unfinished = std::string(to) + ".part";
  std::ofstream output(unfinished, std::ios::binary);
  if (!(output << bytes).flush()) throw std::runtime_error("cannot write " + unfinished);
  std::filesystem::rename(unfinished, to);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) {
    std::cerr << "usage: mirvane-pack-language dictionary|tags|embedding LIST DATA-FILE\n";
    return EXIT_FAILURE;
  }
  try {
    pack(argv[1], argv[2], argv[3]);
    return EXIT_SUCCESS;
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return EXIT_FAILURE;
  }
}
