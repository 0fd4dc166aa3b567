#pragma once

#include <span>
#include <stdexcept>
#include <string>
#include <vector>

namespace serve {

/// What the command line asks for.
struct Options {
  bool shows_help = false;
  bool shows_version = false;
  std::string database;  ///< An SQLite file that is there, or a connection string, which has a "=".
  std::vector<std::string> tables;  ///< None: all.
  std::string host = "127.0.0.1";
  int port = 8080;  ///< 0 takes a free one.
  bool can_edit = false;
  std::string user_file;           ///< Empty: everybody may come.
  std::vector<std::string> names;  ///< Host names besides those that are found out.
};

/// A command line that cannot be understood; the text is one sentence.
class WrongUsage : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// `words` are those behind the program's name. Throws WrongUsage.
Options ParseOptions(std::span<const char* const> words);

/// What --help prints.
std::string HelpText();

/// The connection string that `options` mean: a file is SQLite, and only read unless it is to be edited.
std::string ConnectionString(const Options& options);

/// Throws std::runtime_error that says what to do when the database is meant to be a file and is none that
/// can be read, or written where it is to be edited.
void RequireFile(const Options& options);

/// The database as people may see it: a file, or a connection string without its password.
std::string ShownName(const Options& options);

}  // namespace serve
