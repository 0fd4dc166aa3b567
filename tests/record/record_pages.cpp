/// Renders random pages, the same ones in every run, and prints for each its number and a hash of all that is
/// observable of it: see the text that --help prints.
#include <cstdint>
#include <exception>
#include <fstream>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "record/journal.h"
#include "record/rendered_page.h"
#include "record/statistics.h"

namespace {

using dralo::record::Hash;
using dralo::record::Hexadecimal;
using dralo::record::PageMaker;
using dralo::record::RenderedPage;

constexpr std::string_view kHelp = R"(usage:
  record_pages [PAGES [FIRST]]      numbers and hashes of so many pages (20000) from that number (0)
  record_pages --statistics [PAGES [FIRST]]  what those pages were
  record_pages --show NUMBER        all that the hash of one page is made of
  record_pages --portable PAGES     hashes alone, "-" for pages that depend on releases of libraries
  record_pages --compare FILE       compares with what --portable printed
)";

constexpr std::string_view kLeftOut = "-";

struct Range {
  std::uint64_t pages = 20'000;
  std::uint64_t first = 0;
};

Range RangeOf(const std::vector<std::string>& arguments) {
  Range range;
  if (!arguments.empty()) range.pages = std::stoull(arguments[0]);
  if (arguments.size() > 1) range.first = std::stoull(arguments[1]);
  return range;
}

std::string PortableHash(const RenderedPage& page) {
  return page.is_portable ? Hexadecimal(Hash(page.text)) : std::string(kLeftOut);
}

int PrintHashes(const Range& range) {
  PageMaker maker;
  for (std::uint64_t number = range.first; number < range.first + range.pages; ++number) {
    std::cout << number << ' ' << Hexadecimal(Hash(maker.Make(number).text)) << '\n';
  }
  return 0;
}

int PrintStatistics(const Range& range) {
  PageMaker maker;
  dralo::record::Statistics statistics;
  for (std::uint64_t number = range.first; number < range.first + range.pages; ++number) {
    statistics.Count(maker.Make(number));
  }
  statistics.Print(std::cout);
  return 0;
}

int PrintPortable(const Range& range) {
  PageMaker maker;
  for (std::uint64_t number = 0; number < range.pages; ++number) {
    std::cout << PortableHash(maker.Make(number)) << '\n';
  }
  return 0;
}

int Compare(const std::string& program, const std::string& path) {
  std::ifstream file(path);
  PageMaker maker;
  std::uint64_t number = 0;
  int different = 0;
  for (std::string kept; std::getline(file, kept); ++number) {
    const RenderedPage page = maker.Make(number);
    if (PortableHash(page) == kept) continue;
    ++different;
    std::cout << "page " << number << " differs; " << program << " --show " << number << " prints it\n";
  }
  if (number == 0) std::cout << path << " has no lines\n";
  return different == 0 && number > 0 ? 0 : 1;
}

int Run(const std::string& program, std::vector<std::string> arguments) {
  const std::string option = arguments.empty() ? "" : arguments[0];
  if (!option.starts_with("--")) return PrintHashes(RangeOf(arguments));
  arguments.erase(arguments.begin());
  if (option == "--statistics") return PrintStatistics(RangeOf(arguments));
  if (option == "--portable") return PrintPortable(RangeOf(arguments));
  if (option == "--show" && arguments.size() == 1) {
    std::cout << PageMaker().Make(std::stoull(arguments[0])).text;
    return 0;
  }
  if (option == "--compare" && arguments.size() == 1) return Compare(program, arguments[0]);
  std::cerr << kHelp;
  return 2;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return Run(argv[0], {argv + 1, argv + argc});
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n' << kHelp;
    return 2;
  }
}
