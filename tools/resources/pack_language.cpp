// Lays out English for the program: readable lists in, data files out.

#include <cstdlib>
#include <exception>
#include <fstream>
#include <iostream>
#include <string_view>

#include "packed_dictionary.h"

namespace {

int pack(std::string_view kind, const char* from, const char* to) {
  std::ifstream input(from);
  std::ofstream output(to, std::ios::binary);
  if (kind == "dictionary") {
    output << mirvane::packedDictionary(input);
  } else {
    std::cerr << "no such kind of data: " << kind << '\n';
    return EXIT_FAILURE;
  }
  return input.eof() && output.flush() ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) {
    std::cerr << "usage: mirvane-pack-language dictionary LIST DATA-FILE\n";
    return EXIT_FAILURE;
  }
  try {
    return pack(argv[1], argv[2], argv[3]);
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return EXIT_FAILURE;
  }
}
