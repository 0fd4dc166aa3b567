#pragma once

#include <arpa/inet.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <utility>

namespace dralo::tests {

/// Stands between a client and a server of 127.0.0.1, for one connection after another, and passes everything
/// on until it is told to stall, when it stays connected and passes nothing on, or to cut a connection.
class StallingProxy {
 public:
  explicit StallingProxy(const std::string& port)
      : server_port_(static_cast<std::uint16_t>(std::stoi(port))), listener_(NewSocket()) {
    sockaddr_in address = AddressOf(0);
    socklen_t size = sizeof address;
    bind(listener_, reinterpret_cast<sockaddr*>(&address), size);
    listen(listener_, 8);
    getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &size);
    port_ = ntohs(address.sin_port);
    thread_ = std::thread([this] { Serve(); });
  }
  ~StallingProxy() {
    is_ending_ = true;
    thread_.join();
    close(listener_);
  }
  StallingProxy(const StallingProxy&) = delete;
  StallingProxy& operator=(const StallingProxy&) = delete;

  std::string Port() const { return std::to_string(port_); }

  void Stall() { is_stalling_ = true; }

  /// How often the client has sent something after the server's last answer, which it then waited for.
  int Trips() const { return trips_; }

  /// Where a connection is cut: before the server has got what the client sends, or behind that, when the
  /// server's answer is there.
  enum class Cut { kBefore, kBehind };

  /// Cuts the connection on which the client sends the word next; only that one.
  void CutAt(const std::string& word, Cut where) {
    const std::lock_guard lock(mutex_);
    cut_ = {word, where};
  }

  /// As soon as so many more bytes have gone.
  void StallAfter(int bytes) { bytes_left_ = bytes; }

 private:
  static constexpr int kTickMs = 10;

  static int NewSocket() { return socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0); }

  static sockaddr_in AddressOf(std::uint16_t port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(port);
    return address;
  }

  static bool HasSomething(int descriptor) {
    pollfd watched{descriptor, POLLIN, 0};
    return poll(&watched, 1, kTickMs) > 0;
  }

  void Serve() {
    while (!is_ending_) {
      if (!HasSomething(listener_)) continue;
      const int client = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
      const int server = NewSocket();
      const sockaddr_in address = AddressOf(server_port_);
      connect(server, reinterpret_cast<const sockaddr*>(&address), sizeof address);
      has_answered_ = true;
      while (!is_ending_ && PassOn(client, server, false) && PassOn(server, client, true)) {
      }
      close(client);
      close(server);
    }
  }

  /// False when the connection has ended.
  bool PassOn(int from, int to, bool is_answer) {
    if (is_stalling_ || !HasSomething(from)) return true;
    std::array<char, 4096> bytes{};
    const ssize_t count = recv(from, bytes.data(), bytes.size(), 0);
    if (count > 0 && std::exchange(has_answered_, is_answer) && !is_answer) ++trips_;
    if (count > 0 && !is_answer && IsCut(to, {bytes.data(), static_cast<std::size_t>(count)})) return false;
    if (bytes_left_ > 0 && (bytes_left_ -= static_cast<int>(count)) <= 0) Stall();
    return count > 0 && send(to, bytes.data(), static_cast<std::size_t>(count), MSG_NOSIGNAL) == count;
  }

  bool IsCut(int server, std::string_view sent) {
    const std::lock_guard lock(mutex_);
    const auto& [word, where] = cut_;
    if (word.empty() || sent.find(word) == sent.npos) return false;
    if (where == Cut::kBehind) {
      send(server, sent.data(), sent.size(), MSG_NOSIGNAL);
      while (!is_ending_ && !HasSomething(server)) {
      }
    }
    cut_ = {};
    return true;
  }

  const std::uint16_t server_port_;
  const int listener_;
  std::uint16_t port_ = 0;
  std::atomic<bool> is_stalling_ = false;
  std::atomic<int> bytes_left_ = 0;  ///< Before it stalls; 0 for any number.
  std::atomic<bool> is_ending_ = false;
  std::atomic<int> trips_ = 0;
  std::mutex mutex_;
  std::pair<std::string, Cut> cut_;
  bool has_answered_ = false;
  std::thread thread_;
};

}  // namespace dralo::tests
