#include "database/sqlite/memory_map.h"

#include <linux/magic.h>
#include <sys/vfs.h>

#include <algorithm>
#include <array>
#include <string>

namespace dralo::database::sqlite {
namespace {

// Not all kernel headers have these.
constexpr unsigned kCifsMagic = 0xFF534D42;
constexpr unsigned kSmb2Magic = 0xFE534D42;
constexpr unsigned kFuseMagic = 0x65735546;
constexpr unsigned kCephMagic = 0x00C36400;

constexpr std::array kRemote = {unsigned{NFS_SUPER_MAGIC},
                                unsigned{SMB_SUPER_MAGIC},
                                unsigned{AFS_SUPER_MAGIC},
                                unsigned{CODA_SUPER_MAGIC},
                                unsigned{V9FS_MAGIC},
                                kCifsMagic,
                                kSmb2Magic,
                                kFuseMagic,
                                kCephMagic};

bool IsLocal(const std::string& path) {
  struct statfs found = {};
  if (statfs(path.c_str(), &found) != 0) return false;
  return std::ranges::find(kRemote, static_cast<unsigned>(found.f_type)) == kRemote.end();
}

}  // namespace

void MapFile(sqlite3* connection, const Options& options) {
  if (options.memory_map_mb == 0 || options.path == kInMemory || !IsLocal(options.path)) return;
  const std::string pragma = "PRAGMA mmap_size=" + std::to_string(options.memory_map_mb) + "000000";
  sqlite3_exec(connection, pragma.c_str(), nullptr, nullptr, nullptr);
}

}  // namespace dralo::database::sqlite
