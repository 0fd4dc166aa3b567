#include "options.h"

#include <unistd.h>

#include <charconv>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string_view>
#include <system_error>

namespace serve {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view kHelp = R"(usage: dralo-serve DATABASE [TABLE...] [OPTION...]

Shows the tables and views of a database as pages, with sorting, single records and a spreadsheet to download.
DATABASE is an SQLite file, or a connection string such as "Provider=PostgreSQL;Host=db1;Database=shop".
TABLE: only these are shown.

  --port PORT        8080 when left out; 0 takes a free one
  --host ADDRESS     where to listen: 127.0.0.1 when left out, 0.0.0.0 for all addresses
  --name NAME        a host name under which pages are asked for, besides those of this machine; may be repeated
  --edit             records can be added, changed and deleted; without it nothing can be
  --user-file FILE   only for those who log in: lines "user:hash" as "htpasswd -B" writes them
  --help, --version

Ctrl-C stops it.
)";

/// A file may have a "=" in its path, too.
bool IsConnectionString(const std::string& text) {
  std::error_code error;
  return text.find('=') != text.npos && !std::filesystem::exists(text, error);
}

int ParsePort(const std::string& text) {
  int port = -1;
  const char* const end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, port);
  if (text.empty() || read.ec != std::errc() || read.ptr != end || port < 0 || port > 65535)
    throw WrongUsage("\"" + text + "\" is no port; write a number from 1 to 65535, or 0 for a free one");
  return port;
}

/// The words of a command line, one after the other.
class Words {
 public:
  explicit Words(std::span<const char* const> words) : words_(words) {}

  bool IsAtEnd() const { return words_.empty(); }

  std::string Next() {
    std::string word = words_.front();
    words_ = words_.subspan(1);
    return word;
  }

  std::string ValueOf(const std::string& option) {
    // An empty one is a variable of a script that is not set; without its user file a site is open to all.
    if (words_.empty() || *words_.front() == '\0' || std::string_view(words_.front()).starts_with("--"))
      throw WrongUsage(option + " needs a value; dralo-serve --help tells more");
    return Next();
  }

 private:
  std::span<const char* const> words_;
};

void TakeOption(Options& options, const std::string& option, Words& words) {
  if (option == "--help") {
    options.shows_help = true;
  } else if (option == "--version") {
    options.shows_version = true;
  } else if (option == "--edit") {
    options.can_edit = true;
  } else if (option == "--port") {
    options.port = ParsePort(words.ValueOf(option));
  } else if (option == "--host") {
    options.host = words.ValueOf(option);
  } else if (option == "--name") {
    options.names.push_back(words.ValueOf(option));
  } else if (option == "--user-file") {
    options.user_file = words.ValueOf(option);
  } else {
    throw WrongUsage("there is no option " + option + "; dralo-serve --help lists them all");
  }
}

void TakeName(Options& options, std::string name) {
  if (options.database.empty()) {
    options.database = std::move(name);
  } else {
    options.tables.push_back(std::move(name));
  }
}

/// The text as a value in a connection string, whatever characters it has.
std::string QuotedValue(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : text) quoted.append(c == '"' ? 2 : 1, c);
  return quoted + '"';
}

}  // namespace

Options ParseOptions(std::span<const char* const> words) {
  Options options;
  bool has_names_only = false;
  for (Words rest(words); !rest.IsAtEnd();) {
    std::string word = rest.Next();
    if (word == "--" && !has_names_only) {
      has_names_only = true;
    } else if (word.starts_with('-') && !has_names_only) {
      TakeOption(options, word, rest);
    } else {
      TakeName(options, std::move(word));
    }
  }
  if (options.database.empty() && !options.shows_help && !options.shows_version)
    throw WrongUsage("name a database: dralo-serve shop.db; dralo-serve --help tells more");
  return options;
}

std::string HelpText() { return std::string(kHelp); }

bool IsFile(const Options& options) { return !IsConnectionString(options.database); }

std::string ConnectionString(const Options& options) {
  if (IsConnectionString(options.database)) return options.database;
  const std::string file = std::filesystem::absolute(options.database).string();
  return "Provider=SQLite;Data Source=" + QuotedValue(file) + (options.can_edit ? "" : ";Mode=Read");
}

void RequireFile(const Options& options) {
  const std::string& file = options.database;
  if (IsConnectionString(file)) return;
  std::error_code error;
  if (!std::filesystem::exists(file, error)) {
    throw std::runtime_error("there is no file " + file +
                             "; name an SQLite file or a connection string, which has a \"=\"");
  }
  if (!std::filesystem::is_regular_file(file, error))
    throw std::runtime_error(file + " is no file; name an SQLite file");
  if (access(file.c_str(), R_OK) != 0)
    throw std::runtime_error("you may not read " + file + "; ask its owner for the permission");
  if (options.can_edit && access(file.c_str(), W_OK) != 0)
    throw std::runtime_error("you may not write " + file + "; leave out --edit to look at it");
  constexpr std::string_view kMagic = "SQLite format 3\0"sv;
  std::string begin(kMagic.size(), '\0');
  std::ifstream(file, std::ios::binary).read(begin.data(), static_cast<std::streamsize>(begin.size()));
  if (begin != kMagic && std::filesystem::file_size(file, error) > 0)
    throw std::runtime_error(file + " is no SQLite database; name one, or a connection string");
}

std::string ShownName(const Options& options) {
  if (IsConnectionString(options.database)) return "the database";
  return std::filesystem::path(options.database).filename().string();
}

}  // namespace serve
