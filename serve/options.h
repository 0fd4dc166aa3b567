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
  int port = 8080;  ///< 0 takes a free port.
  bool can_edit = false;
  std::string user_file;           ///< Empty: no sign-in.
  std::vector<std::string> names;  ///< Host names in addition to those that are found.
};

/// A command line that is not understood; the text is one sentence.
class WrongUsage : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// `words` are those after the program's name. Throws WrongUsage.
Options ParseOptions(std::span<const char* const> words);

/// What --help prints.
std::string HelpText();

/// Whether the database is an SQLite file that is named, not a connection string.
bool IsFile(const Options& options);

/// The connection string for `options`: a file is SQLite, opened read-only unless it is to be edited.
std::string ConnectionString(const Options& options);

/// Throws std::runtime_error, which says what to do, when the database is a file that cannot be read, or
/// cannot be written although it is to be edited.
void RequireFile(const Options& options);

/// The database as people may see it: a file, or a connection string without its password.
std::string ShownName(const Options& options);

}  // namespace serve
