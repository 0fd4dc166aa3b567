#include "database/odbc/socket_watch.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <string>

namespace dralo::database::odbc {

namespace {

bool IsConnectedSocket(int descriptor) {
  struct stat status {};
  if (fstat(descriptor, &status) != 0 || !S_ISSOCK(status.st_mode)) return false;
  sockaddr_storage peer{};
  socklen_t size = sizeof peer;
  return getpeername(descriptor, reinterpret_cast<sockaddr*>(&peer), &size) == 0;
}

std::vector<int> ConnectedSockets() {
  std::vector<int> sockets;
  std::error_code error;
  for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd", error)) {
    const std::string name = entry.path().filename();
    int descriptor = -1;
    std::from_chars(name.data(), name.data() + name.size(), descriptor);
    if (IsConnectedSocket(descriptor)) sockets.push_back(descriptor);
  }
  return sockets;
}

}  // namespace

SocketWatch::SocketWatch() : before_(ConnectedSockets()) {}

void SocketWatch::Find() {
  int found = 0;
  for (const int descriptor : ConnectedSockets()) {
    if (std::ranges::find(before_, descriptor) != before_.end()) continue;
    socket_ = descriptor;
    ++found;
  }
  if (found != 1) socket_ = -1;
  before_.clear();
}

bool SocketWatch::HasEnded() const {
  pollfd watched{socket_, POLLIN | POLLRDHUP, 0};
  return poll(&watched, 1, 0) != 0;
}

}  // namespace dralo::database::odbc
