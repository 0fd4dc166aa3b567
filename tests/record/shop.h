#pragma once

#include <sqlite3.h>

#include <memory>
#include <string>
#include <string_view>

namespace dralo::record {

/// The database of the pages: a file that every page finds as the first one did.
class Shop {
 public:
  Shop();
  ~Shop();
  Shop(const Shop&) = delete;
  Shop& operator=(const Shop&) = delete;

  /// The folder of the file, which is another one in every run.
  const std::string& Folder() const { return folder_; }

  std::string ConnectionString() const {
    return "Provider=SQLite;Data Source=" + folder_ + "/shop.db;Busy Timeout=0";
  }

  /// All tables with all their rows when somebody has written since the last call; empty when nobody has.
  /// Puts everything back.
  std::string TakeChanges();

 private:
  struct Close {
    void operator()(sqlite3* database) const { sqlite3_close(database); }
  };
  using Handle = std::unique_ptr<sqlite3, Close>;

  static Handle Open(const std::string& path);
  std::int64_t Version() const;
  std::string Content() const;
  void Restore();

  std::string folder_;
  Handle original_;
  Handle file_;
  std::int64_t version_ = 0;  ///< Another one after every write of another connection.
};

}  // namespace dralo::record
