#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

#include "fuzz/fuzz_input.h"

namespace {

std::vector<std::filesystem::path> FilesIn(const std::filesystem::path& folder) {
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) files.push_back(entry.path());
  std::ranges::sort(files);
  return files;
}

}  // namespace

/// Tries every file of a folder, which is named by the only argument. Fails also when there is none.
int main(int count, char** arguments) {
  if (count != 2) return 2;
  const std::vector<std::filesystem::path> files = FilesIn(arguments[1]);
  for (const std::filesystem::path& file : files) {
    std::cerr << file.filename() << std::endl;  // The last one named is the one that ended the process.
    std::ifstream stream(file, std::ios::binary);
    const std::string input{std::istreambuf_iterator<char>(stream), {}};
    dralo::fuzz::Try(input);
  }
  return files.empty() ? 1 : 0;
}
